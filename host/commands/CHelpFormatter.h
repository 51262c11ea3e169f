// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace Host {

/// Help for a terminal of 80 columns: names in one column, what they mean wrapped beside them.
class CHelpFormatter : public CLI::Formatter
{
public:
    CHelpFormatter();

    std::string make_subcommand(const CLI::App* command) const override;
    std::string make_usage(const CLI::App* command, std::string name) const override;
    std::string make_help(const CLI::App* command, std::string name, CLI::AppFormatMode mode) const override;
    std::string make_option_name(const CLI::Option* option, bool isPositional) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_option_desc(const CLI::Option* option) const override;
};

} // namespace Host
