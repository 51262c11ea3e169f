// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/AWorkerNodeDataModel.h>

#include "SGatedModel.h"

#include "support/CMessageCatcher.h"
#include "support/CTestModel.h"
#include "support/CTestScene.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QThreadPool>

#include <limits>
#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

using EPolicy = AWorkerNodeDataModel::EPolicy;
using EGathering = AWorkerNodeDataModel::EGathering;
using Values = std::vector<int>;

bool addsUp(const SWorkerStatistics& counts)
{
    return counts.received == counts.emitted + counts.dropped + counts.cancelled + counts.failed + counts.pending;
}

/// Counts what comes to an object as a queued call.
class CQueuedCalls : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        count += event->type() == QEvent::MetaCall ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

    int count = 0;
};

} // namespace

class tst_AWorkerNodeDataModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void worksInThePoolAndGivesOutInTheGraphsThread();
    void worksBetweenNodesOfAScene();
    void copiesSettings();
    void keepsNothingOfWorkThatWasReplaced();
    void settingMayChangeAsAFrameComes();
    void keepsTheOrder();
    void policySaysWhatIsDropped_data();
    void policySaysWhatIsDropped();
    void smallerLimitDropsTheOldest();
    void largerLimitBeginsWhatWaits();
    void resultsThatWaitHoldTheWorkUp();
    void emptyDataCancels();
    void keepsNothingOfAResultThatIsCancelled();
    void emptyDataComesAfterCompleteResults();
    void countsAddUpAtEveryMoment();

    void gathersTheNewestOfEach();
    void gathersTheSameNumber();
    void allDataHasOneNumberUnlessTheModelSays();
    void forgetsWhatFindsNoPartner();
    void dataThatIsForgottenMaySend();
    void dropsFramesOfTheSameNumberWhole();
    void passesOverPortsThatDoNotExist();

    void reportsExceptions();
    void missingResultIsEmptyData();
    void saysWhenItComputes();
    void asksForNoTimeWhileNothingComes();
    void tellsItsThreadOnceOfWhatIsReady();
    void frameThatComesAsItStartsIsTheSecond();
    void resultThatIsOvertakenIsNotAnnounced();
    void handlerThatThrowsHoldsNothingUp();
    void takesWhatComesWhileItAsks();
    void takesWhatComesAsItIsCancelled();
    void workThatIsReplacedAsItIsMadeIsNotUsed();
};

void tst_AWorkerNodeDataModel::init()
{
    QCOMPARE(CTestData::alive(), 0);
}

void tst_AWorkerNodeDataModel::cleanup()
{
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
    QTRY_COMPARE(CTestData::alive(), 0);
}

void tst_AWorkerNodeDataModel::worksInThePoolAndGivesOutInTheGraphsThread()
{
    CWorkerModel model;
    QThread* worker = nullptr;
    QThread* receiver = nullptr;
    model.setWork([&worker](const auto& inputs) {
        worker = QThread::currentThread();
        return CWorkerModel::addUp(inputs);
    });
    connect(&model, &CNodeDataModel::dataUpdated, &model, [&receiver] { receiver = QThread::currentThread(); });
    model.send(3);
    QVERIFY(model.values.empty());
    QTRY_COMPARE(model.values, Values{3});
    QCOMPARE(receiver, QThread::currentThread());
    QVERIFY(worker && worker != receiver);
    QCOMPARE(CTestData::valueOf(model.outData(0)), 3);
    QVERIFY(!model.outData(1));
}

void tst_AWorkerNodeDataModel::worksBetweenNodesOfAScene()
{
    CTestScene scene(nullptr, nullptr);
    auto& first = scene.createNode(std::make_unique<CTestModel>());
    auto& middle = scene.createNode(std::make_unique<CWorkerModel>());
    auto& last = scene.createNode(std::make_unique<CTestModel>());
    scene.createConnection(middle, 0, first, 0, {});
    scene.createConnection(last, 0, middle, 0, {});
    const auto& sink = static_cast<const CTestModel&>(*last.nodeDataModel());
    static_cast<CTestModel&>(*first.nodeDataModel()).offer(CTestData::make(5));
    QTRY_COMPARE(sink.values(), Values{5});
}

