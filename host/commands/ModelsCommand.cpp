// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Attempt.h"
#include "host/base/ClosestWords.h"
#include "host/base/EExitCode.h"
#include "host/commands/Commands.h"
#include "host/commands/ModelJson.h"
#include "host/commands/ModelNames.h"
#include "host/models/ModelSettings.h"
#include "host/plugins/CHostServices.h"
#include "host/plugins/CPluginHost.h"
#include "host/report/CTable.h"
#include "host/report/Terminal.h"
#include "host/run/Output.h"
#include "host/run/PrintResult.h"

#include <Halvex/service/INodeService.h>

#include <CLI/CLI.hpp>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <map>
#include <memory>
#include <string>

#include <dlfcn.h>

namespace Host {

using namespace Plugin::Halvex;

namespace {

using Types = std::map<QString, SNodeDataType>; // by id

// The plugin that the model's class comes from.
QString pluginOf(const CNodeDataModel& model, const CPluginHost& plugins)
{
    Dl_info info{};
    if (dladdr(model.metaObject(), &info) == 0)
        return {};
    const QString file = QFileInfo(QFile::decodeName(info.dli_fname)).canonicalFilePath();
    for (const SPluginInfo& plugin : plugins.plugins()) {
        if (plugin.file == file)
            return plugin.name;
    }
    return QFileInfo(file).fileName();
}

QStringList typeNames(const CNodeDataModel& model, ENodePortType side)
{
    QStringList names;
    for (unsigned int i = 0; i < model.nPorts(side); ++i)
        names << model.dataType(side, NodePortIndex(i)).name;
    return names;
}

void addTypes(const CNodeDataModel& model, Types* types)
{
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        for (unsigned int i = 0; i < model.nPorts(side); ++i) {
            const SNodeDataType type = model.dataType(side, NodePortIndex(i));
            types->emplace(type.id, type);
        }
    }
}

QString convertersText(const CNodeDataModelRegistry& registry, const Types& types, int width)
{
    QString text;
    for (const auto& from : types) {
        for (const auto& to : types) {
            if (registry.getTypeConverter(from.second, to.second))
                text += wrapped(
                    QStringLiteral("%1 (%2) to %3 (%4)").arg(from.second.name, from.first, to.second.name, to.first),
                    width, 2);
        }
    }
    return text.isEmpty() ? text : QStringLiteral("\nConverters\n") + text;
}

std::unique_ptr<CNodeDataModel> make(CNodeDataModelRegistry& registry, const QString& name)
{
    std::unique_ptr<CNodeDataModel> model;
    const QString error = attempt(QStringLiteral("making '%1'").arg(name), [&] {
        model = registry.create(name);
        return model != nullptr;
    });
    if (!error.isEmpty())
        printErrorLine(error);
    return model;
}

QString overview(CNodeDataModelRegistry& registry, const CPluginHost& plugins)
{
    Types types;
    CTable table({"Category", "Model", "Takes", "Gives", ">Settings", "Plugin"}, 2);
    QString category;
    for (const auto& entry : modelNames(registry)) {
        const auto model = make(registry, entry.second);
        if (!model)
            continue;
        addTypes(*model, &types);
        const std::size_t settings = settingsOf(*model).size();
        table.addRow({entry.first == category ? QStringLiteral(" ") : entry.first, entry.second,
                      typeNames(*model, ENodePortType::In).join(QLatin1Char(' ')),
                      typeNames(*model, ENodePortType::Out).join(QLatin1Char(' ')),
                      settings == 0 ? QString() : QString::number(settings), pluginOf(*model, plugins)});
        category = entry.first;
    }
    const int width = columnsOf(stdout);
    return table.text(width, takesColors(stdout)) + convertersText(registry, types, width);
}

QJsonArray convertersJson(const CNodeDataModelRegistry& registry, const Types& types)
{
    QJsonArray converters;
    for (const auto& from : types) {
        for (const auto& to : types) {
            if (registry.getTypeConverter(from.second, to.second))
                converters.append(QJsonObject{{"from", from.first}, {"to", to.first}});
        }
    }
    return converters;
}

QJsonObject allJson(CNodeDataModelRegistry& registry, const CPluginHost& plugins)
{
    Types types;
    QJsonArray models;
    for (const auto& entry : modelNames(registry)) {
        const auto model = make(registry, entry.second);
        if (!model)
            continue;
        addTypes(*model, &types);
        models.append(modelJson(*model, entry.second, entry.first, pluginOf(*model, plugins)));
    }
    return {{"models", models}, {"converters", convertersJson(registry, types)}};
}

int print(const QJsonObject& json)
{
    return printResult(QString::fromUtf8(QJsonDocument(json).toJson()));
}

void addPorts(const CNodeDataModel& model, ENodePortType side, const QString& name, CTable* table)
{
    for (unsigned int i = 0; i < model.nPorts(side); ++i) {
        const SNodeDataType type = model.dataType(side, NodePortIndex(i));
        table->addRow(
            {QStringLiteral("%1 %2").arg(name).arg(i), type.name, type.id, model.portCaption(side, NodePortIndex(i))});
    }
}

QString details(const CNodeDataModel& model, const QString& name, const QString& category, const QString& plugin)
{
    const int width = columnsOf(stdout);
    const bool isBold = takesColors(stdout);
    CTable ports({"Port", "Type", "Type's id", "Caption"});
    addPorts(model, ENodePortType::In, QStringLiteral("in"), &ports);
    addPorts(model, ENodePortType::Out, QStringLiteral("out"), &ports);
    QString text = wrapped(QStringLiteral("%1 (%2, from the plugin %3)").arg(name, category, plugin), width, 0) +
                   QLatin1Char('\n');
    text += ports.isEmpty() ? QStringLiteral("No ports.\n") : ports.text(width, isBold);

    CTable table({"Setting", "Type", "Default", "Takes"});
    QString help;
    for (const SModelSetting& setting : settingsOf(model)) {
        table.addRow({setting.name, setting.type, setting.value, setting.range});
        if (!setting.help.isEmpty())
            help += QStringLiteral("%1\n").arg(setting.name) + wrapped(setting.help, width, 4);
    }
    return text +
           (table.isEmpty() ? QStringLiteral("\nNo settings.\n") : QLatin1Char('\n') + table.text(width, isBold)) +
           (help.isEmpty() ? help : QLatin1Char('\n') + help);
}

int showModels(const QString& folder, const QString& name, bool isJson)
{
    CHostServices services(folder);
    const QString error = services.load();
    if (!error.isEmpty()) {
        printErrorLine(error);
        return Refused;
    }
    const auto registry = services.nodes().registry();
    const CPluginHost& plugins = services.plugins();
    if (name.isEmpty())
        return isJson ? print(allJson(*registry, plugins)) : printResult(overview(*registry, plugins));

    QStringList known;
    for (const auto& entry : modelNames(*registry)) {
        known << entry.second;
        if (entry.second != name)
            continue;
        const auto model = make(*registry, name);
        if (!model)
            return Failed;
        const QString plugin = pluginOf(*model, plugins);
        return isJson ? print(modelJson(*model, name, entry.first, plugin))
                      : printResult(details(*model, name, entry.first, plugin));
    }
    printErrorLine(withHint(QStringLiteral("no model '%1' is registered").arg(name), didYouMean(name, known)));
    return Refused;
}

} // namespace

void addModelsCommand(CLI::App& program, Action* action)
{
    struct SArguments
    {
        std::string name;
        std::string plugins;
        bool isJson = false;
    };
    CLI::App& command = addCommand(program, "models", "List the models that a chain can use, or the settings of one.",
                                   "  halvex-host models\n"
                                   "  halvex-host models Blur");
    const auto arguments = std::make_shared<SArguments>();
    command.add_option("NAME", arguments->name, "A model, as 'models' lists it: its ports and settings.")
        ->type_name("");
    command.add_flag("--json", arguments->isJson, "Print all of it as JSON.");
    addPluginsOption(command, &arguments->plugins);
    command.final_callback([arguments, action] {
        *action = [arguments] {
            return showModels(QString::fromStdString(arguments->plugins), QString::fromStdString(arguments->name),
                              arguments->isJson);
        };
    });
}

} // namespace Host
