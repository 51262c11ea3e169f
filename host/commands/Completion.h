// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QStringList>

namespace CLI {
class App;
}

namespace Host {

/// What fits in the place of a word. A plain value.
struct SCompletions
{
    QStringList words;
    bool areFiles = false; ///< Names of files belong there, too.
};

/// What fits in the place of the last of \a words, which may be empty and stands behind the others on the command line:
/// commands, options, and values of options. \a program has its commands.
SCompletions completions(const CLI::App& program, const QStringList& words);

} // namespace Host
