// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <cstdio>

namespace Host {

/// Columns of the terminal that \a stream leads to. When it leads to none, what COLUMNS says; without that 80, so that
/// a log looks the same everywhere.
int columnsOf(std::FILE* stream);

/// Whether \a stream leads to a terminal that colours may be sent to: one that is not "dumb", and no NO_COLOR is set.
bool takesColors(std::FILE* stream);

/// \a text as a line of its own, in bold if \a isBold.
QString headingLine(const QString& text, bool isBold);

/// \a text broken into lines of at most \a width characters, and at most 100, which is as much as the eye follows, each
/// behind \a indent blanks.
QString wrapped(const QString& text, int width, int indent);

} // namespace Host
