// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CDecoupler.h>

#include "models/DecouplerEnd_p.h"
#include "support/BoundedWait.h"
#include "support/CMessageCatcher.h"
#include "support/CTestData.h"

#include <QMutex>
#include <QPointer>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QVector>
#include <QWaitCondition>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace Plugin::Halvex;

namespace {

bool addsUp(const SDecouplerStatistics& counts)
{
    return counts.received == counts.emitted + counts.dropped + counts.cancelled + counts.pending &&
           counts.pending <= 1;
}

/// A decoupler that notes what it emits, on the worker's thread.
class CHeard : public CDecoupler
{
public:
    explicit CHeard(const std::function<void()>& onEmission = {})
    {
        connect(
            this, &CDecoupler::nodeDataAvailable, this,
            [notes = m_notes, onEmission](const CNodeDataPtr& data) {
                {
                    const QMutexLocker lock(&notes->mutex);
                    notes->values << CTestData::valueOf(data);
                    notes->thread = QThread::currentThread();
                    notes->grown.wakeAll();
                }
                if (onEmission)
                    onEmission();
            },
            Qt::DirectConnection);
    }

    void give(int value) { setNodeData(CTestData::make(value)); }
    void giveNothing() { setNodeData(CNodeDataPtr()); }

    /// Is throttled from then on, and its worker has used up the only tick to emit 0.
    void emitOnce()
    {
        enableThrottle(true);
        throttleTimerTick();
        give(0);
        QVERIFY(hears(1));
    }

    QVector<int> values() const
    {
        const QMutexLocker lock(&m_notes->mutex);
        return m_notes->values;
    }

    /// The thread that has emitted; null before it did.
    QThread* emittedIn() const
    {
        const QMutexLocker lock(&m_notes->mutex);
        return m_notes->thread;
    }

    /// Whether there are \a count values, now or in a while.
    bool hears(int count) const
    {
        const QMutexLocker lock(&m_notes->mutex);
        while (m_notes->values.size() < count) {
            if (!m_notes->grown.wait(&m_notes->mutex, 20000))
                return false;
        }
        return true;
    }

    /// "received emitted dropped cancelled pending".
    QString counts() const
    {
        QStringList numbers;
        const SDecouplerStatistics now = statistics();
        for (const quint64 number : {now.received, now.emitted, now.dropped, now.cancelled, now.pending})
            numbers << QString::number(number);
        return numbers.join(' ');
    }

private:
    struct SNotes
    {
        QMutex mutex;
        QWaitCondition grown;
        QVector<int> values;
        QThread* thread = nullptr;
    };
    std::shared_ptr<SNotes> m_notes = std::make_shared<SNotes>(); // the worker may end later than this object
};

/// Changes how long a shutdown waits, while it lives.
class CShutDownWait
{
public:
    explicit CShutDownWait(unsigned long milliseconds)
        : m_previous(decouplerShutDownWait.exchange(milliseconds))
    {
    }
    ~CShutDownWait() { decouplerShutDownWait = m_previous; }
    Q_DISABLE_COPY(CShutDownWait)

private:
    unsigned long m_previous;
};

/// Asks a decoupler for its counts at each message, while it lives.
class CAskingHandler
{
public:
    explicit CAskingHandler(const CDecoupler& decoupler)
    {
        s_decoupler = &decoupler;
        s_answers = 0;
        m_previous = qInstallMessageHandler(&CAskingHandler::handle);
    }
    ~CAskingHandler() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY(CAskingHandler)

    static int answers() { return s_answers; }

private:
    static void handle(QtMsgType, const QMessageLogContext&, const QString&)
    {
        s_decoupler->statistics();
        ++s_answers;
    }

    QtMessageHandler m_previous = nullptr;
    static inline const CDecoupler* s_decoupler = nullptr;
    static inline std::atomic<int> s_answers{0};
};

QSharedPointer<CTestData> dataWith(int value, std::function<void()> onDestroyed)
{
    auto data = CTestData::make(value);
    data->onDestroyed = std::move(onDestroyed);
    return data;
}

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
    void emptyDataIsNeverEmitted();
    void lastEmittedDataLivesUntilTheNextWakeUp();
    void dataForABusyWorkerIsNoWakeUp();
    void newestIsNeverLostUnderLoad();

