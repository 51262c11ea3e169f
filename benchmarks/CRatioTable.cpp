// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CRatioTable.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <utility>

namespace {

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2;
}

std::string text(double value, int decimals)
{
    std::ostringstream out;
    out << std::fixed << std::setprecision(decimals) << value;
    return out.str();
}

std::string timeText(double seconds)
{
    if (seconds < 1e-6)
        return text(seconds * 1e9, 1) + " ns";
    if (seconds < 1e-3)
        return text(seconds * 1e6, 2) + " µs";
    return text(seconds * 1e3, 2) + " ms";
}

std::string valueText(double value, const std::string& counter)
{
    if (counter == Counters::bytes)
        return text(value, 0) + " bytes";
    if (counter == Counters::allocations)
        return text(value, 2);
    return timeText(value);
}

void printMissed(std::ostream& out, const std::vector<std::string>& missed, int targets)
{
    out << "\nTargets missed: " << missed.size() << " of " << targets;
    for (std::size_t i = 0; i < missed.size(); ++i)
        out << (i == 0 ? ": " : "; ") << missed[i];
    out << ".\n";
}

} // namespace

CRatioTable::CRatioTable()
    : benchmark::ConsoleReporter(OO_Tabular)
{
    SetOutputStream(&std::cerr);
}

void CRatioTable::add(SRatioRow row)
{
    m_rows.push_back(std::move(row));
}

void CRatioTable::ReportRuns(const std::vector<Run>& runs)
{
    benchmark::ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        m_hasError = m_hasError || run.error_occurred;
        if (run.error_occurred || run.run_type != Run::RT_Iteration)
            continue;
        Samples& samples = m_samples[run.run_name.function_name];
        for (const auto& counter : run.counters)
            samples[counter.first].push_back(counter.second.value);
    }
}

int CRatioTable::print(std::ostream& out) const
{
    int printed = 0;
    int targets = 0;
    std::vector<std::string> missed;
    out << "| work | measured | floor | ratio | target | met |\n| --- | ---: | ---: | ---: | ---: | --- |\n";
    for (const SRatioRow& row : m_rows) {
        if (!wasRun(row))
            continue;
        ++printed;
        const double measured = valueOf(row.measured, row.counter);
        double floor = 0;
        for (const std::string& name : row.floors)
            floor += valueOf(name, row.floorCounter);

        const bool isRatio = !row.floors.empty();
        const bool hasTarget = std::isfinite(row.target);
        const double judged = isRatio ? measured / floor : measured;
        const std::string target = isRatio ? text(row.target, 2) : valueText(row.target, row.counter);
        const bool isMet = judged <= row.target;
        targets += hasTarget ? 1 : 0;
        if (hasTarget && !isMet)
            missed.push_back(row.work);
        out << "| " << row.work << " | " << valueText(measured, row.counter) << " | "
            << (isRatio ? valueText(floor, row.counter) : "") << " | " << (isRatio ? text(judged, 2) : "") << " | "
            << (hasTarget ? target : "") << " | "
            << (!hasTarget ? ""
                : isMet    ? "yes"
                           : "**no**")
            << " |\n";
    }
    printMissed(out, missed, targets);
    return printed;
}

bool CRatioTable::wasRun(const SRatioRow& row) const
{
    return m_samples.count(row.measured) != 0 &&
           std::all_of(row.floors.begin(), row.floors.end(),
                       [this](const std::string& floor) { return m_samples.count(floor) != 0; });
}

double CRatioTable::valueOf(const std::string& benchmark, const char* counter) const
{
    return median(m_samples.at(benchmark).at(counter));
}
