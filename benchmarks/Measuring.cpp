// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "Measuring.h"

#include <algorithm>
#include <ctime>

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

double workedSeconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
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
