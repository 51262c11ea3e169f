// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/ASinkNodeDataModel.h>

#include "models/StoreNewestData_p.h"

namespace Plugin::Halvex {

ASinkNodeDataModel::ASinkNodeDataModel(QString uniqueName)
    : ANodeDataModel(std::move(uniqueName))
    , m_dataFlowProxy(new CNodeDataFlowProxy(this))
{
    connect(m_dataFlowProxy.data(), &CNodeDataFlowProxy::newDataAvailable, this,
            &ASinkNodeDataModel::onNewDataAvailable);
}

ASinkNodeDataModel::~ASinkNodeDataModel()
{
    // The destructor of the last data is foreign code. It must find a model that has no data and takes none.
    if (m_dataFlowProxy)
        disconnect(m_dataFlowProxy.data(), nullptr, this, nullptr);
    CNodeDataPtr().swap(m_data);
}

QPointer<CNodeDataFlowProxy> ASinkNodeDataModel::getDataFlowProxy()
{
    return m_dataFlowProxy;
}

void ASinkNodeDataModel::onNewDataAvailable(CNodeDataPtr ptrNodeData)
{
    storeNewestData(*this, m_data, std::move(ptrNodeData));
}

} // namespace Plugin::Halvex
