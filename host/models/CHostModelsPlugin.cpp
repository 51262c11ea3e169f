// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CHostModelsPlugin.h"

#include "host/models/HostModels.h"

#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/service/INodeService.h>

namespace Host {

CHostModelsPlugin::CHostModelsPlugin()
    : m_service(new CHostModelService)
{
}

CHostModelsPlugin::~CHostModelsPlugin()
{
    // Filters and sinks that are gone may still be at work, in code of this plugin.
    Plugin::Halvex::AWorkerNodeDataModel::waitForRemovedWork();
}

bool CHostModelsPlugin::initialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    m_manager = manager;
    const auto present = manager.toStrongRef();
    if (!present)
        return false;
    present->registerService(m_service);
    return true;
}

bool CHostModelsPlugin::extensionsInitialized()
{
    const auto manager = m_manager.toStrongRef();
    if (!manager)
        return false;
    using Plugin::Halvex::INodeService;
    const auto service = manager->findService(INodeService::staticMetaObject.className());
    auto* nodeService = qobject_cast<INodeService*>(service.data());
    if (!nodeService)
        return false;
    registerHostModels(*nodeService);
    return true;
}

bool CHostModelsPlugin::uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    if (const auto present = manager.toStrongRef())
        present->unregisterService(m_service);
    m_service.reset();
    return true;
}

} // namespace Host
