// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CDecoupler.h>

#include "models/CHeard.h"
#include "support/BoundedWait.h"
#include "support/CMessageCatcher.h"

#include <QSemaphore>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <memory>
#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

/// Has the worker release what it holds, the only data that there is. Until it sleeps it is not awakened.
void awaken(CHeard& decoupler)
{
    while (CTestData::alive() > 0) {
        decoupler.giveNothing();
        QThread::yieldCurrentThread();
    }
}

} // namespace

class tst_CDecoupler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr"); }
    void cleanup();

    void defaultConstruct();
    void unthrottledEmitsAllThatTheSleepingWorkerIsGiven();
    void newestWinsWhileTheWorkerIsBusy();
    void oneReleasePerTick();
    void ticksDoNotAddUp();
    void pendingTickLetsIsolatedDataThrough();
    void emptyDataCancels();
    void lastEmittedDataLivesUntilTheNextWakeUp();
    void dataForABusyWorkerIsNoWakeUp();
    void newestIsNeverLostUnderLoad();
    void blockedSignals();
    void statisticsAddUpAtEveryMoment();
    void slotMayCallBack();
    void overwrittenDataCallsBack();
    void emittedDataCallsBackFromTheWorker();
    void discardedDataCallsBack();
    void emissionThatThrowsCountsAsDropped();
};

void tst_CDecoupler::cleanup()
{
    QTRY_COMPARE(CTestData::alive(), 0);
}

void tst_CDecoupler::defaultConstruct()
{
    CHeard decoupler;
    QVERIFY(!decoupler.parent());
    QVERIFY(!decoupler.isRunning());
    QVERIFY(!decoupler.isFinished());
    QCOMPARE(decoupler.counts(), QStringLiteral("0 0 0 0 0"));
    decoupler.give(1); // not throttled: without a tick
    QVERIFY(decoupler.hears(1));
}

void tst_CDecoupler::unthrottledEmitsAllThatTheSleepingWorkerIsGiven()
{
    CHeard decoupler;
    QVector<int> expected;
    for (int i = 0; i < 1000; ++i) {
        decoupler.give(i);
        expected << i;
        QVERIFY(decoupler.hears(i + 1));
    }
    decoupler.shutDown();
    QCOMPARE(decoupler.values(), expected);
    QCOMPARE(decoupler.counts(), QStringLiteral("1000 1000 0 0 0"));
}

void tst_CDecoupler::newestWinsWhileTheWorkerIsBusy()
{
    QSemaphore gate;
    CHeard decoupler([&gate] { acquireSoon(gate); });
    decoupler.give(0);
    QVERIFY(decoupler.hears(1));
    for (int i = 1; i <= 3; ++i)
        decoupler.give(i);
    QCOMPARE(decoupler.counts(), QStringLiteral("4 1 2 0 1"));

    gate.release(2);
    QVERIFY(decoupler.hears(2));
    decoupler.shutDown();
    QCOMPARE(decoupler.values(), QVector<int>({0, 3}));
    QCOMPARE(decoupler.counts(), QStringLiteral("4 2 2 0 0"));
}

void tst_CDecoupler::oneReleasePerTick()
{
    CHeard decoupler;
    decoupler.emitOnce();
    QVector<int> expected{0};
    for (int tick = 1; tick <= 50; ++tick) {
        for (int i = 1; i <= 1000; ++i)
            decoupler.give(1000 * tick + i);
        decoupler.throttleTimerTick();
        expected << 1000 * tick + 1000; // the newest
        QVERIFY(decoupler.hears(1 + tick));
        QCOMPARE(decoupler.values(), expected);
    }
    QCOMPARE(decoupler.counts(), QStringLiteral("50001 51 49950 0 0"));
}

void tst_CDecoupler::ticksDoNotAddUp()
{
    CHeard decoupler;
    decoupler.emitOnce();
    for (int i = 0; i < 10; ++i)
        decoupler.throttleTimerTick();
    decoupler.give(1);
    QVERIFY(decoupler.hears(2));
    decoupler.give(2);
    decoupler.give(3);
    decoupler.throttleTimerTick();
    QVERIFY(decoupler.hears(3));
    QCOMPARE(decoupler.values(), QVector<int>({0, 1, 3}));
}

