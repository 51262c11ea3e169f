// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/ClosestWords.h"

#include "host/base/Shown.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <utility>
#include <vector>

namespace Host {

namespace {

constexpr int mostWords = 3;
constexpr int maxLetters = 100; // of a word that is compared: the time goes with the square

// A word of two has nothing left to be recognised by.
int mostDifferences(const QString& word)
{
    return word.size() < 3 ? 0 : std::max(1, word.size() / 3);
}

} // namespace

int editDistance(const QString& left, const QString& right)
{
    const QString a = left.toCaseFolded();
    const QString b = right.toCaseFolded();
    const auto width = std::size_t(b.size()) + 1;
    std::vector<int> beforeLast(width);
    std::vector<int> last(width);
    std::vector<int> row(width);
    std::iota(last.begin(), last.end(), 0);
    for (int i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (int j = 1; j <= b.size(); ++j) {
            const auto at = std::size_t(j);
            const bool isSame = a.at(i - 1) == b.at(j - 1);
            row[at] = std::min({last[at] + 1, row[at - 1] + 1, last[at - 1] + (isSame ? 0 : 1)});
            if (i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1))
                row[at] = std::min(row[at], beforeLast[at - 2] + 1);
        }
        std::swap(beforeLast, last);
        std::swap(last, row);
    }
    return last.back();
}

QStringList closestWords(const QString& word, const QStringList& known, qint64* stepsLeft)
{
    if (word.isEmpty() || word.size() > maxLetters)
        return {};
    const int most = mostDifferences(word);
    std::vector<std::pair<int, QString>> found;
    for (const QString& candidate : known) {
        const bool mayBeLike = std::abs(candidate.size() - word.size()) <= most;
        if (stepsLeft)
            *stepsLeft -= mayBeLike ? 1 + word.size() * candidate.size() : 1;
        if (stepsLeft && *stepsLeft < 0)
            return {};
        const int away = mayBeLike ? editDistance(word, candidate) : most + 1;
        if (away <= most)
            found.emplace_back(away, candidate);
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    QStringList words;
    // One that is further away than another is not the closest.
    for (std::size_t i = 0; i < found.size() && found[i].first == found.front().first && words.size() < mostWords; ++i)
        words << found[i].second;
    return words;
}

QString didYouMean(const QString& word, const QStringList& known)
{
    QStringList words = closestWords(word, known);
    for (const QString& candidate : known) {
        const bool isBeginning = word.size() > 1 && candidate.startsWith(word, Qt::CaseInsensitive);
        if (isBeginning && words.size() < mostWords && !words.contains(candidate))
            words << candidate;
    }
    return didYouMean(words);
}

QString didYouMean(const QStringList& words)
{
    Q_ASSERT(words.size() <= mostWords);
    const QString first = shown(words.value(0));
    const QString second = shown(words.value(1));
    switch (words.size()) {
    case 0:
        return {};
    case 1:
        return QCoreApplication::translate("Host::ClosestWords", "did you mean %1?").arg(first);
    case 2:
        return QCoreApplication::translate("Host::ClosestWords", "did you mean %1 or %2?").arg(first, second);
    default:
        return QCoreApplication::translate("Host::ClosestWords", "did you mean %1 or %2 or %3?")
            .arg(first, second, shown(words.at(2)));
    }
}

QString withHint(const QString& message, const QString& hint)
{
    if (hint.isEmpty())
        return message;
    return QCoreApplication::translate("Host::ClosestWords", "%1; %2", "what is wrong; a question or a hint")
        .arg(message, hint);
}

} // namespace Host
