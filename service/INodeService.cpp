// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/service/INodeService.h>

#include "graph/support/CMetaTypeRegistration_p.h"

namespace Plugin::Halvex {

INodeService::INodeService(QObject* parent)
    : IService(parent)
    , m_registry(std::make_shared<CNodeDataModelRegistry>())
{
    // Spies look for the type by the name that the signals have it by. A type under its full name could stay behind in
    // Qt's table, with functions of the unloaded library: Qt keeps what a host, too, has asked for by the class.
    static const CMetaTypeRegistration<CNodeScene*> scenePointer("CNodeScene*");
}

INodeService::~INodeService() = default;

} // namespace Plugin::Halvex
