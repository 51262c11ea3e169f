// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Counted.h"
#include "host/base/EExitCode.h"
#include "host/base/InputFile.h"
#include "host/check/CDocumentCheck.h"
#include "host/commands/ArgumentValues.h"
#include "host/commands/Commands.h"
#include "host/documents/DocumentFile.h"
#include "host/documents/GraphDifferences.h"
#include "host/documents/SComparedGraph.h"
#include "host/plugins/CHostServices.h"
#include "host/run/Output.h"
#include "host/run/PrintResult.h"

#include <Halvex/service/INodeService.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace Host {

namespace {

struct SCompareArguments
{
    std::string left;
    std::string right;
    std::string plugins;
    bool isJson = false;
};

QString differencesText(const SDocumentFile& left, const SDocumentFile& right,
                        const std::vector<SDifference>& differences)
{
    QString text;
    for (const SDifference& difference : differences)
        text += differenceLine(difference) + QLatin1Char('\n');
    const QString files = QStringLiteral("'%1' and '%2'").arg(left.name, right.name);
    if (!differences.empty())
        return text + QStringLiteral("%1 differ: %2\n").arg(files, counted(differences.size(), "difference"));
    return QStringLiteral("%1 are the same: %2, %3\n")
        .arg(files, counted(left.graph.nodes.size(), "node"), counted(left.graph.connections.size(), "connection"));
}

int compareDocuments(const SCompareArguments& arguments)
{
    CHostServices services(QString::fromStdString(arguments.plugins));
    QString error = services.load();
    SDocumentFile files[2];
    if (error.isEmpty()) {
        CDocumentCheck check(services.nodes(), services.models());
        const QString names[] = {QString::fromStdString(arguments.left), QString::fromStdString(arguments.right)};
        for (int i = 0; i < 2 && error.isEmpty(); ++i) {
            files[i] = readDocumentFile(names[i], check, &error);
            if (error.isEmpty())
                error = unreadableText(files[i]);
        }
    }
    if (!error.isEmpty()) {
        printErrorLine(error);
        return Refused;
    }
    Plugin::Halvex::CNodeDataModelRegistry& registry = *services.nodes().registry();
    const auto differences =
        graphDifferences(comparedGraph(files[0].graph, registry), comparedGraph(files[1].graph, registry));
    const QString text = arguments.isJson
                             ? QString::fromUtf8(differencesJson(files[0].name, files[1].name, differences))
                             : differencesText(files[0], files[1], differences);
    return printResult(text, differences.empty() ? Done : Failed);
}

} // namespace

void addCompareCommand(CLI::App& program, Action* action)
{
    const auto arguments = std::make_shared<SCompareArguments>();
    CLI::App& command =
        addCommand(program, "compare", "Tell what two chains or scenes differ in, whatever their nodes are called.",
                   "  halvex-host compare before.json after.json\n"
                   "  halvex-host convert scene.json | halvex-host compare chain.json -\n"
                   "Exit codes: 0 the same, 1 different, 2 one of them cannot be read.");
    addDocumentArgument(command, "A", &arguments->left).required();
    command.add_option("B", arguments->right, "Another one.")->required()->type_name("");
    command.add_flag("--json", arguments->isJson, "Print the differences as JSON.");
    addPluginsOption(command, &arguments->plugins);
    command.final_callback([arguments, action] {
        if (isStandardStream(QString::fromStdString(arguments->left)) &&
            isStandardStream(QString::fromStdString(arguments->right)))
            refuse(QStringLiteral("A or B from standard input, not both."));
        *action = [arguments] { return compareDocuments(*arguments); };
    });
}

} // namespace Host
