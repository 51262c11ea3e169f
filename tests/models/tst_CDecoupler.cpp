// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CDecoupler.h>

#include "models/DecouplerEnd_p.h"
#include "models/TestModels.h"
#include "support/BoundedWait.h"
#include "support/CMessageCatcher.h"
#include "support/CTestData.h"
#include "support/MetaMethods.h"

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

/// Notes what a decoupler emits, on the worker's thread; may be gone before that has ended.
class CListener
{
public:
    explicit CListener(CDecoupler& decoupler, const std::function<void()>& onEmission = {})
    {
        QObject::connect(
            &decoupler, &CDecoupler::nodeDataAvailable, &decoupler,
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

    QVector<int> values() const
    {
        const QMutexLocker lock(&m_notes->mutex);
        return m_notes->values;
    }

    /// The thread that has called the listener; null before it did.
    QThread* thread() const
    {
        const QMutexLocker lock(&m_notes->mutex);
        return m_notes->thread;
    }

    /// Whether there are \a count values, now or in a while.
    bool waitFor(int count) const
    {
        const QMutexLocker lock(&m_notes->mutex);
        while (m_notes->values.size() < count) {
            if (!m_notes->grown.wait(&m_notes->mutex, 20000))
                return false;
        }
        return true;
    }

private:
    struct SNotes
    {
        QMutex mutex;
        QWaitCondition grown;
        QVector<int> values;
        QThread* thread = nullptr;
    };
    std::shared_ptr<SNotes> m_notes = std::make_shared<SNotes>();
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

bool addsUp(const SDecouplerStatistics& counts)
{
    return counts.received == counts.emitted + counts.dropped + counts.cancelled + counts.pending &&
           counts.pending <= 1;
}

/// "received emitted dropped cancelled pending".
QString countsOf(const CDecoupler& decoupler)
{
    const SDecouplerStatistics counts = decoupler.statistics();
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(counts.received)
        .arg(counts.emitted)
        .arg(counts.dropped)
        .arg(counts.cancelled)
        .arg(counts.pending);
}

/// Throttled, and its worker has used up the only tick to emit 0.
void emitOnce(CDecoupler& decoupler, const CListener& listener)
{
    decoupler.enableThrottle(true);
    decoupler.throttleTimerTick();
    decoupler.setNodeData(CTestData::make(0));
    QVERIFY(listener.waitFor(1));
}

/// Has the worker release what it holds, the only data that there is. Until it sleeps it is not awakened.
void awaken(CDecoupler& decoupler)
{
    while (CTestData::alive() > 0) {
        decoupler.setNodeData(CNodeDataPtr());
        QThread::yieldCurrentThread();
    }
}

using Provocation = std::function<void(CDecoupler&)>;

} // namespace

Q_DECLARE_METATYPE(Provocation)

class tst_CDecoupler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr"); }
    void cleanup();

    void defaultConstruct();
    void metaMethods();

    void unthrottledEmitsAllThatTheSleepingWorkerIsGiven();
    void newestWinsWhileTheWorkerIsBusy();
    void newestWinsBetweenTicks();
    void oneReleasePerTick();
    void ticksDoNotAddUp();
    void pendingTickLetsIsolatedDataThrough();
    void emptyDataCancels();
    void emptyDataIsNeverEmitted();
    void lastEmittedDataLivesUntilTheNextWakeUp();
    void dataForABusyWorkerIsNoWakeUp();
    void lastEmittedDataGoesWithTheThread();
    void newestIsNeverLostUnderLoad();

    void threadStartsWithTheFirstDataThatMayGoOut();
    void directSlotRunsInTheDecouplersThread();
    void queuedSlotRunsInTheReceiversThread();
    void everythingOfQThreadSpeaksOfTheWorker();
    void priorityAndStackSizeAreTheWorkers();
    void startedByHand();
    void dataMayComeFromAThreadWithoutAnEventLoop();
    void blockedSignals();

    void dataAfterShutDownIsDropped();
    void shutDownBeforeStart();
    void shutDownDropsWhatWaits();
    void shutDownTwice();
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
    void hangingDecouplerIsDeletedWhenItHasEnded_data();
    void hangingDecouplerIsDeletedWhenItHasEnded();
};

void tst_CDecoupler::cleanup()
{
    QTRY_COMPARE(CTestData::alive(), 0);
}

void tst_CDecoupler::defaultConstruct()
{
    CDecoupler decoupler;
    QVERIFY(!decoupler.parent());
    QVERIFY(!decoupler.isRunning());
    QVERIFY(!decoupler.isFinished());
    QCOMPARE(countsOf(decoupler), QStringLiteral("0 0 0 0 0"));

    const CListener listener(decoupler);
    decoupler.setNodeData(CTestData::make(1)); // not throttled: without a tick
    QVERIFY(listener.waitFor(1));
}

void tst_CDecoupler::metaMethods()
{
    QCOMPARE(methodsOf(CDecoupler::staticMetaObject),
             QStringList({"public signal nodeDataAvailable(CNodeDataPtr ptrNodeData)",
                          "public slot setNodeData(CNodeDataPtr ptrNodeData)", "public slot shutDown()",
                          "public slot enableThrottle(bool enable)", "public slot throttleTimerTick()"}));
    QCOMPARE(otherMembersOf(CDecoupler::staticMetaObject), 0);
    QCOMPARE(CDecoupler::staticMetaObject.superClass(), &QThread::staticMetaObject);
}

void tst_CDecoupler::unthrottledEmitsAllThatTheSleepingWorkerIsGiven()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    QVector<int> expected;
    for (int i = 0; i < 1000; ++i) {
        decoupler.setNodeData(CTestData::make(i));
        expected << i;
        QVERIFY(listener.waitFor(i + 1));
    }
    decoupler.shutDown();
    QCOMPARE(listener.values(), expected);
    QCOMPARE(countsOf(decoupler), QStringLiteral("1000 1000 0 0 0"));
}

