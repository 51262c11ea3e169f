// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include "support/BoundedWait.h"
#include "support/CTestData.h"
#include "support/CTestModel.h"
#include "support/CTestScene.h"
#include "support/MetaMethods.h"
#include "support/SceneConsistency.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/scene/CNodeScene.h>

#include <QDir>
#include <QEventLoop>
#include <QMetaProperty>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <cmath>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

using namespace Plugin::Halvex;

namespace {

/// The decoupler of test data, whose type has the id "Test data" and the name "T".
using CModel = CGenericNodeDecouplerDataModel<CTestData>;

static_assert(!std::is_abstract<CModel>::value, "the template supplies all that is missing");
static_assert(std::is_abstract<CNodeDecouplerDataModelBase>::value, "the base knows no data type");

QTimer& timerOf(const CNodeDecouplerDataModelBase& model)
{
    return *model.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
}

/// Makes the timer's own ticks so rare that only tick() makes any.
void stopTicking(CNodeDecouplerDataModelBase& model)
{
    model.setFramesPerSecond(1e-6);
}

void tick(const CNodeDecouplerDataModelBase& model)
{
    QVERIFY(QMetaObject::invokeMethod(&timerOf(model), "timeout", Qt::DirectConnection));
}

/// How many threads this process has.
int threads()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}

/// What a model puts out, as numbers, in order.
class COutput
{
public:
    explicit COutput(CNodeDecouplerDataModelBase& model)
    {
        QObject::connect(&model, &CNodeDataModel::dataUpdated, &model, [this, &model](NodePortIndex index) {
            if (index == 0 && QThread::currentThread() == model.thread())
                values.push_back(CTestData::valueOf(model.outData(0)));
        });
    }
    std::vector<int> values;
};

QJsonObject settings(const QJsonValue& rate)
{
    return {{"property", QJsonObject{{"frames_per_second", rate}}}};
}

bool addsUp(const SDecouplerStatistics& counts)
{
    return counts.received == counts.emitted + counts.dropped + counts.cancelled + counts.pending;
}

/// The ways in which input comes and pauses.
struct SLoad
{
    int bursts;
    int burstSize;       // data per burst, at most
    int stall;           // milliseconds between bursts, at most
    int emptyPercentage; // of the data
};

} // namespace

Q_DECLARE_METATYPE(SLoad)

class tst_CNodeDecouplerDataModelBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void defaultConstruct();
    void metaMethods();
    void property();
    void namesAreMadeFromTheTypesName();
    void ports();

    void intervals_data();
    void intervals();
    void anyRateIsStored_data();
    void anyRateIsStored();
    void sameRateChangesNothing();
    void propertySetsTheRate();
    void workerStartsWithTheFirstData();
    void handlerOfTheRateDestroysTheModel();

    void save();
    void restore_data();
    void restore();
    void savedIsRestored();

    void setInDataAnnouncesEachOnInput0();
    void otherInputsAreIgnored();
    void otherOutputsAreEmpty();
    void newestOfOneTickComesOut();
    void oneDataPerTick();
    void isolatedDataNeedsNoFurtherTick();
    void firstDataBeforeTheFirstTickComesOut();
    void emptyDataOnlyCancels();
    void outputNeverComesFromInsideTheInput();
    void outputIsStoredBeforeItIsAnnounced();

    void statisticsOfAModel();
    void statisticsFromAnotherThread();
    void newestComesOutWhenInputStops_data();
    void newestComesOutWhenInputStops();

    void destroyingTheModelReleasesItsData();
    void outputInTheEventQueueDoesNotSurviveTheModel();
    void outputHandlerDestroysTheModel();
    void previousOutputDestroysTheModel();
    void overwrittenInputDestroysTheModel();
    void dyingModelHasNoOutput();
    void lastOutputGoesAfterTheWorkersData();
    void dyingModelTakesNoQueuedData();
    void dyingModelDoesNotTick();

    void decouplesInAScene();
    void isSavedAndRestoredWithItsScene();
    void walkDestroysTheScene();
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
    QCOMPARE(timerOf(model).interval(), 40);
    QVERIFY(timerOf(model).isActive());
    QVERIFY(!timerOf(model).isSingleShot());
    QCOMPARE(model.findChildren<QObject*>().size(), 1); // the worker's object is no child
    QVERIFY(!model.outData(0));
    QCOMPARE(model.getType(), ENodeDataModelType(2));
    QVERIFY(!model.isUnique());
    QVERIFY(!model.hasUniqueName());
    QVERIFY(model.captionVisible());
    QVERIFY(!model.portCaptionVisible(ENodePortType::In, 0));
    QCOMPARE(model.portOutConnectionPolicy(0), CNodeDataModel::EConnectionPolicy::Many);
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
    QCOMPARE(model.statistics().received, quint64(0));
    QVERIFY(addsUp(model.statistics()));
}

