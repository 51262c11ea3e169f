// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IService.h>

#include <QSharedPointer>

namespace Core {
namespace Service {

/**
 * Where plugins publish their services; the host implements it. Plugins need registerService() and unregisterService();
 * whether services can be looked up is up to the host.
 *
 * The manager shares ownership of a service from registerService() until unregisterService(). All operations
 * are called from the host's main thread.
 */
class Q_DECL_EXPORT IServiceManager
{
public:
    virtual ~IServiceManager() = default;

    /// Publishes \a service, and shares it from here on.
    virtual void registerService(const QSharedPointer<IService>& service) = 0;
    /// Withdraws \a service, and lets go of it.
    virtual void unregisterService(const QSharedPointer<IService>& service) = 0;

    /// The first of the registered services that inherits the class of that name, "Plugin::Halvex::INodeService" for
    /// example; null if there is none, and in a host that does not override this.
    virtual QSharedPointer<IService> findService(const char* className) const
    {
        Q_UNUSED(className)
        return {};
    }
};

} // namespace Service
} // namespace Core
