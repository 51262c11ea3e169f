// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "platform/ALocalizedPlugin.h"
#include "service/INodeService.h"
#include "support/CServiceManager.h"

#include <QFile>
#include <QPluginLoader>
#include <QSharedPointer>
#include <QString>

/// A plugin's file; unloaded, and its object destroyed, with this object.
class CPluginFile
{
public:
    explicit CPluginFile(const char* path)
        : m_loader(QString::fromUtf8(path))
    {
        m_loader.setLoadHints({}); // Qt's default keeps the file in memory for good
    }
    ~CPluginFile() { m_loader.unload(); }
    Q_DISABLE_COPY(CPluginFile)

    QPluginLoader& loader() { return m_loader; }
    QObject* instance() { return m_loader.instance(); }
    /// Ends the program with the reason if the file is no plugin.
    Core::Plugin::IPlugin& plugin()
    {
        auto* const plugin = dynamic_cast<Core::Plugin::IPlugin*>(instance());
        if (plugin == nullptr)
            qFatal("%s", qPrintable(m_loader.errorString()));
        return *plugin;
    }

private:
    QPluginLoader m_loader;
};

/// A host of the library's plugin and of the test's own, from initialize() to uninitialize() and unloading. It knows
/// no more of the library than its headers.
class CPluginHost
{
public:
    CPluginHost()
        : m_isUp(m_halvex.plugin().initialize(m_manager) && m_models.plugin().initialize(m_manager) &&
                 m_halvex.plugin().extensionsInitialized() && m_models.plugin().extensionsInitialized())
    {
    }
    ~CPluginHost() { shutDown(); }
    Q_DISABLE_COPY(CPluginHost)

    bool isUp() const { return m_isUp; }

    /// Uninitializes both plugins, once; they stay loaded.
    void shutDown()
    {
        if (!m_isUp)
            return;
        m_isUp = false;
        m_models.plugin().uninitialize(m_manager);
        m_halvex.plugin().uninitialize(m_manager);
    }

    Plugin::Halvex::INodeService* service() const
    {
        return static_cast<Plugin::Halvex::INodeService*>(
            m_manager->findService("Plugin::Halvex::INodeService").data());
    }
    const QSharedPointer<CServiceManager>& manager() const { return m_manager; }
    CPluginFile& halvex() { return m_halvex; }
    CPluginFile& models() { return m_models; }

    void setLanguage(const QString& language)
    {
        dynamic_cast<Core::Plugin::ALocalizedPlugin&>(*m_halvex.instance()).setLanguage(language);
    }

private:
    // In this order: the test's plugin links the library, so it goes first.
    CPluginFile m_halvex{HALVEX_PLUGIN_FILE};
    CPluginFile m_models{TEST_MODELS_PLUGIN_FILE};
    QSharedPointer<CServiceManager> m_manager{new CServiceManager};
    bool m_isUp;
};

/// Whether any part of the library is in this process.
inline bool isLibraryMapped()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return !maps.open(QIODevice::ReadOnly) || maps.readAll().contains("libHalvex");
}
