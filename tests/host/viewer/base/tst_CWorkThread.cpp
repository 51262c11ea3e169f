// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CWorkThread.h"

#include "support/BoundedWait.h"

#include <QSemaphore>
#include <QTest>
#include <QVector>

#include <atomic>
#include <memory>

using namespace Host;

class tst_CWorkThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resultsComeInOrderToTheReceiversThread();
    void tasksRunElsewhere();
    void endWaitsForWhatIsBeingDone();
    void endDropsWhatWaits();
    void receiverThatIsGoneHearsNothing();
};

void tst_CWorkThread::resultsComeInOrderToTheReceiversThread()
{
    CWorkThread work;
    QVector<int> results;
    for (int i = 0; i < 100; ++i)
        work.run([i] { return i; }, this,
                 [&results](int result) {
                     QCOMPARE(QThread::currentThread(), QCoreApplication::instance()->thread());
                     results.append(result);
                 });
    QVERIFY(results.isEmpty());
    QTRY_COMPARE(results.size(), 100);
    for (int i = 0; i < 100; ++i)
        QCOMPARE(results.at(i), i);
}

void tst_CWorkThread::tasksRunElsewhere()
{
    CWorkThread work;
    QThread* where = nullptr;
    QSemaphore done;
    work.post([&] {
        where = QThread::currentThread();
        done.release();
    });
    acquireSoon(done);
    QVERIFY(where != QThread::currentThread());
}

void tst_CWorkThread::endWaitsForWhatIsBeingDone()
{
    std::atomic<bool> hasEnded{false};
    QSemaphore begun;
    {
        CWorkThread work;
        work.post([&] {
            begun.release();
            QThread::msleep(50);
            hasEnded = true;
        });
        acquireSoon(begun);
    }
    QVERIFY(hasEnded);
}

void tst_CWorkThread::endDropsWhatWaits()
{
    bool hasRun = false;
    QSemaphore begun;
    QSemaphore dropped;
    {
        CWorkThread work;
        work.post([&] {
            begun.release();
            dropped.tryAcquire(1, 5000); // until what waits is dropped
        });
        const std::shared_ptr<QSemaphore> guard(&dropped, [](QSemaphore* semaphore) { semaphore->release(); });
        work.post([&hasRun, guard] { hasRun = true; });
        acquireSoon(begun);
    }
    QVERIFY(!hasRun);
}

void tst_CWorkThread::receiverThatIsGoneHearsNothing()
{
    struct SReceiver : QObject
    {
        CWorkThread work;
    };
    auto receiver = std::make_unique<SReceiver>();
    QSemaphore done;
    int heard = 0;
    receiver->work.run(
        [&done] {
            done.release();
            return 1;
        },
        receiver.get(), [&heard](int result) { heard += result; });
    acquireSoon(done);
    receiver.reset();
    QCoreApplication::processEvents();
    QCOMPARE(heard, 0);
}

QTEST_MAIN(tst_CWorkThread)
#include "tst_CWorkThread.moc"
