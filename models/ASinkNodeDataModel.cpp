// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "models/ASinkNodeDataModel.h"

namespace Plugin {
namespace Halvex {

ASinkNodeDataModel::ASinkNodeDataModel(QString uniqueName)
    : ANodeDataModel(std::move(uniqueName))
    , m_dataFlowProxy(new CNodeDataFlowProxy(this))
{
    connect(m_dataFlowProxy.data(), &CNodeDataFlowProxy::newDataAvailable, this,
            &ASinkNodeDataModel::onNewDataAvailable);
}

ASinkNodeDataModel::~ASinkNodeDataModel()
{
    // The last data may be the last of its kind, and its destructor may feed the proxy or ask for the output: it must
    // find a model that has none and takes none.
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
    m_data.swap(ptrNodeData); // the previous data goes with the argument, when nothing here is touched any more
}

} // namespace Halvex
} // namespace Plugin
