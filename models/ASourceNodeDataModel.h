// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/NodePortIndex.h>
#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/models/CNodeDataEntry.h>
#include <Halvex/models/CNodeDataFlowProxy.h>

#include <QPointer>
#include <QString>

namespace Plugin::Halvex {

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
 * What arrives replaces what was stored, and is then announced with dataUpdated(0). Both happen in the graph's thread:
 * before the proxy's setData() returns if that is called in this thread, otherwise from its event loop. Empty data
 * (null) is stored, and announced by the same signal, but a node passes nothing on for it.
 *
 * Threads: getDataFlowProxy() and dataEntry() are for the graph's thread. Other threads get what these return: they may
 * call the proxy's setData() until the model is destroyed, and that of an entry as long as they like.
 *
 * Subclasses owe caption(), name(), nPorts(), dataType(), setInData() and isUnique().
 */
class HALVEX_EXPORT ASourceNodeDataModel : public ANodeDataModel
{
    Q_OBJECT

public:
    /// As ANodeDataModel, with the kind Source.
    explicit ASourceNodeDataModel(QString uniqueName = noUniqueName());
    ~ASourceNodeDataModel() override;

    /// Where outside code puts data in. The model owns the proxy; the pointer becomes null when it goes.
    QPointer<CNodeDataFlowProxy> getDataFlowProxy();

    /// The way in for other threads, which may use it after the model is gone. Leads nowhere if somebody has destroyed
    /// the proxy.
    CNodeDataEntry dataEntry() const;

    /// The last data, whatever the \a index: a source with several output ports offers the same on all of them.
    CNodeDataPtr outData(NodePortIndex index) override;

private Q_SLOTS:
    void onNewDataAvailable(CNodeDataPtr ptrNodeData);

private:
    QPointer<CNodeDataFlowProxy> m_dataFlowProxy;
    CNodeDataPtr m_data;
};

} // namespace Plugin::Halvex
