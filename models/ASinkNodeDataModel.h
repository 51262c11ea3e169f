// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "models/ANodeDataModel.h"
#include "models/CNodeDataFlowProxy.h"

#include <Halvex/HalvexExport.h>

#include <QPointer>

namespace Plugin {
namespace Halvex {

/**
 * A model whose data leaves the graph to outside listeners, through its proxy.
 *
 * \code
 * connect(display.getDataFlowProxy().data(), &CNodeDataFlowProxy::newDataAvailable, window, &CWindow::onFrame);
 *
 * void CDisplayModel::setInData(CNodeDataPtr data, NodePortIndex) { getDataFlowProxy()->setData(data); }
 * \endcode
 *
 * Threads: listeners run as they are connected, by default in their own thread; setData() may be called from any
 * thread, and the model stores the data in its own: before setData() returns if that was called there, else from its
 * event loop.
 *
 * The subclass decides what it passes to the proxy's setData() and when; every listener gets it, and the model keeps
 * the last. Subclasses owe caption(), name(), nPorts(), dataType(), setInData(), outData() and isUnique().
 */
class HALVEX_EXPORT ASinkNodeDataModel : public ANodeDataModel
{
    Q_OBJECT

public:
    explicit ASinkNodeDataModel(QString uniqueName = QStringLiteral("Halvex.NoUniqueName"));
    ~ASinkNodeDataModel() override;

    /// Where outside code listens. The proxy is owned by the model and goes with it; the pointer is then null.
    QPointer<CNodeDataFlowProxy> getDataFlowProxy();

private Q_SLOTS:
    void onNewDataAvailable(CNodeDataPtr ptrNodeData);

private:
    QPointer<CNodeDataFlowProxy> m_dataFlowProxy;
    CNodeDataPtr m_data;
};

} // namespace Halvex
} // namespace Plugin
