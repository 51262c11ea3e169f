// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "models/ASourceNodeDataModel.h"

#include "models/CSourceDataFlowProxy_p.h"

namespace Plugin {
namespace Halvex {

ASourceNodeDataModel::ASourceNodeDataModel(QString uniqueName)
    : ANodeDataModel(std::move(uniqueName))
    , m_dataFlowProxy(new CSourceDataFlowProxy(this))
{
    m_modelType = ENodeDataModelType::Source;
    connect(m_dataFlowProxy.data(), &CNodeDataFlowProxy::newDataAvailable, this,
            &ASourceNodeDataModel::onNewDataAvailable);
}

ASourceNodeDataModel::~ASourceNodeDataModel()
{
    // The last data may be the last of its kind, and its destructor may feed the proxy or ask for the output: it must
    // find a model that has none and takes none.
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
    const auto* const proxy = static_cast<const CSourceDataFlowProxy*>(m_dataFlowProxy.data());
    return proxy ? proxy->entry() : CNodeDataEntry();
}

CNodeDataPtr ASourceNodeDataModel::outData(NodePortIndex index)
{
    Q_UNUSED(index)
    return m_data;
}

void ASourceNodeDataModel::onNewDataAvailable(CNodeDataPtr ptrNodeData)
{
    // The previous frame goes before the walk begins, so that a camera gets its buffer back. It may be the last
    // pointer to it, and a data object's destructor is foreign code that may destroy this model.
    const CWeakLink<ASourceNodeDataModel> self(this, m_guards);
    m_data.swap(ptrNodeData);
    ptrNodeData.reset();
    if (self.get())
        Q_EMIT dataUpdated(0);
}

} // namespace Halvex
} // namespace Plugin
