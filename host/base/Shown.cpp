// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Shown.h"

#include <QChar>

#include <string>

namespace Host {

namespace {

constexpr int maxShown = 80;

} // namespace

bool isPrintable(char32_t codePoint)
{
    const QChar::Category category = QChar::category(codePoint);
    const bool endsLine = category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
    return QChar::isPrint(codePoint) && !endsLine;
}

QString printable(const QString& text)
{
    QString line;
    const std::u32string codePoints = text.toStdU32String();
    for (const char32_t codePoint : codePoints)
        line += isPrintable(codePoint) ? QString::fromUcs4(&codePoint, 1) : QStringLiteral("?");
    return line;
}

QString shown(const QString& text)
{
    const QString line = printable(text);
    const bool isLong = line.size() > maxShown;
    const int end = isLong && line.at(maxShown - 1).isHighSurrogate() ? maxShown - 1 : maxShown;
    const QString cut = isLong ? line.left(end) + QStringLiteral("...") : line;
    return QLatin1Char('\'') + cut + QLatin1Char('\'');
}

} // namespace Host
