// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include "models/CHeard.h"
#include "support/BoundedWait.h"
#include "support/CTestModel.h"
#include "support/CTestScene.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

using namespace Plugin::Halvex;

namespace {

using Numbers = std::vector<int>;

/// The decoupler of test data, whose type has the id "Test data" and the name "T".
using CModel = CGenericNodeDecouplerDataModel<CTestData>;

static_assert(!std::is_abstract<CModel>::value, "the template supplies all that is missing");
static_assert(std::is_abstract<CNodeDecouplerDataModelBase>::value, "the base knows no data type");

/// What the event loop knows of a timer.
struct STimer
{
    QObject* owner;
    QAbstractEventDispatcher::TimerInfo info;
};

/// The only one that \a owner and its parts have in the event loop.
STimer timerOf(QObject& owner)
{
    std::vector<STimer> timers;
    const QObjectList parts = QObjectList{&owner} + owner.findChildren<QObject*>();
    for (QObject* const part : parts) {
        const auto infos = QAbstractEventDispatcher::instance()->registeredTimers(part);
        for (const auto& info : infos)
            timers.push_back({part, info});
    }
    if (timers.size() != 1)
        qFatal("%d timers, where there is to be one", int(timers.size()));
    return timers.front();
}

/// In milliseconds, as the event loop rounds it.
int intervalOf(QObject& owner)
{
    return timerOf(owner).info.interval;
}

/// What the event loop makes of an interval: long ones are full seconds.
int roundedByTheLoop(int interval)
{
    QTimer timer;
    timer.start(interval);
    return intervalOf(timer);
}

/// One that notes what it puts out. At a rate that is as good as none it ticks only when it is told to.
class CTicked : public CModel
{
public:
    explicit CTicked(double rate = 1e-6)
    {
        setFramesPerSecond(rate);
        connect(this, &CNodeDataModel::dataUpdated, this, [this](NodePortIndex index) {
            if (index == 0 && QThread::currentThread() == thread())
                values.push_back(CTestData::valueOf(outData(0)));
        });
    }

    void give(int value) { setInData(CTestData::make(value), 0); }
    void giveNothing() { setInData(CNodeDataPtr(), 0); }
    void tick()
    {
        const STimer timer = timerOf(*this);
        QTimerEvent event(timer.info.timerId);
        QVERIFY(QCoreApplication::sendEvent(timer.owner, &event));
    }
    void waitUntilTaken() const
    {
        waitUntil("the worker takes what waits", [this] { return statistics().pending == 0; });
    }

    Numbers values;
};

/// How many threads this process has.
int threads()
{
    return int(QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

QJsonObject settings(const QJsonValue& rate)
{
    return {{"property", QJsonObject{{"frames_per_second", rate}}}};
}

} // namespace

class tst_CNodeDecouplerDataModelBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void defaultConstruct();
    void portsAndNamesAreMadeFromTheType();
    void rates_data();
    void rates();
    void propertySetsTheRate();
    void rateHoldsWhenItIsTold();
    void save();
    void restore_data();
    void restore();

    void workerStartsWithTheFirstData();
    void setInDataAnnouncesEachOnInput0();
    void otherPortsAreOfNoUse();
    void newestOfEachTickComesOut();
    void firstDataBeforeTheFirstTickComesOut();
    void newestComesOutWhenInputStops();
    void outputNeverComesFromInsideTheInput();

    void previousOutputDestroysTheModel();
    void overwrittenInputDestroysTheModel();
    void dyingModelHasNoOutput();
    void lastOutputGoesAfterTheWorkersData();
    void dyingModelTakesNoQueuedData();
    void dyingModelDoesNotTick();

    void decouplesInAScene();
};

void tst_CNodeDecouplerDataModelBase::cleanup()
{
    QCOMPARE(CTestModel::alive(), 0);
    QTRY_COMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::defaultConstruct()
{
    CModel model;
    QCOMPARE(model.framesPerSecond(), 25.0);
    QCOMPARE(intervalOf(model), 40);
    QVERIFY(!model.outData(0));
    QCOMPARE(model.getType(), ENodeDataModelType(2));
    QVERIFY(!model.isUnique());
    QVERIFY(!model.hasUniqueName());
    QVERIFY(model.captionVisible());
    QVERIFY(!model.portCaptionVisible(ENodePortType::In, 0));
    QCOMPARE(model.portOutConnectionPolicy(0), CNodeDataModel::EConnectionPolicy::Many);
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
    QCOMPARE(countsOf(model.statistics()), QStringLiteral("0 0 0 0 0"));
    QCOMPARE(model.metaObject(), &CNodeDecouplerDataModelBase::staticMetaObject); // the template adds nothing
}

void tst_CNodeDecouplerDataModelBase::portsAndNamesAreMadeFromTheType()
{
    CModel model;
    QCOMPARE(model.dataTypeName(), QStringLiteral("T"));
    QCOMPARE(model.name(), QStringLiteral("DecouplerT"));
    QCOMPARE(model.caption(), QStringLiteral("Decoupler for T"));
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(model.nPorts(ENodePortType::In), 1u);
    QCOMPARE(model.nPorts(ENodePortType::Out), 1u);
    QCOMPARE(model.nPorts(ENodePortType::None), 0u);
    QCOMPARE(model.nPorts(ENodePortType(17)), 0u);
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out, ENodePortType::None}) {
        for (const int index : {-1, 0, 1}) {
            QCOMPARE(model.portCaption(side, index), QStringLiteral("T"));
            QCOMPARE(model.dataType(side, index).id, QStringLiteral("Test data"));
            QCOMPARE(model.dataType(side, index).name, QStringLiteral("T"));
        }
    }
}

