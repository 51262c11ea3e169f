// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "models/CDecouplerWorker_p.h"

#include "graph/support/LoggingCategory_p.h"
#include "graph/support/Swallow_p.h"
#include "models/CDecoupler.h"

#include <QDeadlineTimer>
#include <QMutexLocker>

#include <climits>
#include <exception>
#include <utility>

namespace Plugin {
namespace Halvex {

namespace {

// What the worker needs at most from one slot to the next, in milliseconds: it only has to be scheduled.
constexpr unsigned long longestStep = 200;

} // namespace

std::atomic<unsigned long> CDecouplerWorker::s_shutDownWait{30000};

/// Says that the thread is over, when everything is gone that slots have left in it.
class CDecouplerWorker::CThreadEnd
{
public:
    explicit CThreadEnd(std::shared_ptr<CDecouplerWorker> worker)
        : m_worker(std::move(worker))
    {
    }
    ~CThreadEnd()
    {
        const QMutexLocker lock(&m_worker->m_mutex);
        m_worker->m_isOver = true;
        m_worker->m_ended.wakeAll();
    }
    Q_DISABLE_COPY(CThreadEnd)

private:
    std::shared_ptr<CDecouplerWorker> m_worker;
};

CDecouplerWorker::CDecouplerWorker(CDecoupler* owner)
    : m_owner(owner)
{
}

CDecouplerWorker::~CDecouplerWorker() = default;

void CDecouplerWorker::setNodeData(CNodeDataPtr data)
{
    // What is dropped goes with the argument, when the mutex is free again: its destructor is foreign code.
    QMutexLocker lock(&m_mutex);
    const bool isData = !data.isNull();
    if (isData)
        ++m_counts.received;
    if (m_shutDownRequested) {
        if (isData)
            ++m_counts.dropped;
        return;
    }

    m_pending.swap(data);
    if (data)
        ++(isData ? m_counts.dropped : m_counts.cancelled);

    if (!isOpen())
        return;
    const bool isServed = !m_pending || startThread();
    wakeUp(lock);
    if (!isServed)
        warnOfMissingThread();
}

void CDecouplerWorker::tick()
{
    QMutexLocker lock(&m_mutex);
    m_tickPending = true;
    if (m_pending)
        wakeUp(lock);
}

void CDecouplerWorker::startForWaitingData()
{
    QMutexLocker lock(&m_mutex);
    const bool isServed = m_shutDownRequested || !mayRelease() || startThread();
    lock.unlock();
    if (!isServed)
        warnOfMissingThread();
}

bool CDecouplerWorker::startThread()
{
    if (m_thread.joinable())
        return true;
    try {
        m_thread = std::thread([self = shared_from_this()] {
            static thread_local const CThreadEnd end(self); // the first, so that it goes last
            self->run();
        });
        return true;
    } catch (const std::exception&) { // no thread, or no memory for one
        return false;                 // the next data or tick tries again
    }
}

void CDecouplerWorker::warnOfMissingThread()
{
    if (!m_hasMissedThread.exchange(true)) // it is tried many times a second
        qWarning("The system has no thread for a decoupler: its data waits until there is one.");
}

void CDecouplerWorker::sleep()
{
    m_isAsleep = true;
    m_mutex.unlock();
    m_wakeUp.acquire();
    m_mutex.lock();
}

void CDecouplerWorker::wakeUp(QMutexLocker& lock)
{
    // Not under the mutex, or the worker would wake up only to wait for it. But as soon as that is free, a slot in the
    // worker may destroy the decoupler.
    const auto sleeper = m_isAsleep ? shared_from_this() : nullptr;
    m_isAsleep = false;
    lock.unlock();
    if (sleeper)
        sleeper->m_wakeUp.release();
}

void CDecouplerWorker::run()
{
    CNodeDataPtr inHand;
    for (;;) {
        m_mutex.lock();
        if (!m_shutDownRequested && !mayRelease())
            sleep(); // only once: there may be nothing to take, but what the worker holds is released
        if (m_shutDownRequested) {
            m_mutex.unlock();
            break;
        }

        CNodeDataPtr emittedBefore;
        emittedBefore.swap(inHand);
        if (mayRelease()) {
            inHand.swap(m_pending);
            m_tickPending = false;
            ++m_counts.emitted;
        }
        m_mutex.unlock();

        emittedBefore.reset();
        if (inHand)
            emitData(inHand);
    }
    inHand.reset();

    m_mutex.lock();
    m_hasEnded = true;
    m_ended.wakeAll();
    const std::unique_ptr<CDecoupler> orphan(std::exchange(m_orphan, nullptr));
    m_mutex.unlock();
}

void CDecouplerWorker::emitData(const CNodeDataPtr& data)
{
    CDecoupler* owner = nullptr;
    {
        // It may be gone: releasing the previous data is foreign code, which may take long or destroy the decoupler.
        const QMutexLocker lock(&m_mutex);
        owner = m_owner;
        if (!owner)
            return;
        m_isEmissionDue = true;
    }

    // From here on the decoupler goes only after the thread has ended, or when this emission has begun.
    const bool isSent =
        swallowExceptions(lcGraph, "The emission of a decoupler", [&] { Q_EMIT owner->nodeDataAvailable(data); });
    onEmissionEntered(); // for a decoupler whose signals are blocked
    if (isSent)
        return;
    const QMutexLocker lock(&m_mutex);
    --m_counts.emitted;
    ++m_counts.dropped;
}

void CDecouplerWorker::onEmissionEntered()
{
    const QMutexLocker lock(&m_mutex);
    m_isEmissionDue = false;
    m_emissionEntered.wakeAll();
}

void CDecouplerWorker::shutDown()
{
    {
        QMutexLocker lock(&m_mutex);
        m_shutDownRequested = true;
        wakeUp(lock);
    }

    if (!m_hasWarned && !isOnWorker() && !wait(s_shutDownWait) && !m_hasWarned.exchange(true)) {
        qWarning("A decoupler's worker has not ended within %lu ms, so it is left behind: what is connected directly "
                 "to it does not return.",
                 s_shutDownWait.load());
    }

    CNodeDataPtr discarded;
    const QMutexLocker lock(&m_mutex);
    m_pending.swap(discarded);
    if (discarded)
        ++m_counts.dropped;
}

bool CDecouplerWorker::takeOver(CDecoupler* decoupler)
{
    const QMutexLocker lock(&m_mutex);
    if (!m_thread.joinable() || m_hasEnded)
        return false;
    m_orphan = decoupler;
    return true;
}

void CDecouplerWorker::leaveOwner()
{
    QMutexLocker lock(&m_mutex);
    if (!m_thread.joinable())
        return;
    const bool isOutside = !isHere();
    if (m_isEmissionDue && isOutside)
        m_emissionEntered.wait(&m_mutex, longestStep);

    // A slot hangs. When it returns, nothing else is to be called on behalf of an object that is gone; and if it
    // returns just now, the emission has time to end.
    if (isOutside && !m_hasEnded) {
        lock.unlock();
        QObject::disconnect(m_owner, &CDecoupler::nodeDataAvailable, nullptr, nullptr);
        lock.relock();
        waitForEnd(longestStep);
    }

    m_owner = nullptr;
    const bool isOver = isOutside && m_hasEnded && waitFor(m_isOver, s_shutDownWait);
    std::thread thread = std::move(m_thread);
    lock.unlock();
    // Joined, nothing of the thread is left, not even code that is to be unloaded. But slots may have left it objects
    // that go only now, and take their time or wait for this thread.
    if (isOver)
        thread.join();
    else
        thread.detach();
}

bool CDecouplerWorker::isOnWorker() const
{
    const QMutexLocker lock(&m_mutex);
    return isHere();
}

bool CDecouplerWorker::isRunning() const
{
    const QMutexLocker lock(&m_mutex);
    return m_thread.joinable() && !m_hasEnded;
}

bool CDecouplerWorker::isFinished() const
{
    const QMutexLocker lock(&m_mutex);
    return m_hasEnded;
}

bool CDecouplerWorker::wait(unsigned long milliseconds)
{
    const QMutexLocker lock(&m_mutex);
    return !isHere() && waitForEnd(milliseconds);
}

bool CDecouplerWorker::waitForEnd(unsigned long milliseconds)
{
    return !m_thread.joinable() || waitFor(m_hasEnded, milliseconds);
}

bool CDecouplerWorker::waitFor(const bool& flag, unsigned long milliseconds)
{
    const QDeadlineTimer deadline(milliseconds == ULONG_MAX ? -1 : qint64(milliseconds));
    while (!flag) {
        if (!m_ended.wait(&m_mutex, deadline))
            return flag;
    }
    return true;
}

SDecouplerStatistics CDecouplerWorker::statistics() const
{
    const QMutexLocker lock(&m_mutex);
    SDecouplerStatistics counts = m_counts;
    counts.pending = m_pending ? 1 : 0;
    return counts;
}

} // namespace Halvex
} // namespace Plugin
