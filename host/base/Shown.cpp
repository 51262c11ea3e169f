// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Shown.h"

#include <QChar>
#include <QCoreApplication>

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

QString cut(const QString& line, int most)
{
    if (line.size() <= most)
        return line;
    const bool isHalf = most > 0 && line.at(most - 1).isHighSurrogate();
    return line.left(isHalf ? most - 1 : most) + QStringLiteral("...");
}

QString shown(const QString& text)
{
    return QCoreApplication::translate("Host::Shown", "'%1'").arg(cut(printable(text), maxShown));
}

} // namespace Host
