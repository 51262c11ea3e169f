// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/ASourceNodeDataModel.h>

#include "TestModels.h"
#include "support/CLeakTest.h"
#include "support/CTestScene.h"

#include <QtTest>

#include <numeric>
#include <type_traits>
#include <vector>

using namespace Plugin::Halvex;

static_assert(std::is_abstract_v<ASourceNodeDataModel>, "the concrete source has operations left to write");
static_assert(std::is_base_of_v<ANodeDataModel, ASourceNodeDataModel>, "a model with an identity");

namespace {

using Numbers = std::vector<int>;

/// What a source announces: the data that it has then, and how many data objects there are.
class CAnnounced
{
public:
    explicit CAnnounced(CSource& source)
    {
        QObject::connect(
            &source, &CSource::dataUpdated, &source,
            [this, &source](NodePortIndex index) {
                QCOMPARE(index, 0);
                QCOMPARE(QThread::currentThread(), source.thread());
                values.push_back(CTestData::valueOf(source.outData(index)));
                alive.push_back(CTestData::alive());
            },
            Qt::DirectConnection);
    }

    Numbers values;
    Numbers alive;
};

} // namespace

class tst_ASourceNodeDataModel : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void isAnEmptySource();
    void fedFromItsOwnThreadItAnnouncesBeforeReturning();
    void fedFromAWorkerItAnnouncesFromTheEventLoop();
    void offersTheSameOnEveryPort();
    void keepsItsDataWhenTheProxyGoes();
    void releasesItsDataAtTheEnd();
    void survivesDataThatDestroysIt();
    void survivesAHandlerThatDestroysIt();
    void dyingModelNeitherTakesNorGivesData();
    void feedsAScene();
    void manyThreadsFeedIt();
};

void tst_ASourceNodeDataModel::isAnEmptySource()
{
    CSource source;
    QCOMPARE(int(source.getType()), 0);
    QVERIFY(!source.hasUniqueName());
    QVERIFY(!source.outData(0));
    QCOMPARE(source.save(), QJsonObject({{"name", "Plain"}, {"is_unique", false}}));
    QCOMPARE(CSource(QStringLiteral("Camera")).uniqueName(), QStringLiteral("Camera"));
}

void tst_ASourceNodeDataModel::fedFromItsOwnThreadItAnnouncesBeforeReturning()
{
    CSource source;
    CNodeDataFlowProxy& proxy = *source.getDataFlowProxy();
    const CAnnounced announced(source);
    proxy.setData(CTestData::make(1));
    QCOMPARE(announced.values, Numbers({1}));
    proxy.setData(CTestData::make(2));
    proxy.setData(source.outData(0)); // the same once more
    proxy.setData(CNodeDataPtr());
    QCOMPARE(announced.values, Numbers({1, 2, 2, -1}));
    QCOMPARE(announced.alive, Numbers({1, 1, 1, 0})); // what was there before has gone before
}

void tst_ASourceNodeDataModel::fedFromAWorkerItAnnouncesFromTheEventLoop()
{
    CSource source;
    CNodeDataFlowProxy& proxy = *source.getDataFlowProxy();
    const CAnnounced announced(source);
    runInWorker([&proxy] {
        for (int i = 0; i < 5; ++i)
            proxy.setData(CTestData::make(i));
    });
    QCOMPARE(announced.values, Numbers());
    QVERIFY(!source.outData(0));

    QTRY_COMPARE(announced.values, Numbers({0, 1, 2, 3, 4}));
    QCOMPARE(CTestData::valueOf(source.outData(0)), 4);
}

void tst_ASourceNodeDataModel::offersTheSameOnEveryPort()
{
    CSource source;
    const CNodeDataPtr data = CTestData::make(1);
    source.getDataFlowProxy()->setData(data);
    for (const NodePortIndex index : {0, 5, -1})
        QCOMPARE(source.outData(index), data);
}

void tst_ASourceNodeDataModel::keepsItsDataWhenTheProxyGoes()
{
    CSource source;
    source.getDataFlowProxy()->setData(CTestData::make(1));
    delete source.getDataFlowProxy().data();
    QCOMPARE(CTestData::valueOf(source.outData(0)), 1);
}

