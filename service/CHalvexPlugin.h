// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/platform/ALocalizedPlugin.h>
#include <Halvex/platform/IServiceManager.h>
#include <Halvex/service/CNodeService.h>

#include <QSharedPointer>
#include <QWeakPointer>

namespace Plugin::Halvex {

/**
 * The library as the plugin of a host: it publishes the node service and brings the decoupler for grab results.
 *
 * \code
 * QPluginLoader loader(QStringLiteral("plugins/libHalvex.so"));
 * auto* plugin = dynamic_cast<Core::Plugin::IPlugin*>(loader.instance());
 * if (plugin == nullptr)
 *     qWarning("%s", qPrintable(loader.errorString()));
 * else if (plugin->initialize(manager) && plugin->extensionsInitialized())
 *     work(manager->findService("Plugin::Halvex::INodeService"));
 * \endcode
 *
 * docs/plugin.md tells the whole life, with what must be gone before the library is unloaded.
 *
 * Ownership: the service is shared between plugin and manager, from the construction until uninitialize(). With its
 * last owner all its scenes go. After uninitialize() the plugin has no service and publishes none.
 *
 * Errors: none. If the manager is gone, there is nothing to publish with, and that is all.
 *
 * Threads: the host's main thread.
 */
class HALVEX_EXPORT CHalvexPlugin : public Core::Plugin::ALocalizedPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID HALVEX_PLUGIN_IID FILE "Halvex.json")

public:
    /// Makes the service.
    CHalvexPlugin();
    ~CHalvexPlugin() override;

    /// Publishes the service with \a manager. Returns true, even if the manager is gone.
    bool initialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;

    /// Registers the decoupler for grab results, "DecouplerVGR", in the service's registry. Returns true.
    bool extensionsInitialized() override;

    /// Withdraws the service from \a manager and lets go of it. Returns true.
    bool uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;

private:
    QSharedPointer<CNodeService> m_service;
};

} // namespace Plugin::Halvex
