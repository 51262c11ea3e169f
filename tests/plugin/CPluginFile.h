// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IPlugin.h>

#include <QFile>
#include <QPluginLoader>
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

/// Whether any part of the library is in this process.
inline bool isLibraryMapped()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return !maps.open(QIODevice::ReadOnly) || maps.readAll().contains("libHalvex");
}
