// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/CServiceList_p.h"

#include <algorithm>

namespace Plugin::Halvex::Testing {

using Core::Service::IService;

void CServiceList::registerService(const QSharedPointer<IService>& service)
{
    m_services.push_back(service);
}

void CServiceList::unregisterService(const QSharedPointer<IService>& service)
{
    const auto found = std::find(m_services.begin(), m_services.end(), service);
    if (found != m_services.end())
        m_services.erase(found);
}

QSharedPointer<IService> CServiceList::findService(const char* className) const
{
    const auto found = std::find_if(m_services.begin(), m_services.end(), [className](const auto& service) {
        return service && service->inherits(className);
    });
    return found == m_services.end() ? QSharedPointer<IService>() : *found;
}

const ITestData* CServiceList::testData() const
{
    for (const QSharedPointer<IService>& service : m_services) {
        if (const auto* const data = qobject_cast<ITestData*>(service.data()))
            return data;
    }
    return nullptr;
}

} // namespace Plugin::Halvex::Testing
