// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IPlugin.h>

#include <QPluginLoader>
#include <QString>

namespace Plugin::Halvex::Testing {

/// The plugin in a file, unloaded when this object goes. Threads: the main thread.
class CLoadedPlugin
{
public:
    explicit CLoadedPlugin(const QString& file);
    ~CLoadedPlugin();
    Q_DISABLE_COPY(CLoadedPlugin)

    /// Null if it is none for this host.
    Core::Plugin::IPlugin* plugin() const { return m_plugin; }

    /// Why there is none, in one line.
    QString error() const { return m_error; }

private:
    QPluginLoader m_loader;
    Core::Plugin::IPlugin* m_plugin = nullptr; // the loader's
    QString m_error;
};

} // namespace Plugin::Halvex::Testing
