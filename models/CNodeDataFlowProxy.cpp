// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDataFlowProxy.h>

namespace Plugin::Halvex {

CNodeDataFlowProxy::CNodeDataFlowProxy(QObject* parent)
    : QObject(parent)
    , m_entry(*this)
{
}

CNodeDataFlowProxy::~CNodeDataFlowProxy()
{
    m_entry.close(); // so that nothing is queued for an object that is no longer there
}

void CNodeDataFlowProxy::setData(CNodeDataPtr ptrNodeData)
{
    Q_EMIT newDataAvailable(std::move(ptrNodeData));
}

} // namespace Plugin::Halvex