void tst_AWorkerNodeDataModel::copiesSettings()
{
    SGatedModel gated;
    gated.model->setPolicy(EPolicy::DropNewest);
    gated.model->send(1);
    gated.model->send(2);
    gated.model->setWork([](const auto&) { return CTestData::make(100); });
    gated.model->send(3);
    gated.work.open(1);
    gated.work.open(2);
    QTRY_COMPARE(gated.model->values, (Values{1, 2, 100}));
}

void tst_AWorkerNodeDataModel::keepsNothingOfWorkThatWasReplaced()
{
    CWorkerModel model;
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    model.setWork([held = std::move(held)](const auto&) { return CTestData::make(*held); });
    model.send(0);
    QTRY_COMPARE(model.values, Values{1});
    model.setWork(&CWorkerModel::addUp);
    QVERIFY(watched.expired());
}

void tst_AWorkerNodeDataModel::settingMayChangeAsAFrameComes()
{
    CWorkerModel model;
    connect(&model, &CNodeDataModel::computingStarted, &model,
            [&model] { model.setWork([](const auto&) { return CTestData::make(100); }); });
    model.send(1);
    QTRY_COMPARE(model.values, Values{1});
    model.send(2);
    QTRY_COMPARE(model.values, (Values{1, 100}));
}

void tst_AWorkerNodeDataModel::keepsTheOrder()
{
    SGatedModel gated(3);
    for (const int value : {1, 2, 3})
        gated.model->send(value);
    for (int i = 0; i < 3; ++i)
        gated.work.waitForBegin();
    gated.work.open(3);
    gated.work.open(2);
    QTRY_VERIFY(gated.pool.activeThreadCount() == 1);
    QCoreApplication::processEvents();
    QCOMPARE(gated.model->values, Values());
    gated.work.open(1);
    QTRY_COMPARE(gated.model->values, (Values{1, 2, 3}));
}

void tst_AWorkerNodeDataModel::policySaysWhatIsDropped_data()
{
    QTest::addColumn<EPolicy>("policy");
    QTest::addColumn<Values>("expected");
    QTest::newRow("newest wins") << EPolicy::NewestWins << Values{1, 6};
    QTest::newRow("drop oldest") << EPolicy::DropOldest << Values{1, 4, 5, 6};
    QTest::newRow("drop newest") << EPolicy::DropNewest << Values{1, 2, 3, 4};
}

void tst_AWorkerNodeDataModel::policySaysWhatIsDropped()
{
    QFETCH(EPolicy, policy);
    QFETCH(Values, expected);
    SGatedModel gated;
    gated.model->setPolicy(policy);
    gated.model->setMostWaiting(3);
    gated.model->send(1);
    gated.work.waitForBegin();
    for (int value = 2; value <= 6; ++value)
        gated.model->send(value);
    for (int value = 1; value <= 6; ++value)
        gated.work.open(value);
    QTRY_COMPARE(gated.model->values, expected);
    QCOMPARE(gated.model->statistics().dropped, quint64(6 - expected.size()));
    QVERIFY(addsUp(gated.model->statistics()));
}

void tst_AWorkerNodeDataModel::smallerLimitDropsTheOldest()
{
    SGatedModel gated;
    gated.model->setPolicy(EPolicy::DropOldest);
    for (int value = 1; value <= 5; ++value)
        gated.model->send(value);
    gated.model->setMostWaiting(1);
    gated.model->send(6);
    gated.work.open(1);
    gated.work.open(6);
    QTRY_COMPARE(gated.model->values, (Values{1, 6}));
    QCOMPARE(gated.model->statistics().dropped, quint64(4));
}

