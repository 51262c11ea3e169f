// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QStringList>

namespace CLI {
class App;
}

namespace Host {

/// The commands of a program.
QStringList commandNames(const CLI::App& program);

/// The options of a command, or of a program, as "--name".
QStringList optionNames(const CLI::App& command);

} // namespace Host
