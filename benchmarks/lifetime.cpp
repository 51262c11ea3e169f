// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Makes a chain, connects and destroys it, some times over, in a process that has done nothing else. Prints the median
// of the seconds that one took of the processor.
//
//   halvex-lifetime engine|floor NODES TIMES

#include "CSceneChain.h"
#include "CSignalChain.h"
#include "WorkedSeconds.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

template <typename Chain>
double secondsOfLifetime(int nodes)
{
    const double start = workedSeconds();
    std::make_unique<Chain>(nodes).reset();
    return workedSeconds() - start;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 4)
        return 2;
    const bool isFloor = std::strcmp(argv[1], "floor") == 0;
    const int nodes = std::atoi(argv[2]);
    const int times = std::atoi(argv[3]);
    if (nodes < 1 || times < 1)
        return 2;
    std::vector<double> seconds;
    seconds.reserve(std::size_t(times));
    for (int i = 0; i < times; ++i)
        seconds.push_back(isFloor ? secondsOfLifetime<CSignalChain>(nodes) : secondsOfLifetime<CSceneChain>(nodes));
    std::sort(seconds.begin(), seconds.end());
    std::printf("%.9f\n", seconds[seconds.size() / 2]);
    return 0;
}