void tst_CNodeDecouplerDataModelBase::metaMethods()
{
    const QMetaObject& metaObject = CNodeDecouplerDataModelBase::staticMetaObject;
    QCOMPARE(methodsOf(metaObject), QStringList({"public signal inDataUpdated(CNodeDataPtr ptrNodeData)",
                                                 "public signal framesPerSecondChanged(double )",
                                                 "private slot onNodeDataAvailable(CNodeDataPtr ptrNodeData)"}));
    QCOMPARE(otherMembersOf(metaObject), 1);
    QCOMPARE(metaObject.superClass(), &ANodeDataModel::staticMetaObject);
    QCOMPARE(CModel().metaObject(), &metaObject); // the template adds nothing
}

void tst_CNodeDecouplerDataModelBase::property()
{
    const QMetaObject& metaObject = CNodeDecouplerDataModelBase::staticMetaObject;
    const QMetaProperty rate = metaObject.property(metaObject.propertyOffset());
    QCOMPARE(rate.name(), "framesPerSecond");
    QCOMPARE(rate.userType(), int(QMetaType::Double));
    QVERIFY(rate.isReadable());
    QVERIFY(rate.isWritable());
    QVERIFY(rate.isStored());
    QVERIFY(rate.isDesignable());
    QVERIFY(rate.isScriptable());
    QVERIFY(!rate.isConstant());
    QVERIFY(!rate.isFinal());
    QCOMPARE(rate.notifySignal().methodSignature(), QByteArray("framesPerSecondChanged(double)"));
}

