// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CWordFinder.h"

#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"

namespace Host {

namespace {

constexpr int maxListed = 10;

} // namespace

QString CWordFinder::closest(const QString& word, const QStringList& words)
{
    return closestWords(word, words, &m_stepsLeft).value(0);
}

QString CWordFinder::hint(const QString& word, const QStringList& words)
{
    const QString meant = closest(word, words);
    if (!meant.isNull())
        return QStringLiteral("; did you mean %1?").arg(shown(meant));
    if (words.isEmpty() || words.size() > maxListed)
        return {};
    return QStringLiteral("; there %1 %2")
        .arg(words.size() == 1 ? QStringLiteral("is only") : QStringLiteral("are"), listed(words));
}

QString listed(const QStringList& words, const QString& conjunction)
{
    QStringList quoted;
    for (const QString& word : words)
        quoted << shown(word);
    if (quoted.size() < 2)
        return quoted.join(QString());
    const QString last = quoted.takeLast();
    return QStringLiteral("%1 %2 %3").arg(quoted.join(QStringLiteral(", ")), conjunction, last);
}

} // namespace Host