    void threadStartsWithTheFirstDataThatMayGoOut();
    void slotsRunInTheWorkerOrInTheirReceiversThread();
    void everythingOfQThreadSpeaksOfTheWorker();
    void priorityAndStackSizeAreTheWorkers();
    void startedByHand();
    void dataMayComeFromAThreadWithoutAnEventLoop();
    void blockedSignals();

    void shutDownDropsWhatWaitsAndComes();
    void shutDownBeforeStart();
    void destroyingReleasesWaitingDataOnce();
    void destroyingManyAtOnce_data();
    void destroyingManyAtOnce();

    void statisticsAddUpAtEveryMoment();
    void everySlotFromAnyThread();

    void slotMayCallBack();
    void slotShutsDown();
    void slotMayHaveTheDecouplerDeletedLater();
    void overwrittenDataCallsBack();
    void emittedDataCallsBackFromTheWorker();
    void discardedDataCallsBack();

    void emissionThatThrowsCountsAsDropped();
    void messageHandlerMayAskForTheCounts_data();
    void messageHandlerMayAskForTheCounts();
    void hangingWorkerIsReportedOnce_data();
    void hangingWorkerIsReportedOnce();
    void slowWorkerIsWaitedFor();
    void endedDecouplerIsDeletedAtOnce();
    void hangingDecouplerIsDeletedWhenItHasEnded();
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

void tst_CDecoupler::emptyDataIsNeverEmitted()
{
    CHeard decoupler;
    for (int i = 0; i < 100; ++i) {
        decoupler.giveNothing();
        decoupler.give(i);
        QVERIFY(decoupler.hears(i + 1));
    }
    decoupler.shutDown();
    QVERIFY(!decoupler.values().contains(-1));
    QCOMPARE(decoupler.counts(), QStringLiteral("100 100 0 0 0"));
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

void tst_CDecoupler::threadStartsWithTheFirstDataThatMayGoOut()
{
    CHeard decoupler;
    const std::vector<std::function<void()>> steps{
        [&] { decoupler.giveNothing(); }, [&] { decoupler.enableThrottle(true); }, [&] { decoupler.give(1); },
        [&] { decoupler.throttleTimerTick(); }, [&] { decoupler.giveNothing(); }};
    for (const auto& step : steps) {
        step();
        QVERIFY(!decoupler.isRunning());
    }
    decoupler.give(2);
    QVERIFY(decoupler.isRunning());
    QVERIFY(decoupler.hears(1));
    QCOMPARE(decoupler.values(), QVector<int>({2}));
    decoupler.shutDown();
    QVERIFY(!decoupler.isRunning());
    QVERIFY(decoupler.isFinished());
}

void tst_CDecoupler::slotsRunInTheWorkerOrInTheirReceiversThread()
{
    CHeard decoupler; // listens directly
    QObject receiver;
    QThread* receivedIn = nullptr;
    QVector<int> received;
    connect(&decoupler, &CDecoupler::nodeDataAvailable, &receiver, [&](const CNodeDataPtr& data) {
        receivedIn = QThread::currentThread();
        received << CTestData::valueOf(data);
    });
    decoupler.give(1);
    QVERIFY(decoupler.hears(1));
    QCOMPARE(decoupler.emittedIn(), &decoupler);
    QCOMPARE(decoupler.thread(), thread()); // where its own slots belong
    QVERIFY(received.isEmpty());
    QTRY_COMPARE(received, QVector<int>({1}));
    QCOMPARE(receivedIn, thread());
}

void tst_CDecoupler::everythingOfQThreadSpeaksOfTheWorker()
{
    CDecoupler decoupler;
    QThread* const thread = &decoupler;
    QSignalSpy started(thread, &QThread::started);
    QSignalSpy finished(thread, &QThread::finished);
    QVERIFY(thread->wait(0)); // it has not been started
    QVERIFY(!thread->isRunning());
    QVERIFY(!thread->isFinished());

    decoupler.setNodeData(CTestData::make(1));
    QVERIFY(thread->isRunning());
    QVERIFY(!thread->isFinished());
    QVERIFY(!thread->wait(1));
    QTRY_COMPARE(started.size(), 1);
    QCOMPARE(finished.size(), 0);

    decoupler.shutDown();
    waitForEnd(*thread);
    QVERIFY(!thread->isRunning());
    QVERIFY(thread->isFinished());
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(started.size(), 1);
}

void tst_CDecoupler::priorityAndStackSizeAreTheWorkers()
{
    CHeard decoupler([] {
        volatile char large[12U << 20]; // more than threads have otherwise
        large[0] = 1;
        large[sizeof large - 1] = large[0];
    });
    decoupler.setStackSize(16U << 20);
    decoupler.give(1);
    QVERIFY(decoupler.hears(1));
    QCOMPARE(decoupler.priority(), QThread::InheritPriority);
    decoupler.shutDown();
    QCOMPARE(decoupler.counts(), QStringLiteral("1 1 0 0 0"));
}

void tst_CDecoupler::startedByHand()
{
    for (int i = 0; i < 200; ++i) {
        CHeard decoupler;
        decoupler.enableThrottle(true);
        if (i % 2 == 0)
            decoupler.give(i);
        decoupler.throttleTimerTick();
        decoupler.start();
        if (i % 2 == 0)
            QVERIFY(decoupler.hears(1));
    }
}

void tst_CDecoupler::dataMayComeFromAThreadWithoutAnEventLoop()
{
    CHeard decoupler;
    CTestThread feeder([&decoupler] { decoupler.give(1); });
    feeder.join();
    QVERIFY(decoupler.hears(1)); // though the thread that has started the worker is gone
    decoupler.give(2);
    QVERIFY(decoupler.hears(2));
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

void tst_CDecoupler::shutDownDropsWhatWaitsAndComes()
{
    CHeard decoupler;
    decoupler.emitOnce();
    decoupler.give(1);
    decoupler.shutDown();
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(decoupler.counts(), QStringLiteral("2 1 1 0 0"));

    decoupler.enableThrottle(false);
    decoupler.throttleTimerTick();
    decoupler.give(2);
    decoupler.giveNothing();
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(decoupler.counts(), QStringLiteral("3 1 2 0 0"));
    decoupler.shutDown(); // once more
    QVERIFY(decoupler.isFinished());
    QCOMPARE(decoupler.values(), QVector<int>({0}));
}

void tst_CDecoupler::shutDownBeforeStart()
{
    CHeard decoupler;
    decoupler.enableThrottle(true);
    decoupler.give(1);
    decoupler.shutDown();
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(decoupler.counts(), QStringLiteral("1 0 1 0 0"));

    decoupler.enableThrottle(false);
    decoupler.give(2);
    QVERIFY(!decoupler.isRunning());
    QCOMPARE(decoupler.counts(), QStringLiteral("2 0 2 0 0"));
}

void tst_CDecoupler::destroyingReleasesWaitingDataOnce()
{
    for (const bool started : {false, true}) {
        std::atomic<int> releases{0};
        auto decoupler = std::make_unique<CHeard>();
        decoupler->enableThrottle(true);
        if (started)
            decoupler->emitOnce();
        decoupler->setNodeData(dataWith(1, [&releases] { ++releases; }));
        QCOMPARE(releases.load(), 0);
        decoupler.reset();
        QCOMPARE(releases.load(), 1);
        QCOMPARE(CTestData::alive(), 0);
    }
}

void tst_CDecoupler::destroyingManyAtOnce_data()
{
    QTest::addColumn<QString>("state");
    for (const char* state : {"not started", "just started", "asleep", "waiting for a tick", "in a slot"})
        QTest::newRow(state) << QString(state);
}

void tst_CDecoupler::destroyingManyAtOnce()
{
    QFETCH(QString, state);
    const int count = 200;
    const CMessageCatcher messages; // a worker that is not ended in time is reported
    QSemaphore gate;
    std::vector<std::unique_ptr<CHeard>> decouplers;
    for (int i = 0; i < count; ++i) {
        decouplers.push_back(std::make_unique<CHeard>([&] {
            if (state == "in a slot")
                acquireSoon(gate);
        }));
        CHeard& decoupler = *decouplers.back();
        decoupler.enableThrottle(true);
        if (state != "not started") {
            decoupler.throttleTimerTick();
            decoupler.give(i);
        }
        if (state != "not started" && state != "just started")
            QVERIFY(decoupler.hears(1));
        if (state == "waiting for a tick")
            decoupler.give(i);
    }
    gate.release(count);
    decouplers.clear();
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(messages.texts(), QStringList());
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

void tst_CDecoupler::everySlotFromAnyThread()
{
    CHeard decoupler;
    std::vector<CTestThread> callers;
    callers.reserve(4);
    for (int caller = 0; caller < 4; ++caller) {
        callers.emplace_back([&decoupler, caller] {
            for (int i = 0; i < 5000; ++i) {
                decoupler.give(i);
                decoupler.throttleTimerTick();
                decoupler.enableThrottle(i % 2 == 0);
                if (caller == 0 && i == 4000)
                    decoupler.shutDown();
            }
            decoupler.shutDown();
        });
    }
    for (CTestThread& caller : callers)
        caller.join();
    QVERIFY(!decoupler.isRunning());
    QCOMPARE(decoupler.statistics().received, quint64(20000));
    QCOMPARE(decoupler.statistics().emitted, quint64(decoupler.values().size()));
    QVERIFY(addsUp(decoupler.statistics()));
    QCOMPARE(CTestData::alive(), 0);
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

void tst_CDecoupler::slotShutsDown()
{
    const CMessageCatcher messages;
    CHeard* called = nullptr;
    CHeard decoupler([&called] {
        called->give(2);
        called->shutDown();
    });
    called = &decoupler;
    decoupler.give(1);
    QVERIFY(decoupler.hears(1));
    waitForEnd(decoupler);
    QVERIFY(decoupler.isFinished());
    QCOMPARE(decoupler.counts(), QStringLiteral("2 1 1 0 0"));
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CDecoupler::slotMayHaveTheDecouplerDeletedLater()
{
    const CMessageCatcher messages;
    QPointer<CHeard> decoupler;
    decoupler = new CHeard([&decoupler] { decoupler->deleteLater(); });
    decoupler->give(1);
    QTRY_VERIFY(!decoupler);
    QCOMPARE(messages.texts(), QStringList());
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

void tst_CDecoupler::messageHandlerMayAskForTheCounts_data()
{
    QTest::addColumn<QString>("reason");
    for (const char* reason : {"slot throws", "no thread", "worker hangs"})
        QTest::newRow(reason) << QString(reason);
}

void tst_CDecoupler::messageHandlerMayAskForTheCounts()
{
    QFETCH(QString, reason);
    const CShutDownWait shortened(1);
    QSemaphore gate;
    auto decoupler = std::make_unique<CHeard>([&gate, reason] {
        if (reason == "slot throws")
            throw std::runtime_error("slot");
        acquireSoon(gate);
    });
    if (reason == "no thread")
        decoupler->setStackSize(1); // with which none can be made
    auto handler = std::make_unique<CAskingHandler>(*decoupler);
    QSemaphore returned;
    CTestThread caller([&] {
        decoupler->give(1);
        if (reason == "worker hangs") {
            decoupler->hears(1);
            decoupler->shutDown();
            gate.release();
            waitForEnd(*decoupler);
        }
        returned.release();
    });
    const bool isAnswered = QTest::qWaitFor([] { return CAskingHandler::answers() > 0; });
    if (!isAnswered) {
        static_cast<void>(decoupler.release()); // it hangs, and so would its destructor
        handler.reset();                        // and what is said about the thread that hangs
    }
    QVERIFY(isAnswered);
    acquireSoon(returned);
    caller.join();
    handler.reset();
    decoupler.reset();
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CDecoupler::hangingWorkerIsReportedOnce_data()
{
    QTest::addColumn<bool>("hangsInASlot"); // or in the destructor of its data
    QTest::addColumn<bool>("shutDownFirst");
    QTest::newRow("slot, shut down") << true << true;
    QTest::newRow("slot, destroyed") << true << false;
    QTest::newRow("data destructor, shut down") << false << true;
    QTest::newRow("data destructor, destroyed") << false << false;
}

void tst_CDecoupler::hangingWorkerIsReportedOnce()
{
    QFETCH(bool, hangsInASlot);
    QFETCH(bool, shutDownFirst);
    const CShutDownWait shortened(1);
    const CMessageCatcher messages;
    QSemaphore reached;
    QSemaphore gate;
    std::atomic<bool> hasReturned{false};
    const std::function<void()> hang = [&] {
        reached.release();
        acquireSoon(gate);
        hasReturned = true;
    };
    auto decoupler = std::make_unique<CHeard>(hangsInASlot ? hang : nullptr);
    decoupler->setNodeData(dataWith(1, hangsInASlot ? nullptr : hang));
    QVERIFY(decoupler->hears(1));
    if (!hangsInASlot)
        decoupler->give(2); // the worker lets go of the first
    acquireSoon(reached);
    decoupler->give(3);

    if (shutDownFirst) {
        decoupler->shutDown();
        QCOMPARE(messages.texts().size(), 1);
        QVERIFY(decoupler->isRunning());
        QCOMPARE(decoupler->statistics().pending, quint64(0));
        decoupler->shutDown();
    }

    // The destructor goes on waiting when it has said so.
    CTestThread opener([&] {
        waitUntil("the warning", [&] { return !messages.texts().isEmpty(); });
        gate.release();
    });
    decoupler.reset();
    QVERIFY(hasReturned);
    opener.join();
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(messages.texts().size(), 1);
}

void tst_CDecoupler::slowWorkerIsWaitedFor()
{
    const CMessageCatcher messages;
    QSemaphore gate;
    std::atomic<bool> hasReturned{false};
    auto decoupler = std::make_unique<CHeard>([&] {
        acquireSoon(gate);
        hasReturned = true;
    });
    decoupler->give(1);
    QVERIFY(decoupler->hears(1));
    CTestThread opener([&gate] { gate.release(); });
    decoupler.reset();
    QVERIFY(hasReturned);
    opener.join();
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CDecoupler::endedDecouplerIsDeletedAtOnce()
{
    for (const bool started : {false, true}) {
        const QPointer<CDecoupler> decoupler = new CDecoupler;
        if (started)
            decoupler->setNodeData(CTestData::make(1));
        endDecoupler(decoupler);
        QVERIFY(!decoupler);
        QCOMPARE(CTestData::alive(), 0);
    }
}

void tst_CDecoupler::hangingDecouplerIsDeletedWhenItHasEnded()
{
    for (const bool isCallersThreadGone : {false, true}) {
        const CShutDownWait shortened(1);
        const CMessageCatcher messages;
        QSemaphore reached;
        QSemaphore gate;
        QPointer<CHeard> decoupler;
        const auto leaveBehind = [&] {
            decoupler = new CHeard([&] {
                reached.release();
                acquireSoon(gate);
            });
            decoupler->give(1);
            acquireSoon(reached);
            endDecoupler(decoupler);
        };
        if (isCallersThreadGone)
            CTestThread(leaveBehind).join();
        else
            leaveBehind();
        QVERIFY(decoupler);
        QVERIFY(decoupler->isRunning());
        QCOMPARE(messages.texts().size(), 1);

        gate.release();
        QTRY_VERIFY(!decoupler);
        QCOMPARE(CTestData::alive(), 0);
        QCOMPARE(messages.texts().size(), 1);
    }
}

QTEST_GUILESS_MAIN(tst_CDecoupler)
#include "tst_CDecoupler.moc"
