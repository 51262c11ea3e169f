// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "platform/IService.h"

#include <QSharedPointer>

namespace Core {
namespace Service {

/**
 * Where plugins publish their services; the host implements it.
 *
 * The manager shares ownership of a service from registerService() until unregisterService(). Both are called
 * from the host's main thread.
 */
class Q_DECL_EXPORT IServiceManager
{
public:
    virtual ~IServiceManager() = default;

    virtual void registerService(const QSharedPointer<IService>& service) = 0;
    virtual void unregisterService(const QSharedPointer<IService>& service) = 0;
};

} // namespace Service
} // namespace Core
