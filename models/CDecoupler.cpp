// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CDecoupler.h>

#include "graph/support/Reports_p.h"
#include "models/DecouplerEnd_p.h"

#include <Halvex/graph/CNodeDataModel.h>

#include <QCoreApplication>
#include <QMutexLocker>

#include <climits>
#include <utility>

namespace Plugin::Halvex {

// Survives number off by one: a while.
std::atomic<unsigned long> decouplerShutDownWait{30000};

namespace {

constexpr quint64 manyWithoutTick = 1000; // data that were received; with an event loop, a tick comes before

/// The timer that ticks is in the thread of \a model, the one that is current here.
[[gnu::cold]] void warnIfNoEventLoop(QObject* model)
{
    if (QThread::currentThread()->loopLevel() > 0)
        return;
    swallowExceptions(lcGraph, "Asking for the name of a decoupler", [model] {
        auto* const decoupler = qobject_cast<CNodeDataModel*>(model);
        warnOnce(
            "% data came to the decoupler \"%\" and none left it: its thread runs no event loop, so that its timer "
            "does not tick.",
            QString::number(manyWithoutTick), decoupler ? decoupler->name() : QString());
    });
}

} // namespace

CDecoupler::~CDecoupler()
{
    Q_ASSERT(QThread::currentThread() != this);
    shutDown();
    wait(ULONG_MAX); // wait() would call what Qt 5.12 does not have
}

SDecouplerStatistics CDecoupler::statistics() const
{
    const QMutexLocker lock(&m_mutex);
    SDecouplerStatistics counts = m_counts;
    counts.pending = m_pendingData ? 1 : 0;
    return counts;
}

void CDecoupler::setNodeData(CNodeDataPtr ptrNodeData)
{
    // What is dropped goes with the argument, when the mutex is free again: its destructor is foreign code.
    std::unique_lock<QMutex> lock(m_mutex);
    const bool isData = !ptrNodeData.isNull();
    m_counts.received += isData ? 1 : 0;
    if (m_shutDownRequested) {
        m_counts.dropped += isData ? 1 : 0;
        return;
    }

    m_pendingData.swap(ptrNodeData);
    if (ptrNodeData)
        ++(isData ? m_counts.dropped : m_counts.cancelled);

    if (!isReleaseAllowed()) {
        const bool isFirstTime = m_counts.received == manyWithoutTick && m_counts.emitted == 0;
        lock.unlock();
        if (Q_UNLIKELY(isFirstTime))
            warnIfNoEventLoop(sender());
        return;
    }
    // Survives exchanged neighbours: it is asked once more whether the thread runs.
    const bool needsThread = isData && !m_isAsleep;
    wakeUp(lock);
    // Without the mutex: Qt may warn, and a message handler may call statistics().
    if (needsThread && !isRunning())
        start(InheritPriority);
}

void CDecoupler::throttleTimerTick()
{
    std::unique_lock<QMutex> lock(m_mutex);
    m_tickPending = true;
    if (m_pendingData)
        wakeUp(lock);
}

void CDecoupler::wakeUp(std::unique_lock<QMutex>& lock)
{
    const bool wasAsleep = std::exchange(m_isAsleep, false);
    lock.unlock(); // or the worker would wake up only to wait for the mutex
    if (wasAsleep)
        m_wakeUp.wakeOne();
}

void CDecoupler::enableThrottle(bool enable)
{
    m_throttleEnabled = enable;
}

void CDecoupler::shutDown()
{
    CNodeDataPtr discarded; // released last: its destructor is foreign code
    {
        std::unique_lock<QMutex> lock(m_mutex);
        m_shutDownRequested = true;
        m_pendingData.swap(discarded);
        // Survives exchanged neighbours: only the race detector sees it.
        m_counts.dropped += discarded ? 1 : 0;
        wakeUp(lock);
    }

    if (QThread::currentThread() == this)
        return;
    const unsigned long milliseconds = decouplerShutDownWait;
    if (!wait(milliseconds) && !m_hasWarned.exchange(true)) {
        qWarning("A decoupler's thread has not ended within %lu ms: a slot that is connected directly, or the "
                 "destructor of its data, does not return.",
                 milliseconds);
    }
}

void CDecoupler::run()
{
    CNodeDataPtr inHand;
    while (takeData(inHand)) {
        if (inHand)
            emitData(inHand);
    }
}

/// Sleeps until there may be something to do, then replaces what was emitted before by what goes out next, if anything.
/// False: the worker has to end.
bool CDecoupler::takeData(CNodeDataPtr& inHand)
{
    CNodeDataPtr emittedBefore; // released when the mutex is free again
    const QMutexLocker lock(&m_mutex);
    if (!m_shutDownRequested && !hasDataToRelease()) {
        m_isAsleep = true;
        m_wakeUp.wait(&m_mutex); // only once: empty data wakes it to release what it holds
    }
    if (m_shutDownRequested)
        return false;

    emittedBefore.swap(inHand);
    if (hasDataToRelease()) {
        inHand.swap(m_pendingData);
        m_tickPending = false;
        ++m_counts.emitted;
    }
    return true;
}

void CDecoupler::emitData(const CNodeDataPtr& data)
{
    if (swallowExceptions(lcGraph, "The emission of a decoupler", [&] { Q_EMIT nodeDataAvailable(data); }))
        return;
    // Survives removed statement: only the race detector sees it.
    const QMutexLocker lock(&m_mutex);
    --m_counts.emitted;
    ++m_counts.dropped;
}

void endDecoupler(CDecoupler* decoupler)
{
    // Survives exchanged neighbours: its end is not missed either way.
    decoupler->shutDown();
    // Connected before it is asked whether it runs, so that its end is not missed.
    QObject::connect(decoupler, &QThread::finished, decoupler, &QObject::deleteLater);
    if (!decoupler->isRunning())
        delete decoupler;
    else if (const QCoreApplication* const application = QCoreApplication::instance())
        decoupler->moveToThread(application->thread());
}

} // namespace Plugin::Halvex
