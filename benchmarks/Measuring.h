// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CFrame.h"
#include "CRatioTable.h"
#include "SShape.h"
#include "Subjects.h"
#include "WorkedSeconds.h"

#include "tests/support/Allocations.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

/// 10 times more each, from \a smallest to \a most or \a largest.
std::vector<int> sizesUpTo(int most, int smallest, int largest);

/// Has the run report its time per item.
void setItems(benchmark::State& state, double itemsPerIteration);

/// Measures \a work once for each iteration, with what \a prepare returns, which is built and destroyed untimed.
template <typename Prepare, typename Work>
void measureEach(benchmark::State& state, double items, const Prepare& prepare, const Work& work)
{
    for ([[maybe_unused]] auto iteration : state) {
        auto prepared = prepare();
        const double start = workedSeconds();
        work(prepared);
        state.SetIterationTime(workedSeconds() - start);
    }
    setItems(state, items);
}

/// Registers what calls measureEach(); that of many items runs once per repetition, and is repeated less. Returns
/// \a name.
template <typename Function>
std::string addEach(const std::string& name, int items, const Function& function)
{
    auto* const benchmark = benchmark::RegisterBenchmark(name.c_str(), function)->UseManualTime();
    if (items >= 100000)
        benchmark->Iterations(1)->Repetitions(3);
    return name;
}

/// Adds a row that compares the cost per item at the largest size with that at the smallest, of benchmarks that are
/// named work/size, and \a suffix.
void addGrowth(CRatioTable& table, const std::string& work, const std::vector<int>& sizes, const std::string& suffix);

/// Registers walks through a graph of that shape, per delivery, and what one of them allocates. Returns \a name.
template <typename Graph, typename... Args>
std::string addWalk(const std::string& name, const SShape& shape, const Args&... args)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        Graph graph(shape, args...);
        const Plugin::Halvex::CNodeDataPtr frames[] = {makeFrame(), makeFrame()};
        graph.walk(frames[0]);
        const long before = allocations();
        graph.walk(frames[1]);
        state.counters[Counters::allocations] = double(allocations() - before);
        unsigned int turn = 0;
        for ([[maybe_unused]] auto iteration : state)
            graph.walk(frames[turn++ % 2]);
        setItems(state, shape.deliveries());
    });
    return name;
}
