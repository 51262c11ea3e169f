// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/ASourceNodeDataModel.h>

#include "TestModels.h"
#include "support/BoundedWait.h"
#include "support/CContextTranslator.h"
#include "support/CTestModel.h"
#include "support/CTestScene.h"
#include "support/MetaMethods.h"
#include "support/SceneConsistency.h"

#include <Halvex/scene/CNodeScene.h>

#include <QSignalSpy>
#include <QtTest>

#include <numeric>
#include <type_traits>
#include <vector>

using namespace Plugin::Halvex;

static_assert(std::is_abstract_v<ASourceNodeDataModel>, "the concrete source has operations left to write");
static_assert(std::is_base_of_v<ANodeDataModel, ASourceNodeDataModel>, "a model with an identity");

namespace {

using Numbers = std::vector<int>;

} // namespace

class tst_ASourceNodeDataModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void defaultIsAnEmptySource();
    void passesTheUniqueNameOn();
    void registersTheMetaTypeName();
    void proxyIsAChildOfTheModel();
    void proxyIsNullOnceTheModelIsGone();
    void proxyMayGoFirst();
    void fedFromItsOwnThreadItAnnouncesBeforeReturning();
    void fedFromAWorkerItAnnouncesFromTheEventLoop();
    void keepsTheOrderOfAWorkersData();
    void storesBeforeItAnnounces();
    void releasesThePreviousDataBeforeItAnnounces();
    void offersTheSameOnEveryPort();
    void emptyDataIsStoredAndAnnounced();
    void sameDataIsAnnouncedAgain();
    void releasesItsDataAtTheEnd();
    void survivesDataThatDestroysIt_data();
    void survivesDataThatDestroysIt();
    void survivesAHandlerThatDestroysIt();
    void dyingModelNeitherTakesNorGivesData();
    void dataUnderWayGoesWithTheModel();
    void feedsAScene();
    void feedsALateConsumerAtOnce();
    void manyThreadsFeedIt();
    void metaObject();
    void textsAreTranslatedUnderTheClassName();
};

void tst_ASourceNodeDataModel::initTestCase()
{
    qRegisterMetaType<NodePortIndex>("NodePortIndex"); // for the signal spies
}

void tst_ASourceNodeDataModel::cleanup()
{
    QCOMPARE(CTestData::alive(), 0);
}

void tst_ASourceNodeDataModel::defaultIsAnEmptySource()
{
    CSource source;
    QCOMPARE(int(source.getType()), 0);
    QVERIFY(!source.hasUniqueName());
    QVERIFY(!source.outData(0));
    QCOMPARE(source.save(), (QJsonObject{{"name", "Plain"}, {"is_unique", false}}));
}

void tst_ASourceNodeDataModel::passesTheUniqueNameOn()
{
    const CSource source(QStringLiteral("Camera"));
    QCOMPARE(source.uniqueName(), QStringLiteral("Camera"));
    QVERIFY(!CSource(QStringLiteral("Halvex.NoUniqueName")).hasUniqueName());
}

void tst_ASourceNodeDataModel::registersTheMetaTypeName()
{
    const CSource source;
    QCOMPARE(QMetaType::type("CNodeDataPtr"), qMetaTypeId<CNodeDataPtr>());
}

void tst_ASourceNodeDataModel::proxyIsAChildOfTheModel()
{
    CSource source;
    const QPointer<CNodeDataFlowProxy> proxy = source.getDataFlowProxy();
    QVERIFY(proxy);
    QCOMPARE(proxy->parent(), &source);
    QCOMPARE(proxy->thread(), source.thread());
    QCOMPARE(source.getDataFlowProxy(), proxy);
    QCOMPARE(source.children(), QObjectList({proxy.data()}));
}

void tst_ASourceNodeDataModel::proxyIsNullOnceTheModelIsGone()
{
    auto source = std::make_unique<CSource>();
    const QPointer<CNodeDataFlowProxy> proxy = source->getDataFlowProxy();
    source.reset();
    QVERIFY(!proxy);
}

