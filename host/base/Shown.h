// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// Whether the letter, a Unicode code point, has a shape and no effect on the line; an end of a line has one.
bool isPrintable(char32_t codePoint);

/// \a text from elsewhere, fit for a line: each letter that is not isPrintable() is a question mark.
QString printable(const QString& text);

/// The beginning of \a line, and "..." if that is not all of it: at most so many UTF-16 units, and no half letter.
QString cut(const QString& line, int most);

/// \a text from elsewhere within a line: printable(), in the quotes of the language, and cut when it is long.
QString shown(const QString& text);

} // namespace Host
