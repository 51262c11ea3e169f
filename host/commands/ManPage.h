// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace Host {

/// What the program exits with, and what that means.
using ExitCodes = std::vector<std::pair<QString, QString>>;

/// The manual page, for section 1: all that --help tells, of every command. \a program has its commands.
QString manPage(const CLI::App& program, const ExitCodes& exitCodes);

} // namespace Host
