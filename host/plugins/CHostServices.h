// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QSharedPointer>
#include <QString>

#include <memory>

namespace Core {
namespace Service {
class IService;
}
} // namespace Core

namespace Plugin::Halvex {
class INodeService;
}

namespace Host {

class CPluginHost;
class IHostModels;

/**
 * The plugins of a folder, and the services among them that the program needs.
 *
 * \code
 * CHostServices services(folder);
 * QString error = services.load();
 * if (error.isEmpty())
 *     services.nodes().importDocument(text);
 * \endcode
 *
 * What comes of a service goes before this object does. Threads: the host's main thread.
 */
class CHostServices
{
public:
    /// \a folder: empty for that of the program.
    explicit CHostServices(const QString& folder);
    ~CHostServices();
    Q_DISABLE_COPY(CHostServices)

    QString folder() const { return m_folder; }

    /// Loads the plugins. False, with the reason in \a error, when the folder cannot be read.
    bool loadPlugins(QString* error);

    /// The same, and finds the services; plugins that were left out are told on standard error. Returns what is
    /// missing, in one line; empty on success.
    QString load();

    /// After loadPlugins().
    const CPluginHost& plugins() const { return *m_plugins; }

    /// After load().
    Plugin::Halvex::INodeService& nodes() const { return *m_nodeService; }
    const IHostModels& models() const { return *m_models; }

private:
    const QString m_folder;
    // In this order: the services go before the code that they run.
    std::unique_ptr<CPluginHost> m_plugins;
    QSharedPointer<Plugin::Halvex::INodeService> m_nodeService;
    QSharedPointer<Core::Service::IService> m_modelService;
    const IHostModels* m_models = nullptr; // the same object
};

} // namespace Host
