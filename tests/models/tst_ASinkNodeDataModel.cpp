// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/ASinkNodeDataModel.h>

#include "TestModels.h"
#include "support/CContextTranslator.h"
#include "support/CTestScene.h"
#include "support/MetaMethods.h"
#include "support/SceneConsistency.h"

#include <Halvex/scene/CNodeScene.h>

#include <QSignalSpy>
#include <QtTest>

#include <type_traits>

using namespace Plugin::Halvex;

static_assert(std::is_abstract_v<ASinkNodeDataModel>, "the concrete sink has operations left to write");
static_assert(std::is_base_of_v<ANodeDataModel, ASinkNodeDataModel>, "a model with an identity");

namespace {

/// A sink that is of another kind.
class CDecouplingSink : public CSink
{
public:
    CDecouplingSink() { m_modelType = ENodeDataModelType::Decoupler; }
};

} // namespace

class tst_ASinkNodeDataModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void defaultIsASink();
    void subclassMayBeOfAnotherKind();
    void passesTheUniqueNameOn();
    void registersTheMetaTypeName();
    void proxyIsAChildOfTheModel();
    void proxyIsNullOnceTheModelIsGone();
    void proxyMayGoFirst();
    void keepsTheLastData();
    void keepsDataOfAWorkerFromTheEventLoopOn();
    void emitsNothing();
    void survivesDataThatDestroysIt();
    void survivesAListenerThatDestroysIt();
    void dyingModelTakesAndLeavesNoData();
    void handsOutWhatAScenesSourceWasFed();
    void metaObject();
    void textsAreTranslatedUnderTheClassName();
};

void tst_ASinkNodeDataModel::initTestCase()
{
    qRegisterMetaType<NodePortIndex>("NodePortIndex"); // for the signal spies
}

void tst_ASinkNodeDataModel::cleanup()
{
    QCOMPARE(CTestData::alive(), 0);
}

void tst_ASinkNodeDataModel::defaultIsASink()
{
    CSink sink;
    QCOMPARE(int(sink.getType()), 1);
    QVERIFY(!sink.hasUniqueName());
    QCOMPARE(sink.save(), (QJsonObject{{"name", "Plain"}, {"is_unique", false}}));
}

void tst_ASinkNodeDataModel::subclassMayBeOfAnotherKind()
{
    CDecouplingSink sink;
    QCOMPARE(sink.getType(), ENodeDataModelType::Decoupler);
}

void tst_ASinkNodeDataModel::passesTheUniqueNameOn()
{
    const CSink sink(QStringLiteral("Display"));
    QCOMPARE(sink.uniqueName(), QStringLiteral("Display"));
    QVERIFY(!CSink(QStringLiteral("Halvex.NoUniqueName")).hasUniqueName());
}

void tst_ASinkNodeDataModel::registersTheMetaTypeName()
{
    const CSink sink;
    QCOMPARE(QMetaType::type("CNodeDataPtr"), qMetaTypeId<CNodeDataPtr>());
}

void tst_ASinkNodeDataModel::proxyIsAChildOfTheModel()
{
    CSink sink;
    const QPointer<CNodeDataFlowProxy> proxy = sink.getDataFlowProxy();
    QVERIFY(proxy);
    QCOMPARE(proxy->parent(), &sink);
    QCOMPARE(proxy->thread(), sink.thread());
    QCOMPARE(sink.getDataFlowProxy(), proxy);
    QCOMPARE(sink.children(), QObjectList({proxy.data()}));
}

void tst_ASinkNodeDataModel::proxyIsNullOnceTheModelIsGone()
{
    auto sink = std::make_unique<CSink>();
    const QPointer<CNodeDataFlowProxy> proxy = sink->getDataFlowProxy();
    sink.reset();
    QVERIFY(!proxy);
}

void tst_ASinkNodeDataModel::proxyMayGoFirst()
{
    CSink sink;
    delete sink.getDataFlowProxy().data();
    QVERIFY(!sink.getDataFlowProxy());
}

void tst_ASinkNodeDataModel::keepsTheLastData()
{
    auto sink = std::make_unique<CSink>();
    CNodeDataFlowProxy& proxy = *sink->getDataFlowProxy();

    QWeakPointer<CNodeData> first;
    {
        const CNodeDataPtr data = CTestData::make(1);
        first = data;
        proxy.setData(data);
    }
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
    QVERIFY(updated.isValid() && invalidated.isValid() && started.isValid() && finished.isValid());

    sink.getDataFlowProxy()->setData(CTestData::make(1));
    QCOMPARE(available.count(), 1);
    QCOMPARE(updated.count() + invalidated.count() + started.count() + finished.count(), 0);
}

void tst_ASinkNodeDataModel::survivesDataThatDestroysIt()
{
    auto sink = std::make_unique<CSink>();
    CNodeDataFlowProxy& proxy = *sink->getDataFlowProxy();
    {
        auto deadly = CTestData::make(1);
        deadly->onDestroyed = [&sink] { sink.reset(); };
        proxy.setData(deadly);
    }
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
    proxy->setData(last);
    last.reset();
    sink.reset();
    QCOMPARE(calls, 1);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_ASinkNodeDataModel::handsOutWhatAScenesSourceWasFed()
{
    CTestScene scene(nullptr, nullptr);
    auto source = std::make_unique<CSource>();
    auto sink = std::make_unique<CSink>();
    const QPointer<CNodeDataFlowProxy> in = source->getDataFlowProxy();
    const QPointer<CNodeDataFlowProxy> out = sink->getDataFlowProxy();
    CNodeBase& from = scene.createNode(std::move(source));
    CNodeBase& to = scene.createNode(std::move(sink));
    QVERIFY(scene.createConnection(to, 0, from, 0, NodeDataConverter()));

    QList<CNodeDataPtr> heard;
    connect(out.data(), &CNodeDataFlowProxy::newDataAvailable, out.data(),
            [&heard](const CNodeDataPtr& data) { heard << data; });

    const CNodeDataPtr data = CTestData::make(1);
    in->setData(data);
    QCOMPARE(heard, QList<CNodeDataPtr>({data}));

    // Without its source the sink receives empty data.
    scene.removeNode(from);
    QCOMPARE(heard, QList<CNodeDataPtr>({data, CNodeDataPtr()}));

    scene.clearScene();
    QVERIFY(!in && !out);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_ASinkNodeDataModel::metaObject()
{
    const QMetaObject& metaObject = ASinkNodeDataModel::staticMetaObject;
    QCOMPARE(metaObject.className(), "Plugin::Halvex::ASinkNodeDataModel");
    QCOMPARE(metaObject.superClass(), &ANodeDataModel::staticMetaObject);
    QCOMPARE(methodsOf(metaObject), QStringList{"private slot onNewDataAvailable(CNodeDataPtr ptrNodeData)"});
    QCOMPARE(otherMembersOf(metaObject), 0);
}

void tst_ASinkNodeDataModel::textsAreTranslatedUnderTheClassName()
{
    const CContextTranslator translator;
    QCOMPARE(ASinkNodeDataModel::tr("text"), QStringLiteral("Plugin::Halvex::ASinkNodeDataModel"));
}

QTEST_GUILESS_MAIN(tst_ASinkNodeDataModel)

#include "tst_ASinkNodeDataModel.moc"