void tst_AWorkerNodeDataModel::largerLimitBeginsWhatWaits()
{
    SGatedModel gated(3);
    gated.model->setPolicy(EPolicy::DropOldest);
    gated.model->setParallelism(1);
    for (const int value : {1, 2, 3})
        gated.model->send(value);
    gated.model->setParallelism(3);
    const bool haveBegun = QTest::qWaitFor([&gated] { return gated.pool.activeThreadCount() == 3; });
    for (const int value : {1, 2, 3})
        gated.work.open(value);
    QVERIFY(haveBegun);
    QTRY_COMPARE(gated.model->values, (Values{1, 2, 3}));
}

void tst_AWorkerNodeDataModel::resultsThatWaitHoldTheWorkUp()
{
    QThreadPool pool;
    CWorkerModel model;
    model.setThreadPool(&pool);
    std::atomic<int> begun{0};
    model.setPolicy(EPolicy::DropNewest);
    model.setMostWaiting(100);
    model.setWork([&begun](const auto& inputs) {
        ++begun;
        return CWorkerModel::addUp(inputs);
    });
    for (int value = 0; value < 100; ++value)
        model.send(value);
    // The graph's thread takes no result meanwhile.
    QVERIFY(pool.waitForDone(longestWait));
    QCOMPARE(begun.load(), 2);
    QTRY_COMPARE(model.values.size(), std::size_t(100));
    QCOMPARE(begun.load(), 100);
}

void tst_AWorkerNodeDataModel::emptyDataCancels()
{
    SGatedModel gated;
    gated.model->setPolicy(EPolicy::DropOldest);
    Values expected;
    for (const int first : {1, 5, 9}) { // what is void makes room for others when it ends
        for (const int value : {first, first + 1, first + 2})
            gated.model->send(value);
        gated.work.waitForBegin();
        gated.model->setInData({}, 0);
        gated.model->setInData({}, 0);
        expected.push_back(-1);
        QTRY_COMPARE(gated.model->values, expected); // without waiting for the work
        gated.model->send(first + 3);
        gated.work.open(first);
        gated.work.waitForBegin();
        gated.work.open(first + 3);
        expected.push_back(first + 3);
        QTRY_COMPARE(gated.model->values, expected);
    }
    QCOMPARE(gated.model->statistics().cancelled, quint64(9));
    QVERIFY(addsUp(gated.model->statistics()));
}

void tst_AWorkerNodeDataModel::keepsNothingOfAResultThatIsCancelled()
{
    SGatedModel gated;
    gated.model->send(1);
    gated.work.waitForBegin();
    gated.model->setInData({}, 0);
    gated.work.open(1);
    QTRY_COMPARE(gated.model->values, Values{-1});
    QTRY_COMPARE(CTestData::alive(), 0);
}

void tst_AWorkerNodeDataModel::emptyDataComesAfterCompleteResults()
{
    SGatedModel gated;
    gated.work.open(1);
    gated.model->send(1);
    waitUntil("the result is there", [&] { return gated.model->statistics().workSum > 0; });
    gated.model->setInData({}, 0);
    QTRY_COMPARE(gated.model->values, (Values{1, -1}));
    QCOMPARE(gated.model->statistics().emitted, quint64(1));
}

void tst_AWorkerNodeDataModel::countsAddUpAtEveryMoment()
{
    CWorkerModel model;
    model.setParallelism(2);
    model.setWork([](const auto& inputs) {
        if (CTestData::valueOf(inputs.front()) % 7 == 0)
            throw std::runtime_error("seven");
        return CWorkerModel::addUp(inputs);
    });
    const CMessageCatcher catcher;
    std::atomic<bool> isOver{false};
    std::atomic<bool> isRight{true};
    std::atomic<int> samples{0};
    CTestThread watcher([&] {
        for (; !isOver; ++samples)
            isRight = isRight && addsUp(model.statistics());
    });
    constexpr int enough = 20000;
    int value = 0;
    while (isRight && (value < enough || (samples < enough && value < 10 * enough))) {
        model.send(++value);
        if (value % 100 == 0)
            model.setInData({}, 0);
        if (value % 3 == 0)
            QCoreApplication::processEvents();
    }
    isOver = true;
    watcher.join();
    QVERIFY(isRight);
    QTRY_COMPARE(model.statistics().pending, quint64(0));
    QCOMPARE(model.statistics().received, quint64(value));
}

