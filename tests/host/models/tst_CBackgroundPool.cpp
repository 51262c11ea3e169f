// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CBackgroundPool.h"

#include <QRunnable>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <atomic>

using namespace Host;

namespace {

// What the pieces of work of one test share.
struct SMeeting
{
    QSemaphore come;
    QSemaphore mayLeave;
    std::atomic<int> idle{0};
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
        if (QThread::currentThread()->priority() == QThread::IdlePriority)
            ++m_meeting.idle;
        m_meeting.come.release();
        m_meeting.mayLeave.acquire();
    }

private:
    SMeeting& m_meeting;
};

} // namespace

class tst_CBackgroundPool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyThreadYields();
    void aPoolOfThePlugin();
};

// All at once, so that each thread has one.
void tst_CBackgroundPool::everyThreadYields()
{
    SMeeting meeting; // outlives the pool, whose destructor waits for the work
    CBackgroundPool pool;
    const int threads = pool.maxThreadCount();
    QCOMPARE(threads, QThread::idealThreadCount());
    for (int round = 1; round <= 3; ++round) {
        for (int i = 0; i < threads; ++i)
            pool.start(new CWork(meeting));
        QVERIFY(meeting.come.tryAcquire(threads, 30000));
        meeting.mayLeave.release(threads);
        QCOMPARE(meeting.idle.load(), round * threads);
    }
}

void tst_CBackgroundPool::aPoolOfThePlugin()
{
    QCOMPARE(&CBackgroundPool::instance(), &CBackgroundPool::instance());
    QVERIFY(&CBackgroundPool::instance() != QThreadPool::globalInstance());
}

QTEST_GUILESS_MAIN(tst_CBackgroundPool)
#include "tst_CBackgroundPool.moc"
