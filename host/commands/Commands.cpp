// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/Commands.h"

#include "host/base/ClosestWords.h"
#include "host/base/EExitCode.h"
#include "host/base/Shown.h"
#include "host/commands/CHelpFormatter.h"
#include "host/commands/CommandWords.h"
#include "host/commands/Completion.h"
#include "host/commands/ManPage.h"
#include "host/report/Terminal.h"
#include "host/run/Output.h"
#include "host/run/PrintResult.h"

#include <Halvex/Halvex.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace Host {

namespace {

// In the order of the help.
constexpr void (*addCommands[])(CLI::App&, Action*) = {
    &addRunCommand,     &addCheckCommand,  &addDrawCommand,    &addCompareCommand,
    &addConvertCommand, &addModelsCommand, &addCamerasCommand, &addPluginsCommand,
};

const char examples[] = R"(Examples:
  halvex-host run                    a built-in camera, the default chain
  halvex-host run chain.json --camera 192.168.0.5
  halvex-host run --help             what else a run can do

Exit codes:)";

ExitCodes exitCodes()
{
    return {{QStringLiteral("0"), QStringLiteral("done")},
            {QStringLiteral("1"), QStringLiteral("it ran, and something failed")},
            {QStringLiteral("2"), QStringLiteral("a request that cannot be met")},
            {QStringLiteral("128+n"), QStringLiteral("ended by signal n, 130 for Ctrl-C")}};
}

std::string footer()
{
    QString text = QLatin1String(examples);
    for (const auto& code : exitCodes())
        text += QStringLiteral("\n  %1%2").arg(code.first.leftJustified(7), code.second);
    return text.toStdString();
}

QString lines(const QStringList& words)
{
    QString text;
    for (const QString& word : words)
        text += word + QLatin1Char('\n');
    return text;
}

// The exit code tells the shell whether names of files belong there, too.
int printCompletions(const SCompletions& completions)
{
    return printResult(lines(completions.words), completions.areFiles ? Failed : Done);
}

// What stands where nothing of that kind belongs.
QString unexpected(const CLI::App& program, const CLI::App& command, const QString& word)
{
    if (word.startsWith(QLatin1String("--")))
        return withHint(QStringLiteral("Unknown option %1").arg(shown(word)), didYouMean(word, optionNames(command)));
    if (word.startsWith(QLatin1Char('-')) && word.size() > 1)
        return QStringLiteral("Unknown option %1").arg(shown(word));
    if (&command == &program)
        return withHint(QStringLiteral("Unknown command %1").arg(shown(word)), didYouMean(word, commandNames(program)));
    return QStringLiteral("Unexpected argument %1").arg(shown(word));
}

// "--frames: 1 required N missing" is nothing to read.
QString sentence(const CLI::ParseError& error)
{
    const QString text = QString::fromUtf8(error.what()).simplified();
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return QStringLiteral("Missing value after '%1'").arg(text.section(QLatin1Char(':'), 0, 0));
    return text;
}

int printRefusal(const CLI::App& program, const CLI::App& command, QString reason)
{
    if (!reason.endsWith(QLatin1Char('.')) && !reason.endsWith(QLatin1Char('?')))
        reason += QLatin1Char('.');
    const QString name =
        &command == &program ? QString() : QString::fromStdString(command.get_name()) + QLatin1Char(' ');
    printErrorLine(QStringLiteral("%1 See 'halvex-host %2--help'.").arg(reason, name));
    return Refused;
}

const CLI::App& chosenCommand(const CLI::App& program)
{
    const std::vector<CLI::App*> commands = program.get_subcommands();
    return commands.empty() ? program : *commands.front();
}

// The words in the order that the parser takes them from: the last one first.
std::vector<std::string> stack(const QStringList& arguments)
{
    std::vector<std::string> words;
    for (auto word = arguments.rbegin(); word != arguments.rend(); ++word)
        words.push_back(word->toStdString());
    return words;
}

int parse(CLI::App& program, const QStringList& arguments)
{
    try {
        program.parse(stack(arguments));
    } catch (const CLI::CallForVersion&) {
        return printResult(QStringLiteral("halvex-host " HALVEX_VERSION_STR "\n"));
    } catch (const CLI::CallForHelp&) {
        return printResult(QString::fromStdString(program.help("halvex-host")));
    } catch (const CLI::ParseError& error) {
        return printRefusal(program, chosenCommand(program), sentence(error));
    }
    const CLI::App& command = chosenCommand(program);
    for (const CLI::App* place : {&command, static_cast<const CLI::App*>(&program)}) {
        const std::vector<std::string> rest = place->remaining();
        if (!rest.empty())
            return printRefusal(program, command, unexpected(program, *place, QString::fromStdString(rest.front())));
    }
    return &command == &program ? printRefusal(program, program, QStringLiteral("No command given")) : int(Done);
}

} // namespace

CLI::App& addCommand(CLI::App& program, const char* name, const char* description, const char* example)
{
    CLI::App& command = *program.add_subcommand(name, description);
    command.footer(std::string("Examples:\n") + example);
    command.group("Commands");
    command.allow_extras();
    return command;
}

CLI::Option& addDocumentArgument(CLI::App& command, const char* name, std::string* file)
{
    return *command.add_option(name, *file, "A chain or a scene document; '-' is standard input.")->type_name("");
}

void addOutputOption(CLI::App& command, std::string* file, const char* what)
{
    command
        .add_option("-o,--output", *file, std::string("Where to write it") + what + " (default: '-', standard output).")
        ->type_name("FILE");
}

CLI::Option& addPixelFormatOption(CLI::App& command, std::string* format)
{
    return *command.add_option("--pixel-format", *format, "GenICam name, e.g. RGB8 (default: as the camera is set).")
                ->type_name("NAME");
}

CLI::Option& addBuffersOption(CLI::App& command, std::string* count)
{
    return *command.add_option("--buffers", *count, "Frames that may be in flight at once (default: 16).")
                ->type_name("N");
}

CLI::Option& addResendOption(CLI::App& command, std::string* choice)
{
    return *command
                .add_option("--resend", *choice,
                            "Whether a GigE Vision camera is asked for lost packets again: on (default) or off.")
                ->type_name("on|off");
}

void addPluginsOption(CLI::App& command, std::string* folder)
{
    command.add_option("--plugins", *folder, "Folder with the plugins (default: the program's own).")->type_name("DIR");
}

int readArguments(const QStringList& arguments, Action* action)
{
    CLI::App program("Streams the frames of cameras through Halvex graphs.");
    program.formatter(std::make_shared<CHelpFormatter>(columnsOf(stdout)));
    program.footer(footer());
    program.set_version_flag("--version", std::string(HALVEX_VERSION_STR), "Print the version and exit.");
    program.set_help_flag("-h,--help", "Print this help and exit.");
    program.require_subcommand(0, 1); // the name of a second one is an argument of the first
    // What is left over is refused here, with the closest words that there are.
    program.allow_extras();
    for (const auto& add : addCommands)
        add(program, action);

    // What the shell and the build ask for; nobody types it.
    if (arguments.value(0) == QLatin1String("--complete"))
        return printCompletions(completions(program, arguments.mid(1)));
    if (arguments.value(0) == QLatin1String("--man-page"))
        return printResult(manPage(program, exitCodes()));
    return parse(program, arguments);
}

int execute(const QStringList& arguments)
{
    Action action;
    const int exitCode = readArguments(arguments, &action);
    return exitCode == Done && action ? action() : exitCode;
}

} // namespace Host