void tst_ASourceNodeDataModel::proxyMayGoFirst()
{
    CSource source;
    source.getDataFlowProxy()->setData(CTestData::make(1));
    delete source.getDataFlowProxy().data();
    QVERIFY(!source.getDataFlowProxy());
    QCOMPARE(CTestData::valueOf(source.outData(0)), 1);
}

void tst_ASourceNodeDataModel::fedFromItsOwnThreadItAnnouncesBeforeReturning()
{
    CSource source;
    const QSignalSpy updated(&source, &CSource::dataUpdated);
    QVERIFY(updated.isValid());

    const CNodeDataPtr data = CTestData::make(1);
    source.getDataFlowProxy()->setData(data);

    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.at(0).at(0).toInt(), 0);
    QCOMPARE(source.outData(0), data);
}

void tst_ASourceNodeDataModel::fedFromAWorkerItAnnouncesFromTheEventLoop()
{
    CSource source;
    const QSignalSpy updated(&source, &CSource::dataUpdated);
    QVERIFY(updated.isValid());
    QThread* announcedIn = nullptr;
    connect(
        &source, &CSource::dataUpdated, &source, [&announcedIn] { announcedIn = QThread::currentThread(); },
        Qt::DirectConnection);

    const CNodeDataPtr data = CTestData::make(1);
    CNodeDataFlowProxy& proxy = *source.getDataFlowProxy();
    runInWorker([&proxy, &data] { proxy.setData(data); });
    QCOMPARE(updated.count(), 0);
    QVERIFY(!source.outData(0));

    QTRY_COMPARE(updated.count(), 1);
    QCOMPARE(updated.at(0).at(0).toInt(), 0);
    QCOMPARE(announcedIn, source.thread());
    QCOMPARE(source.outData(0), data);
}

void tst_ASourceNodeDataModel::keepsTheOrderOfAWorkersData()
{
    CSource source;
    Numbers announced;
    connect(&source, &CSource::dataUpdated, &source,
            [&] { announced.push_back(CTestData::valueOf(source.outData(0))); });

    CNodeDataFlowProxy& proxy = *source.getDataFlowProxy();
    runInWorker([&proxy] {
        for (int i = 0; i < 5; ++i)
            proxy.setData(CTestData::make(i));
    });
    QTRY_COMPARE(announced.size(), std::size_t(5));
    QCOMPARE(announced, (Numbers{0, 1, 2, 3, 4}));
}

void tst_ASourceNodeDataModel::storesBeforeItAnnounces()
{
    CSource source;
    Numbers seen;
    connect(&source, &CSource::dataUpdated, &source,
            [&](NodePortIndex index) { seen.push_back(CTestData::valueOf(source.outData(index))); });

    source.getDataFlowProxy()->setData(CTestData::make(1));
    source.getDataFlowProxy()->setData(CTestData::make(2));
    QCOMPARE(seen, (Numbers{1, 2}));
}

void tst_ASourceNodeDataModel::releasesThePreviousDataBeforeItAnnounces()
{
    CSource source;
    Numbers alive;
    connect(&source, &CSource::dataUpdated, &source, [&alive] { alive.push_back(CTestData::alive()); });

    source.getDataFlowProxy()->setData(CTestData::make(1));
    source.getDataFlowProxy()->setData(CTestData::make(2));
    source.getDataFlowProxy()->setData(CNodeDataPtr());
    QCOMPARE(alive, (Numbers{1, 1, 0}));
}

void tst_ASourceNodeDataModel::offersTheSameOnEveryPort()
{
    CSource source;
    const CNodeDataPtr data = CTestData::make(1);
    source.getDataFlowProxy()->setData(data);
    for (const NodePortIndex index : {0, 5, -1})
        QCOMPARE(source.outData(index), data);
}

