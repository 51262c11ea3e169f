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

// How many characters must be put in, taken out, replaced or swapped with the next to make one word of the other.
int distance(const QString& left, const QString& right)
{
    std::vector<int> before;
    std::vector<int> above(std::size_t(right.size()) + 1);
    std::iota(above.begin(), above.end(), 0);
    for (int i = 0; i < left.size(); ++i) {
        std::vector<int> row(above.size(), i + 1);
        for (int j = 0; j < right.size(); ++j) {
            const std::size_t at = std::size_t(j) + 1;
            const int replaced = above[at - 1] + (left.at(i) == right.at(j) ? 0 : 1);
            row[at] = std::min({replaced, above[at] + 1, row[at - 1] + 1});
            const bool isSwapped = i > 0 && j > 0 && left.at(i) == right.at(j - 1) && left.at(i - 1) == right.at(j);
            if (isSwapped)
                row[at] = std::min(row[at], before[at - 2] + 1);
        }
        before = std::exchange(above, std::move(row));
    }
    return above.back();
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
    found.erase(std::unique(found.begin(), found.end()), found.end());
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
