// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CWordFinder.h"

#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

constexpr int maxWordLength = 100; // of what is compared: the time goes with the square
constexpr int maxListed = 10;

// What may be different in a word of so many letters. A word of two has nothing left to be recognised by.
int mostDifferences(int letters)
{
    return letters < 3 ? 0 : std::max(1, letters / 3);
}

} // namespace

QString CWordFinder::closest(const QString& word, const QStringList& words)
{
    if (word.isEmpty() || word.size() > maxWordLength)
        return {};
    QString best;
    int bestDistance = mostDifferences(word.size()) + 1;
    for (const QString& candidate : words) {
        if (--m_stepsLeft < 0)
            return {};
        if (std::abs(candidate.size() - word.size()) >= bestDistance || candidate == word)
            continue;
        m_stepsLeft -= word.size() * candidate.size();
        const int distance = editDistance(word, candidate);
        if (distance < bestDistance) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return best;
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
