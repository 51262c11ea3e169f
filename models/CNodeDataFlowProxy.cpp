// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDataFlowProxy.h>

namespace Plugin::Halvex {

CNodeDataFlowProxy::CNodeDataFlowProxy(QObject* parent)
    : QObject(parent)
{
}

CNodeDataFlowProxy::~CNodeDataFlowProxy() = default;

void CNodeDataFlowProxy::setData(CNodeDataPtr ptrNodeData)
{
    Q_EMIT newDataAvailable(std::move(ptrNodeData));
}

} // namespace Plugin::Halvex
