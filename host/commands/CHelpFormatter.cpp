// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CHelpFormatter.h"

#include <sstream>

namespace Host {

namespace {

constexpr std::size_t columns = 80;
constexpr std::size_t nameColumns = 26;

std::string wrapped(const std::string& text)
{
    std::istringstream in(text);
    std::string result;
    std::string word;
    std::size_t used = 0;
    while (in >> word) {
        const bool isNewLine = used > 0 && used + 1 + word.size() > columns - nameColumns;
        if (used > 0)
            result += isNewLine ? '\n' : ' ';
        used = (used == 0 || isNewLine ? 0 : used + 1) + word.size();
        result += word;
    }
    return result;
}

} // namespace

CHelpFormatter::CHelpFormatter()
{
    column_width(nameColumns);
    label("Positionals", "Arguments");
    label("SUBCOMMAND", "COMMAND");
}

std::string CHelpFormatter::make_subcommand(const CLI::App* command) const
{
    std::ostringstream out;
    CLI::detail::format_help(out, command->get_name(), wrapped(command->get_description()), nameColumns);
    return out.str();
}

std::string CHelpFormatter::make_usage(const CLI::App* command, std::string name) const
{
    // A command's own name comes with a blank before it.
    return "\n" + CLI::detail::find_and_replace(Formatter::make_usage(command, std::move(name)), "  ", " ");
}

std::string CHelpFormatter::make_help(const CLI::App* command, std::string name, CLI::AppFormatMode mode) const
{
    const std::string text = Formatter::make_help(command, std::move(name), mode);
    return CLI::detail::find_and_replace(text, "\n\n\n", "\n\n");
}

std::string CHelpFormatter::make_option_name(const CLI::Option* option, bool isPositional) const
{
    return CLI::detail::find_and_replace(Formatter::make_option_name(option, isPositional), ",", ", ");
}

std::string CHelpFormatter::make_option_opts(const CLI::Option* option) const
{
    // Whether it must be given is told by the line of usage.
    if (option->get_positional())
        return option->get_items_expected_max() > 1 ? "..." : "";
    return option->get_type_size() > 0 ? " " + option->get_type_name() : "";
}

std::string CHelpFormatter::make_option_desc(const CLI::Option* option) const
{
    return wrapped(option->get_description());
}

} // namespace Host
