// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/SHistogramScale.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace Host {

SHistogramScale::SHistogramScale(const std::vector<Counts>& channels)
{
    double inner = 0.0;
    for (const Counts& counts : channels) {
        inner = std::max(inner, double(*std::max_element(counts.begin() + 1, counts.end() - 1)));
        black = std::max(black, double(counts.front()));
        white = std::max(white, double(counts.back()));
    }
    const double all = std::max({inner, black, white, 1.0});
    const bool isCut = inner > 0.0 && all > 4.0 * inner;
    most = isCut ? 1.5 * inner : all;
}

std::string SHistogramScale::note(double pixels) const
{
    std::string text;
    for (const auto& end : {std::make_pair(black, "black"), std::make_pair(white, "white")}) {
        if (end.first <= most)
            continue;
        std::array<char, 40> part{};
        std::snprintf(part.data(), part.size(), "%.0f %% %s", 100.0 * end.first / pixels, end.second);
        text += (text.empty() ? "cut: " : ", ") + std::string(part.data());
    }
    return text;
}

} // namespace Host
