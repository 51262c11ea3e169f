// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/ASourceNodeDataModel.h>

#include "models/StoreNewestData_p.h"

namespace Plugin::Halvex {

ASourceNodeDataModel::ASourceNodeDataModel(QString uniqueName)
    : ANodeDataModel(std::move(uniqueName))
    , m_dataFlowProxy(new CNodeDataFlowProxy(this))
{
    // Survives exchanged neighbours: connecting asks for no type of model.
    m_modelType = ENodeDataModelType::Source;
    connect(m_dataFlowProxy.data(), &CNodeDataFlowProxy::newDataAvailable, this,
            &ASourceNodeDataModel::onNewDataAvailable);
}

ASourceNodeDataModel::~ASourceNodeDataModel()
{
    // The destructor of the last data is foreign code. It must find a model that has no data and takes none.
    if (m_dataFlowProxy)
        disconnect(m_dataFlowProxy.data(), nullptr, this, nullptr);
    CNodeDataPtr().swap(m_data);
}

QPointer<CNodeDataFlowProxy> ASourceNodeDataModel::getDataFlowProxy()
{
    return m_dataFlowProxy;
}

CNodeDataEntry ASourceNodeDataModel::dataEntry() const
{
    const CNodeDataFlowProxy* const proxy = m_dataFlowProxy;
    return proxy ? proxy->m_entry : CNodeDataEntry();
}

CNodeDataPtr ASourceNodeDataModel::outData(NodePortIndex)
{
    return m_data;
}

void ASourceNodeDataModel::onNewDataAvailable(CNodeDataPtr ptrNodeData)
{
    // The previous frame is released before the walk begins, so that a camera gets its buffer back.
    if (storeNewestData(*this, m_data, std::move(ptrNodeData)))
        Q_EMIT dataUpdated(0);
}

} // namespace Plugin::Halvex