void tst_AWorkerNodeDataModel::gathersTheNewestOfEach()
{
    CWorkerModel model(2);
    model.send(1, 0);
    model.send(2, 0);
    QCOMPARE(model.statistics().received, quint64(0));
    model.send(10, 1);
    QTRY_COMPARE(model.values, Values{12});
    model.send(3, 0);
    QTRY_COMPARE(model.values, (Values{12, 13}));
    model.setInData({}, 1);
    model.send(4, 0);
    QTRY_COMPARE(model.values, (Values{12, 13, -1}));
    QCOMPARE(model.statistics().received, quint64(2));
}

void tst_AWorkerNodeDataModel::gathersTheSameNumber()
{
    CWorkerModel model(2, EGathering::SameNumber);
    model.setPolicy(EPolicy::DropOldest);
    model.send(11, 0);
    model.send(21, 0);
    model.send(22, 1); // passes 11 over
    model.send(12, 1); // finds it no more
    model.send(32, 1);
    model.send(31, 0);
    QTRY_COMPARE(model.values, (Values{43, 63}));
    model.send(41, 0);
    model.setInData({}, 1);
    model.send(42, 1); // 41 is forgotten
    QCOMPARE(model.statistics().received, quint64(2));
    QTRY_COMPARE(model.values, (Values{43, 63, -1}));
}

void tst_AWorkerNodeDataModel::allDataHasOneNumberUnlessTheModelSays()
{
    CWorkerModel model(2, EGathering::SameNumber);
    model.hasNumbers = false;
    model.send(10, 0);
    model.send(25, 1);
    QTRY_COMPARE(model.values, Values{35});
}

void tst_AWorkerNodeDataModel::forgetsWhatFindsNoPartner()
{
    CWorkerModel model(2, EGathering::SameNumber);
    for (int count = 1; count <= 100; ++count) {
        model.send(10 * count, 0);
        QCOMPARE(CTestData::alive(), qMin(count, 16)); // the oldest goes, and it alone
    }
}

void tst_AWorkerNodeDataModel::dataThatIsForgottenMaySend()
{
    CWorkerModel model(2, EGathering::SameNumber);
    auto oldest = CTestData::make(10);
    oldest->onDestroyed = [&model] { model.send(500); };
    model.setInData(std::move(oldest), 0);
    for (int number = 2; number <= 17; ++number)
        model.send(10 * number); // the last one has the oldest forgotten, and what that sends has 20 forgotten
    model.send(21, 1);
    model.send(31, 1);
    QTRY_COMPARE(model.values, Values{61});
}

void tst_AWorkerNodeDataModel::dropsFramesOfTheSameNumberWhole()
{
    QThreadPool pool;
    pool.setMaxThreadCount(1);
    const CGatedWork work;
    CWorkerModel model(2, EGathering::SameNumber);
    model.setThreadPool(&pool);
    model.setWork(work);
    model.setPolicy(EPolicy::DropNewest);
    model.setMostWaiting(1);
    const auto sendBoth = [&model](int value) {
        model.send(value, 0);
        model.send(value + 1, 1);
    };
    sendBoth(1);
    work.waitForBegin();
    sendBoth(11);
    sendBoth(-12);
    QCOMPARE(model.statistics().dropped, quint64(1));
    QCOMPARE(CTestData::alive(), 4);
    work.open(1);
    work.open(11);
    QTRY_COMPARE(model.values, (Values{3, 23}));
    sendBoth(15);
    work.open(15);
    QTRY_COMPARE(model.values, (Values{3, 23, 31}));
}

void tst_AWorkerNodeDataModel::passesOverPortsThatDoNotExist()
{
    CWorkerModel model;
    model.send(1, 1);
    model.send(1, -1);
    model.setInData({}, 1);
    QCOMPARE(model.statistics().received, quint64(0));
    QCOMPARE(CTestData::alive(), 0);
}