void tst_CNodeDecouplerDataModelBase::namesAreMadeFromTheTypesName()
{
    CModel model;
    QCOMPARE(model.dataTypeName(), QStringLiteral("T"));
    QCOMPARE(model.name(), QStringLiteral("DecouplerT"));
    QCOMPARE(model.caption(), QStringLiteral("Decoupler for T"));
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::ports()
{
    CModel model;
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

void tst_CNodeDecouplerDataModelBase::intervals_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("interval");
    for (const auto& row : std::vector<std::pair<double, int>>{
             {24, 41}, {30, 33}, {60, 16}, {7, 142}, {0.5, 2000}, {1000, 1}, {1000.5, 0}, {2000, 0}})
        QTest::addRow("%g", row.first) << row.first << row.second;
}

void tst_CNodeDecouplerDataModelBase::intervals()
{
    QFETCH(double, rate);
    CModel model;
    const QSignalSpy changed(&model, &CNodeDecouplerDataModelBase::framesPerSecondChanged);
    model.setFramesPerSecond(rate);
    QCOMPARE(model.framesPerSecond(), rate);
    QTEST(timerOf(model).interval(), "interval");
    QVERIFY(timerOf(model).isActive());
    QCOMPARE(changed, QList<QVariantList>({{rate}}));

    model.setFramesPerSecond(25);
    QCOMPARE(timerOf(model).interval(), 40);
    QCOMPARE(changed.size(), 2);
}

void tst_CNodeDecouplerDataModelBase::anyRateIsStored_data()
{
    using Limits = std::numeric_limits<double>;
    const int kept = 33;
    const int longest = std::numeric_limits<int>::max();
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("interval");
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

void tst_CNodeDecouplerDataModelBase::anyRateIsStored()
{
    QFETCH(double, rate);
    CModel model;
    model.setFramesPerSecond(30);
    const QSignalSpy changed(&model, &CNodeDecouplerDataModelBase::framesPerSecondChanged);
    model.setFramesPerSecond(rate);

    const auto isRate = [rate](double value) { return value == rate || (std::isnan(value) && std::isnan(rate)); };
    QVERIFY(isRate(model.framesPerSecond()));
    QCOMPARE(changed.size(), 1);
    QVERIFY(isRate(changed.at(0).at(0).toDouble()));
    QFETCH(int, interval);
    QVERIFY(std::abs(double(timerOf(model).interval()) - interval) <= 1); // a division of doubles is not exact
    QVERIFY(timerOf(model).isActive());

    model.setFramesPerSecond(rate);
    QCOMPARE(changed.size(), std::isnan(rate) ? 2 : 1); // NaN never equals
    model.setFramesPerSecond(60);
    QCOMPARE(timerOf(model).interval(), 16);
}

void tst_CNodeDecouplerDataModelBase::sameRateChangesNothing()
{
    CModel model;
    const QSignalSpy changed(&model, &CNodeDecouplerDataModelBase::framesPerSecondChanged);
    model.setFramesPerSecond(25.0);
    QVERIFY(changed.isEmpty());
    model.setFramesPerSecond(std::nextafter(25.0, 26.0));
    QCOMPARE(changed.size(), 1);
}

void tst_CNodeDecouplerDataModelBase::workerStartsWithTheFirstData()
{
    const int before = threads();
    CModel model;
    stopTicking(model);
    tick(model);
    tick(model);
    QVERIFY(threads() <= before); // one of another test may be about to end
    model.setInData(CTestData::make(1), 0);
    tick(model);
    QTRY_COMPARE(model.statistics().emitted, quint64(1));
}

void tst_CNodeDecouplerDataModelBase::propertySetsTheRate()
{
    CModel model;
    QVERIFY(model.setProperty("framesPerSecond", 50));
    QCOMPARE(model.framesPerSecond(), 50.0);
    QCOMPARE(model.property("framesPerSecond").toDouble(), 50.0);
    QCOMPARE(timerOf(model).interval(), 20);
}

void tst_CNodeDecouplerDataModelBase::handlerOfTheRateDestroysTheModel()
{
    auto model = std::make_unique<CModel>();
    connect(model.get(), &CNodeDecouplerDataModelBase::framesPerSecondChanged, [&model] { model.reset(); });
    model->setFramesPerSecond(30);
    QVERIFY(!model);
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
    QCOMPARE(timerOf(model).interval(), rate > 0 ? int(1000 / rate) : 33);
    QVERIFY(!model.isUnique());
    QVERIFY(!model.hasUniqueName());
}

void tst_CNodeDecouplerDataModelBase::savedIsRestored()
{
    CModel model;
    model.setFramesPerSecond(30);
    const QSignalSpy changed(&model, &CNodeDecouplerDataModelBase::framesPerSecondChanged);
    model.restore(CModel().save());
    QCOMPARE(model.framesPerSecond(), 25.0);
    QCOMPARE(changed, QList<QVariantList>({{25.0}}));
    QCOMPARE(timerOf(model).interval(), 40);
}

void tst_CNodeDecouplerDataModelBase::setInDataAnnouncesEachOnInput0()
{
    CModel model;
    std::vector<int> announced;
    connect(&model, &CNodeDecouplerDataModelBase::inDataUpdated,
            [&announced](const CNodeDataPtr& data) { announced.push_back(CTestData::valueOf(data)); });
    model.setInData(CTestData::make(1), 0);
    model.setInData(CNodeDataPtr(), 0);
    model.setInData(CTestData::make(2), 0);
    QCOMPARE(announced, std::vector<int>({1, -1, 2}));
}

void tst_CNodeDecouplerDataModelBase::otherInputsAreIgnored()
{
    CModel model;
    const QSignalSpy in(&model, &CNodeDecouplerDataModelBase::inDataUpdated);
    for (const int index : {1, -1, 1000}) {
        model.setInData(CTestData::make(1), index);
        QCOMPARE(CTestData::alive(), 0);
    }
    QVERIFY(in.isEmpty());
    QCOMPARE(model.statistics().received, quint64(0));
}

void tst_CNodeDecouplerDataModelBase::otherOutputsAreEmpty()
{
    CModel model;
    const COutput output(model);
    model.setInData(CTestData::make(1), 0);
    QTRY_COMPARE(output.values, std::vector<int>({1}));
    QCOMPARE(CTestData::valueOf(model.outData(0)), 1);
    QVERIFY(!model.outData(1));
    QVERIFY(!model.outData(-1));
}

void tst_CNodeDecouplerDataModelBase::newestOfOneTickComesOut()
{
    CModel model;
    stopTicking(model);
    const COutput output(model);
    for (int i = 1; i <= 10; ++i)
        model.setInData(CTestData::make(i), 0);
    QCoreApplication::processEvents();
    QVERIFY(output.values.empty());

    tick(model);
    QTRY_COMPARE(output.values.size(), std::size_t(1));
    QCOMPARE(output.values, std::vector<int>({10}));
    QCOMPARE(model.statistics().dropped, quint64(9));
}

void tst_CNodeDecouplerDataModelBase::oneDataPerTick()
{
    CModel model;
    stopTicking(model);
    const COutput output(model);
    std::vector<int> expected;
    for (int i = 1; i <= 20; ++i) {
        for (int k = 0; k < 10; ++k)
            model.setInData(CTestData::make(10 * i + k), 0);
        QCOMPARE(model.statistics().emitted, quint64(i - 1));
        tick(model);
        expected.push_back(10 * i + 9);
        QTRY_COMPARE(output.values, expected);
    }
    QCOMPARE(model.statistics().emitted, quint64(20));
}

void tst_CNodeDecouplerDataModelBase::isolatedDataNeedsNoFurtherTick()
{
    CModel model;
    stopTicking(model);
    const COutput output(model);
    tick(model);
    model.setInData(CTestData::make(1), 0);
    QTRY_COMPARE(output.values, std::vector<int>({1}));
}

void tst_CNodeDecouplerDataModelBase::firstDataBeforeTheFirstTickComesOut()
{
    CModel model;
    const COutput output(model);
    model.setInData(CTestData::make(1), 0);
    QTRY_COMPARE(output.values, std::vector<int>({1}));
    QCOMPARE(model.statistics().pending, quint64(0));
}

void tst_CNodeDecouplerDataModelBase::emptyDataOnlyCancels()
{
    CModel model;
    stopTicking(model);
    const COutput output(model);
    tick(model);
    model.setInData(CTestData::make(1), 0);
    QTRY_COMPARE(output.values, std::vector<int>({1}));

    model.setInData(CTestData::make(2), 0);
    model.setInData(CNodeDataPtr(), 0);
    model.setInData(CNodeDataPtr(), 0);
    tick(model);
    QCOMPARE(CTestData::valueOf(model.outData(0)), 1);
    QCOMPARE(model.statistics().cancelled, quint64(1));
    model.setInData(CTestData::make(3), 0);
    QTRY_COMPARE(output.values.size(), std::size_t(2));
    QCOMPARE(output.values, std::vector<int>({1, 3}));
}

void tst_CNodeDecouplerDataModelBase::outputNeverComesFromInsideTheInput()
{
    CModel model;
    stopTicking(model);
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
        tick(model);
        isInside = true;
        model.setInData(CTestData::make(i), 0);
        // The worker has emitted it before the input returns, and still it waits for the event loop.
        while (model.statistics().pending == 1)
            QThread::yieldCurrentThread();
        isInside = false;
        QTRY_COMPARE_WITH_TIMEOUT(outputs, i, 5000);
    }
    QCOMPARE(faults, 0);
}

void tst_CNodeDecouplerDataModelBase::outputIsStoredBeforeItIsAnnounced()
{
    CModel model;
    const COutput output(model); // asks for the data when it is announced
    for (int i = 1; i <= 3; ++i) {
        model.setInData(CTestData::make(i), 0);
        QTRY_COMPARE(output.values.size(), std::size_t(i));
    }
    QCOMPARE(output.values, std::vector<int>({1, 2, 3}));
    QVERIFY(CTestData::alive() <= 2); // the output, and what the worker emitted last
}

void tst_CNodeDecouplerDataModelBase::statisticsOfAModel()
{
    CModel model;
    stopTicking(model);
    for (int i = 1; i <= 3; ++i)
        model.setInData(CTestData::make(i), 0);
    model.setInData(CNodeDataPtr(), 0);
    model.setInData(CTestData::make(4), 0);

    const SDecouplerStatistics counts = model.statistics();
    QCOMPARE(counts.received, quint64(4));
    QCOMPARE(counts.emitted, quint64(0));
    QCOMPARE(counts.dropped, quint64(2));
    QCOMPARE(counts.cancelled, quint64(1));
    QCOMPARE(counts.pending, quint64(1));
}

void tst_CNodeDecouplerDataModelBase::statisticsFromAnotherThread()
{
    CModel model;
    model.setFramesPerSecond(1000);
    std::atomic<bool> isEnough{false};
    std::atomic<int> samples{0};
    std::atomic<int> faults{0};
    CTestThread sampler([&] {
        while (!isEnough) {
            faults += !addsUp(model.statistics());
            ++samples;
        }
    });
    const QDeadlineTimer deadline(longestWait);
    for (int i = 0; i < 20000 || samples < 1000; ++i) {
        if (deadline.hasExpired())
            qFatal("The other thread gets no statistics.");
        model.setInData(i % 17 ? CTestData::make(i) : nullptr, 0);
        if (i % 100 == 0)
            QCoreApplication::processEvents();
    }
    isEnough = true;
    sampler.join();
    QCOMPARE(faults.load(), 0);
}

void tst_CNodeDecouplerDataModelBase::newestComesOutWhenInputStops_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<SLoad>("load");
    const std::vector<std::pair<const char*, SLoad>> loads{{"single", {30, 1, 5, 0}},
                                                           {"bursts", {20, 50, 10, 0}},
                                                           {"flood", {100, 200, 0, 0}},
                                                           {"stalls", {8, 20, 40, 0}},
                                                           {"empty data", {50, 10, 5, 30}}};
    for (const double rate : {40.0, 150.0, 800.0, 5000.0}) {
        for (const auto& load : loads)
            QTest::addRow("%s at %g", load.first, rate) << rate << load.second;
    }
}

