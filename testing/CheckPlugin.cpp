// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/testing/CheckPlugin.h>

#include "testing/CPluginBench_p.h"
#include "testing/SRule_p.h"

#include <Halvex/service/INodeService.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QVersionNumber>

namespace Plugin::Halvex::Testing {

namespace {

struct SPluginSubject
{
    const QString& file;
    const QStringList& companions;
    const SCheckOptions& options;
    bool isLinked; ///< This program has the file in memory anyway.
};

bool isVersion(const QJsonValue& value)
{
    return value.isString() && !QVersionNumber::fromString(value.toString()).isNull();
}

bool isDependency(const QJsonValue& value)
{
    return !value[QLatin1String("Name")].toString().isEmpty() && isVersion(value[QLatin1String("Version")]);
}

/// What is wrong in the metadata; empty if nothing is.
QString faultIn(const QJsonObject& about)
{
    if (about.value(QLatin1String("Name")).toString().isEmpty())
        return QStringLiteral("there is no \"Name\"");
    if (!isVersion(about.value(QLatin1String("Version"))))
        return QStringLiteral("\"Version\" is no version");
    if (about.contains(QLatin1String("CompatVersion")) && !isVersion(about.value(QLatin1String("CompatVersion"))))
        return QStringLiteral("\"CompatVersion\" is no version");
    const QJsonValue dependencies = about.value(QLatin1String("Dependencies"));
    if (!dependencies.isUndefined() && !dependencies.isArray())
        return QStringLiteral("\"Dependencies\" is no array");
    const QJsonArray all = dependencies.toArray();
    for (const QJsonValue& dependency : all) {
        if (!isDependency(dependency))
            return QStringLiteral("in \"Dependencies\" is something without \"Name\" and \"Version\"");
    }
    return {};
}

bool isMapped(const QString& file)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) &&
           maps.readAll().contains(QFile::encodeName(QFileInfo(file).canonicalFilePath()));
}

SOutcome hasMetadata(const SPluginSubject& subject)
{
    const QJsonObject metadata = metadataOf(subject.file);
    const QString identifier = metadata.value(QLatin1String("IID")).toString();
    if (identifier != QLatin1String(HALVEX_PLUGIN_IID))
        return broken(QStringLiteral("its interface identifier is \"%1\", not \"%2\"")
                          .arg(identifier, QStringLiteral(HALVEX_PLUGIN_IID)));
    return brokenIf(faultIn(metadata.value(QLatin1String("MetaData")).toObject()));
}

SOutcome loads(const SPluginSubject& subject)
{
    return brokenIf(CLoadedPlugin(subject.file).error());
}

SOutcome comesUp(const SPluginSubject& subject)
{
    return brokenIf(CPluginBench(subject.file, subject.companions).error());
}

SOutcome takesAMissingManager(const SPluginSubject& subject)
{
    const CLoadedPlugin loaded(subject.file);
    const QString thrown = thrownBy([&] {
        loaded.plugin()->initialize({});
        loaded.plugin()->uninitialize({});
    });
    return brokenIf(thrown.isEmpty() ? QString() : QStringLiteral("without a service manager it %1").arg(thrown));
}

SOutcome withdrawsItsServices(const SPluginSubject& subject)
{
    CPluginBench bench(subject.file, subject.companions);
    const std::size_t left = bench.shutDown();
    return left == 0 ? kept()
                     : broken(QStringLiteral("%1 of its services are still published after uninitialize()").arg(left));
}

QStringList modelsOf(const SPluginSubject& subject, QString* error)
{
    const CPluginBench bench(subject.file, subject.companions);
    *error = bench.error();
    QStringList names;
    for (const auto& model : bench.models())
        names << QString(model.first.constData(), model.first.size()); // not the text that lies in the file
    return names;
}

SOutcome livesTwice(const SPluginSubject& subject)
{
    QString error;
    const QStringList first = modelsOf(subject, &error);
    const QStringList second = modelsOf(subject, &error);
    if (!error.isEmpty())
        return broken(QStringLiteral("the second time %1").arg(error));
    if (first != second)
        return broken(QStringLiteral("it registered \"%1\", and the second time \"%2\"")
                          .arg(first.join(QLatin1String("\", \"")), second.join(QLatin1String("\", \""))));
    return kept();
}

SOutcome textsOutliveIt(const SPluginSubject& subject)
{
    const QString text = CPluginBench(subject.file, subject.companions).textOfTheFile();
    return brokenIf(text.isEmpty() ? QString() : text + QStringLiteral(" is a QStringLiteral"));
}

SOutcome unloads(const SPluginSubject& subject)
{
    if (!QFile::exists(QStringLiteral("/proc/self/maps")))
        return leftOut(QStringLiteral("this system does not tell what is loaded"));
    if (subject.isLinked)
        return leftOut(QStringLiteral("this program is linked with it"));
    {
        const CPluginBench bench(subject.file, subject.companions);
    }
    return isMapped(subject.file) ? broken(QStringLiteral("its file is still in memory when it was unloaded")) : kept();
}

const std::vector<SRule<SPluginSubject>>& pluginRuleTable()
{
    static const std::vector<SRule<SPluginSubject>> table = {
        {"has-metadata", "A host reads it before it runs a line of the plugin, and orders plugins by it.",
         "Give Q_PLUGIN_METADATA the identifier HALVEX_PLUGIN_IID and a file with \"Name\" and \"Version\".",
         &hasMetadata, true},
        {"loads", "What cannot be loaded is left out by the host.",
         "Derive from Core::Plugin::IPlugin, link what is used, and let the constructor throw nothing.", &loads, true},
        {"comes-up", "A host leaves out a plugin that refuses to start, and all that need it.",
         "Return true from initialize() and extensionsInitialized(); name what must be there in \"Dependencies\".",
         &comesUp, true},
        {"takes-a-missing-manager", "The service manager may be gone by the time a plugin is called.",
         "Test what toStrongRef() gives in initialize() and uninitialize().", &takesAMissingManager},
        {"withdraws-its-services", "A service that is found after its code was unloaded ends the program.",
         "Unregister in uninitialize() what initialize() has registered.", &withdrawsItsServices},
        {"lives-twice", "A host may unload a plugin and load it again, after an update for example.",
         "Keep nothing in static variables, or put it back when the plugin is destroyed.", &livesTwice},
        {"texts-outlive-the-plugin", "A registry may be there longer than the plugin, whose file its literals lie in.",
         "Make names and categories of models by QString::fromLatin1(), not by QStringLiteral().", &textsOutliveIt},
        {"unloads", "Code that stays after unload() is still there when a newer file is loaded.",
         "Build with halvex_add_plugin(), which hides symbols, and end all threads in the destructor.", &unloads},
    };
    return table;
}

} // namespace

SReport checkPlugin(const QString& file, const QStringList& companions, const SCheckOptions& options)
{
    if (!QCoreApplication::instance())
        qFatal("checkPlugin() needs a QCoreApplication");
    SReport report;
    report.subject = QFileInfo(file).fileName();
    tryRules(pluginRuleTable(), SPluginSubject{file, companions, options, isMapped(file)}, &report);
    return report;
}

std::vector<SRuleInfo> pluginRules()
{
    return infosOf(pluginRuleTable());
}

} // namespace Plugin::Halvex::Testing