void tst_CDecoupler::newestWinsWhileTheWorkerIsBusy()
{
    QSemaphore gate;
    CDecoupler decoupler;
    const CListener listener(decoupler, [&gate] { acquireSoon(gate); });
    decoupler.setNodeData(CTestData::make(0));
    QVERIFY(listener.waitFor(1));
    for (int i = 1; i <= 3; ++i)
        decoupler.setNodeData(CTestData::make(i));
    QCOMPARE(countsOf(decoupler), QStringLiteral("4 1 2 0 1"));

    gate.release(2);
    QVERIFY(listener.waitFor(2));
    decoupler.shutDown();
    QCOMPARE(listener.values(), QVector<int>({0, 3}));
    QCOMPARE(countsOf(decoupler), QStringLiteral("4 2 2 0 0"));
}

void tst_CDecoupler::newestWinsBetweenTicks()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    for (int i = 1; i <= 3; ++i)
        decoupler.setNodeData(CTestData::make(i));
    decoupler.throttleTimerTick();
    QVERIFY(listener.waitFor(2));
    decoupler.shutDown();
    QCOMPARE(listener.values(), QVector<int>({0, 3}));
    QCOMPARE(countsOf(decoupler), QStringLiteral("4 2 2 0 0"));
}

void tst_CDecoupler::oneReleasePerTick()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    int value = 0;
    for (int tick = 1; tick <= 50; ++tick) {
        for (int i = 0; i < 1000; ++i)
            decoupler.setNodeData(CTestData::make(++value));
        decoupler.throttleTimerTick();
        QVERIFY(listener.waitFor(1 + tick));
        QCOMPARE(listener.values().size(), 1 + tick);
        QCOMPARE(listener.values().constLast(), value);
    }
}

void tst_CDecoupler::ticksDoNotAddUp()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    for (int i = 0; i < 10; ++i)
        decoupler.throttleTimerTick();
    decoupler.setNodeData(CTestData::make(1));
    QVERIFY(listener.waitFor(2));
    decoupler.setNodeData(CTestData::make(2));
    decoupler.setNodeData(CTestData::make(3));
    decoupler.throttleTimerTick();
    QVERIFY(listener.waitFor(3));
    QCOMPARE(listener.values(), QVector<int>({0, 1, 3}));
}

