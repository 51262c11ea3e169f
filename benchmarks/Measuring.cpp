// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "Measuring.h"

#include <algorithm>

std::vector<int> sizesUpTo(int most, int smallest, int largest)
{
    std::vector<int> sizes;
    for (int size = smallest; size <= std::min(most, largest); size *= 10)
        sizes.push_back(size);
    return sizes;
}

void setItems(benchmark::State& state, double itemsPerIteration)
{
    state.counters[Counters::time] = benchmark::Counter(
        itemsPerIteration, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void addGrowth(CRatioTable& table, const std::string& work, const std::vector<int>& sizes, const std::string& suffix)
{
    const std::string smallest = std::to_string(sizes.front());
    const std::string largest = std::to_string(sizes.back());
    table.add({work + " at " + largest + ", against " + smallest,
               work + "/" + largest + suffix,
               {work + "/" + smallest + suffix},
               1.5});
}
