// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeData.h"
#include "models/SDecouplerStatistics.h"

#include <Halvex/HalvexExport.h>

#include <QMutex>
#include <QSemaphore>
#include <QWaitCondition>

#include <atomic>
#include <memory>
#include <thread>

namespace Plugin {
namespace Halvex {

class CDecoupler;

/**
 * The slot between the two threads of a decoupler, and the loop of the second.
 *
 * Shared by the decoupler and the thread, so that either may go first.
 *
 * The thread is no QThread: that opens file descriptors for an event loop, which the worker does not run, and where
 * there are none left Qt ends the process.
 */
class HALVEX_EXPORT CDecouplerWorker : public std::enable_shared_from_this<CDecouplerWorker>
{
public:
    explicit CDecouplerWorker(CDecoupler* owner);
    ~CDecouplerWorker();
    Q_DISABLE_COPY(CDecouplerWorker)

    void setNodeData(CNodeDataPtr data);
    void enableThrottle(bool enable) { m_throttleEnabled = enable; }
    void tick();
    void startForWaitingData();
    void shutDown();

    /// Leaves \a decoupler to the thread, which deletes it when it ends. False if no thread runs.
    bool takeOver(CDecoupler* decoupler);

    /// The decoupler goes: nothing of it is touched after this.
    void leaveOwner();

    /// Called by the first slot of every emission, when Qt knows what to do if the emitting object is destroyed.
    void onEmissionEntered();

    bool isOnWorker() const;
    bool isRunning() const;
    bool isFinished() const;
    bool wait(unsigned long milliseconds);
    SDecouplerStatistics statistics() const;

    /// How long shutDown() waits, in milliseconds. Tests of a worker that hangs shorten it.
    static std::atomic<unsigned long> s_shutDownWait;

private:
    class CThreadEnd;

    void run();
    void emitData(const CNodeDataPtr& data);
    void warnOfMissingThread();

    // The following expect the mutex to be held.
    bool isOpen() const { return m_tickPending || !m_throttleEnabled; }
    bool mayRelease() const { return m_pending && isOpen(); }
    bool isHere() const { return m_thread.get_id() == std::this_thread::get_id(); }
    bool startThread();
    void sleep();
    void wakeUp(QMutexLocker& lock); ///< Unlocks the mutex.
    bool waitForEnd(unsigned long milliseconds);
    bool waitFor(const bool& flag, unsigned long milliseconds);

    mutable QMutex m_mutex;
    CNodeDataPtr m_pending;
    bool m_shutDownRequested = false;
    bool m_tickPending = false;
    bool m_isAsleep = false; // the worker, and nobody has woken it yet
    QSemaphore m_wakeUp;     // one for each time it sleeps
    SDecouplerStatistics m_counts;
    CDecoupler* m_owner;
    std::thread m_thread;
    CDecoupler* m_orphan = nullptr; // left to the thread
    bool m_hasEnded = false;        // the loop has, and holds no data any more
    bool m_isOver = false;          // and so is the thread
    QWaitCondition m_ended;
    bool m_isEmissionDue = false; // the emission has begun and not reached its first slot
    QWaitCondition m_emissionEntered;
    std::atomic<bool> m_hasMissedThread{false};
    std::atomic<bool> m_hasWarned{false};

    std::atomic<bool> m_throttleEnabled{false}; // written without the mutex
};

} // namespace Halvex
} // namespace Plugin