void tst_AWorkerNodeDataModel::reportsExceptions()
{
    CWorkerModel model;
    model.setWork([](const auto& inputs) -> CNodeDataPtr {
        switch (CTestData::valueOf(inputs.front())) {
        case 1:
            throw std::runtime_error("too dark");
        case 2:
            throw 2; // NOLINT(hicpp-exception-baseclass): also what is no std::exception
        default:
            return CWorkerModel::addUp(inputs);
        }
    });
    const CMessageCatcher catcher;
    model.send(1);
    QTRY_COMPARE(model.values, Values{-1});
    QCOMPARE(model.validationState(), ENodeValidationState::Error);
    QCOMPARE(model.validationMessage(), QStringLiteral("too dark"));
    model.send(1);
    QTRY_COMPARE(model.values, (Values{-1, -1}));
    model.send(2);
    QTRY_COMPARE(model.values, (Values{-1, -1, -1}));
    model.send(3);
    QTRY_COMPARE(model.values, (Values{-1, -1, -1, 3}));
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
    QCOMPARE(model.statistics().failed, quint64(3));
    const QString begin = QStringLiteral("The work of the model \"Worker\" ended with an exception: ");
    QCOMPARE(catcher.texts("halvex.graph"), (QStringList{begin + "too dark", begin + "an exception of unknown type"}));
}

void tst_AWorkerNodeDataModel::missingResultIsEmptyData()
{
    CWorkerModel model;
    model.setWork([](const auto&) { return CNodeDataPtr(); });
    const QSignalSpy invalidated(&model, &CNodeDataModel::dataInvalidated);
    model.send(1);
    QTRY_COMPARE(model.values, Values{-1});
    QCOMPARE(invalidated.value(0).value(0).toInt(), 0);
    QCOMPARE(model.statistics().emitted, quint64(1));
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
}

void tst_AWorkerNodeDataModel::saysWhenItComputes()
{
    SGatedModel gated;
    const QSignalSpy started(gated.model.get(), &CNodeDataModel::computingStarted);
    const QSignalSpy finished(gated.model.get(), &CNodeDataModel::computingFinished);
    gated.model->send(1);
    gated.model->send(2);
    QCOMPARE(started.count(), 1);
    gated.work.open(1);
    QTRY_COMPARE(gated.model->values, Values{1});
    QCOMPARE(finished.count(), 0);
    gated.work.open(2);
    QTRY_COMPARE(finished.count(), 1);
    gated.model->send(3);
    QCOMPARE(started.count(), 2);
    gated.model->setInData({}, 0);
    QTRY_COMPARE(finished.count(), 2);
    gated.work.open(3);
}

void tst_AWorkerNodeDataModel::asksForNoTimeWhileNothingComes()
{
    CWorkerModel model;
    model.send(1);
    QTRY_COMPARE(model.values, Values{1});
    QCoreApplication::processEvents();
    CQueuedCalls calls;
    model.installEventFilter(&calls);
    for (int pass = 0; pass < 10; ++pass)
        QCoreApplication::processEvents();
    QCOMPARE(calls.count, 0);
}

void tst_AWorkerNodeDataModel::tellsItsThreadOnceOfWhatIsReady()
{
    SGatedModel gated(2);
    CQueuedCalls calls;
    gated.model->installEventFilter(&calls);
    const auto waitForThreads = [&gated](int working) {
        waitUntil("the others are done", [&] { return gated.pool.activeThreadCount() == working; });
    };
    gated.model->send(1);
    gated.model->send(2);
    gated.work.open(2);
    waitForThreads(1);
    QCoreApplication::processEvents();
    QCOMPARE(calls.count, 0); // it is not its turn
    gated.work.open(1);
    waitForThreads(0);
    gated.model->send(3);
    gated.work.open(3);
    waitForThreads(0);
    QTRY_COMPARE(gated.model->values, (Values{1, 2, 3}));
    QCOMPARE(calls.count, 1);
}

