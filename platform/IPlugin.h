// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IServiceManager.h>

#include <QObject>
#include <QWeakPointer>

namespace Core {
namespace Plugin {

/**
 * What the host calls on a plugin, in this order: initialize(), extensionsInitialized() once every plugin is
 * initialized, and at the end aboutToUninitialize() and uninitialize(). All in the host's main thread.
 */
class Q_DECL_EXPORT IPlugin : public QObject
{
public:
    /// How a plugin is taken down.
    enum class UninitializeMode
    {
        Synchronous, ///< uninitialize() may be called at once.
        Asynchronous ///< The plugin still has work to end first.
    };

    /// The host makes a plugin without a \a parent, through Qt's plugin loader.
    explicit IPlugin(QObject* parent = nullptr)
        : QObject(parent)
    {
    }

    /// Publishes the plugin's services with \a manager, which may be gone already. False refuses to start;
    /// uninitialize() follows then too, as it does after an exception.
    virtual bool initialize(const QWeakPointer<Service::IServiceManager>& manager) = 0;

    /// Every plugin is initialized: services of others may be used from here on.
    virtual bool extensionsInitialized() = 0;

    /// Withdraws what initialize() published.
    virtual bool uninitialize(const QWeakPointer<Service::IServiceManager>& manager) = 0;

    /// Whether the host may close now; \a force says that it will close in any case.
    virtual bool checkPluginClosability(bool force)
    {
        Q_UNUSED(force)
        return true;
    }

    /// The host is about to call uninitialize(). The answer says whether it may do so at once.
    virtual UninitializeMode aboutToUninitialize() { return UninitializeMode::Synchronous; }
};

} // namespace Plugin
} // namespace Core
