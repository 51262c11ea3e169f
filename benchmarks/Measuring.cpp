// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "Measuring.h"

#include <algorithm>

#include <time.h>

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
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}