void tst_CDecoupler::pendingTickLetsIsolatedDataThrough()
{
    CHeard decoupler;
    decoupler.emitOnce();
    decoupler.throttleTimerTick();
    decoupler.give(1);
    QVERIFY(decoupler.hears(2)); // no tick after the data

    decoupler.give(2);
    QCOMPARE(decoupler.statistics().pending, quint64(1));
    decoupler.throttleTimerTick();
    QVERIFY(decoupler.hears(3));
    QCOMPARE(decoupler.values(), QVector<int>({0, 1, 2}));
}

void tst_CDecoupler::emptyDataCancels()
{
    CHeard decoupler;
    decoupler.emitOnce();
    decoupler.give(1);
    decoupler.giveNothing();
    QCOMPARE(decoupler.counts(), QStringLiteral("2 1 0 1 0"));

    decoupler.throttleTimerTick();
    decoupler.give(2);
    QVERIFY(decoupler.hears(2));
    decoupler.shutDown();
    QCOMPARE(decoupler.values(), QVector<int>({0, 2}));
    QCOMPARE(decoupler.counts(), QStringLiteral("3 2 0 1 0"));
}

void tst_CDecoupler::lastEmittedDataLivesUntilTheNextWakeUp()
{
    // Often, to catch a worker that releases it on its way to sleep.
    for (int i = 0; i < 200; ++i) {
        std::atomic<bool> isAwakened{false};
        std::atomic<bool> wasEarly{false};
        CHeard decoupler;
        decoupler.setNodeData(dataWith(1, [&] { wasEarly = !isAwakened; }));
        QVERIFY(decoupler.hears(1));
        QThread::yieldCurrentThread();
        QCOMPARE(CTestData::alive(), 1);

        isAwakened = true;
        if (i % 2 == 0)
            awaken(decoupler);
        else
            decoupler.shutDown(); // it goes with the thread
        QCOMPARE(CTestData::alive(), 0);
        QVERIFY(!wasEarly);
        QCOMPARE(decoupler.values(), QVector<int>({1})); // and nothing that is empty
    }
}

void tst_CDecoupler::dataForABusyWorkerIsNoWakeUp()
{
    // Often, to catch a worker that falls asleep and wakes up once more for what it has already taken.
    for (int i = 0; i < 200; ++i) {
        QSemaphore gate;
        CHeard decoupler([&gate] { acquireSoon(gate); });
        decoupler.give(0);
        gate.release();
        QVERIFY(decoupler.hears(1));
        awaken(decoupler);

        for (int value = 1; value <= 3; ++value)
            decoupler.give(value);
        QVERIFY(decoupler.hears(2));
        decoupler.give(4);
        gate.release(2);
        QVERIFY(decoupler.hears(3));
        QThread::yieldCurrentThread();
        QCOMPARE(CTestData::alive(), 1);
    }
}

void tst_CDecoupler::newestIsNeverLostUnderLoad()
{
    for (const bool throttled : {false, true}) {
        CHeard decoupler;
        decoupler.enableThrottle(throttled);
        const int count = 20000;
        for (int i = 1; i <= count; ++i) {
            decoupler.give(i);
            if (i % 7 == 0)
                decoupler.throttleTimerTick();
        }
        decoupler.throttleTimerTick();
        QTRY_COMPARE(decoupler.statistics().pending, quint64(0));
        decoupler.shutDown();

        const QVector<int> values = decoupler.values();
        QVERIFY(std::is_sorted(values.begin(), values.end()));
        QCOMPARE(values.last(), count);
        QCOMPARE(decoupler.statistics().emitted, quint64(values.size()));
        QVERIFY(addsUp(decoupler.statistics()));
    }
}

void tst_CDecoupler::blockedSignals()
{
    CHeard decoupler;
    decoupler.blockSignals(true);
    decoupler.give(1);
    QTRY_COMPARE(decoupler.counts(), QStringLiteral("1 1 0 0 0"));
    decoupler.shutDown();
    QCOMPARE(decoupler.values(), QVector<int>());
}

