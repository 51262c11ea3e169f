// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CDecoupler.h>

#include "models/CHeard.h"
#include "models/DecouplerEnd_p.h"
#include "support/BoundedWait.h"
#include "support/CMessageCatcher.h"

#include <QPointer>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

using namespace Plugin::Halvex;

namespace {

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

} // namespace

class tst_CDecouplerThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr"); }
    void cleanup();

    void threadStartsWithTheFirstDataThatMayGoOut();
    void slotsRunInTheWorkerOrInTheirReceiversThread();
    void everythingOfQThreadSpeaksOfTheWorker();
    void priorityAndStackSizeAreTheWorkers();
    void startedByHand();
    void dataMayComeFromAThreadWithoutAnEventLoop();
    void shutDownDropsWhatWaitsAndComes();
    void shutDownBeforeStart();
    void slotShutsDown();
    void slotMayHaveTheDecouplerDeletedLater();
    void destroyingReleasesWaitingDataOnce();
    void destroyingManyAtOnce_data();
    void destroyingManyAtOnce();
    void everySlotFromAnyThread();
    void messageHandlerMayAskForTheCounts_data();
    void messageHandlerMayAskForTheCounts();
    void hangingWorkerIsReportedOnce_data();
    void hangingWorkerIsReportedOnce();
    void endedDecouplerIsDeletedAtOnce();
    void hangingDecouplerIsDeletedWhenItHasEnded();
};

void tst_CDecouplerThread::cleanup()
{
    QTRY_COMPARE(CTestData::alive(), 0);
}

void tst_CDecouplerThread::threadStartsWithTheFirstDataThatMayGoOut()
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

void tst_CDecouplerThread::slotsRunInTheWorkerOrInTheirReceiversThread()
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

void tst_CDecouplerThread::everythingOfQThreadSpeaksOfTheWorker()
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

void tst_CDecouplerThread::priorityAndStackSizeAreTheWorkers()
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

void tst_CDecouplerThread::startedByHand()
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

void tst_CDecouplerThread::dataMayComeFromAThreadWithoutAnEventLoop()
{
    CHeard decoupler;
    CTestThread feeder([&decoupler] { decoupler.give(1); });
    feeder.join();
    QVERIFY(decoupler.hears(1)); // though the thread that has started the worker is gone
    decoupler.give(2);
    QVERIFY(decoupler.hears(2));
}

void tst_CDecouplerThread::shutDownDropsWhatWaitsAndComes()
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

void tst_CDecouplerThread::shutDownBeforeStart()
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

void tst_CDecouplerThread::slotShutsDown()
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

void tst_CDecouplerThread::slotMayHaveTheDecouplerDeletedLater()
{
    const CMessageCatcher messages;
    QPointer<CHeard> decoupler;
    decoupler = new CHeard([&decoupler] { decoupler->deleteLater(); });
    decoupler->give(1);
    QTRY_VERIFY(!decoupler);
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CDecouplerThread::destroyingReleasesWaitingDataOnce()
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

void tst_CDecouplerThread::destroyingManyAtOnce_data()
{
    QTest::addColumn<QString>("state");
    for (const char* state : {"not started", "just started", "asleep", "waiting for a tick", "in a slot"})
        QTest::newRow(state) << QString(state);
}

void tst_CDecouplerThread::destroyingManyAtOnce()
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

void tst_CDecouplerThread::everySlotFromAnyThread()
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

void tst_CDecouplerThread::messageHandlerMayAskForTheCounts_data()
{
    QTest::addColumn<QString>("reason");
    for (const char* reason : {"slot throws", "no thread", "worker hangs"})
        QTest::newRow(reason) << QString(reason);
}

void tst_CDecouplerThread::messageHandlerMayAskForTheCounts()
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

void tst_CDecouplerThread::hangingWorkerIsReportedOnce_data()
{
    QTest::addColumn<bool>("hangsInASlot"); // or in the destructor of its data
    QTest::addColumn<bool>("shutDownFirst");
    QTest::newRow("slot, shut down") << true << true;
    QTest::newRow("slot, destroyed") << true << false;
    QTest::newRow("data destructor, shut down") << false << true;
    QTest::newRow("data destructor, destroyed") << false << false;
}

void tst_CDecouplerThread::hangingWorkerIsReportedOnce()
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

void tst_CDecouplerThread::endedDecouplerIsDeletedAtOnce()
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

void tst_CDecouplerThread::hangingDecouplerIsDeletedWhenItHasEnded()
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

QTEST_GUILESS_MAIN(tst_CDecouplerThread)
#include "tst_CDecouplerThread.moc"
