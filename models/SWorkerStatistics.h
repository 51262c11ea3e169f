// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

namespace Plugin::Halvex {

/**
 * What became of the frames handed to a worker model since it was made, and how long its work took.
 *
 * At every moment `received == emitted + dropped + cancelled + failed + pending`, exactly. A frame is one set of
 * inputs. Empty data is not counted, only what it cancels.
 *
 * Times are those of the work itself, in nanoseconds of the wall clock.
 */
struct SWorkerStatistics
{
    quint64 received = 0;  ///< Sets of inputs that were complete.
    quint64 emitted = 0;   ///< Results that became the output.
    quint64 dropped = 0;   ///< Frames that found no room.
    quint64 cancelled = 0; ///< Frames that empty data made void before their result went out.
    quint64 failed = 0;    ///< Frames whose work threw.
    quint64 pending = 0;   ///< Waiting, in work, or with a result that has not gone out yet.

    qint64 workSum = 0; ///< Of all frames that were worked on, whatever became of their results.
    qint64 workP50 = 0; ///< The median of the last 1024 of them.
    qint64 workP99 = 0; ///< 99 in a hundred of these took no longer.
};

} // namespace Plugin::Halvex
