// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/EExitCode.h"
#include "host/check/CDocumentCheck.h"
#include "host/check/CheckFiles.h"
#include "host/commands/ArgumentValues.h"
#include "host/commands/Commands.h"
#include "host/plugins/CHostServices.h"
#include "host/run/Output.h"
#include "host/run/PrintResult.h"

#include <Halvex/Halvex.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace Host {

namespace {

struct SCheckArguments
{
    std::vector<std::string> files;
    std::vector<std::string> cameras;
    std::string plugins;
    bool isJson = false;
    bool isSarif = false;
    bool isStrict = false;
};

SReportOptions reportOptions(const SCheckArguments& arguments)
{
    SReportOptions options;
    options.isStrict = arguments.isStrict;
    options.version = QStringLiteral(HALVEX_VERSION_STR);
    if (arguments.isJson)
        options.format = EReportFormat::Json;
    if (arguments.isSarif)
        options.format = EReportFormat::Sarif;
    return options;
}

int checkDocuments(const SCheckArguments& arguments, const QStringList& cameras)
{
    CHostServices services(QString::fromStdString(arguments.plugins));
    const QString error = services.load();
    if (!error.isEmpty()) {
        printErrorLine(error);
        return Refused;
    }
    QStringList files;
    for (const std::string& file : arguments.files)
        files << QString::fromStdString(file);
    SCheckOptions options;
    options.cameras = cameras;
    CDocumentCheck check(services.nodes(), services.models(), options);
    const SCheckOutcome outcome = checkFiles(files, check, reportOptions(arguments));
    return printResult(QString::fromUtf8(outcome.report), outcome.exitCode);
}

void declare(CLI::App& command, SCheckArguments* arguments)
{
    command.add_option("FILE", arguments->files, "Chains and scene documents; '-' is standard input.")
        ->type_name("")
        ->required();
    command
        .add_option("--camera", arguments->cameras,
                    "A camera of the run that chains are checked for (default: whatever they name). May be given "
                    "several times.")
        ->type_name("ID")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
    command.add_flag("--json", arguments->isJson, "Print the report as JSON.");
    command.add_flag("--sarif", arguments->isSarif, "Print it as SARIF 2.1.0, for editors and code hosts.");
    command.add_flag("--strict", arguments->isStrict, "Warnings end it with exit code 1, too.");
    addPluginsOption(command, &arguments->plugins);
}

} // namespace

void addCheckCommand(CLI::App& program, Action* action)
{
    CLI::App& command = addCommand(program, "check", "Tell what is wrong with chains and scenes, without running them.",
                                   "  halvex-host check chain.json\n"
                                   "  halvex-host check --strict --camera 192.168.0.5 chains/*.json\n"
                                   "  halvex-host check --sarif - < scene.json > faults.sarif");
    const auto arguments = std::make_shared<SCheckArguments>();
    declare(command, arguments.get());
    command.final_callback([arguments, action] {
        if (arguments->isJson && arguments->isSarif)
            refuse(QStringLiteral("--json or --sarif, not both."));
        const QStringList cameras = readCameras(arguments->cameras);
        *action = [arguments, cameras] { return checkDocuments(*arguments, cameras); };
    });
}

} // namespace Host
