// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IServiceManager.h>
#include <Halvex/testing/ITestData.h>

#include <vector>

namespace Plugin::Halvex::Testing {

/// The services that plugins publish. Threads: the main thread.
class CServiceList : public Core::Service::IServiceManager
{
public:
    void registerService(const QSharedPointer<Core::Service::IService>& service) override;
    void unregisterService(const QSharedPointer<Core::Service::IService>& service) override;
    QSharedPointer<Core::Service::IService> findService(const char* className) const override;

    /// The first that is one; null if none is.
    const ITestData* testData() const;

    void clear() { m_services.clear(); }

    std::size_t size() const { return m_services.size(); }

private:
    std::vector<QSharedPointer<Core::Service::IService>> m_services;
};

} // namespace Plugin::Halvex::Testing
