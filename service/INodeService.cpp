// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "service/INodeService.h"

namespace Plugin {
namespace Halvex {

INodeService::INodeService(QObject* parent)
    : IService(parent)
    , m_registry(std::make_shared<CNodeDataModelRegistry>())
{
}

INodeService::~INodeService() = default;

} // namespace Halvex
} // namespace Plugin
