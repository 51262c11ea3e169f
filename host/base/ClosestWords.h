// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>

namespace Host {

/// How many letters must be put in, left out, exchanged or swapped with their neighbours to make one word the other.
/// The case of letters does not count.
int editDistance(const QString& left, const QString& right);

/**
 * Those of \a known that \a word may be a misspelling of, the closest first, three at most.
 *
 * A third of its letters may differ, and one of three to five; case does not count. A word of more than 100 letters is
 * like no other. What is compared is taken from \a stepsLeft, and once that is below 0 nothing is found: thousands of
 * wrong words among thousands of right ones take minutes.
 */
QStringList closestWords(const QString& word, const QStringList& known, qint64* stepsLeft = nullptr);

/// "did you mean 'Gain' or 'GainRaw'?", for withHint(); empty when nothing comes close. Names that begin with \a word
/// count as well: whoever knows the beginning of a long name alone is helped, too.
QString didYouMean(const QString& word, const QStringList& known);

/// The same question about \a words, three at most; empty without any.
QString didYouMean(const QStringList& words);

/// "no model 'Blurr' is registered; did you mean 'Blur'?": what is wrong, and what may help; \a message alone if \a
/// hint is empty.
QString withHint(const QString& message, const QString& hint);

} // namespace Host