void tst_CNodeDecouplerDataModelBase::rates_data()
{
    using Limits = std::numeric_limits<double>;
    const int kept = 40; // that of the rate before
    const int longest = std::numeric_limits<int>::max();
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("interval");
    QTest::newRow("24") << 24.0 << 41;
    QTest::newRow("30") << 30.0 << 33;
    QTest::newRow("60") << 60.0 << 16;
    QTest::newRow("7") << 7.0 << 142;
    QTest::newRow("0.5") << 0.5 << 2000;
    QTest::newRow("1000") << 1000.0 << 1;
    QTest::newRow("1000.5") << 1000.5 << 0;
    QTest::newRow("2000") << 2000.0 << 0;
    QTest::newRow("a little more than before") << std::nextafter(25.0, 26.0) << 39;
    QTest::newRow("zero") << 0.0 << kept;
    QTest::newRow("negative zero") << -0.0 << kept;
    QTest::newRow("negative") << -25.0 << kept;
    QTest::newRow("infinite") << Limits::infinity() << kept;
    QTest::newRow("negative infinite") << -Limits::infinity() << kept;
    QTest::newRow("NaN") << Limits::quiet_NaN() << kept;
    QTest::newRow("denormal") << Limits::denorm_min() << longest;
    QTest::newRow("smallest") << Limits::min() << longest;
    QTest::newRow("beyond int") << 1e-7 << longest;
    QTest::newRow("longest") << 1000.0 / longest << longest;
    QTest::newRow("just within int") << 1000.0 / 2147483000.0 << 2147483000;
    QTest::newRow("huge") << Limits::max() << 0;
}

void tst_CNodeDecouplerDataModelBase::rates()
{
    QFETCH(double, rate);
    QFETCH(int, interval);
    CModel model;
    const QSignalSpy changed(&model, &CNodeDecouplerDataModelBase::framesPerSecondChanged);
    model.setFramesPerSecond(25);
    QCOMPARE(changed.size(), 0);
    model.setFramesPerSecond(rate);

    const auto isRate = [rate](double value) { return value == rate || (std::isnan(value) && std::isnan(rate)); };
    QVERIFY(isRate(model.framesPerSecond()));
    QCOMPARE(changed.size(), 1);
    QVERIFY(isRate(changed.at(0).at(0).toDouble()));
    QCOMPARE(intervalOf(model), roundedByTheLoop(interval));

    model.setFramesPerSecond(rate);
    QCOMPARE(changed.size(), std::isnan(rate) ? 2 : 1); // NaN never equals
    model.setFramesPerSecond(50);
    QCOMPARE(intervalOf(model), 20);
}

