// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CPluginHost.h"

#include "host/plugins/CPluginFolder.h"
#include "platform/IPlugin.h"
#include "scene/CNodeScene.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPluginLoader>

#include <algorithm>
#include <exception>

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

// What is wrong when \a step, named \a name, fails or throws.
template <typename S>
QString attempt(const char* name, const S& step)
{
    const QString text = QString::fromLatin1(name);
    try {
        return step() ? QString() : QStringLiteral("%1 fails").arg(text);
    } catch (const std::exception& exception) {
        return QStringLiteral("%1 throws: %2").arg(text, QString::fromLocal8Bit(exception.what()).simplified());
    } catch (...) {
        return QStringLiteral("%1 throws").arg(text);
    }
}

} // namespace

CPluginHost::CPluginHost(const QString& folder)
    : m_services(QSharedPointer<CServiceManager>::create())
{
    const CPluginFolder found(folder, hostInfo());
    m_refusals = found.refusals();
    for (const SPluginInfo& info : found.plugins())
        m_plugins.push_back({info, std::make_unique<QPluginLoader>(info.file)});

    keepWhatPasses(&CPluginHost::load);
    keepWhatPasses([this](SPlugin& plugin) { return initialize(plugin); });
    for (const SPlugin& plugin : m_plugins) {
        const QString error =
            attempt("extensionsInitialized()", [&] { return plugin.instance->extensionsInitialized(); });
        if (!error.isEmpty())
            m_refusals.push_back({plugin.info.file, error});
    }
}

CPluginHost::~CPluginHost()
{
    const auto reversed = [this](const char* name, const auto& step) {
        std::for_each(m_plugins.rbegin(), m_plugins.rend(), [&](const SPlugin& plugin) {
            const QString error = attempt(name, [&] { return step(plugin); });
            if (!error.isEmpty())
                qCWarning(hostLog, "plugin '%s': %s", qUtf8Printable(plugin.info.file), qUtf8Printable(error));
        });
    };
    // One that still has work to end has no way of telling when that is done: it is asked, and then not waited for.
    reversed("aboutToUninitialize()", [](const SPlugin& plugin) {
        plugin.instance->aboutToUninitialize();
        return true;
    });
    reversed("uninitialize()", [this](const SPlugin& plugin) { return plugin.instance->uninitialize(m_services); });
    // Before the code goes that they run.
    m_services->clear();
    reversed("unload()", [](const SPlugin& plugin) { return plugin.loader->unload(); });
}

QString CPluginHost::defaultFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../plugins"));
}

QString CPluginHost::load(SPlugin& plugin)
{
    // Two copies of the library in one process would each have their own idea of what a scene is.
    if (plugin.info.name == QLatin1String("Halvex") && plugin.info.file != libraryFile())
        return QStringLiteral("a copy of '%1', which is in use").arg(libraryFile());
    // By default unload() leaves the code where it is.
    plugin.loader->setLoadHints({});
    QString error = attempt("loading", [&plugin] {
        plugin.instance = dynamic_cast<Core::Plugin::IPlugin*>(plugin.loader->instance());
        return plugin.instance != nullptr;
    });
    if (!error.isEmpty() && !plugin.loader->isLoaded())
        error += QStringLiteral(": ") + plugin.loader->errorString().simplified();
    return error;
}

QString CPluginHost::initialize(SPlugin& plugin) const
{
    const QString error = attempt("initialize()", [&] { return plugin.instance->initialize(m_services); });
    if (!error.isEmpty()) // what it has published up to then goes with it
        attempt("uninitialize()", [&] { return plugin.instance->uninitialize(m_services); });
    return error;
}

void CPluginHost::keepWhatPasses(const Step& step)
{
    std::vector<SPlugin> all;
    all.swap(m_plugins);
    for (SPlugin& plugin : all) {
        QString error = lacking(plugin.info);
        if (error.isEmpty())
            error = step(plugin);
        if (error.isEmpty()) {
            m_plugins.push_back(std::move(plugin));
        } else {
            m_refusals.push_back({plugin.info.file, error});
            plugin.loader->unload();
        }
    }
}

QString CPluginHost::lacking(const SPluginInfo& info) const
{
    for (const SPluginDependency& dependency : info.dependencies) {
        const bool isThere = dependency.name == hostInfo().name ||
                             std::any_of(m_plugins.begin(), m_plugins.end(), [&dependency](const SPlugin& plugin) {
                                 return plugin.info.name == dependency.name;
                             });
        if (!isThere)
            return QStringLiteral("it needs '%1', which is left out").arg(dependency.name);
    }
    return {};
}

} // namespace Host