void tst_ASourceNodeDataModel::emptyDataIsStoredAndAnnounced()
{
    CSource source;
    source.getDataFlowProxy()->setData(CTestData::make(1));
    const QSignalSpy updated(&source, &CSource::dataUpdated);

    source.getDataFlowProxy()->setData(CNodeDataPtr());
    QVERIFY(!source.outData(0));
    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.at(0).at(0).toInt(), 0);
}

void tst_ASourceNodeDataModel::sameDataIsAnnouncedAgain()
{
    CSource source;
    const QSignalSpy updated(&source, &CSource::dataUpdated);
    const CNodeDataPtr data = CTestData::make(1);
    source.getDataFlowProxy()->setData(data);
    source.getDataFlowProxy()->setData(data);
    QCOMPARE(updated.count(), 2);
    QCOMPARE(source.outData(0), data);
}

void tst_ASourceNodeDataModel::releasesItsDataAtTheEnd()
{
    auto source = std::make_unique<CSource>();
    source->getDataFlowProxy()->setData(CTestData::make(1));
    QCOMPARE(CTestData::alive(), 1);
    source.reset();
    QCOMPARE(CTestData::alive(), 0);
}

void tst_ASourceNodeDataModel::survivesDataThatDestroysIt_data()
{
    QTest::addColumn<bool>("inWorker");

    QTest::newRow("own thread") << false;
    QTest::newRow("worker") << true;
}

void tst_ASourceNodeDataModel::survivesDataThatDestroysIt()
{
    QFETCH(const bool, inWorker);
    const auto run = [inWorker](const std::function<void()>& work) {
        if (inWorker)
            runInWorker(work);
        else
            work();
    };

    auto source = std::make_unique<CSource>();
    CNodeDataFlowProxy& proxy = *source->getDataFlowProxy();
    Numbers announced;
    connect(source.get(), &CSource::dataUpdated, source.get(),
            [&] { announced.push_back(CTestData::valueOf(source->outData(0))); });

    run([&] {
        auto deadly = CTestData::make(1);
        deadly->onDestroyed = [&source] { source.reset(); };
        proxy.setData(deadly);
    });
    QTRY_COMPARE(announced, (Numbers{1}));
    QVERIFY(source);

    run([&proxy] { proxy.setData(CTestData::make(2)); });
    QTRY_VERIFY(!source);
    QCOMPARE(announced, (Numbers{1}));
}

void tst_ASourceNodeDataModel::survivesAHandlerThatDestroysIt()
{
    auto source = std::make_unique<CSource>();
    connect(source.get(), &CSource::dataUpdated, source.get(), [&source] { source.reset(); });
    source->getDataFlowProxy()->setData(CTestData::make(1));
    QVERIFY(!source);
}