void tst_CNodeDecouplerDataModelBase::propertySetsTheRate()
{
    CModel model;
    QVERIFY(model.setProperty("framesPerSecond", 50));
    QCOMPARE(model.framesPerSecond(), 50.0);
    QCOMPARE(model.property("framesPerSecond").toDouble(), 50.0);
    QCOMPARE(intervalOf(model), 20);
}

void tst_CNodeDecouplerDataModelBase::rateHoldsWhenItIsTold()
{
    CModel model;
    int interval = 0;
    connect(&model, &CNodeDecouplerDataModelBase::framesPerSecondChanged, &model,
            [&] { interval = intervalOf(model); });
    model.setFramesPerSecond(50);
    QCOMPARE(interval, 20);
}

void tst_CNodeDecouplerDataModelBase::save()
{
    QCOMPARE(CModel().save(), QJsonObject({{"name", "DecouplerT"},
                                           {"is_unique", false},
                                           {"property", QJsonObject{{"frames_per_second", 25.0}}}}));
}

void tst_CNodeDecouplerDataModelBase::restore_data()
{
    QTest::addColumn<QJsonObject>("json");
    QTest::addColumn<double>("rate");
    QTest::newRow("rate") << settings(50) << 50.0;
    QTest::newRow("fraction") << settings(0.1) << 0.1;
    QTest::newRow("same") << settings(30) << 30.0;
    QTest::newRow("negative") << settings(-1) << -1.0;
    QTest::newRow("string") << settings("50") << 0.0;
    QTest::newRow("null") << settings(QJsonValue()) << 0.0;
    QTest::newRow("object") << settings(QJsonObject()) << 0.0;
    QTest::newRow("saved") << CModel().save() << 25.0;
    QTest::newRow("empty") << QJsonObject() << 30.0;
    QTest::newRow("no property") << QJsonObject{{"frames_per_second", 50}} << 30.0;
    QTest::newRow("empty property") << QJsonObject{{"property", QJsonObject()}} << 30.0;
    QTest::newRow("property of another type") << QJsonObject{{"property", 50}} << 30.0;
    QTest::newRow("other names") << QJsonObject{{"name", "x"}, {"is_unique", true}, {"unique_name", "y"}} << 30.0;
}

void tst_CNodeDecouplerDataModelBase::restore()
{
    QFETCH(QJsonObject, json);
    QFETCH(double, rate);
    CModel model;
    model.setFramesPerSecond(30);
    const QSignalSpy changed(&model, &CNodeDecouplerDataModelBase::framesPerSecondChanged);
    model.restore(json);
    QCOMPARE(model.framesPerSecond(), rate);
    QCOMPARE(changed.size(), rate == 30 ? 0 : 1);
    QCOMPARE(intervalOf(model), rate > 0 ? int(1000 / rate) : 33);
    QVERIFY(!model.isUnique());
    QVERIFY(!model.hasUniqueName());
}

void tst_CNodeDecouplerDataModelBase::workerStartsWithTheFirstData()
{
    const int before = threads();
    CTicked model;
    model.tick();
    model.tick();
    QVERIFY(threads() <= before); // one of another test may be about to end
    model.give(1);
    model.tick();
    QTRY_COMPARE(model.statistics().emitted, quint64(1));
}

void tst_CNodeDecouplerDataModelBase::setInDataAnnouncesEachOnInput0()
{
    CTicked model;
    Numbers announced;
    connect(&model, &CNodeDecouplerDataModelBase::inDataUpdated,
            [&announced](const CNodeDataPtr& data) { announced.push_back(CTestData::valueOf(data)); });
    model.give(1);
    model.giveNothing();
    model.give(2);
    QCOMPARE(announced, Numbers({1, -1, 2}));
}

