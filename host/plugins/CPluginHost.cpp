// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CPluginHost.h"

#include "host/base/Attempt.h"
#include "host/base/Shown.h"
#include "host/plugins/CPluginFolder.h"

#include <Halvex/platform/ALocalizedPlugin.h>
#include <Halvex/platform/IPlugin.h>
#include <Halvex/scene/CNodeScene.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPluginLoader>

#include <algorithm>

#include <dlfcn.h>

namespace Host {

namespace {

Q_LOGGING_CATEGORY(hostLog, "halvex.host")

SPluginInfo hostInfo()
{
    SPluginInfo info;
    info.name = QStringLiteral("AppCore");
    info.version = info.compatVersion = CPluginHost::hostVersion();
    return info;
}

// The file that the library's code in this process comes from; empty when it is no library.
QString libraryFile()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&Plugin::Halvex::CNodeScene::noNode), &info) == 0)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).canonicalFilePath();
}

// On one line, as the loader's own words are not.
QString loaderError(const QPluginLoader& loader)
{
    return printable(loader.errorString().simplified());
}

// What was queued for later, or is to be deleted then, is code too.
void deliverWhatIsPosted()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

CPluginHost::CPluginHost(const QString& folder)
    : m_services(QSharedPointer<CServiceManager>::create())
{
    const CPluginFolder found(folder, hostInfo());
    m_refusals = found.refusals();
    m_copies = found.copies();
    for (const SPluginInfo& info : found.plugins())
        m_plugins.push_back({info, std::make_unique<QPluginLoader>(info.file)});

    std::vector<SPlugin> leftOut;
    keepWhatPasses([this](SPlugin& plugin) { return load(plugin); }, &leftOut);
    keepWhatPasses([this](SPlugin& plugin) { return initialize(plugin); }, &leftOut);
    for (const SPlugin& plugin : m_plugins) {
        const QString error = attempt(QStringLiteral("extensionsInitialized()"),
                                      [&] { return plugin.instance->extensionsInitialized(); });
        if (!error.isEmpty())
            m_refusals.push_back({plugin.info.file, error, plugin.info.isRequired});
    }
    // Only now: on the way events are delivered, which nobody expects between two initialize().
    unload(leftOut);
}

CPluginHost::~CPluginHost()
{
    const auto reversed = [this](const QString& name, const auto& step) {
        std::for_each(m_plugins.rbegin(), m_plugins.rend(), [&](const SPlugin& plugin) {
            const QString error = attempt(name, [&] { return step(plugin); });
            if (!error.isEmpty())
                qCWarning(hostLog, "plugin '%s': %s", qUtf8Printable(printable(plugin.info.file)),
                          qUtf8Printable(error));
        });
    };
    // One that still has work to end has no way of telling when that is done: it is asked, and then not waited for.
    reversed(QStringLiteral("aboutToUninitialize()"), [](const SPlugin& plugin) {
        plugin.instance->aboutToUninitialize();
        return true;
    });
    reversed(QStringLiteral("uninitialize()"),
             [this](const SPlugin& plugin) { return plugin.instance->uninitialize(m_services); });
    // Before the code goes that they run.
    m_services->truncate(0);
    unload(m_plugins);
}

QString CPluginHost::defaultFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString installed = QDir::cleanPath(program.filePath(QStringLiteral(HALVEX_INSTALLED_PLUGINS)));
    return QDir(installed).exists() ? installed : QDir::cleanPath(program.filePath(QStringLiteral("../plugins")));
}

std::vector<SPluginInfo> CPluginHost::plugins() const
{
    std::vector<SPluginInfo> infos;
    for (const SPlugin& plugin : m_plugins)
        infos.push_back(plugin.info);
    return infos;
}