void tst_CDecoupler::pendingTickLetsIsolatedDataThrough()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    decoupler.throttleTimerTick();
    decoupler.setNodeData(CTestData::make(1));
    QVERIFY(listener.waitFor(2)); // no tick after the data

    decoupler.setNodeData(CTestData::make(2));
    QCOMPARE(decoupler.statistics().pending, quint64(1));
    decoupler.throttleTimerTick();
    QVERIFY(listener.waitFor(3));
    QCOMPARE(listener.values(), QVector<int>({0, 1, 2}));
}

void tst_CDecoupler::emptyDataCancels()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    decoupler.setNodeData(CTestData::make(1));
    decoupler.setNodeData(CNodeDataPtr());
    QCOMPARE(countsOf(decoupler), QStringLiteral("2 1 0 1 0"));

    decoupler.throttleTimerTick();
    decoupler.setNodeData(CTestData::make(2));
    QVERIFY(listener.waitFor(2));
    decoupler.shutDown();
    QCOMPARE(listener.values(), QVector<int>({0, 2}));
    QCOMPARE(countsOf(decoupler), QStringLiteral("3 2 0 1 0"));
}

void tst_CDecoupler::emptyDataIsNeverEmitted()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    for (int i = 0; i < 100; ++i) {
        decoupler.setNodeData(CNodeDataPtr());
        decoupler.setNodeData(CTestData::make(i));
        QVERIFY(listener.waitFor(i + 1));
    }
    decoupler.shutDown();
    QVERIFY(!listener.values().contains(-1));
    QCOMPARE(countsOf(decoupler), QStringLiteral("100 100 0 0 0"));
}

void tst_CDecoupler::lastEmittedDataLivesUntilTheNextWakeUp()
{
    // Often, to catch a worker that releases it on its way to sleep.
    for (int i = 0; i < 200; ++i) {
        std::atomic<bool> isAwakened{false};
        std::atomic<bool> wasEarly{false};
        CDecoupler decoupler;
        const CListener listener(decoupler);
        decoupler.setNodeData(dataWith(1, [&] { wasEarly = !isAwakened; }));
        QVERIFY(listener.waitFor(1));
        QThread::yieldCurrentThread();
        QCOMPARE(CTestData::alive(), 1);

        isAwakened = true;
        awaken(decoupler);
        QVERIFY(!wasEarly);
    }
}

void tst_CDecoupler::dataForABusyWorkerIsNoWakeUp()
{
    // Often, to catch a worker that falls asleep and wakes up once more for what it has already taken.
    for (int i = 0; i < 200; ++i) {
        QSemaphore gate;
        CDecoupler decoupler;
        const CListener listener(decoupler, [&gate] { acquireSoon(gate); });
        decoupler.setNodeData(CTestData::make(0));
        gate.release();
        QVERIFY(listener.waitFor(1));
        awaken(decoupler);

        for (int value = 1; value <= 3; ++value)
            decoupler.setNodeData(CTestData::make(value));
        QVERIFY(listener.waitFor(2));
        decoupler.setNodeData(CTestData::make(4));
        gate.release(2);
        QVERIFY(listener.waitFor(3));
        QThread::yieldCurrentThread();
        QCOMPARE(CTestData::alive(), 1);
    }
}

void tst_CDecoupler::lastEmittedDataGoesWithTheThread()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    QCOMPARE(CTestData::alive(), 1);
    decoupler.shutDown();
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CDecoupler::newestIsNeverLostUnderLoad()
{
    for (const bool throttled : {false, true}) {
        CDecoupler decoupler;
        const CListener listener(decoupler);
        decoupler.enableThrottle(throttled);
        const int count = 20000;
        for (int i = 1; i <= count; ++i) {
            decoupler.setNodeData(CTestData::make(i));
            if (i % 7 == 0)
                decoupler.throttleTimerTick();
        }
        decoupler.throttleTimerTick();
        QTRY_COMPARE(decoupler.statistics().pending, quint64(0));
        decoupler.shutDown();

        const QVector<int> values = listener.values();
        QVERIFY(std::is_sorted(values.begin(), values.end()));
        QCOMPARE(values.last(), count);
        QCOMPARE(decoupler.statistics().emitted, quint64(values.size()));
        QVERIFY(addsUp(decoupler.statistics()));
    }
}

