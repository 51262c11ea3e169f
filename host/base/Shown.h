// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// \a text from elsewhere, fit for a line: what cannot be printed, the ends of lines included, is a question mark.
QString printable(const QString& text);

/// \a text from elsewhere within a line: printable(), in quotes, and cut when it is long.
QString shown(const QString& text);

} // namespace Host