void tst_AWorkerNodeDataModel::frameThatComesAsItStartsIsTheSecond()
{
    CWorkerModel model;
    connect(&model, &CNodeDataModel::computingStarted, &model, [&model] { model.send(2); });
    model.send(1);
    QTRY_COMPARE(model.values, (Values{1, 2}));
}

void tst_AWorkerNodeDataModel::resultThatIsOvertakenIsNotAnnounced()
{
    for (const int second : {2, 3}) {
        CWorkerModel model;
        model.setWork([&model](const auto& inputs) {
            const auto data = CTestData::make(CTestData::valueOf(inputs.front()));
            if (data->value() == 1) {
                data->onDestroyed = [&model] {
                    model.setInData({}, 0);
                    QCoreApplication::sendPostedEvents(&model, QEvent::MetaCall);
                };
            }
            return data->value() == 3 ? CNodeDataPtr() : data;
        });
        model.send(1);
        QTRY_COMPARE(model.values, Values{1});
        model.send(second); // ends 1, and so empty data goes out before it
        QTRY_COMPARE(model.statistics().pending, quint64(0));
        QCOMPARE(model.values, (Values{1, -1}));
    }
}

void tst_AWorkerNodeDataModel::handlerThatThrowsHoldsNothingUp()
{
    SGatedModel gated(2);
    const QSignalSpy finished(gated.model.get(), &CNodeDataModel::computingFinished);
    connect(gated.model.get(), &CNodeDataModel::dataUpdated, [] { throw std::runtime_error("handler"); });
    for (const int value : {1, 2}) {
        gated.model->send(value);
        gated.work.waitForBegin();
        gated.work.open(value);
    }
    QVERIFY(gated.pool.waitForDone(longestWait));
    for (const Values& values : {Values{1}, Values{1, 2}}) {
        QVERIFY_EXCEPTION_THROWN(QCoreApplication::sendPostedEvents(gated.model.get(), QEvent::MetaCall),
                                 std::runtime_error);
        QCOMPARE(gated.model->values, values);
    }
    QCoreApplication::sendPostedEvents(gated.model.get(), QEvent::MetaCall);
    QCOMPARE(finished.count(), 1);
}

void tst_AWorkerNodeDataModel::takesWhatComesWhileItAsks()
{
    CWorkerModel model(2);
    model.onPorts = [&model] {
        model.onPorts = {};
        model.send(1, 0);
    };
    model.onMakeWork = [&model] {
        model.onMakeWork = {};
        model.send(10, 0);
    };
    model.setParallelism(2);
    model.setPolicy(EPolicy::DropOldest);
    model.send(2, 1);
    QTRY_COMPARE(model.values, (Values{12, 3}));
}

void tst_AWorkerNodeDataModel::takesWhatComesAsItIsCancelled()
{
    QThreadPool pool;
    const CGatedWork work;
    CWorkerModel model(2);
    model.setThreadPool(&pool);
    model.setWork(work);
    model.setPolicy(EPolicy::DropOldest);
    model.send(0, 1);
    model.send(1, 0);
    work.waitForBegin();
    auto data = CTestData::make(2);
    data->onDestroyed = [&model] { model.send(3, 0); };
    model.setInData(std::move(data), 0);
    model.send(4, 0);
    model.setInData({}, 1);
    model.send(10, 1);
    work.open(1);
    work.open(3);
    QTRY_COMPARE(model.values, (Values{-1, 13}));
}

void tst_AWorkerNodeDataModel::workThatIsReplacedAsItIsMadeIsNotUsed()
{
    CWorkerModel model;
    model.setPolicy(EPolicy::DropOldest);
    model.onMakeWork = [&model] {
        model.onMakeWork = {};
        model.setWork([](const auto&) { return CTestData::make(100); });
        model.send(1);
    };
    model.send(2);
    QTRY_COMPARE(model.values, (Values{100, 100}));
}

QTEST_GUILESS_MAIN(tst_AWorkerNodeDataModel)
#include "tst_AWorkerNodeDataModel.moc"
