// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "models/CWorkQueue_p.h"

#include "models/RemovedWork_p.h"

#include <QElapsedTimer>
#include <QMetaObject>
#include <QMutexLocker>
#include <QRunnable>

#include <algorithm>
#include <exception>
#include <utility>

namespace Plugin::Halvex {

/// A frame with its work and then its result, or empty data in the order of the frames.
class CWorkQueue::CJob : public QRunnable
{
public:
    CJob() { setAutoDelete(false); }

    void run() override
    {
        std::shared_ptr<CWorkQueue> share = std::move(queue); // the job may be used again before this returns
        share->perform(*this);
        const bool isRemoved = share->leave();
        // Survives removed statement: it goes a moment later, and an unload waits for the pool's threads besides.
        share.reset(); // maybe the last, with this job
        if (isRemoved)
            RemovedWork::end();
    }

    void clear()
    {
        // Survives exchanged neighbours: what one releases knows nothing of the others.
        inputs.clear();
        // Survives exchanged neighbours: the same.
        work.reset();
        result.reset();
    }

    CJob* next = nullptr;
    std::shared_ptr<CWorkQueue> queue; // while it is in the pool
    QThreadPool* pool = nullptr;       // null once its work has ended
    Inputs inputs;
    std::shared_ptr<const Work> work;
    CNodeDataPtr result;
    QString error; // null if there is none
    bool isFrame = true;
    bool isReady = false;
    bool isVoid = false; // it runs, and its result is not wanted
};

/// Jobs that are of no more use. What they hold is released when the mutex, locked after this was made, is free again.
class CWorkQueue::CDiscarded
{
public:
    explicit CDiscarded(CWorkQueue& queue)
        : m_queue(queue.shared_from_this()) // what is released may end the model
    {
    }
    ~CDiscarded()
    {
        if (!jobs.first)
            // Survives removed statement: it saves a lock.
            return;
        for (CJob* job = jobs.first; job; job = job->next)
            job->clear();
        // Survives removed statement: only the race detector sees it.
        const QMutexLocker lock(&m_queue->m_mutex);
        while (jobs.first)
            m_queue->m_unused.append(jobs.takeFirst());
    }
    Q_DISABLE_COPY(CDiscarded)

