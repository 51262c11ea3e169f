// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/models/CNodeDataFlowProxy.h>

#include <QPointer>
#include <QString>

namespace Plugin::Halvex {

/**
 * A model whose data leaves the graph to outside listeners, through its proxy.
 *
 * \code
 * void CDisplayModel::setInData(CNodeDataPtr data, NodePortIndex) { getDataFlowProxy()->setData(data); }
 *
 * QObject::connect(display.getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, window, &CWindow::onFrame);
 * \endcode
 *
 * The subclass decides what goes out: every listener gets what it passes to the proxy's setData(). The model keeps the
 * last of it.
 *
 * Threads: everything here is for the graph's thread. A listener runs in its own thread, unless it is connected
 * directly. Data that another thread passes to the proxy is stored from the event loop of the graph's thread.
 *
 * Subclasses owe caption(), name(), nPorts(), dataType(), setInData(), outData() and isUnique().
 */
class HALVEX_EXPORT ASinkNodeDataModel : public ANodeDataModel
{
    Q_OBJECT

public:
    /// As ANodeDataModel, with the kind Sink.
    explicit ASinkNodeDataModel(QString uniqueName = noUniqueName());
    ~ASinkNodeDataModel() override;

    /// Where outside code listens. The model owns the proxy; the pointer becomes null when it goes.
    QPointer<CNodeDataFlowProxy> getDataFlowProxy();

private Q_SLOTS:
    void onNewDataAvailable(CNodeDataPtr ptrNodeData);

private:
    QPointer<CNodeDataFlowProxy> m_dataFlowProxy;
    CNodeDataPtr m_data;
};

} // namespace Plugin::Halvex
