// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "models/CDecouplerWorker_p.h"

#include "models/CDecoupler.h"

#include <QMutexLocker>
#include <QThread>

#include <climits>
#include <utility>

namespace Plugin {
namespace Halvex {

namespace {

// What the worker needs at most from one slot to the next, in milliseconds: it only has to be scheduled.
constexpr unsigned long longestStep = 200;

} // namespace

std::atomic<unsigned long> CDecouplerWorker::s_shutDownWait{30000};

CDecouplerWorker::CDecouplerWorker(CDecoupler* owner)
    : m_owner(owner)
{
}

CDecouplerWorker::~CDecouplerWorker() = default;

void CDecouplerWorker::setNodeData(CNodeDataPtr data)
{
    // What is dropped goes with the argument, when the mutex is free again: its destructor is foreign code.
    const QMutexLocker lock(&m_mutex);
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

    if (m_working || !(m_tickPending || !m_throttleEnabled))
        return;
    if (m_pending)
        startThread();
    m_wakeUp.wakeOne();
}

void CDecouplerWorker::tick()
{
    const QMutexLocker lock(&m_mutex);
    m_tickPending = true;
    if (m_thread && !m_working && m_pending)
        m_wakeUp.wakeOne();
}

void CDecouplerWorker::startForWaitingData()
{
    const QMutexLocker lock(&m_mutex);
    if (!m_shutDownRequested && mayRelease())
        startThread();
}

void CDecouplerWorker::startThread()
{
    if (m_thread)
        return;
    QThread* const thread = QThread::create([self = shared_from_this()] { self->run(); });
    // Whoever hands data in may have no event loop, in which the object could be deleted.
    thread->moveToThread(m_owner->thread());
    thread->start(QThread::InheritPriority);
    if (thread->isRunning())
        m_thread = thread;
    else
        delete thread; // the system has no thread to give; the next data tries again
}

void CDecouplerWorker::run()
{
    m_working = true;
    CNodeDataPtr inHand;
    for (;;) {
        m_mutex.lock();
        if (!m_shutDownRequested && !mayRelease()) {
            m_working = false;
            m_wakeUp.wait(&m_mutex);
            m_working = true;
            // Whatever woke the worker, it goes on: there may be nothing to take, but what it holds is released.
        }
        if (m_shutDownRequested)
            break;

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
    m_hasEnded = true;
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
    Q_EMIT owner->nodeDataAvailable(data);
    onEmissionEntered(); // for a decoupler whose signals are blocked
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
        const QMutexLocker lock(&m_mutex);
        m_shutDownRequested = true;
        m_wakeUp.wakeOne();
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
    if (!m_thread || m_hasEnded)
        return false;
    m_orphan = decoupler;
    return true;
}

void CDecouplerWorker::leaveOwner()
{
    QMutexLocker lock(&m_mutex);
    if (!m_thread)
        return;
    const bool isHere = m_thread == QThread::currentThread();
    if (m_isEmissionDue && !isHere)
        m_emissionEntered.wait(&m_mutex, longestStep);
    lock.unlock();

    // A slot hangs. When it returns, nothing else is to be called on behalf of an object that is gone; and if it
    // returns just now, the emission has time to end.
    if (!isHere && !m_thread->isFinished()) {
        QObject::disconnect(m_owner, &CDecoupler::nodeDataAvailable, nullptr, nullptr);
        m_thread->wait(longestStep);
    }

    lock.relock();
    m_owner = nullptr;
    QThread* const thread = std::exchange(m_thread, nullptr);
    lock.unlock();
    if (!isHere && thread->isFinished()) {
        thread->wait(ULONG_MAX); // without an argument, newer headers call what Qt 5.12 does not have
        delete thread;
        return;
    }
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    if (thread->isFinished())
        thread->deleteLater(); // it ended before the connection was made
}

bool CDecouplerWorker::isOnWorker() const
{
    const QMutexLocker lock(&m_mutex);
    return m_thread && m_thread == QThread::currentThread();
}

bool CDecouplerWorker::isRunning() const
{
    const QMutexLocker lock(&m_mutex);
    return m_thread && m_thread->isRunning();
}

bool CDecouplerWorker::isFinished() const
{
    const QMutexLocker lock(&m_mutex);
    return m_thread && m_thread->isFinished();
}

bool CDecouplerWorker::wait(unsigned long milliseconds)
{
    m_mutex.lock();
    QThread* const thread = m_thread;
    m_mutex.unlock();
    return !thread || thread->wait(milliseconds);
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
