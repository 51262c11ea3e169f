// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeData.h"
#include "models/SDecouplerStatistics.h"

#include <Halvex/HalvexExport.h>

#include <QThread>

#include <memory>

namespace Plugin {
namespace Halvex {

class CDecouplerWorker;

/**
 * Takes data in one thread and emits the newest of it from another, at most once per tick if it is throttled.
 *
 * \code
 * CDecoupler decoupler;
 * connect(&decoupler, &CDecoupler::nodeDataAvailable, display, &CDisplay::show); // queued into display's thread
 * decoupler.setNodeData(frame);
 * \endcode
 *
 * There is one slot and no queue. Data that comes before the previous one was taken replaces it. Throttled, the worker
 * takes it when there is a tick; a tick that finds no data waits, so that data after a quiet time goes out at once.
 * The data emitted last stays alive until the worker wakes up again.
 *
 * The worker's thread is one of its own, started by the first data that may go out. So it can be left behind: a worker
 * that hangs in a directly connected slot cannot be waited for, and a QThread must not be destroyed while it runs. If
 * the system has no thread to give, the data waits, and the next data or startForWaitingData() tries again.
 * isRunning(), isFinished() and wait() speak of the worker's thread, if they are called on a CDecoupler and not on a
 * QThread. start() starts nothing that matters, and started() and finished() do not speak of the worker.
 *
 * What a directly connected slot throws ends at the worker: it is reported to "halvex.graph", and the data counts as
 * dropped, though slots before that one have had it.
 *
 * Threads: the slots, statistics() and the destructor may be called from any thread, also from a slot that runs on the
 * worker. nodeDataAvailable() comes from the worker's. Nothing is locked while it is emitted or data is released. Data
 * that is dropped is released by the thread that drops it.
 */
class HALVEX_EXPORT CDecoupler : public QThread
{
    Q_OBJECT

public:
    /// Not throttled; no thread yet.
    CDecoupler();

    /// Shuts down, for which the worker has 30 s; what slots have left in its thread (thread_local) has as long once
    /// more. If the worker does not end in time, it is abandoned, and its thread ends by itself. Qt, which is
    /// then in the middle of an emission of this object, notices that it is gone. An owner that cannot rule out that
    /// the hanging slot returns in that very moment calls deleteWhenEnded() instead.
    ~CDecoupler() override;

    /// Shuts down and deletes this object, made with new: now, or when a worker that does not end in time has ended.
    void deleteWhenEnded();

    bool isRunning() const;
    bool isFinished() const;
    bool wait(unsigned long milliseconds = ULONG_MAX);

    /// Starts the worker if data may go out and it does not run yet: data that came before the first tick, which
    /// does not start it.
    void startForWaitingData();

    /// The counts, all of one moment.
    SDecouplerStatistics statistics() const;

Q_SIGNALS:
    /// Once for each data object that goes out, from the worker's thread. Never empty.
    void nodeDataAvailable(CNodeDataPtr ptrNodeData);

public Q_SLOTS:
    /// Puts data into the slot; empty data only cancels what waits there. Ignored after shutDown().
    void setNodeData(CNodeDataPtr ptrNodeData);

    /// Ends the worker, for good, and drops what waits. Waits at most 30000 ms, and not at all on the worker itself; a
    /// worker that takes longer is reported once with a warning.
    void shutDown();

    /// Whether data goes out only when there is a tick. Wakes nobody: what waits goes out with the next data or tick.
    void enableThrottle(bool enable);

    /// Lets one data object out, now or as soon as there is one. Ticks do not add up.
    void throttleTimerTick();

protected:
    /// Does nothing: the loop is not run by this thread.
    void run() override;

private:
    std::shared_ptr<CDecouplerWorker> m_worker;
};

} // namespace Halvex
} // namespace Plugin
