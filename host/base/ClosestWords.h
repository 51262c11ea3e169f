// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>

namespace Host {

/// How many letters must be put in, left out, exchanged or swapped with their neighbours to make one word the other.
/// The case of letters does not count.
int editDistance(const QString& left, const QString& right);

/// Those of \a known that \a word may have been meant for, the closest first, three at most. Case does not count.
QStringList closestWords(const QString& word, const QStringList& known);

/// "; did you mean 'Gain' or 'GainRaw'?", to be put behind a sentence about \a word; empty when nothing comes close.
QString didYouMean(const QString& word, const QStringList& known);

} // namespace Host
