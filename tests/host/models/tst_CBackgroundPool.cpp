// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CBackgroundPool.h"

#include "support/BoundedWait.h"

#include <QRunnable>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <atomic>

#include <sched.h>
#include <sys/resource.h>

using namespace Host;

namespace {

// What a thread of this process has at first: its class for the scheduler, and how it yields within that.
bool hasPriorityOf(int policy, int niceness)
{
    return sched_getscheduler(0) == policy && getpriority(PRIO_PROCESS, 0) == niceness;
}

// What the pieces of work of one test share.
struct SMeeting
{
    const int policy = sched_getscheduler(0);
    const int niceness = getpriority(PRIO_PROCESS, 0);
    QSemaphore come;
    QSemaphore mayLeave;
    std::atomic<int> equal{0};
};

class CWork : public QRunnable
{
public:
    explicit CWork(SMeeting& meeting)
        : m_meeting(meeting)
    {
    }

    void run() override
    {
        if (hasPriorityOf(m_meeting.policy, m_meeting.niceness))
            ++m_meeting.equal;
        m_meeting.come.release();
        acquireSoon(m_meeting.mayLeave);
    }

private:
    SMeeting& m_meeting;
};

} // namespace

class tst_CBackgroundPool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneCoreStaysFree();
    void noThreadStarves();
    void aPoolOfThePlugin();
};

void tst_CBackgroundPool::oneCoreStaysFree()
{
    const int cores = QThread::idealThreadCount();
    QCOMPARE(CBackgroundPool().maxThreadCount(), cores > 1 ? cores - 1 : 1);
}

// A thread that yields to other programs would not get done on a machine that they fill. All at once, so that each
// thread has one.
void tst_CBackgroundPool::noThreadStarves()
{
    SMeeting meeting; // outlives the pool, whose destructor waits for the work
    CBackgroundPool pool;
    const int threads = pool.maxThreadCount();
    for (int i = 0; i < threads; ++i)
        pool.start(new CWork(meeting));
    const bool areAllThere = meeting.come.tryAcquire(threads, 30000);
    meeting.mayLeave.release(threads);
    QVERIFY(areAllThere);
    QCOMPARE(meeting.equal.load(), threads);
}

void tst_CBackgroundPool::aPoolOfThePlugin()
{
    QCOMPARE(&CBackgroundPool::instance(), &CBackgroundPool::instance());
    QVERIFY(&CBackgroundPool::instance() != QThreadPool::globalInstance());
}

QTEST_GUILESS_MAIN(tst_CBackgroundPool)
#include "tst_CBackgroundPool.moc"
