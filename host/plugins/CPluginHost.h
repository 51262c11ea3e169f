// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/plugins/CServiceManager.h"
#include "host/plugins/SPluginInfo.h"

#include <QSharedPointer>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QPluginLoader;

namespace Core {
namespace Plugin {
class IPlugin;
}
} // namespace Core

namespace Host {

/**
 * The life of the plugins in a folder.
 *
 * \code
 * CPluginHost plugins(CPluginHost::defaultFolder());
 * for (const SPluginRefusal& refusal : plugins.refusals())
 *     report(refusal.file, refusal.reason);
 * const auto service = plugins.services().findService("Plugin::Halvex::INodeService");
 * \endcode
 *
 * The constructor loads all, then initializes all, then tells all that everybody is initialized, each plugin behind
 * those that it needs; the destructor goes the same way back. A plugin that fails on the way, or throws, is left out
 * with all that need it, and is one more entry in refusals(): it is uninitialized, and what it has published is
 * withdrawn. One that fails only when everybody is initialized is reported and stays.
 *
 * Before code is unloaded what was posted to this thread is delivered and deleted, and all the plugins' objects go:
 * what a plugin still holds of another is gone before its code. What fails on the way out is a warning in the log.
 *
 * The library itself is in the process once, whichever file it came from: the one that the program is linked with is
 * used for a copy of it in the folder.
 *
 * The host provides "AppCore" in hostVersion(), which stands in for no other version.
 *
 * Whoever holds a service, or anything that came of one, lets go of it before this object goes.
 *
 * Threads: the host's main thread.
 */
class CPluginHost
{
public:
    explicit CPluginHost(const QString& folder);
    ~CPluginHost();
    Q_DISABLE_COPY(CPluginHost)

    /// Where the plugins are installed, seen from the program; in a build, "plugins" beside the program's folder.
    static QString defaultFolder();

    static QVersionNumber hostVersion() { return {1, 3, 1}; }

    /// What was left out of the folder, and why; also what stays though it failed when everybody was initialized. A
    /// host does not go on when one of them is required.
    const std::vector<SPluginRefusal>& refusals() const { return m_refusals; }

    /// What was not loaded because it is a copy of what was, and what stands for it; no harm comes of it.
    const std::vector<SPluginRefusal>& copies() const { return m_copies; }

    /// What was loaded and stays, each behind those that it needs.
    std::vector<SPluginInfo> plugins() const;

    const CServiceManager& services() const { return *m_services; }

    /// Tells every plugin that has texts the host's language: "ko", or "ko_KR".
    void setLanguage(const QString& language) const;

private:
    struct SPlugin
    {
        SPluginInfo info;
        std::unique_ptr<QPluginLoader> loader;
        Core::Plugin::IPlugin* instance = nullptr; // the loader's
    };
    using Step = std::function<QString(SPlugin&)>; // what is wrong, empty on success

    QString load(SPlugin& plugin);
    QString useTheLibrary(SPlugin* plugin);
    QString initialize(SPlugin& plugin) const;
    void keepWhatPasses(const Step& step, std::vector<SPlugin>* leftOut);
    static void unload(const std::vector<SPlugin>& plugins);
    QString lacking(const SPluginInfo& info) const;

    const QSharedPointer<CServiceManager> m_services;
    std::vector<SPlugin> m_plugins; // each behind all that it needs
    std::vector<SPluginRefusal> m_refusals;
    std::vector<SPluginRefusal> m_copies;
};

} // namespace Host