void tst_CNodeDecouplerDataModelBase::otherPortsAreOfNoUse()
{
    CTicked model(25);
    const QSignalSpy in(&model, &CNodeDecouplerDataModelBase::inDataUpdated);
    for (const int index : {1, -1, 1000}) {
        model.setInData(CTestData::make(1), index);
        QCOMPARE(CTestData::alive(), 0);
    }
    QVERIFY(in.isEmpty());
    QCOMPARE(countsOf(model.statistics()), QStringLiteral("0 0 0 0 0"));

    model.give(1);
    QTRY_COMPARE(model.values, Numbers({1}));
    QCOMPARE(CTestData::valueOf(model.outData(0)), 1);
    QVERIFY(!model.outData(1));
    QVERIFY(!model.outData(-1));
}

void tst_CNodeDecouplerDataModelBase::newestOfEachTickComesOut()
{
    CTicked model;
    Numbers expected;
    for (int i = 1; i <= 20; ++i) {
        for (int k = 0; k < 10; ++k)
            model.give(10 * i + k);
        QCoreApplication::processEvents();
        QCOMPARE(model.statistics().emitted, quint64(i - 1));
        QCOMPARE(model.values, expected);
        model.tick();
        expected.push_back(10 * i + 9);
        QTRY_COMPARE(model.values, expected);
    }
    QCOMPARE(countsOf(model.statistics()), QStringLiteral("200 20 180 0 0"));
}

void tst_CNodeDecouplerDataModelBase::firstDataBeforeTheFirstTickComesOut()
{
    CTicked model(25);
    model.give(1);
    QTRY_COMPARE(model.values, Numbers({1}));
    QCOMPARE(model.statistics().pending, quint64(0));
}

void tst_CNodeDecouplerDataModelBase::newestComesOutWhenInputStops()
{
    for (const double rate : {40.0, 800.0, 5000.0}) {
        CTicked model(rate);
        int given = 0;
        for (int burst = 0; burst < 200; ++burst) { // of up to seven, with an event loop between them
            for (int i = 0; i <= burst % 7; ++i)
                model.give(++given);
            if (burst % 5 == 0)
                model.giveNothing();
            QCoreApplication::processEvents();
        }
        model.give(++given);

        QTRY_VERIFY(!model.values.empty() && model.values.back() == given);
        const SDecouplerStatistics counts = model.statistics();
        QCOMPARE(counts.received, quint64(given));
        QCOMPARE(counts.emitted, quint64(model.values.size()));
        QCOMPARE(counts.pending, quint64(0));
        QVERIFY(addsUp(counts));
        QVERIFY(std::adjacent_find(model.values.begin(), model.values.end(), std::greater_equal<>()) ==
                model.values.end()); // none of them twice
    }
}

void tst_CNodeDecouplerDataModelBase::outputNeverComesFromInsideTheInput()
{
    CTicked model;
    bool isInside = false;
    int outputs = 0;
    int faults = 0;
    connect(
        &model, &CNodeDataModel::dataUpdated, &model,
        [&] {
            ++outputs;
            faults += isInside || QThread::currentThread() != model.thread();
        },
        Qt::DirectConnection);
    for (int i = 1; i <= 200; ++i) {
        model.tick();
        isInside = true;
        model.give(i);
        model.waitUntilTaken(); // emitted before the input returns, and still it waits for the event loop
        isInside = false;
        QTRY_COMPARE_WITH_TIMEOUT(outputs, i, 5000);
    }
    QCOMPARE(faults, 0);
}

void tst_CNodeDecouplerDataModelBase::previousOutputDestroysTheModel()
{
    auto model = std::make_unique<CTicked>();
    int outputs = 0;
    connect(model.get(), &CNodeDataModel::dataUpdated, [&outputs] { ++outputs; });
    QThread* releasedIn = nullptr;
    auto data = dataWith(1, [&model, &releasedIn] {
        releasedIn = QThread::currentThread();
        model.reset();
    });
    model->tick();
    model->setInData(data, 0);
    QTRY_COMPARE(outputs, 1);

    // The worker lets go of the first when it wakes up for the second, and the model holds it alone.
    model->tick();
    model->give(2);
    model->waitUntilTaken();
    data.reset();
    QTRY_VERIFY(!model);
    QCOMPARE(releasedIn, QThread::currentThread());
    QCOMPARE(outputs, 1); // gone before it could announce the second
}

