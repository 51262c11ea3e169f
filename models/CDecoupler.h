// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/models/SDecouplerStatistics.h>

#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <atomic>
#include <mutex>

namespace Plugin::Halvex {

/**
 * A thread that emits the newest of the data handed to it, at most once per tick if it is throttled.
 *
 * \code
 * CDecoupler decoupler;
 * QObject::connect(&decoupler, &CDecoupler::nodeDataAvailable, display, &CDisplay::show); // in display's thread
 * decoupler.setNodeData(frame);
 * \endcode
 *
 * There is one slot and no queue: new data replaces what still waits there. If it is not throttled, the worker emits
 * what is in the slot as soon as it can. If it is throttled, each emission uses up a tick. A tick that finds no data is
 * kept for the next data; more ticks make no difference. The worker keeps the data that it emitted last until it wakes
 * up again or ends.
 *
 * The worker is this thread itself, so everything that QThread offers works: isRunning(), wait(), finished(), the
 * priority, the stack size. The first data that may go out starts it, with the priority of the thread that hands the
 * data in. start() starts it earlier. If the system has no thread to give, Qt says so, the data waits, and the next
 * data that may go out tries again. There is no event loop in the worker: quit() and exit() do nothing.
 *
 * What a directly connected slot throws is reported to "halvex.graph", and the data counts as dropped. Slots that were
 * called before that one have got it.
 *
 * Ownership: whoever made it deletes it, in any thread but its own. In its own thread, call deleteLater().
 *
 * Threads: slots and statistics() may be called in any thread, also in the worker's, while the object exists. No mutex
 * is held while nodeDataAvailable() is emitted or data is released. Data that is dropped is released in the thread that
 * drops it.
 */
class HALVEX_EXPORT CDecoupler : public QThread
{
    Q_OBJECT

public:
    /// Not throttled, not started.
    CDecoupler() = default;

    /// Shuts down. A thread that runs cannot be destroyed: if it has not ended when shutDown() returns, this waits on,
    /// for as long as it takes. Must not be called in the worker's own thread, where Qt ends the process.
    ~CDecoupler() override;

    /// What became of the data so far; all counts are of one moment.
    SDecouplerStatistics statistics() const;

Q_SIGNALS:
    /// Emitted in the worker's thread, once for each data object that goes out. Never empty data.
    void nodeDataAvailable(CNodeDataPtr ptrNodeData);

public Q_SLOTS:
    /// Puts data into the slot. Empty data (null) only removes what waits there. After shutDown() data is dropped.
    void setNodeData(CNodeDataPtr ptrNodeData);

    /// Ends the worker for good and drops what waits. Waits for the end of the thread, at most 30000 ms. If that is not
    /// enough, one warning says so, the thread runs on, and the next call waits again. Called in the worker's own
    /// thread, it does not wait. Data that another thread sets meanwhile may make the thread begin and end once more.
    void shutDown();

    /// Sets whether each emission needs a tick. Does not wake the worker: what waits goes out with the next data or
    /// tick.
    void enableThrottle(bool enable);

    /// Lets one data object out: what waits now, or the next that comes. Never starts the thread.
    void throttleTimerTick();

protected:
    /// The worker's loop: waits for data that may go out, and emits it, until shutDown().
    void run() override;

private:
    void wakeUp(std::unique_lock<QMutex>& lock);
    bool takeData(CNodeDataPtr& inHand);
    void emitData(const CNodeDataPtr& data);

    // These two expect the mutex to be held.
    bool isReleaseAllowed() const { return m_tickPending || !m_throttleEnabled; }
    bool hasDataToRelease() const { return m_pendingData && isReleaseAllowed(); }

    // The mutex guards what stands between it and the atomic members.
    mutable QMutex m_mutex;
    CNodeDataPtr m_pendingData;
    QWaitCondition m_wakeUp;
    bool m_shutDownRequested = false;
    bool m_isAsleep = false; ///< The worker sleeps on m_wakeUp, and nobody has woken it yet.
    bool m_tickPending = false;
    SDecouplerStatistics m_counts; ///< All but pending.

    // No other memory is read because of what these say, so that only they have to be whole: any thread may set the
    // first, and any may shut down.
    std::atomic<bool> m_throttleEnabled{false};
    std::atomic<bool> m_hasWarned{false};
};

} // namespace Plugin::Halvex