void tst_CDecoupler::threadStartsWithTheFirstDataThatMayGoOut()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    decoupler.setNodeData(CNodeDataPtr());
    decoupler.enableThrottle(true);
    QVERIFY(!decoupler.isRunning());
    decoupler.setNodeData(CTestData::make(1));
    QVERIFY(!decoupler.isRunning());
    decoupler.throttleTimerTick();
    QVERIFY(!decoupler.isRunning());
    decoupler.setNodeData(CNodeDataPtr());
    QVERIFY(!decoupler.isRunning());

    decoupler.setNodeData(CTestData::make(2));
    QVERIFY(decoupler.isRunning());
    QVERIFY(listener.waitFor(1));
    QCOMPARE(listener.values(), QVector<int>({2}));
    decoupler.shutDown();
    QVERIFY(!decoupler.isRunning());
    QVERIFY(decoupler.isFinished());
}

void tst_CDecoupler::directSlotRunsInTheDecouplersThread()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    decoupler.setNodeData(CTestData::make(1));
    QVERIFY(listener.waitFor(1));
    QCOMPARE(listener.thread(), &decoupler);
    QCOMPARE(decoupler.thread(), QThread::currentThread()); // where its own slots belong
}

void tst_CDecoupler::queuedSlotRunsInTheReceiversThread()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    QObject receiver;
    QThread* receivedIn = nullptr;
    QVector<int> received;
    connect(&decoupler, &CDecoupler::nodeDataAvailable, &receiver, [&](const CNodeDataPtr& data) {
        receivedIn = QThread::currentThread();
        received << CTestData::valueOf(data);
    });
    decoupler.setNodeData(CTestData::make(1));
    QVERIFY(listener.waitFor(1));
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
    CDecoupler decoupler;
    decoupler.setStackSize(16U << 20);
    const CListener listener(decoupler, [] {
        volatile char large[12U << 20]; // more than threads have otherwise
        large[0] = 1;
        large[sizeof large - 1] = large[0];
    });
    decoupler.setNodeData(CTestData::make(1));
    QVERIFY(listener.waitFor(1));
    QCOMPARE(decoupler.priority(), QThread::InheritPriority);
    decoupler.shutDown();
    QCOMPARE(countsOf(decoupler), QStringLiteral("1 1 0 0 0"));
}

void tst_CDecoupler::startedByHand()
{
    for (int i = 0; i < 200; ++i) {
        CDecoupler decoupler;
        const CListener listener(decoupler);
        decoupler.enableThrottle(true);
        if (i % 2 == 0)
            decoupler.setNodeData(CTestData::make(i));
        decoupler.throttleTimerTick();
        decoupler.start();
        if (i % 2 == 0)
            QVERIFY(listener.waitFor(1));
    }
}

void tst_CDecoupler::dataMayComeFromAThreadWithoutAnEventLoop()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    CTestThread feeder([&decoupler] { decoupler.setNodeData(CTestData::make(1)); });
    feeder.join();
    QVERIFY(listener.waitFor(1)); // though the thread that has started the worker is gone
    decoupler.setNodeData(CTestData::make(2));
    QVERIFY(listener.waitFor(2));
}

void tst_CDecoupler::blockedSignals()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    decoupler.blockSignals(true);
    decoupler.setNodeData(CTestData::make(1));
    QTRY_COMPARE(countsOf(decoupler), QStringLiteral("1 1 0 0 0"));
    decoupler.shutDown();
    QCOMPARE(listener.values(), QVector<int>());
}

void tst_CDecoupler::dataAfterShutDownIsDropped()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    decoupler.shutDown();
    decoupler.enableThrottle(false);
    decoupler.throttleTimerTick();
    decoupler.setNodeData(CTestData::make(1));
    decoupler.setNodeData(CNodeDataPtr());

    QCOMPARE(CTestData::alive(), 0);
    QVERIFY(!decoupler.isRunning());
    QCOMPARE(listener.values(), QVector<int>({0}));
    QCOMPARE(countsOf(decoupler), QStringLiteral("2 1 1 0 0"));
}