QString CPluginHost::load(SPlugin& plugin)
{
    if (plugin.info.name == QLatin1String("Halvex")) {
        const QString error = useTheLibrary(&plugin);
        if (!error.isEmpty())
            return error;
    }
    // By default unload() leaves the code where it is.
    plugin.loader->setLoadHints({});
    const QString error =
        attempt(QStringLiteral("loading"), [&plugin] { return plugin.loader->instance() != nullptr; });
    if (!error.isEmpty())
        return plugin.loader->isLoaded() ? error : error + QStringLiteral(": ") + loaderError(*plugin.loader);
    plugin.instance = dynamic_cast<Core::Plugin::IPlugin*>(plugin.loader->instance());
    return plugin.instance ? QString() : QStringLiteral("its instance is no plugin for this host");
}

// Two copies of the library in one process would each have their own idea of what a scene is: the one that the program
// is linked with stands for a copy of it.
QString CPluginHost::useTheLibrary(SPlugin* plugin)
{
    const QString used = libraryFile();
    if (plugin->info.file == used)
        return {};
    QString error;
    const SPluginInfo info = SPluginInfo::read(used, &error);
    if (!error.isEmpty() || info.version != plugin->info.version)
        return QStringLiteral("version %1 of the library, while '%2' is in use; leave this file out")
            .arg(plugin->info.version.toString(), printable(used));
    m_copies.push_back({plugin->info.file,
                        QStringLiteral("a copy of '%1', which the program has loaded already").arg(printable(used))});
    plugin->info = info;
    plugin->loader = std::make_unique<QPluginLoader>(used);
    return {};
}

QString CPluginHost::initialize(SPlugin& plugin) const
{
    const std::size_t published = m_services->size();
    const QString error =
        attempt(QStringLiteral("initialize()"), [&] { return plugin.instance->initialize(m_services); });
    if (error.isEmpty())
        return {};
    const QString undoing =
        attempt(QStringLiteral("uninitialize()"), [&] { return plugin.instance->uninitialize(m_services); });
    // What it does not withdraw itself would outlive its code.
    m_services->truncate(published);
    return undoing.isEmpty() ? error : error + QStringLiteral("; ") + undoing;
}

void CPluginHost::keepWhatPasses(const Step& step, std::vector<SPlugin>* leftOut)
{
    std::vector<SPlugin> all;
    all.swap(m_plugins);
    for (SPlugin& plugin : all) {
        QString error = lacking(plugin.info);
        if (error.isEmpty())
            error = step(plugin);
        if (!error.isEmpty())
            m_refusals.push_back({plugin.info.file, error, plugin.info.isRequired});
        std::vector<SPlugin>& kept = error.isEmpty() ? m_plugins : *leftOut;
        kept.push_back(std::move(plugin));
    }
}

void CPluginHost::unload(const std::vector<SPlugin>& plugins)
{
    deliverWhatIsPosted();
    // All objects before any code: one may still hold what is code of another, one that needs it included.
    std::for_each(plugins.rbegin(), plugins.rend(), [](const SPlugin& plugin) { delete plugin.instance; });
    deliverWhatIsPosted();
    std::for_each(plugins.rbegin(), plugins.rend(), [](const SPlugin& plugin) {
        if (plugin.loader->isLoaded() && !plugin.loader->unload())
            qCWarning(hostLog, "plugin '%s': it stays loaded: %s", qUtf8Printable(printable(plugin.info.file)),
                      qUtf8Printable(loaderError(*plugin.loader)));
    });
}

QString CPluginHost::lacking(const SPluginInfo& info) const
{
    for (const SPluginDependency& dependency : info.dependencies) {
        const bool isThere = dependency.name == hostInfo().name ||
                             std::any_of(m_plugins.begin(), m_plugins.end(), [&dependency](const SPlugin& plugin) {
                                 return plugin.info.name == dependency.name;
                             });
        if (!isThere)
            return QStringLiteral("it needs %1, which is left out").arg(shown(dependency.name));
    }
    return {};
}

void CPluginHost::setLanguage(const QString& language) const
{
    for (const SPlugin& plugin : m_plugins) {
        if (auto* const localized = dynamic_cast<Core::Plugin::ALocalizedPlugin*>(plugin.instance))
            localized->setLanguage(language);
    }
}

} // namespace Host
