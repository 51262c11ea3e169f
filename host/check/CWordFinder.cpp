// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CWordFinder.h"

#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"

namespace Host {

namespace {

constexpr int maxListed = 10;

// All but the last.
QString beginning(const QStringList& words)
{
    QString text = words.isEmpty() ? QString() : shown(words.first());
    for (int i = 1; i < words.size() - 1; ++i)
        text = CWordFinder::tr("%1, %2", "names that are listed").arg(text, shown(words.at(i)));
    return text;
}

} // namespace

QString CWordFinder::closest(const QString& word, const QStringList& words)
{
    return closestWords(word, words, &m_stepsLeft).value(0);
}

QString CWordFinder::hint(const QString& word, const QStringList& words)
{
    const QString meant = closest(word, words);
    if (!meant.isNull())
        return didYouMean(QStringList(meant));
    if (words.isEmpty() || words.size() > maxListed)
        return {};
    return words.size() == 1 ? tr("there is only %1").arg(listAll(words)) : tr("there are %1").arg(listAll(words));
}

QString listAll(const QStringList& words)
{
    if (words.size() < 2)
        return beginning(words);
    return CWordFinder::tr("%1 and %2", "names that are listed").arg(beginning(words), shown(words.last()));
}

QString listChoices(const QStringList& words)
{
    if (words.size() < 2)
        return beginning(words);
    return CWordFinder::tr("%1 or %2", "names that are listed").arg(beginning(words), shown(words.last()));
}

} // namespace Host
