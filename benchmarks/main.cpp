// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Measures the library against floors that are written by hand, and prints one table of the ratios.
//
//   --quick          small graphs and short runs only: whether everything runs
//   --benchmark_...  as Google Benchmark takes them

#include "CRatioTable.h"
#include "Subjects.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstring>
#include <iostream>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    char** const end = std::remove_if(argv + 1, argv + argc, [](const char* a) { return !std::strcmp(a, "--quick"); });
    const bool isQuick = end != argv + argc;
    argc = int(end - argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    const int largest = isQuick ? 10000 : 1000000;

    CRatioTable table;
    registerWalks(table, largest);
    registerConstruction(table, largest);
    registerDocuments(table, largest);
    registerDecoupler(table);
    registerService(table, largest);
    registerThreads(table);
    registerWorkers(table, isQuick);
    registerFilters(table, isQuick);
#ifdef HALVEX_BENCH_HOST
    registerRecording(table, isQuick);
#endif
#ifdef HALVEX_BENCH_PEERS
    registerPeers(table);
#endif
    benchmark::RunSpecifiedBenchmarks(&table);
    const int printed = table.print(std::cout);
    // A row whose benchmarks have other names than it thinks is missing as well.
    const bool isWhole = printed == table.size() || (printed > 0 && !benchmark::GetBenchmarkFilter().empty());
    return table.hasError() || !isWhole ? 1 : 0;
}
