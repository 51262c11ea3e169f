// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace Host {

/// Help for a terminal: names in one column, what they mean wrapped beside them, or below them where that is too
/// narrow. An example that does not fit goes on in the next line as a shell reads it, behind a backslash.
class CHelpFormatter : public CLI::Formatter
{
public:
    /// \a columns: how wide the terminal is. Of more than 80 no use is made.
    explicit CHelpFormatter(int columns);

    std::string make_description(const CLI::App* command) const override;
    std::string make_subcommand(const CLI::App* command) const override;
    std::string make_usage(const CLI::App* command, std::string name) const override;
    std::string make_help(const CLI::App* command, std::string name, CLI::AppFormatMode mode) const override;
    std::string make_footer(const CLI::App* command) const override;
    std::string make_option(const CLI::Option* option, bool isPositional) const override;
    std::string make_option_name(const CLI::Option* option, bool isPositional) const override;
    std::string make_option_opts(const CLI::Option* option) const override;

private:
    const int m_columns;
};

} // namespace Host