void tst_CNodeDecouplerDataModelBase::overwrittenInputDestroysTheModel()
{
    auto model = std::make_unique<CTicked>();
    model->setInData(dataWith(1, [&model] { model.reset(); }), 0);
    model->give(2);
    QVERIFY(!model);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::dyingModelHasNoOutput()
{
    auto owner = std::make_unique<CModel>();
    CModel* const model = owner.get();
    int calls = 0;
    model->setInData(dataWith(1,
                              [model, &calls] {
                                  ++calls;
                                  QVERIFY(!model->CNodeDecouplerDataModelBase::outData(0));
                                  model->CNodeDecouplerDataModelBase::setInData(CTestData::make(2), 0);
                                  QCOMPARE(countsOf(model->statistics()), QStringLiteral("0 0 0 0 0"));
                              }),
                     0);
    QTRY_VERIFY(model->outData(0));
    // The worker holds what it emitted last until it ends.
    owner.reset();
    QCOMPARE(calls, 1);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::lastOutputGoesAfterTheWorkersData()
{
    auto model = std::make_unique<CTicked>();
    Numbers released;
    const auto send = [&](int value) {
        model->setInData(dataWith(value, [&released, value] { released.push_back(value); }), 0);
    };
    model->tick();
    send(1);
    QTRY_COMPARE(model->values, Numbers({1})); // held as the last output
    model->tick();
    send(2);
    model->waitUntilTaken(); // held by the worker, and by what is queued for the model
    send(3);                 // waits for a tick
    model.reset();
    QCOMPARE(released, Numbers({3, 1, 2}));
}

void tst_CNodeDecouplerDataModelBase::dyingModelTakesNoQueuedData()
{
    auto model = std::make_unique<CTicked>();
    int outputs = 0;
    connect(model.get(), &CNodeDataModel::dataUpdated, [&outputs] { ++outputs; });
    model->tick();
    model->give(1);
    model->waitUntilTaken();
    model->setInData(dataWith(2, [] { QCoreApplication::processEvents(); }), 0);
    model.reset();
    QCOMPARE(outputs, 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::dyingModelDoesNotTick()
{
    auto model = std::make_unique<CModel>();
    model->setFramesPerSecond(1000);
    bool hasWaited = false;
    const auto wait = [&hasWaited] {
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit); // after the tick
        loop.exec();
        hasWaited = true;
    };
    model->setInData(dataWith(1, wait), 0);
    model.reset();
    QVERIFY(hasWaited);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::decouplesInAScene()
{
    CTestScene scene(nullptr, nullptr);
    CNodeBase& source = scene.createNode(std::make_unique<CTestModel>(0, 1));
    CNodeBase& decoupler = scene.createNode(std::make_unique<CModel>());
    CNodeBase& sink = scene.createNode(std::make_unique<CTestModel>());
    QVERIFY(scene.createConnection(decoupler, 0, source, 0, NodeDataConverter()));
    QVERIFY(scene.createConnection(sink, 0, decoupler, 0, NodeDataConverter()));
    auto& producer = *static_cast<CTestModel*>(source.nodeDataModel());
    auto& consumer = *static_cast<CTestModel*>(sink.nodeDataModel());

    for (int i = 1; i <= 1000; ++i) {
        producer.offer(CTestData::make(i));
        QVERIFY(consumer.received.empty());
    }
    QTRY_COMPARE(consumer.values(), Numbers({1000}));
    const SDecouplerStatistics counts = static_cast<CModel*>(decoupler.nodeDataModel())->statistics();
    QCOMPARE(counts.received, quint64(1000));
    QCOMPARE(counts.dropped, quint64(999));

    // Whoever connects later is given the present output at once.
    CNodeBase& late = scene.createNode(std::make_unique<CTestModel>());
    QVERIFY(scene.createConnection(late, 0, decoupler, 0, NodeDataConverter()));
    QCOMPARE(static_cast<CTestModel*>(late.nodeDataModel())->values(), Numbers({1000}));
}

QTEST_GUILESS_MAIN(tst_CNodeDecouplerDataModelBase)
#include "tst_CNodeDecouplerDataModelBase.moc"
