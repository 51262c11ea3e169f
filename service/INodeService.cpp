// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "service/INodeService.h"

#include "graph/support/CMetaTypeRegistration_p.h"

namespace Plugin {
namespace Halvex {

INodeService::INodeService(QObject* parent)
    : IService(parent)
    , m_registry(std::make_shared<CNodeDataModelRegistry>())
{
    // The signals carry scenes. Qt would register the pointer with the first spy on one of them, and could not take it
    // back when the library is unloaded.
    static const CMetaTypeRegistration<CNodeScene*> scenePointer("Plugin::Halvex::CNodeScene*");
}

INodeService::~INodeService() = default;

} // namespace Halvex
} // namespace Plugin