void tst_CDecoupler::statisticsAddUpAtEveryMoment()
{
    CHeard decoupler;
    std::atomic<bool> isEnough{false};
    std::atomic<int> samples{0};
    std::atomic<int> faults{0};
    CTestThread sampler([&] {
        SDecouplerStatistics before;
        while (!isEnough) {
            const SDecouplerStatistics now = decoupler.statistics();
            const bool hasGrown = now.received >= before.received && now.emitted >= before.emitted &&
                                  now.dropped >= before.dropped && now.cancelled >= before.cancelled;
            faults += !addsUp(now) || !hasGrown;
            before = now;
            ++samples;
        }
    });

    int given = 0;
    const QDeadlineTimer deadline(longestWait);
    while (given < 50000 || samples < 1000) {
        if (deadline.hasExpired())
            qFatal("The other thread gets no statistics.");
        decoupler.enableThrottle(given % 1000 < 500);
        if (given % 13 == 0)
            decoupler.throttleTimerTick();
        if (given % 11 == 0)
            decoupler.giveNothing();
        decoupler.give(++given);
    }
    decoupler.shutDown();
    for (int i = 0; i < 1000; ++i)
        decoupler.give(++given);
    isEnough = true;
    sampler.join();

    QCOMPARE(faults.load(), 0);
    QCOMPARE(decoupler.statistics().received, quint64(given));
    QCOMPARE(decoupler.statistics().emitted, quint64(decoupler.values().size()));
    QVERIFY(decoupler.statistics().cancelled > 0);
    QVERIFY(addsUp(decoupler.statistics()));
}

void tst_CDecoupler::slotMayCallBack()
{
    CHeard* called = nullptr;
    int next = 0;
    CHeard decoupler([&] {
        called->throttleTimerTick();
        if (++next < 10)
            called->give(next);
    });
    called = &decoupler;
    decoupler.give(0);
    QVERIFY(decoupler.hears(10));
    decoupler.shutDown();
    QCOMPARE(decoupler.values(), QVector<int>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

void tst_CDecoupler::overwrittenDataCallsBack()
{
    CHeard decoupler;
    decoupler.emitOnce();
    QThread* releasedIn = nullptr;
    decoupler.setNodeData(dataWith(1, [&] {
        releasedIn = QThread::currentThread();
        decoupler.give(3);
    }));
    decoupler.give(2);
    QCOMPARE(releasedIn, thread());
    QCOMPARE(decoupler.counts(), QStringLiteral("4 1 2 0 1"));

    decoupler.throttleTimerTick();
    QVERIFY(decoupler.hears(2));
    QCOMPARE(decoupler.values(), QVector<int>({0, 3}));
}

void tst_CDecoupler::emittedDataCallsBackFromTheWorker()
{
    CHeard decoupler;
    std::atomic<QThread*> releasedIn{nullptr};
    decoupler.setNodeData(dataWith(1, [&] {
        releasedIn = QThread::currentThread();
        decoupler.give(3);
        decoupler.statistics();
    }));
    QVERIFY(decoupler.hears(1));
    decoupler.give(2);
    QVERIFY(decoupler.hears(3));
    QCOMPARE(decoupler.values(), QVector<int>({1, 2, 3}));
    QCOMPARE(releasedIn.load(), &decoupler);
}

void tst_CDecoupler::discardedDataCallsBack()
{
    for (const bool destroyed : {false, true}) {
        auto decoupler = std::make_unique<CHeard>();
        decoupler->emitOnce();
        bool hasCalled = false;
        decoupler->setNodeData(dataWith(1, [&hasCalled, called = static_cast<CDecoupler*>(decoupler.get())] {
            called->setNodeData(CTestData::make(2));
            called->throttleTimerTick();
            called->shutDown();
            hasCalled = addsUp(called->statistics());
        }));
        destroyed ? decoupler.reset() : decoupler->shutDown();
        QVERIFY(hasCalled);
    }
}

void tst_CDecoupler::emissionThatThrowsCountsAsDropped()
{
    const CMessageCatcher messages;
    CHeard decoupler([] { throw std::runtime_error("slot"); });
    for (int count = 1; count <= 2; ++count) {
        decoupler.give(count);
        QVERIFY(decoupler.hears(count));
        QTRY_COMPARE(decoupler.counts(), QStringLiteral("%1 0 %1 0 0").arg(count));
    }
    decoupler.shutDown();
    QCOMPARE(messages.texts("halvex.graph").filter("slot").size(), 2);
}

QTEST_GUILESS_MAIN(tst_CDecoupler)
#include "tst_CDecoupler.moc"
