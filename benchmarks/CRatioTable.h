// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <benchmark/benchmark.h>

#include <limits>
#include <map>
#include <ostream>
#include <string>
#include <vector>

/// What every benchmark measures, by the name of the counter.
namespace Counters {
constexpr const char* time = "time";       // seconds per item
constexpr const char* p50 = "p50";         // seconds
constexpr const char* p99 = "p99";         // seconds
constexpr const char* longest = "longest"; // seconds
constexpr const char* floorP50 = "floor p50";
constexpr const char* floorP99 = "floor p99";
constexpr const char* bytes = "bytes";
constexpr const char* allocations = "allocations";
} // namespace Counters

/// One line of the table: a benchmark, by its name, against the sum of others.
struct SRatioRow
{
    std::string work;
    std::string measured;
    std::vector<std::string> floors; ///< None: the measured value itself is held against the target.
    double target = none;            ///< The largest ratio that will do; none if it is there to compare with.
    const char* counter = Counters::time;
    const char* floorCounter = counter; ///< Another one where a benchmark measures its floor itself.

    static constexpr double none = std::numeric_limits<double>::infinity();
};

/**
 * Collects what the benchmarks measured and prints one Markdown table of ratios.
 *
 * \code
 * CRatioTable table;
 * benchmark::RegisterBenchmark("walk/F2", &walkFloor);
 * benchmark::RegisterBenchmark("walk/Halvex", &walkScene);
 * table.add({"a walk", "walk/Halvex", {"walk/F2"}, 1.1});
 * benchmark::RunSpecifiedBenchmarks(&table);
 * table.print(std::cout);
 * \endcode
 *
 * A value is the median of all repetitions; a ratio is one of medians. Progress goes to the standard error output.
 */
class CRatioTable : public benchmark::ConsoleReporter
{
public:
    CRatioTable();

    void add(SRatioRow row);

    void ReportRuns(const std::vector<Run>& runs) override;

    /// The rows of which every benchmark was run, and in a last line the targets that were missed. Returns the number
    /// of rows.
    int print(std::ostream& out) const;

    /// Whether a benchmark reported an error, which takes its rows out of the table.
    bool hasError() const { return m_hasError; }

    /// The number of all rows.
    int size() const { return int(m_rows.size()); }

private:
    using Samples = std::map<std::string, std::vector<double>>; // by counter

    bool wasRun(const SRatioRow& row) const;
    double valueOf(const std::string& benchmark, const char* counter) const;

    std::vector<SRatioRow> m_rows;
    std::map<std::string, Samples> m_samples; // by benchmark
    bool m_hasError = false;
};