void tst_ASourceNodeDataModel::dyingModelNeitherTakesNorGivesData()
{
    auto source = std::make_unique<CSource>();
    CSource* const model = source.get();
    const QPointer<CNodeDataFlowProxy> proxy = model->getDataFlowProxy();
    auto frame = CTestData::make(1);
    int calls = 0;
    frame->onDestroyed = [model, proxy, &calls] {
        ++calls;
        proxy->setData(CTestData::make(2)); // as a camera does that gets its buffer back
        QVERIFY(!model->outData(0));
    };
    proxy->setData(frame);
    frame.reset();
    source.reset();
    QCOMPARE(calls, 1);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_ASourceNodeDataModel::dataUnderWayGoesWithTheModel()
{
    auto source = std::make_unique<CSource>();
    CNodeDataFlowProxy& proxy = *source->getDataFlowProxy();
    runInWorker([&proxy] { proxy.setData(CTestData::make(1)); });
    QCOMPARE(CTestData::alive(), 1);
    source.reset();
    QCOMPARE(CTestData::alive(), 0);
}

void tst_ASourceNodeDataModel::feedsAScene()
{
    CTestScene scene(nullptr, nullptr);
    auto source = std::make_unique<CSource>();
    auto consumer = std::make_unique<CTestModel>(2U, 1U);
    CTestModel& received = *consumer;
    const QPointer<CNodeDataFlowProxy> proxy = source->getDataFlowProxy();
    CNodeBase& from = scene.createNode(std::move(source));
    CNodeBase& to = scene.createNode(std::move(consumer));
    QVERIFY(scene.createConnection(to, 1, from, 0, NodeDataConverter()));

    const CNodeDataPtr data = CTestData::make(1);
    proxy->setData(data);
    QCOMPARE(received.received.size(), std::size_t(1));
    QCOMPARE(received.received[0].data, data);
    QCOMPARE(received.received[0].index, 1);

    // An update to empty data travels nowhere: the consumer keeps what it has.
    proxy->setData(CNodeDataPtr());
    QCOMPARE(received.values(), (Numbers{1}));

    CNodeDataFlowProxy& remote = *proxy;
    runInWorker([&remote] { remote.setData(CTestData::make(2)); });
    QCOMPARE(received.values(), (Numbers{1}));
    QTRY_COMPARE(received.values(), (Numbers{1, 2}));

    scene.removeNode(from);
    QVERIFY(!proxy);
    QCOMPARE(received.values(), (Numbers{1, 2, -1}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_ASourceNodeDataModel::feedsALateConsumerAtOnce()
{
    CTestScene scene(nullptr, nullptr);
    auto source = std::make_unique<CSource>();
    auto consumer = std::make_unique<CTestModel>();
    const CTestModel& received = *consumer;
    source->getDataFlowProxy()->setData(CTestData::make(1));
    CNodeBase& from = scene.createNode(std::move(source));
    CNodeBase& to = scene.createNode(std::move(consumer));

    scene.createConnection(to, 0, from, 0, NodeDataConverter());
    QCOMPARE(received.values(), (Numbers{1}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_ASourceNodeDataModel::manyThreadsFeedIt()
{
    const int threadCount = 8;
    const int perThread = 1000;

    CSource source;
    std::vector<Numbers> arrived(threadCount);
    connect(&source, &CSource::dataUpdated, &source, [&] {
        const int value = CTestData::valueOf(source.outData(0));
        arrived[std::size_t(value / perThread)].push_back(value % perThread);
    });
    const QSignalSpy updated(&source, &CSource::dataUpdated);

    CNodeDataFlowProxy& proxy = *source.getDataFlowProxy();
    std::vector<std::unique_ptr<QThread>> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back(QThread::create([&proxy, thread] {
            for (int i = 0; i < perThread; ++i)
                proxy.setData(CTestData::make(thread * perThread + i));
        }));
        threads.back()->start();
    }
    QTRY_COMPARE_WITH_TIMEOUT(updated.count(), threadCount * perThread, 60000);
    for (const auto& thread : threads)
        waitForEnd(*thread);
    QCoreApplication::processEvents();
    QCOMPARE(updated.count(), threadCount * perThread);

    Numbers expected(perThread);
    std::iota(expected.begin(), expected.end(), 0);
    for (const Numbers& ofThread : arrived)
        QVERIFY(ofThread == expected);
    QCOMPARE(CTestData::alive(), 1); // the last one
}

void tst_ASourceNodeDataModel::metaObject()
{
    const QMetaObject& metaObject = ASourceNodeDataModel::staticMetaObject;
    QCOMPARE(metaObject.className(), "Plugin::Halvex::ASourceNodeDataModel");
    QCOMPARE(metaObject.superClass(), &ANodeDataModel::staticMetaObject);
    QCOMPARE(methodsOf(metaObject), QStringList{"private slot onNewDataAvailable(CNodeDataPtr ptrNodeData)"});
    QCOMPARE(otherMembersOf(metaObject), 0);
}

void tst_ASourceNodeDataModel::textsAreTranslatedUnderTheClassName()
{
    const CContextTranslator translator;
    QCOMPARE(ASourceNodeDataModel::tr("text"), QStringLiteral("Plugin::Halvex::ASourceNodeDataModel"));
}

QTEST_GUILESS_MAIN(tst_ASourceNodeDataModel)

#include "tst_ASourceNodeDataModel.moc"
