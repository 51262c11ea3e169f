// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/ASinkNodeDataModel.h>

#include "TestModels.h"
#include "support/CLeakTest.h"

#include <QSignalSpy>
#include <QtTest>

#include <type_traits>

using namespace Plugin::Halvex;

static_assert(std::is_abstract_v<ASinkNodeDataModel>, "the concrete sink has operations left to write");
static_assert(std::is_base_of_v<ANodeDataModel, ASinkNodeDataModel>, "a model with an identity");

class tst_ASinkNodeDataModel : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void isASink();
    void keepsTheLastData();
    void keepsDataOfAWorkerFromTheEventLoopOn();
    void emitsNothing();
    void survivesDataThatDestroysIt();
    void survivesAListenerThatDestroysIt();
    void dyingModelTakesAndLeavesNoData();
};

void tst_ASinkNodeDataModel::isASink()
{
    CSink sink;
    QCOMPARE(int(sink.getType()), 1);
    QVERIFY(!sink.hasUniqueName());
    QCOMPARE(sink.save(), QJsonObject({{"name", "Plain"}, {"is_unique", false}}));
    QCOMPARE(CSink(QStringLiteral("Display")).uniqueName(), QStringLiteral("Display"));
    sink.setType(ENodeDataModelType::Decoupler); // as a subclass may
    QCOMPARE(sink.getType(), ENodeDataModelType::Decoupler);
}

void tst_ASinkNodeDataModel::keepsTheLastData()
{
    auto sink = std::make_unique<CSink>();
    CNodeDataFlowProxy& proxy = *sink->getDataFlowProxy();

    auto data = CTestData::make(1);
    const QWeakPointer<CNodeData> first = data;
    proxy.setData(std::move(data));
    QVERIFY(first);

    proxy.setData(CTestData::make(2));
    QVERIFY(!first);
    QCOMPARE(CTestData::alive(), 1);

    proxy.setData(CNodeDataPtr());
    QCOMPARE(CTestData::alive(), 0);

    proxy.setData(CTestData::make(3));
    QCOMPARE(CTestData::alive(), 1);
    sink.reset();
    QCOMPARE(CTestData::alive(), 0);
}

void tst_ASinkNodeDataModel::keepsDataOfAWorkerFromTheEventLoopOn()
{
    CSink sink;
    CNodeDataFlowProxy& proxy = *sink.getDataFlowProxy();
    proxy.setData(CTestData::make(1));
    runInWorker([&proxy] { proxy.setData(CTestData::make(2)); });
    QCOMPARE(CTestData::alive(), 2); // the first is kept, the second is under way
    QTRY_COMPARE(CTestData::alive(), 1);
}

void tst_ASinkNodeDataModel::emitsNothing()
{
    CSink sink;
    const QSignalSpy updated(&sink, &CSink::dataUpdated);
    const QSignalSpy invalidated(&sink, &CSink::dataInvalidated);
    const QSignalSpy started(&sink, &CSink::computingStarted);
    const QSignalSpy finished(&sink, &CSink::computingFinished);
    const QSignalSpy available(sink.getDataFlowProxy().data(), &CNodeDataFlowProxy::newDataAvailable);

    sink.getDataFlowProxy()->setData(CTestData::make(1));
    QCOMPARE(available.count(), 1);
    QCOMPARE(updated.count() + invalidated.count() + started.count() + finished.count(), 0);
}

void tst_ASinkNodeDataModel::survivesDataThatDestroysIt()
{
    auto sink = std::make_unique<CSink>();
    CNodeDataFlowProxy& proxy = *sink->getDataFlowProxy();
    auto deadly = CTestData::make(1);
    deadly->onDestroyed = [&sink] { sink.reset(); };
    proxy.setData(std::move(deadly));
    QVERIFY(sink);
    proxy.setData(CTestData::make(2));
    QVERIFY(!sink);
}

void tst_ASinkNodeDataModel::survivesAListenerThatDestroysIt()
{
    auto sink = std::make_unique<CSink>();
    CNodeDataFlowProxy& proxy = *sink->getDataFlowProxy();
    connect(&proxy, &CNodeDataFlowProxy::newDataAvailable, &proxy, [&sink] { sink.reset(); });
    proxy.setData(CTestData::make(1));
    QVERIFY(!sink);
}

void tst_ASinkNodeDataModel::dyingModelTakesAndLeavesNoData()
{
    auto sink = std::make_unique<CSink>();
    CSink* const model = sink.get();
    const QPointer<CNodeDataFlowProxy> proxy = model->getDataFlowProxy();
    auto last = CTestData::make(1);
    int calls = 0;
    last->onDestroyed = [model, proxy, &calls] {
        ++calls;
        const int alive = CTestData::alive();
        proxy->setData(CTestData::make(2));
        QCOMPARE(CTestData::alive(), alive);
        const CNodeDataPtr data = CTestData::make(3);
        QVERIFY(QMetaObject::invokeMethod(model, "onNewDataAvailable", Q_ARG(CNodeDataPtr, data)));
    };
    proxy->setData(std::move(last));
    sink.reset();
    QCOMPARE(calls, 1);
    QCOMPARE(CTestData::alive(), 0);
}

QTEST_GUILESS_MAIN(tst_ASinkNodeDataModel)

#include "tst_ASinkNodeDataModel.moc"
