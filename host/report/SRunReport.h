// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SGrabStatistics.h"

#include <Halvex/models/SDecouplerStatistics.h>
#include <Halvex/models/SWorkerStatistics.h>

#include <QString>

#include <chrono>
#include <vector>

namespace Host {

/// What one sink of a run did.
struct SSinkReport
{
    QString name;
    quint64 delivered = 0;
    quint64 expected = 0;               ///< What must have been delivered.
    std::vector<QString> files;         ///< Written, oldest first.
    std::chrono::nanoseconds median{0}; ///< From the camera's stream to the sink.
    std::chrono::nanoseconds percentile99{0};
};

/// What one decoupler of a run did.
struct SDecouplerReport
{
    QString name;
    double framesPerSecond = 0.0;
    Plugin::Halvex::SDecouplerStatistics counts;
    quint64 expected = 0;  ///< What must have been received.
    quint64 delivered = 0; ///< What has come out, of all that was emitted.
};

/// What a run did. A plain value.
struct SWorkerReport
{
    QString name;
    Plugin::Halvex::SWorkerStatistics counts;
    quint64 expected = 0; ///< What must have been received.
};

struct SRunReport
{
    QString camera; ///< Its name and format.
    QString graph;  ///< The graph as text.
    QString ending; ///< Why the run ended.
    SGrabStatistics frames;
    std::chrono::nanoseconds span{0}; ///< From the first to the last complete frame.
    std::vector<SDecouplerReport> decouplers;
    std::vector<SWorkerReport> workers;
    std::vector<SSinkReport> sinks;

    /// Frames between the first and the last over the time between them; 0 with fewer than two.
    double framesPerSecond() const;

    /// The first thing in the table that does not add up, in one line; empty when nothing was lost.
    QString mismatch() const;

    /// For people: the graph and the tables.
    QString text() const;
};

/// The value that \a fraction (0 to 1) of \a values does not exceed, the nearest rank; 0 for no values.
std::chrono::nanoseconds percentile(std::vector<std::chrono::nanoseconds> values, double fraction);

} // namespace Host