void tst_CNodeDecouplerDataModelBase::newestComesOutWhenInputStops()
{
    QFETCH(double, rate);
    QFETCH(SLoad, load);
    QRandomGenerator random(quint32(rate) + quint32(load.bursts));
    {
        CModel model;
        model.setFramesPerSecond(rate);
        const COutput output(model);
        int given = 0;
        for (int burst = 0; burst < load.bursts; ++burst) {
            for (int i = random.bounded(load.burstSize) + 1; i > 0; --i) {
                const bool isEmpty = random.bounded(100) < load.emptyPercentage;
                model.setInData(isEmpty ? CNodeDataPtr() : CTestData::make(++given), 0);
            }
            // A stall is part of the load, nothing is expected of it.
            load.stall > 0 ? QTest::qWait(random.bounded(load.stall)) : QCoreApplication::processEvents();
        }
        model.setInData(CTestData::make(++given), 0);

        QTRY_VERIFY(!output.values.empty() && output.values.back() == given);
        const SDecouplerStatistics counts = model.statistics();
        QCOMPARE(counts.received, quint64(given));
        QCOMPARE(counts.emitted, quint64(output.values.size()));
        QCOMPARE(counts.pending, quint64(0));
        QVERIFY(addsUp(counts));
        if (load.emptyPercentage == 0)
            QCOMPARE(counts.cancelled, quint64(0));
        for (std::size_t i = 1; i < output.values.size(); ++i)
            QVERIFY(output.values[i - 1] < output.values[i]);
    }
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::destroyingTheModelReleasesItsData()
{
    {
        CModel model;
        stopTicking(model);
        const COutput output(model);
        tick(model);
        model.setInData(CTestData::make(1), 0);
        QTRY_COMPARE(output.values, std::vector<int>({1}));
        model.setInData(CTestData::make(2), 0);
        QCOMPARE(CTestData::alive(), 2);
    }
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::outputInTheEventQueueDoesNotSurviveTheModel()
{
    for (int i = 0; i < 50; ++i) {
        {
            CModel model;
            stopTicking(model);
            tick(model);
            model.setInData(CTestData::make(i), 0);
            while (model.statistics().pending == 1)
                QThread::yieldCurrentThread();
        }
        QCOMPARE(CTestData::alive(), 0);
    }
    QCoreApplication::processEvents();
}

void tst_CNodeDecouplerDataModelBase::outputHandlerDestroysTheModel()
{
    auto model = std::make_unique<CModel>();
    connect(model.get(), &CNodeDataModel::dataUpdated, [&model] { model.reset(); });
    model->setInData(CTestData::make(1), 0);
    QTRY_VERIFY(!model);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::previousOutputDestroysTheModel()
{
    auto model = std::make_unique<CModel>();
    stopTicking(*model);
    int outputs = 0;
    connect(model.get(), &CNodeDataModel::dataUpdated, [&outputs] { ++outputs; });
    QThread* const here = QThread::currentThread();
    QThread* releasedIn = nullptr;
    auto data = CTestData::make(1);
    data->onDestroyed = [&model, &releasedIn] {
        releasedIn = QThread::currentThread();
        model.reset();
    };
    tick(*model);
    model->setInData(data, 0);
    QTRY_COMPARE(outputs, 1);

    // The worker lets go of the first when it wakes up for the second, and the model holds it alone.
    tick(*model);
    model->setInData(CTestData::make(2), 0);
    waitUntil("the worker takes what waits", [&] { return model->statistics().pending == 0; });
    data.reset();
    QTRY_VERIFY(!model);
    QCOMPARE(releasedIn, here);
    QCOMPARE(outputs, 1); // gone before it could announce the second
}

void tst_CNodeDecouplerDataModelBase::overwrittenInputDestroysTheModel()
{
    auto model = std::make_unique<CModel>();
    stopTicking(*model);
    auto data = CTestData::make(1);
    data->onDestroyed = [&model] { model.reset(); };
    model->setInData(std::move(data), 0);
    model->setInData(CTestData::make(2), 0);
    QVERIFY(!model);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::dyingModelHasNoOutput()
{
    auto owner = std::make_unique<CModel>();
    CModel* const model = owner.get();
    int calls = 0;
    auto data = CTestData::make(1);
    data->onDestroyed = [model, &calls] {
        ++calls;
        QVERIFY(!model->CNodeDecouplerDataModelBase::outData(0));
        model->CNodeDecouplerDataModelBase::setInData(CTestData::make(2), 0);
        model->statistics();
    };
    model->setInData(data, 0);
    QTRY_VERIFY(model->outData(0));
    data.reset();
    // The worker holds what it emitted last until it ends.
    owner.reset();
    QCOMPARE(calls, 1);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::lastOutputGoesAfterTheWorkersData()
{
    auto model = std::make_unique<CModel>();
    stopTicking(*model);
    std::vector<int> released;
    const auto send = [&model, &released](int value) {
        auto data = CTestData::make(value);
        data->onDestroyed = [&released, value] { released.push_back(value); };
        model->setInData(std::move(data), 0);
    };
    const COutput output(*model);
    tick(*model);
    send(1);
    QTRY_COMPARE(output.values, std::vector<int>({1})); // held as the last output
    tick(*model);
    send(2);
    waitUntil("the worker takes what waits", [&] {
        return model->statistics().pending == 0;
    });      // held by the worker, and by what is queued for the model
    send(3); // waits for a tick
    model.reset();
    QCOMPARE(released, std::vector<int>({3, 1, 2}));
}

void tst_CNodeDecouplerDataModelBase::dyingModelTakesNoQueuedData()
{
    auto owner = std::make_unique<CModel>();
    stopTicking(*owner);
    int outputs = 0;
    connect(owner.get(), &CNodeDataModel::dataUpdated, [&outputs] { ++outputs; });
    tick(*owner);
    owner->setInData(CTestData::make(1), 0);
    waitUntil("the worker takes what waits", [&] { return owner->statistics().pending == 0; });
    auto waiting = CTestData::make(2);
    waiting->onDestroyed = [] { QCoreApplication::processEvents(); };
    owner->setInData(std::move(waiting), 0);
    owner.reset();
    QCOMPARE(outputs, 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDecouplerDataModelBase::dyingModelDoesNotTick()
{
    auto owner = std::make_unique<CModel>();
    owner->setFramesPerSecond(1000);
    bool hasWaited = false;
    auto waiting = CTestData::make(1);
    waiting->onDestroyed = [&hasWaited] {
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit); // after the tick
        loop.exec();
        hasWaited = true;
    };
    owner->setInData(std::move(waiting), 0);
    owner.reset();
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
    QTRY_COMPARE(consumer.values(), std::vector<int>({1000}));
    const SDecouplerStatistics counts = static_cast<CModel*>(decoupler.nodeDataModel())->statistics();
    QCOMPARE(counts.received, quint64(1000));
    QCOMPARE(counts.dropped, quint64(999));

    // Whoever connects later is given the present output at once.
    CNodeBase& late = scene.createNode(std::make_unique<CTestModel>());
    QVERIFY(scene.createConnection(late, 0, decoupler, 0, NodeDataConverter()));
    QCOMPARE(static_cast<CTestModel*>(late.nodeDataModel())->values(), std::vector<int>({1000}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeDecouplerDataModelBase::isSavedAndRestoredWithItsScene()
{
    const auto registry = std::make_shared<CNodeDataModelRegistry>();
    registry->registerModel<CTestModel>(QStringLiteral("Tests"));
    registry->registerModel<CModel>(QStringLiteral("Tools"));
    QByteArray document;
    Core::CId ids[3];
    {
        CTestScene scene(registry, nullptr, nullptr);
        CNodeBase& source = scene.createNode(registry->create("Test"));
        CNodeBase& decoupler = scene.createNode(registry->create("DecouplerT"));
        CNodeBase& sink = scene.createNode(registry->create("Test"));
        QVERIFY(scene.createConnection(decoupler, 0, source, 0, NodeDataConverter()));
        QVERIFY(scene.createConnection(sink, 0, decoupler, 0, NodeDataConverter()));
        static_cast<CModel*>(decoupler.nodeDataModel())->setFramesPerSecond(100);
        ids[0] = source.id();
        ids[1] = decoupler.id();
        ids[2] = sink.id();
        document = scene.saveToMemory();
    }

    CTestScene scene(registry, nullptr, nullptr);
    scene.loadFromMemory(document);
    auto& producer = *static_cast<CTestModel*>(scene.nodes().at(ids[0])->nodeDataModel());
    auto& model = *static_cast<CModel*>(scene.nodes().at(ids[1])->nodeDataModel());
    auto& consumer = *static_cast<CTestModel*>(scene.nodes().at(ids[2])->nodeDataModel());
    QCOMPARE(model.framesPerSecond(), 100.0);
    QCOMPARE(timerOf(model).interval(), 10);
    for (int i = 1; i <= 3; ++i) {
        producer.offer(CTestData::make(i));
        QTRY_COMPARE(consumer.received.size(), std::size_t(i));
    }
    QCOMPARE(consumer.values(), std::vector<int>({1, 2, 3}));

    // Loading makes a new one each time; a scene may hold any number.
    scene.clearScene();
    scene.restoreNode(QJsonObject{{"id", Core::CId::createId().toString()}, {"model", CModel().save()}});
    scene.restoreNode(QJsonObject{{"id", Core::CId::createId().toString()}, {"model", CModel().save()}});
    QCOMPARE(scene.nodes().size(), std::size_t(2));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeDecouplerDataModelBase::walkDestroysTheScene()
{
    auto scene = std::make_unique<CTestScene>(nullptr, nullptr);
    CNodeBase& decoupler = scene->createNode(std::make_unique<CModel>());
    auto model = std::make_unique<CTestModel>();
    model->onSetInData = [&scene](const CNodeDataPtr& data, NodePortIndex) {
        if (data)
            scene.reset();
    };
    CNodeBase& sink = scene->createNode(std::move(model));
    QVERIFY(scene->createConnection(sink, 0, decoupler, 0, NodeDataConverter()));
    decoupler.propagateData(CTestData::make(1), 0);
    QTRY_VERIFY(!scene);
    QCOMPARE(CTestModel::alive(), 0);
}

QTEST_GUILESS_MAIN(tst_CNodeDecouplerDataModelBase)
#include "tst_CNodeDecouplerDataModelBase.moc"
