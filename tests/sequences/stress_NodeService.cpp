// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Random operations on a node service and its scenes, some of them from within handlers of their signals, against a
// model of plain lists: what is told and in which order, what operations return, and what is there after each step.
//
//   stress_NodeService [steps] [seed]
//
// Every 500 steps a new service begins, in a process of its own, with the next seed. Ends at the first difference,
// crash, hang or leak: the sequence is shrunk and printed as the body of a test, with what the process says that runs
// it. The first seed is printed; without one, each run has another. The same seed leads to the same sequence again.

#include "sequences/CChildRunner.h"

#include <QtGlobal>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

using namespace Sequences;

namespace {

constexpr int stepsOfService = 500;

int report(unsigned int seed, const SRandomRun& run, CChildRunner& runner)
{
    std::fprintf(stderr, "seed %u, after %d steps: %s\n", seed, int(run.sequence.size()), qPrintable(run.difference));
    const Sequence shrunk = runner.shrunk(run.sequence, run.difference);
    std::fprintf(stderr, "The same in short:\n\nCSideBySide graph;\n%s\n", qPrintable(codeOf(shrunk)));
    std::fprintf(stderr, "%s\n", qPrintable(runner.differenceOf(shrunk, CChildRunner::EErrors::Shown)));
    return 1;
}

} // namespace

int main(int argc, char* argv[])
{
    const int steps = argc > 1 ? std::atoi(argv[1]) : 200000;
    const unsigned int firstSeed = argc > 2 ? unsigned(std::strtoul(argv[2], nullptr, 10)) : std::random_device()();
    std::printf("first seed %u\n", firstSeed);
    std::fflush(stdout);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {}); // of models nobody registered

    CChildRunner runner(CChildRunner::ELeaks::Sought);
    unsigned int seed = firstSeed;
    long operations = 0;
    for (int done = 0; done < steps; done += stepsOfService, ++seed) {
        const SRandomRun run = runner.runRandomly(seed, std::min(stepsOfService, steps - done));
        if (!run.difference.isEmpty())
            return report(seed, run, runner);
        operations += run.operations;
    }
    std::printf("seeds %u to %u: %d steps, %ld operations from handlers\n", firstSeed, seed - 1, steps,
                operations - steps);
    const bool isReentered = operations > steps || steps <= 1000; // a long run without tests less than it says
    return isReentered ? 0 : 1;
}