void tst_ASourceNodeDataModel::releasesItsDataAtTheEnd()
{
    auto source = std::make_unique<CSource>();
    CNodeDataFlowProxy& proxy = *source->getDataFlowProxy();
    proxy.setData(CTestData::make(1));
    runInWorker([&proxy] { proxy.setData(CTestData::make(2)); });
    QCOMPARE(CTestData::alive(), 2); // one of them under way
    source.reset();
    QCOMPARE(CTestData::alive(), 0);
}

void tst_ASourceNodeDataModel::survivesDataThatDestroysIt()
{
    for (const bool inWorker : {false, true}) {
        const auto run = [inWorker](const std::function<void()>& work) { inWorker ? runInWorker(work) : work(); };
        auto source = std::make_unique<CSource>();
        CNodeDataFlowProxy& proxy = *source->getDataFlowProxy();
        const CAnnounced announced(*source);

        run([&] {
            auto deadly = CTestData::make(1);
            deadly->onDestroyed = [&source] { source.reset(); };
            proxy.setData(deadly);
        });
        QTRY_COMPARE(announced.values, Numbers({1}));
        QVERIFY(source);

        run([&proxy] { proxy.setData(CTestData::make(2)); });
        QTRY_VERIFY(!source);
        QCOMPARE(announced.values, Numbers({1}));
    }
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
        QVERIFY(!model->ASourceNodeDataModel::outData(0));
    };
    proxy->setData(std::move(frame));
    source.reset();
    QCOMPARE(calls, 1);
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
    proxy->setData(CTestData::make(0)); // what it has when a consumer comes
    QVERIFY(scene.createConnection(to, 1, from, 0, NodeDataConverter()));
    QCOMPARE(received.values(), Numbers({0}));

    const CNodeDataPtr data = CTestData::make(1);
    proxy->setData(data);
    QCOMPARE(received.received.size(), std::size_t(2));
    QCOMPARE(received.received[1].data, data);
    QCOMPARE(received.received[1].index, 1);

    // An update to empty data travels nowhere: the consumer keeps what it has.
    proxy->setData(CNodeDataPtr());
    QCOMPARE(received.values(), Numbers({0, 1}));

    CNodeDataFlowProxy& remote = *proxy;
    runInWorker([&remote] { remote.setData(CTestData::make(2)); });
    QCOMPARE(received.values(), Numbers({0, 1}));
    QTRY_COMPARE(received.values(), Numbers({0, 1, 2}));

    scene.removeNode(from);
    QVERIFY(!proxy);
    QCOMPARE(received.values(), Numbers({0, 1, 2, -1}));
}

void tst_ASourceNodeDataModel::manyThreadsFeedIt()
{
    const int threadCount = 8;
    const int perThread = 1000;
    CSource source;
    const CAnnounced announced(source);
    CNodeDataFlowProxy& proxy = *source.getDataFlowProxy();
    std::vector<CTestThread> threads;
    threads.reserve(threadCount);
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&proxy, thread] {
            for (int i = 0; i < perThread; ++i)
                proxy.setData(CTestData::make(thread * perThread + i));
        });
    }
    QTRY_COMPARE_WITH_TIMEOUT(int(announced.values.size()), threadCount * perThread, 60000);
    for (CTestThread& thread : threads)
        thread.join();
    QCoreApplication::processEvents();
    QCOMPARE(int(announced.values.size()), threadCount * perThread);

    std::vector<Numbers> arrived(threadCount);
    for (const int value : announced.values)
        arrived[std::size_t(value / perThread)].push_back(value % perThread);
    Numbers expected(perThread);
    std::iota(expected.begin(), expected.end(), 0);
    for (const Numbers& ofThread : arrived)
        QVERIFY(ofThread == expected);
    QCOMPARE(CTestData::alive(), 1); // the last one
}

QTEST_GUILESS_MAIN(tst_ASourceNodeDataModel)

#include "tst_ASourceNodeDataModel.moc"
