// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CommandWords.h"

#include <CLI/CLI.hpp>

namespace Host {

QStringList commandNames(const CLI::App& program)
{
    QStringList names;
    for (const CLI::App* command : program.get_subcommands({}))
        names << QString::fromStdString(command->get_name());
    return names;
}

QStringList optionNames(const CLI::App& command)
{
    QStringList names;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames())
            names << QString::fromStdString("--" + name);
    }
    return names;
}

} // namespace Host
