// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/ClosestWords.h"

#include "host/base/Shown.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace Host {

namespace {

constexpr int mostWords = 3;

// How many characters must be put in, taken out or replaced to make one word of the other.
int distance(const QString& left, const QString& right)
{
    std::vector<int> row(std::size_t(right.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < left.size(); ++i) {
        int diagonal = std::exchange(row[0], i + 1);
        for (int j = 0; j < right.size(); ++j) {
            const std::size_t at = std::size_t(j) + 1;
            const int replaced = diagonal + (left.at(i) == right.at(j) ? 0 : 1);
            diagonal = row[at];
            row[at] = std::min({replaced, row[at] + 1, row[at - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

QStringList closestWords(const QString& word, const QStringList& known)
{
    const QString meant = word.toLower();
    const int most = std::max(1, meant.size() / 3);
    std::vector<std::pair<int, QString>> found;
    for (const QString& candidate : known) {
        const QString lower = candidate.toLower();
        // Whoever knows the beginning of a long name alone is helped as well.
        const bool isBeginning = meant.size() >= 4 && lower.startsWith(meant);
        const int away = isBeginning ? 1 : distance(meant, lower);
        if (away <= most)
            found.emplace_back(away, candidate);
    }
    std::sort(found.begin(), found.end());
    QStringList words;
    for (std::size_t i = 0; i < found.size() && words.size() < mostWords; ++i)
        words << found[i].second;
    return words;
}

QString didYouMean(const QString& word, const QStringList& known)
{
    QStringList words = closestWords(word, known);
    for (QString& each : words)
        each = shown(each);
    return words.isEmpty() ? QString() : QStringLiteral("; did you mean %1?").arg(words.join(QStringLiteral(" or ")));
}

} // namespace Host
