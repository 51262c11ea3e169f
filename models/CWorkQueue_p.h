// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>
#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/models/SWorkerStatistics.h>

#include <QMutex>
#include <QPointer>
#include <QString>
#include <QThreadPool>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace Plugin::Halvex {

/**
 * The frames of a worker model, in the order in which they came: first those whose results wait to go out or that are
 * worked on, then those that wait.
 *
 * \code
 * queue->add(inputs, work);                    // hands them to the pool, or keeps them waiting
 * while (const auto result = queue->takeNext()) // once the receiver's onResultsReady() was called
 *     use(*result);
 * \endcode
 *
 * Threads: the graph's, but for statistics(). The pool's threads come in by the jobs. m_mutex guards all members,
 * m_receiverMutex keeps the receiver from going while a call to it is queued. Neither work nor a destructor of data
 * runs under them.
 *
 * Ownership: the model has a share, and so has every job that is in the pool.
 */
class CWorkQueue : public std::enable_shared_from_this<CWorkQueue>
{
public:
    using Inputs = AWorkerNodeDataModel::Inputs;
    using Work = AWorkerNodeDataModel::Work;

    /// The receiver sets them before the first frame.
    struct SLimits
    {
        int waiting;
        bool dropsNewest;
        int parallelism;
    };
    /// What goes out: data, nothing for empty data, or what went wrong.
    struct SResult
    {
        CNodeDataPtr data;
        QString error;
    };

    explicit CWorkQueue(AWorkerNodeDataModel& receiver);
    ~CWorkQueue();
    Q_DISABLE_COPY(CWorkQueue)

    void setLimits(const SLimits& limits);
    void setPool(QThreadPool* pool);

    /// Takes \a inputs over; what it holds afterwards has to be cleared and may be used again.
    void add(Inputs& inputs, const std::shared_ptr<const Work>& work);

    /// Makes all void that has no result yet, and puts empty data into the order.
    void cancel();

    /// For the receiver, when it is called: what becomes ready from here on is announced again.
    void beginDelivery();

    /// What goes out next, if it is ready.
    std::optional<SResult> takeNext();

    /// Nothing goes out any more; the receiver is not called again.
    void close();

    SWorkerStatistics statistics() const;

    /// Whether no frame is pending.
    bool isIdle() const;

private:
    class CJob;
    /// Jobs that lead to each other.
    struct SList
    {
        CJob* first = nullptr;
        CJob* last = nullptr;

        void append(CJob& job);
        CJob& takeFirst();
    };
    class CDiscarded;

    void perform(CJob& job);
    bool leave();
    void announce();
    static void start(CJob* job);

    // These expect the mutex to be held.
    CJob& makeJob();
    CJob* begin();
    QThreadPool& pool() const;
    bool mayStart() const;
    void endRun(CJob& job, SList& discarded);
    void endUnfinished(quint64 SWorkerStatistics::*count, SList& discarded);
    void end(CJob& job, quint64 SWorkerStatistics::*count, SList& discarded);
    void countEnd(quint64 SWorkerStatistics::*count);
    bool becomesNews();
    void recordTime(qint64 nanoseconds);

    QMutex m_receiverMutex; // locked before the other one
    mutable QMutex m_mutex;
    AWorkerNodeDataModel* m_receiver; // null once it is gone; written under both
    QPointer<QThreadPool> m_pool;     // null: Qt's global one
    SLimits m_limits{};
    std::vector<std::unique_ptr<CJob>> m_jobs; // all there are
    SList m_unused;
    SList m_begun;   // worked on or ready
    SList m_waiting; // in the order in which they came, too
    int m_waitingCount = 0;
    int m_running = 0; // void ones too
    int m_inPool = 0;  // those, and those that are about to leave
    int m_ready = 0;
    bool m_isAnnounced = false;
    SWorkerStatistics m_counts; // all but percentiles
    std::array<qint64, 1024> m_times{};
    quint64 m_timeCount = 0;
};

} // namespace Plugin::Halvex
