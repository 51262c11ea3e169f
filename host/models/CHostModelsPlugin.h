// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CHostModelService.h"

#include <Halvex/platform/IPlugin.h>

#include <QSharedPointer>

namespace Host {

/**
 * Brings the host's models into the graph, as any plugin would: registers them with the published node service once
 * that is there, and publishes a service of its own, see IHostModels.
 *
 * Threads: the host's main thread.
 */
class CHostModelsPlugin : public Core::Plugin::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID HALVEX_PLUGIN_IID FILE "HalvexHostModels.json")

public:
    CHostModelsPlugin();

    /// Waits for the work of filters and sinks that are gone, 30 seconds at most.
    ~CHostModelsPlugin() override;

    /// Publishes the service. False when there is nobody to publish it with.
    bool initialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;

    /// Registers the models. False without a node service.
    bool extensionsInitialized() override;

    bool uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;

private:
    QSharedPointer<CHostModelService> m_service;
    QWeakPointer<Core::Service::IServiceManager> m_manager;
};

} // namespace Host
