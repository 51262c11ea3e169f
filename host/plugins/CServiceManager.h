// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IServiceManager.h>

#include <vector>

namespace Host {

/// The services that plugins have published, in the order in which they did. Threads: the host's main thread.
class CServiceManager : public Core::Service::IServiceManager
{
public:
    /// Null, and a service that is registered already, are left out.
    void registerService(const QSharedPointer<Core::Service::IService>& service) override;
    void unregisterService(const QSharedPointer<Core::Service::IService>& service) override;
    QSharedPointer<Core::Service::IService> findService(const char* className) const override;

    std::size_t size() const { return m_services.size(); }

    /// Lets go of all but the first \a size, the last one first.
    void truncate(std::size_t size);

private:
    std::vector<QSharedPointer<Core::Service::IService>> m_services;
};

} // namespace Host
