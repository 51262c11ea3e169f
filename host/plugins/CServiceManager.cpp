// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CServiceManager.h"

#include <Halvex/platform/IService.h>

#include <algorithm>

namespace Host {

using Core::Service::IService;

void CServiceManager::registerService(const QSharedPointer<IService>& service)
{
    if (service && std::find(m_services.begin(), m_services.end(), service) == m_services.end())
        m_services.push_back(service);
}

void CServiceManager::unregisterService(const QSharedPointer<IService>& service)
{
    m_services.erase(std::remove(m_services.begin(), m_services.end(), service), m_services.end());
}

QSharedPointer<IService> CServiceManager::findService(const char* className) const
{
    const auto found = std::find_if(m_services.begin(), m_services.end(),
                                    [className](const auto& service) { return service->inherits(className); });
    return found == m_services.end() ? QSharedPointer<IService>() : *found;
}

void CServiceManager::truncate(std::size_t size)
{
    while (m_services.size() > size) {
        const QSharedPointer<IService> last = m_services.back(); // as it goes it may withdraw others
        m_services.pop_back();
    }
}

} // namespace Host
