// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace Host {

/**
 * Finds the words that were meant by the mistyped ones of a document.
 *
 * Comparing takes time for each pair of words, so after some millions of letters it finds nothing any more: a document
 * with thousands of wrong words is told so at once rather than helpfully in a minute. No verdict may rest on that:
 * hasGivenUp() says whether nothing found means nothing.
 */
class CWordFinder
{
    Q_DECLARE_TR_FUNCTIONS(Host::CWordFinder)

public:
    /// The one of \a words that is most like \a word, as closestWords() has it; null if none is.
    QString closest(const QString& word, const QStringList& words);

    /// For withHint(): "did you mean 'Blur'?", or else the words when they are few: "there are 'a' and 'b'". May be
    /// empty.
    QString hint(const QString& word, const QStringList& words);

    /// Whether no more words are compared.
    bool hasGivenUp() const { return m_stepsLeft < 0; }

private:
    qint64 m_stepsLeft = 20000000; // looking at a word, and each pair of letters that is compared
};

/// "'a', 'b' and 'c'".
QString listAll(const QStringList& words);

/// "'a', 'b' or 'c'".
QString listChoices(const QStringList& words);

} // namespace Host
