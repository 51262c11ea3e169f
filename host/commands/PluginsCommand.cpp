// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/EExitCode.h"
#include "host/base/Shown.h"
#include "host/commands/Commands.h"
#include "host/plugins/CHostServices.h"
#include "host/plugins/CPluginHost.h"
#include "host/report/CTable.h"
#include "host/report/Terminal.h"
#include "host/run/Output.h"
#include "host/run/PrintResult.h"

#include <CLI/CLI.hpp>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <memory>
#include <string>

namespace Host {

namespace {

QString refusalLines(const SPluginRefusal& refusal, int width)
{
    const QString required = refusal.isRequired ? QStringLiteral(" (required)") : QString();
    return QStringLiteral("  %1%2\n").arg(printable(QFileInfo(refusal.file).fileName()), required) +
           wrapped(refusal.reason, width, 4);
}

QJsonArray refusalJson(const std::vector<SPluginRefusal>& refusals)
{
    QJsonArray array;
    for (const SPluginRefusal& refusal : refusals)
        array.append(QJsonObject{{"file", refusal.file}, {"reason", refusal.reason}, {"required", refusal.isRequired}});
    return array;
}

QString pluginsJson(const CPluginHost& plugins, const QString& folder)
{
    QJsonArray loaded;
    for (const SPluginInfo& plugin : plugins.plugins())
        loaded.append(
            QJsonObject{{"name", plugin.name}, {"version", plugin.version.toString()}, {"file", plugin.file}});
    const QJsonObject json{{"folder", QFileInfo(folder).canonicalFilePath()},
                           {"plugins", loaded},
                           {"refused", refusalJson(plugins.refusals())},
                           {"copies", refusalJson(plugins.copies())}};
    return QString::fromUtf8(QJsonDocument(json).toJson());
}

// Another file than the folder has, or links to, may stand for a copy.
QString placeOf(const QString& file, const QString& folder)
{
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files);
    const bool isThere = std::any_of(files.begin(), files.end(),
                                     [&file](const QFileInfo& each) { return each.canonicalFilePath() == file; });
    return printable(isThere ? QFileInfo(file).fileName() : file);
}

QString pluginsText(const CPluginHost& plugins, const QString& folder)
{
    const int width = columnsOf(stdout);
    const QString place = QFileInfo(folder).canonicalFilePath();
    CTable table({"Plugin", "Version", "File"});
    for (const SPluginInfo& plugin : plugins.plugins())
        table.addRow({plugin.name, plugin.version.toString(), placeOf(plugin.file, place)});
    QString text = QStringLiteral("Loaded from %1\n\n").arg(printable(place));
    text += table.isEmpty() ? QStringLiteral("nothing\n") : table.text(width, takesColors(stdout));
    if (!plugins.refusals().empty())
        text += QStringLiteral("\nNot loaded, or failed\n\n");
    for (const SPluginRefusal& refusal : plugins.refusals())
        text += refusalLines(refusal, width);
    if (!plugins.copies().empty())
        text += QStringLiteral("\nCopies, which were not loaded\n\n");
    for (const SPluginRefusal& copy : plugins.copies())
        text += refusalLines(copy, width);
    return text;
}

int listPlugins(const QString& folder, bool isJson)
{
    CHostServices services(folder);
    QString error;
    if (!services.loadPlugins(&error)) {
        printErrorLine(error);
        return Refused;
    }
    return printResult((isJson ? pluginsJson : pluginsText)(services.plugins(), services.folder()));
}

} // namespace

void addPluginsCommand(CLI::App& program, Action* action)
{
    CLI::App& command = addCommand(program, "plugins", "List the plugins, and why one was not loaded.",
                                   "  halvex-host plugins\n"
                                   "  halvex-host plugins --plugins ~/my-plugins");
    struct SArguments
    {
        std::string folder;
        bool isJson = false;
    };
    const auto arguments = std::make_shared<SArguments>();
    command.add_flag("--json", arguments->isJson, "Print all of it as JSON.");
    addPluginsOption(command, &arguments->folder);
    command.final_callback([arguments, action] {
        *action = [arguments] { return listPlugins(QString::fromStdString(arguments->folder), arguments->isJson); };
    });
}

} // namespace Host
