// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace Host {

/**
 * The program's commands. Each has a file of its own, and one function that adds it to the program:
 *
 * \code
 * void addSayCommand(CLI::App& program, Action* action)
 * {
 *     CLI::App& command = addCommand(program, "say", "Say a word.", "halvex-host say hello");
 *     auto word = std::make_shared<std::string>();
 *     command.add_option("WORD", *word, "What to say.")->required();
 *     command.final_callback([word, action] {
 *         *action = [word] { return printResult(QString::fromStdString(*word)); };
 *     });
 * }
 * \endcode
 *
 * A callback throws CLI::ValidationError with a whole sentence when what was asked for makes no sense.
 */

/// What the arguments ask for; returns the exit code. Runs when all of them are read.
using Action = std::function<int()>;

void addRunCommand(CLI::App& program, Action* action);
void addCheckCommand(CLI::App& program, Action* action);
void addDrawCommand(CLI::App& program, Action* action);
void addCompareCommand(CLI::App& program, Action* action);
void addConvertCommand(CLI::App& program, Action* action);
void addModelsCommand(CLI::App& program, Action* action);
void addCamerasCommand(CLI::App& program, Action* action);
void addPluginsCommand(CLI::App& program, Action* action);

/// Adds an empty command. \a example is printed below its help.
CLI::App& addCommand(CLI::App& program, const char* name, const char* description, const char* example);

/// Declares an argument of that name, a chain or a scene that \a command reads.
CLI::Option& addDocumentArgument(CLI::App& command, const char* name, std::string* file);

/// Declares --output FILE for \a command. \a what: what to say of the file besides, ", with the ending .svg"; may be
/// empty.
void addOutputOption(CLI::App& command, std::string* file, const char* what);

/// Declares --pixel-format NAME, --buffers N and --resend on|off for \a command: what belongs to a camera's stream.
CLI::Option& addPixelFormatOption(CLI::App& command, std::string* format);
CLI::Option& addBuffersOption(CLI::App& command, std::string* count);
CLI::Option& addResendOption(CLI::App& command, std::string* choice);

/// Declares --plugins DIR for \a command.
void addPluginsOption(CLI::App& command, std::string* folder);

/// Puts into \a action what \a arguments ask for, and returns Done. Refuses what makes no sense as the program does,
/// and leaves \a action as it was; also when it is for help, which it prints.
int readArguments(const QStringList& arguments, Action* action);

/// Does what \a arguments ask for, the program's name not among them, and returns the exit code.
int execute(const QStringList& arguments);

} // namespace Host