    SList jobs;

private:
    const std::shared_ptr<CWorkQueue> m_queue;
};

void CWorkQueue::SList::append(CJob& job)
{
    // Survives exchanged neighbours: the job is in no list, and so not its last one.
    job.next = nullptr;
    (first ? last->next : first) = &job;
    last = &job;
}

CWorkQueue::CJob& CWorkQueue::SList::takeFirst()
{
    Q_ASSERT(first);
    CJob& job = *first;
    first = job.next;
    return job;
}

CWorkQueue::CWorkQueue(AWorkerNodeDataModel& receiver)
    : m_receiver(&receiver)
{
}

CWorkQueue::~CWorkQueue() = default;

void CWorkQueue::setLimits(const SLimits& limits)
{
    CJob* next = nullptr;
    do {
        {
            // Survives removed statement: only the race detector sees it.
            const QMutexLocker lock(&m_mutex);
            m_limits = limits;
            next = begin();
        }
        start(next);
    } while (next);
}

void CWorkQueue::setPool(QThreadPool* pool)
{
    // Survives removed statement: only the race detector sees it.
    const QMutexLocker lock(&m_mutex);
    m_pool = pool;
    if (!m_jobs.empty())
        RemovedWork::addPool(this->pool());
}

void CWorkQueue::add(Inputs& inputs, const std::shared_ptr<const Work>& work)
{
    CDiscarded discarded(*this);
    CJob* next = nullptr;
    {
        const QMutexLocker lock(&m_mutex);
        Q_ASSERT(m_limits.waiting > 0);
        ++m_counts.received;
        if (m_limits.dropsNewest && m_waitingCount >= m_limits.waiting) {
            ++m_counts.dropped;
            return;
        }
        for (; m_waitingCount >= m_limits.waiting; --m_waitingCount)
            end(m_waiting.takeFirst(), &SWorkerStatistics::dropped, discarded.jobs);

        CJob& job = makeJob();
        job.inputs.swap(inputs);
        // Survives exchanged neighbours: nobody sees the job before the mutex is free.
        job.work = work;
        m_waiting.append(job);
        ++m_waitingCount;
        // Survives exchanged neighbours: what begins is pending all the same.
        ++m_counts.pending;
        next = begin();
    }
    start(next);
}

void CWorkQueue::cancel()
{
    CDiscarded discarded(*this);
    // Survives exchanged truth: it is set in any case.
    bool isNews = false;
    {
        const QMutexLocker lock(&m_mutex);
        endUnfinished(&SWorkerStatistics::cancelled, discarded.jobs);
        // One after the other says no more than one.
        if (!m_begun.first || m_begun.last->isFrame) {
            CJob& job = makeJob();
            job.isFrame = false;
            // Survives exchanged neighbours: nobody sees the job before the mutex is free.
            job.isReady = true;
            m_begun.append(job);
        }
        isNews = becomesNews();
    }
    if (isNews)
        announce();
}

void CWorkQueue::close()
{
    CDiscarded discarded(*this);
    // Survives removed statement: only the race detector sees it.
    const QMutexLocker announcing(&m_receiverMutex);
    const QMutexLocker lock(&m_mutex);
    // Survives exchanged neighbours: neither sees what the other one changes.
    m_receiver = nullptr;
    endUnfinished(&SWorkerStatistics::dropped, discarded.jobs);
    while (m_begun.first)
        end(m_begun.takeFirst(), &SWorkerStatistics::dropped, discarded.jobs);

    for (const auto& job : m_jobs) {
        if (!job->pool || !job->pool->tryTake(job.get()))
            continue;
        // Survives exchanged neighbours: neither sees what the other one changes.
        --m_inPool;
        // Survives exchanged neighbours: the same.
        job->queue.reset();
        endRun(*job, discarded.jobs);
    }
    RemovedWork::begin(m_inPool);
}

/// What waits or is worked on will have no result.
void CWorkQueue::endUnfinished(quint64 SWorkerStatistics::*count, SList& discarded)
{
    for (SList begun = std::exchange(m_begun, {}); begun.first;) {
        CJob& job = begun.takeFirst();
        if (job.isReady)
            m_begun.append(job);
        else
            countEnd(count); // the job comes back when its work has ended
        job.isVoid = !job.isReady;
    }
    for (; m_waiting.first; --m_waitingCount)
        end(m_waiting.takeFirst(), count, discarded);
}

void CWorkQueue::end(CJob& job, quint64 SWorkerStatistics::*count, SList& discarded)
{
    if (job.isFrame)
        countEnd(count);
    discarded.append(job);
}

void CWorkQueue::countEnd(quint64 SWorkerStatistics::*count)
{
    // Survives exchanged neighbours: neither is seen before the mutex is free.
    --m_counts.pending;
    ++(m_counts.*count);
}

std::optional<CWorkQueue::SResult> CWorkQueue::takeNext()
{
    SResult result;
    CJob* next = nullptr;
    {
        const QMutexLocker lock(&m_mutex);
        if (!m_begun.first || !m_begun.first->isReady)
            return std::nullopt;
        CJob& job = m_begun.takeFirst();
        result.data.swap(job.result);
        result.error.swap(job.error);
        if (job.isFrame) {
            // Survives exchanged neighbours: neither is seen before the mutex is free.
            --m_ready;
            countEnd(result.error.isNull() ? &SWorkerStatistics::emitted : &SWorkerStatistics::failed);
        }
        // Survives exchanged neighbours: what begins is none of the unused ones.
        m_unused.append(job);
        next = begin();
    }
    start(next);
    return result;
}

void CWorkQueue::beginDelivery()
{
    // Survives removed statement: the receiver locks it next, to take results; a detector of races tells.
    const QMutexLocker lock(&m_mutex);
    m_isAnnounced = false;
}

SWorkerStatistics CWorkQueue::statistics() const
{
    SWorkerStatistics statistics;
    decltype(m_times) times{};
    // Survives number off by one: it is set in any case.
    std::size_t count = 0;
    {
        const QMutexLocker lock(&m_mutex);
        statistics = m_counts;
        // Survives exchanged neighbours: both are read under the mutex.
        times = m_times;
        count = std::size_t(qMin(m_timeCount, quint64(times.size())));
    }
    if (count == 0)
        return statistics;
    std::sort(times.begin(), times.begin() + std::ptrdiff_t(count));
    statistics.workP50 = times[(count - 1) / 2];
    statistics.workP99 = times[(count * 99 - 1) / 100];
    return statistics;
}

bool CWorkQueue::isIdle() const
{
    // Survives removed statement: only the race detector sees it.
    const QMutexLocker lock(&m_mutex);
    return m_counts.pending == 0;
}

CWorkQueue::CJob& CWorkQueue::makeJob()
{
    if (!m_unused.first) {
        // Survives exchanged neighbours: the list of pools knows no jobs.
        RemovedWork::addPool(pool());
        m_jobs.push_back(std::make_unique<CJob>());
        return *m_jobs.back();
    }
    CJob& job = m_unused.takeFirst();
    job.isFrame = true;
    job.isReady = false;
    job.isVoid = false;
    return job;
}

QThreadPool& CWorkQueue::pool() const
{
    return m_pool ? *m_pool : *QThreadPool::globalInstance();
}

/// As many results may wait as frames are worked on: a graph whose thread is busy holds the work up, and not the
/// memory.
bool CWorkQueue::mayStart() const
{
    return m_waiting.first && m_running < m_limits.parallelism && m_running + m_ready < 2 * m_limits.parallelism;
}

/// Takes what waits longest out, to be started; null if nothing may begin. Whoever makes room for one asks once.
CWorkQueue::CJob* CWorkQueue::begin()
{
    if (!mayStart())
        return nullptr;
    CJob& job = m_waiting.takeFirst();
    --m_waitingCount;
    m_begun.append(job);
    ++m_running;
    // Survives exchanged neighbours: nobody sees the job before the mutex is free.
    ++m_inPool;
    // Survives exchanged neighbours: the same.
    job.queue = shared_from_this();
    job.pool = &pool();
    return &job;
}

/// Without the mutex: Qt may warn, and a message handler is foreign code.
void CWorkQueue::start(CJob* job)
{
    if (job)
        job->pool->start(job);
}

/// In the pool.
void CWorkQueue::perform(CJob& job)
{
    QElapsedTimer timer;
    timer.start();
    CNodeDataPtr result;
    QString error;
    try {
        result = (*job.work)(job.inputs);
    } catch (const std::exception& exception) {
        error = QString::fromLocal8Bit(exception.what());
    } catch (...) {
        error = QStringLiteral("an exception of unknown type");
    }
    const qint64 time = timer.nsecsElapsed();
    // Survives exchanged neighbours: nothing is discarded yet.
    job.clear();

    CDiscarded discarded(*this);
    CJob* next = nullptr;
    // Survives exchanged truth: it is set in any case.
    bool isNews = false;
    {
        // Survives exchanged neighbours: only the race detector sees it.
        const QMutexLocker lock(&m_mutex);
        // Survives exchanged neighbours: neither is seen before the mutex is free.
        recordTime(time);
        job.result.swap(result);
        // Survives exchanged neighbours: neither is seen before the mutex is free.
        job.error.swap(error);
        endRun(job, discarded.jobs);
        // Survives exchanged neighbours: what begins comes last, and is not ready.
        isNews = becomesNews();
        next = begin();
    }
    if (isNews)
        announce();
    start(next);
}

/// The last that a job does. Whether the model is gone.
bool CWorkQueue::leave()
{
    const QMutexLocker lock(&m_mutex);
    --m_inPool;
    return !m_receiver;
}

void CWorkQueue::endRun(CJob& job, SList& discarded)
{
    --m_running;
    // Survives removed statement: only a sanitizer sees what is asked of a pool that has gone since.
    job.pool = nullptr;
    if (job.isVoid) {
        discarded.append(job);
        return;
    }
    job.isReady = true;
    ++m_ready;
}

/// Whether the receiver has to be told of what is ready, which is noted.
bool CWorkQueue::becomesNews()
{
    if (m_isAnnounced || !m_begun.first || !m_begun.first->isReady)
        return false;
    m_isAnnounced = true;
    return true;
}

/// The call is queued under a mutex that the receiver needs in order to go, but not in order to take what is ready: it
/// would wake up only to wait for this thread.
void CWorkQueue::announce()
{
    // Survives removed statement: only the race detector sees it.
    const QMutexLocker lock(&m_receiverMutex);
    if (!m_receiver)
        // Survives removed statement: Qt calls nothing for a null receiver.
        return;
    QMetaObject::invokeMethod(
        m_receiver, [receiver = m_receiver] { receiver->onResultsReady(); }, Qt::QueuedConnection);
}

void CWorkQueue::recordTime(qint64 nanoseconds)
{
    m_counts.workSum += nanoseconds;
    m_times[std::size_t(m_timeCount++ % m_times.size())] = nanoseconds;
}

} // namespace Plugin::Halvex
