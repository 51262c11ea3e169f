// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SAbsences.h"
#include "host/camera/SGrabStatistics.h"
#include "host/report/SNodeReport.h"

#include <Halvex/models/SDecouplerStatistics.h>
#include <Halvex/models/SWorkerStatistics.h>

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>
#include <vector>

namespace Host {

/// What one sink of a run did.
struct SSinkReport
{
    QString name;
    quint64 delivered = 0;
    quint64 expected = 0;                        ///< What its connections carried.
    std::vector<QString> files;                  ///< Written, oldest first.
    Plugin::Halvex::SWorkerStatistics writing{}; ///< Of the frames that were to be written.
    quint64 written = 0;                         ///< Frames, of which a file may hold several.
};

/// What one decoupler of a run did.
struct SDecouplerReport
{
    QString name;
    double framesPerSecond = 0.0; ///< As it is set, whatever number that is.
    Plugin::Halvex::SDecouplerStatistics counts;
    quint64 expected = 0;  ///< What its connections carried.
    quint64 delivered = 0; ///< What has come out, of all that was emitted.
    std::optional<double>
        mostPerSecond{};   ///< What its timer lets through; nothing if it ticks in each pass of the event loop.
    bool isOnLoop = false; ///< What goes round may stay in it.
};

/// What one worker of a run did.
struct SWorkerReport
{
    QString name;
    Plugin::Halvex::SWorkerStatistics counts;
    quint64 expected = 0; ///< What must have been received.
};

/// What a run did with one camera. A plain value.
struct SRunReport
{
    QString address; ///< The camera's.
    QString camera;  ///< Its name and format.
    QString graph;   ///< The graph as text.
    QString ending;  ///< Why the run ended.
    QString failed;  ///< What failure() said of it; empty for nothing.
    SGrabStatistics frames;
    SAbsences absences;                      ///< Of the camera.
    std::chrono::nanoseconds span{0};        ///< From the first to the last complete frame.
    std::optional<double> askedForPerSecond; ///< Frames per second that the camera was set to.
    quint64 askedForFrames = 0;              ///< Complete frames that it should have given; 0 for no number.
    QString flowMismatch;                    ///< The first connection that did not carry what it should have.
    std::vector<SNodeReport> nodes;
    std::vector<SConnectionReport> connections;
    std::vector<SDecouplerReport> decouplers;
    std::vector<SWorkerReport> workers;
    std::vector<SSinkReport> sinks;

    /// Frames between the first and the last over the time between them; nothing with fewer than two.
    std::optional<double> framesPerSecond() const;

    /// The first thing that does not add up, in one line; empty when nothing was lost.
    QString mismatch() const;

    /// What a reader should know although nothing failed: frames lost, fewer than were asked for, a rate that was
    /// missed by more than 5 %, a camera that had gone. A line each.
    QStringList remarks() const;

    /// What makes the run a failure, in one line: a mismatch, no complete frame among those that came, with
    /// \a isStrict also a remark.
    QString failure(bool isStrict) const;

    /// For people: the graph and the tables, for a terminal of \a width columns.
    QString text(int width = 80, bool isBold = false) const;

    /// All of it for programs; times in seconds, null where nothing was measured.
    QJsonObject json() const;
};

} // namespace Host