void tst_CDecoupler::shutDownBeforeStart()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    decoupler.enableThrottle(true);
    decoupler.setNodeData(CTestData::make(1));
    decoupler.shutDown();
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(countsOf(decoupler), QStringLiteral("1 0 1 0 0"));

    decoupler.enableThrottle(false);
    decoupler.setNodeData(CTestData::make(2));
    QVERIFY(!decoupler.isRunning());
    QCOMPARE(countsOf(decoupler), QStringLiteral("2 0 2 0 0"));
}

void tst_CDecoupler::shutDownDropsWhatWaits()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    decoupler.setNodeData(CTestData::make(1));
    decoupler.shutDown();
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(listener.values(), QVector<int>({0}));
    QCOMPARE(countsOf(decoupler), QStringLiteral("2 1 1 0 0"));
}

void tst_CDecoupler::shutDownTwice()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    decoupler.shutDown();
    decoupler.shutDown();
    QVERIFY(decoupler.isFinished());
}

void tst_CDecoupler::destroyingReleasesWaitingDataOnce()
{
    std::atomic<int> releases{0};
    for (const bool started : {false, true}) {
        releases = 0;
        auto decoupler = std::make_unique<CDecoupler>();
        const CListener listener(*decoupler);
        decoupler->enableThrottle(true);
        if (started)
            emitOnce(*decoupler, listener);
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
    QTest::newRow("not started") << "not started";
    QTest::newRow("just started") << "just started";
    QTest::newRow("asleep") << "asleep";
    QTest::newRow("waiting for a tick") << "waiting for a tick";
    QTest::newRow("in a slot") << "in a slot";
}

void tst_CDecoupler::destroyingManyAtOnce()
{
    QFETCH(QString, state);
    const int count = 200;
    const CMessageCatcher messages; // a worker that is not ended in time is reported
    QSemaphore gate;
    std::vector<std::unique_ptr<CDecoupler>> decouplers;
    for (int i = 0; i < count; ++i) {
        decouplers.push_back(std::make_unique<CDecoupler>());
        CDecoupler& decoupler = *decouplers.back();
        const CListener listener(decoupler, [&] {
            if (state == "in a slot")
                acquireSoon(gate);
        });
        decoupler.enableThrottle(true);
        if (state != "not started") {
            decoupler.throttleTimerTick();
            decoupler.setNodeData(CTestData::make(i));
        }
        if (state != "not started" && state != "just started")
            QVERIFY(listener.waitFor(1));
        if (state == "waiting for a tick")
            decoupler.setNodeData(CTestData::make(i));
    }
    gate.release(count);
    decouplers.clear();
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CDecoupler::statisticsAddUpAtEveryMoment()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    std::atomic<bool> isEnough{false};
    std::atomic<int> samples{0};
    std::atomic<int> faults{0};
    CTestThread sampler([&] {
        SDecouplerStatistics before;
        while (!isEnough) {
            const SDecouplerStatistics now = decoupler.statistics();
            const bool hasGrown = now.received >= before.received && now.emitted >= before.emitted &&
                                  now.dropped >= before.dropped && now.cancelled >= before.cancelled;
            if (!addsUp(now) || !hasGrown)
                ++faults;
            before = now;
            ++samples;
        }
    });

    quint64 given = 0;
    const QDeadlineTimer deadline(longestWait);
    while (given < 50000 || samples < 1000) {
        if (deadline.hasExpired())
            qFatal("The other thread gets no statistics.");
        decoupler.enableThrottle(given % 1000 < 500);
        if (given % 13 == 0)
            decoupler.throttleTimerTick();
        if (given % 11 == 0)
            decoupler.setNodeData(CNodeDataPtr());
        decoupler.setNodeData(CTestData::make(int(++given)));
    }
    decoupler.shutDown();
    for (int i = 0; i < 1000; ++i)
        decoupler.setNodeData(CTestData::make(int(++given)));
    isEnough = true;
    sampler.join();

    QCOMPARE(faults.load(), 0);
    QCOMPARE(decoupler.statistics().received, given);
    QCOMPARE(decoupler.statistics().emitted, quint64(listener.values().size()));
    QVERIFY(decoupler.statistics().cancelled > 0);
    QVERIFY(addsUp(decoupler.statistics()));
}

void tst_CDecoupler::everySlotFromAnyThread()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    std::vector<CTestThread> callers;
    callers.reserve(4);
    for (int caller = 0; caller < 4; ++caller) {
        callers.emplace_back([&decoupler, caller] {
            for (int i = 0; i < 5000; ++i) {
                decoupler.setNodeData(CTestData::make(i));
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
    QCOMPARE(decoupler.statistics().emitted, quint64(listener.values().size()));
    QVERIFY(addsUp(decoupler.statistics()));
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CDecoupler::slotMayCallBack()
{
    CDecoupler decoupler;
    int next = 0;
    const CListener listener(decoupler, [&] {
        decoupler.throttleTimerTick();
        if (++next < 10)
            decoupler.setNodeData(CTestData::make(next));
    });
    decoupler.setNodeData(CTestData::make(0));
    QVERIFY(listener.waitFor(10));
    decoupler.shutDown();
    QCOMPARE(listener.values(), QVector<int>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

void tst_CDecoupler::slotShutsDown()
{
    const CMessageCatcher messages;
    CDecoupler decoupler;
    const CListener listener(decoupler, [&decoupler] {
        decoupler.setNodeData(CTestData::make(2));
        decoupler.shutDown();
    });
    decoupler.setNodeData(CTestData::make(1));
    QVERIFY(listener.waitFor(1));
    waitForEnd(decoupler);
    QVERIFY(decoupler.isFinished());
    QCOMPARE(countsOf(decoupler), QStringLiteral("2 1 1 0 0"));
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CDecoupler::slotMayHaveTheDecouplerDeletedLater()
{
    const CMessageCatcher messages;
    const QPointer<CDecoupler> decoupler = new CDecoupler;
    const CListener listener(*decoupler, [worker = decoupler.data()] { worker->deleteLater(); });
    decoupler->setNodeData(CTestData::make(1));
    QVERIFY(listener.waitFor(1));
    QTRY_VERIFY(!decoupler);
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CDecoupler::overwrittenDataCallsBack()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    emitOnce(decoupler, listener);
    QThread* releasedIn = nullptr;
    decoupler.setNodeData(dataWith(1, [&] {
        releasedIn = QThread::currentThread();
        decoupler.setNodeData(CTestData::make(3));
    }));
    decoupler.setNodeData(CTestData::make(2));
    QCOMPARE(releasedIn, thread());
    QCOMPARE(countsOf(decoupler), QStringLiteral("4 1 2 0 1"));

    decoupler.throttleTimerTick();
    QVERIFY(listener.waitFor(2));
    QCOMPARE(listener.values(), QVector<int>({0, 3}));
}

void tst_CDecoupler::emittedDataCallsBackFromTheWorker()
{
    CDecoupler decoupler;
    const CListener listener(decoupler);
    std::atomic<QThread*> releasedIn{nullptr};
    decoupler.setNodeData(dataWith(1, [&] {
        releasedIn = QThread::currentThread();
        decoupler.setNodeData(CTestData::make(3));
        decoupler.statistics();
    }));
    QVERIFY(listener.waitFor(1));
    decoupler.setNodeData(CTestData::make(2));
    QVERIFY(listener.waitFor(3));
    QCOMPARE(listener.values(), QVector<int>({1, 2, 3}));
    QCOMPARE(releasedIn.load(), &decoupler);
}

void tst_CDecoupler::discardedDataCallsBack()
{
    for (const bool destroyed : {false, true}) {
        auto decoupler = std::make_unique<CDecoupler>();
        const CListener listener(*decoupler);
        emitOnce(*decoupler, listener);
        bool hasCalled = false;
        decoupler->setNodeData(dataWith(1, [&hasCalled, called = decoupler.get()] {
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
    CDecoupler decoupler;
    const CListener listener(decoupler, [] { throw std::runtime_error("slot"); });
    for (int count = 1; count <= 2; ++count) {
        decoupler.setNodeData(CTestData::make(count));
        QVERIFY(listener.waitFor(count));
        QTRY_COMPARE(countsOf(decoupler), QStringLiteral("%1 0 %1 0 0").arg(count));
    }
    decoupler.shutDown();
    QCOMPARE(messages.texts("halvex.graph").filter("slot").size(), 2);
}

void tst_CDecoupler::messageHandlerMayAskForTheCounts_data()
{
    QTest::addColumn<Provocation>("provoke");
    QTest::newRow("slot throws") << Provocation([](CDecoupler& decoupler) {
        const CListener listener(decoupler, [] { throw std::runtime_error("slot"); });
        decoupler.setNodeData(CTestData::make(1));
    });
    QTest::newRow("no thread") << Provocation([](CDecoupler& decoupler) {
        decoupler.setStackSize(1); // with which none can be made
        decoupler.setNodeData(CTestData::make(1));
    });
    QTest::newRow("worker hangs") << Provocation([](CDecoupler& decoupler) {
        const CShutDownWait shortened(1);
        QSemaphore gate;
        const CListener listener(decoupler, [&gate] { acquireSoon(gate); });
        decoupler.setNodeData(CTestData::make(1));
        listener.waitFor(1);
        decoupler.shutDown();
        gate.release();
        waitForEnd(decoupler);
    });
}

void tst_CDecoupler::messageHandlerMayAskForTheCounts()
{
    QFETCH(const Provocation, provoke);
    auto decoupler = std::make_unique<CDecoupler>();
    auto handler = std::make_unique<CAskingHandler>(*decoupler);
    QSemaphore returned;
    CTestThread caller([&] {
        provoke(*decoupler);
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
    decoupler.reset();
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CDecoupler::hangingWorkerIsReportedOnce_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<bool>("shutDownFirst");
    for (const char* place : {"slot", "data destructor"}) {
        QTest::addRow("%s, shut down", place) << QString(place) << true;
        QTest::addRow("%s, destroyed", place) << QString(place) << false;
    }
}

void tst_CDecoupler::hangingWorkerIsReportedOnce()
{
    QFETCH(QString, place);
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
    auto decoupler = std::make_unique<CDecoupler>();
    const CListener listener(*decoupler, place == "slot" ? hang : nullptr);
    decoupler->setNodeData(dataWith(1, place == "data destructor" ? hang : nullptr));
    QVERIFY(listener.waitFor(1));
    if (place == "data destructor")
        decoupler->setNodeData(CTestData::make(2)); // the worker lets go of the first
    QVERIFY(reached.tryAcquire(1, 20000));
    decoupler->setNodeData(CTestData::make(3));

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
    auto decoupler = std::make_unique<CDecoupler>();
    const CListener listener(*decoupler, [&] {
        acquireSoon(gate);
        hasReturned = true;
    });
    decoupler->setNodeData(CTestData::make(1));
    QVERIFY(listener.waitFor(1));
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

void tst_CDecoupler::hangingDecouplerIsDeletedWhenItHasEnded_data()
{
    QTest::addColumn<bool>("isCallersThreadGone");
    QTest::newRow("caller's thread goes on") << false;
    QTest::newRow("caller's thread ends") << true;
}

void tst_CDecoupler::hangingDecouplerIsDeletedWhenItHasEnded()
{
    QFETCH(bool, isCallersThreadGone);
    const CShutDownWait shortened(1);
    const CMessageCatcher messages;
    QSemaphore reached;
    QSemaphore gate;
    QPointer<CDecoupler> decoupler;
    const auto leaveBehind = [&] {
        decoupler = new CDecoupler;
        const CListener listener(*decoupler, [&] {
            reached.release();
            acquireSoon(gate);
        });
        decoupler->setNodeData(CTestData::make(1));
        acquireSoon(reached);
        endDecoupler(decoupler);
    };
    if (isCallersThreadGone)
        runInWorker(leaveBehind);
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

QTEST_GUILESS_MAIN(tst_CDecoupler)
#include "tst_CDecoupler.moc"
