// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CWeakLink.h"
#include "models/ANodeDataModel.h"
#include "models/CNodeDataEntry.h"
#include "models/CNodeDataFlowProxy.h"

#include <Halvex/HalvexExport.h>

#include <QPointer>

namespace Plugin {
namespace Halvex {

/**
 * A model whose data enters the graph from outside, through its proxy.
 *
 * \code
 * const QPointer<CNodeDataFlowProxy> proxy = camera.getDataFlowProxy();
 * const CNodeDataEntry entry = camera.dataEntry();
 *
 * if (proxy)
 *     proxy->setData(frame); // in the graph's thread
 * entry.setData(frame);      // in any other, also after the model is gone
 * \endcode
 *
 * What arrives is stored, replacing what was there, and then announced with dataUpdated(0), all in the graph's thread:
 * before setData() returns if that was called there, else from that thread's event loop. Empty data too is stored and
 * announced, though a node passes nothing on for it.
 *
 * Threads: getDataFlowProxy() and dataEntry() are for the graph's, before the other threads start. Those may call the
 * proxy's setData() until the model is destroyed, and an entry's as long as they like.
 *
 * Subclasses owe caption(), name(), nPorts(), dataType(), setInData() and isUnique().
 */
class HALVEX_EXPORT ASourceNodeDataModel : public ANodeDataModel
{
    Q_OBJECT

public:
    explicit ASourceNodeDataModel(QString uniqueName = QStringLiteral("Halvex.NoUniqueName"));
    ~ASourceNodeDataModel() override;

    /// Where outside code puts data in. The proxy is owned by the model and goes with it; the pointer is then null.
    QPointer<CNodeDataFlowProxy> getDataFlowProxy();

    /// The same way in for threads that the model does not wait for. Leads nowhere if the proxy was destroyed.
    CNodeDataEntry dataEntry() const;

    /// The last data, for every \a index: a source with several output ports offers the same on all.
    CNodeDataPtr outData(NodePortIndex index) override;

private Q_SLOTS:
    void onNewDataAvailable(CNodeDataPtr ptrNodeData);

private:
    QPointer<CNodeDataFlowProxy> m_dataFlowProxy;
    CNodeDataPtr m_data;
    CWeakAnchor<ASourceNodeDataModel> m_guards;
};

} // namespace Halvex
} // namespace Plugin
