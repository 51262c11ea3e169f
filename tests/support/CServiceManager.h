// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IServiceManager.h>

#include <QSharedPointer>
#include <QVector>

/// Where plugins publish their services, as a host has it.
class CServiceManager : public Core::Service::IServiceManager
{
public:
    using ServicePtr = QSharedPointer<Core::Service::IService>;

    void registerService(const ServicePtr& service) override { m_services.append(service); }
    void unregisterService(const ServicePtr& service) override { m_services.removeOne(service); }
    ServicePtr findService(const char* className) const override
    {
        for (const ServicePtr& service : m_services) {
            if (service->inherits(className))
                return service;
        }
        return {};
    }

    const QVector<ServicePtr>& services() const { return m_services; }

private:
    QVector<ServicePtr> m_services;
};
