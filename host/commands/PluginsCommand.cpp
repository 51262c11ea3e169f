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

#include <QFileInfo>

#include <memory>
#include <string>

namespace Host {

namespace {

QString pluginsText(const CPluginHost& plugins, const QString& folder)
{
    const int width = columnsOf(stdout);
    CTable table({"Plugin", "Version", "File"});
    for (const SPluginInfo& plugin : plugins.plugins())
        table.addRow({plugin.name, plugin.version.toString(), printable(QFileInfo(plugin.file).fileName())});
    QString text = QStringLiteral("Loaded from %1\n\n").arg(printable(QFileInfo(folder).canonicalFilePath()));
    text += table.isEmpty() ? QStringLiteral("nothing\n") : table.text(width, takesColors(stdout));
    if (!plugins.refusals().empty())
        text += QStringLiteral("\nNot loaded, or failed\n\n");
    for (const SPluginRefusal& refusal : plugins.refusals())
        text += QStringLiteral("  %1%2\n")
                    .arg(printable(QFileInfo(refusal.file).fileName()),
                         refusal.isRequired ? QStringLiteral(" (required)") : QString()) +
                wrapped(refusal.reason, width, 4);
    return text;
}

int listPlugins(const QString& folder)
{
    CHostServices services(folder);
    QString error;
    if (!services.loadPlugins(&error)) {
        printErrorLine(error);
        return Refused;
    }
    return printResult(pluginsText(services.plugins(), services.folder()));
}

} // namespace

void addPluginsCommand(CLI::App& program, Action* action)
{
    CLI::App& command = addCommand(program, "plugins", "List the plugins, and why one was not loaded.",
                                   "  halvex-host plugins\n"
                                   "  halvex-host plugins --plugins ~/my-plugins");
    const auto folder = std::make_shared<std::string>();
    addPluginsOption(command, folder.get());
    command.final_callback(
        [folder, action] { *action = [folder] { return listPlugins(QString::fromStdString(*folder)); }; });
}

} // namespace Host
