// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Shown.h"

#include <algorithm>

namespace Host {

namespace {

constexpr int maxShown = 80;

} // namespace

QString printable(const QString& text)
{
    QString line = text;
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return !c.isPrint(); }, QLatin1Char('?'));
    return line;
}

QString shown(const QString& text)
{
    const QString line = printable(text);
    const QString cut = line.size() > maxShown ? line.left(maxShown) + QStringLiteral("...") : line;
    return QLatin1Char('\'') + cut + QLatin1Char('\'');
}

} // namespace Host
