// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeBase.h>

#include "graph/TestGraph.h"
#include "support/BoundedWait.h"
#include "support/CGraphInspector.h"
#include "support/CLeakTest.h"
#include "support/CMessageCatcher.h"

#include <QThread>
#include <QtTest>

#include <atomic>
#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

using namespace Plugin::Halvex;

namespace {

static_assert(std::is_base_of_v<QObject, CNodeBase> && std::is_base_of_v<Plugin::AppCore::ISerializable, CNodeBase>,
              "both can be had from it");
static_assert(!std::is_copy_constructible_v<CNodeBase> && !std::is_move_constructible_v<CNodeBase>,
              "a node has an identity");
static_assert(!std::is_convertible_v<std::unique_ptr<CNodeDataModel>, CNodeBase>, "made on request only");

constexpr ENodePortType In = ENodePortType::In;
constexpr ENodePortType Out = ENodePortType::Out;

using Numbers = std::vector<int>;

} // namespace

class tst_CNodeBase : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void slotsAreInvokable();
    void newNodeHasAnIdItsModelAndItsPorts();
    void nullModelIsReplaced();
    void propagateDataReachesTheModel();
    void otherSignalsOfTheModelAreNotConnected();
    void saveHoldsIdAndModel();
    void restoreTakesIdAndModel();
    void restoreWithoutKeys();
    void restoreLeavesThePorts();

    void destructorLeavesConnectionsAlone();
    void modelsDestructorMayUseItsNode();
    void modelsDestructorMayUpdateItsNodeInADelivery();
    void modelsDestructorMayConnectItsNode();
    void modelMayDestroyItsNodeInSaveAndRestore();

    void retiredNodeGoesAtOnce();
    void retiredNodeLivesUntilItIsSavedAndRestored();
    void retiredNodeLivesUntilTheLastDeliveryHasEnded();
    void retiredNodeMayBeDestroyedInADelivery();
    void retiredNodesModelMayUseIt();
    void retiredNodePassesNothingOn();

    void foreignThreadsUpdateIsQueued();
    void graphsOfDifferentThreadsDoNotMeet();
};

void tst_CNodeBase::slotsAreInvokable()
{
    const STestNode node;
    const QMetaMethod propagateData = CNodeBase::staticMetaObject.method(CNodeBase::staticMetaObject.methodOffset());
    const QMetaMethod onDataUpdated =
        CNodeBase::staticMetaObject.method(CNodeBase::staticMetaObject.methodOffset() + 1);
    const CNodeDataPtr data = CTestData::make(3);
    QVERIFY(propagateData.invoke(node.node.get(), Q_ARG(CNodeDataPtr, data), Q_ARG(NodePortIndex, 0)));
    QCOMPARE(node.model->values(), Numbers({3}));
    const int asked = node.model->outDataCalls;
    QVERIFY(onDataUpdated.invoke(node.node.get(), Q_ARG(NodePortIndex, 0)));
    QCOMPARE(node.model->outDataCalls, asked + 1);
}

void tst_CNodeBase::newNodeHasAnIdItsModelAndItsPorts()
{
    auto owned = std::make_unique<CTestModel>(2, 3);
    const CTestModel* const model = owned.get();
    CNodeBase node(std::move(owned));
    QVERIFY(!owned);
    QVERIFY(!node.parent());
    QCOMPARE(node.nodeDataModel(), model);
    QCOMPARE(node.nodeState().getEntries(In).size(), std::size_t(2));
    QCOMPARE(node.nodeState().getEntries(Out).size(), std::size_t(3));
    QCOMPARE(&std::as_const(node).nodeState(), &node.nodeState());
    QVERIFY(node.id() != Core::CId());
    QVERIFY(node.id() == node.id());
    QVERIFY(node.id() != STestNode()->id());
    QCOMPARE(model->outDataCalls, 0);
}

void tst_CNodeBase::nullModelIsReplaced()
{
    CNodeBase node{std::unique_ptr<CNodeDataModel>()};
    QVERIFY(node.nodeDataModel());
    QVERIFY(node.nodeState().getEntries(In).empty());
    QVERIFY(node.nodeState().getEntries(Out).empty());
    node.propagateData(CTestData::make(1), 0);
    node.onDataUpdated(0);
    QCOMPARE(node.save().size(), 2);

    CNodeDataModel& none = *node.nodeDataModel();
    QCOMPARE(none.caption(), QString());
    QCOMPARE(none.name(), QString());
    QCOMPARE(none.dataType(In, 0).id, QString());
    QVERIFY(!none.outData(0));
}

void tst_CNodeBase::propagateDataReachesTheModel()
{
    const STestNode node(3, 1);
    const CNodeDataPtr data = CTestData::make(1);
    node->propagateData(data, 2);
    node->propagateData(CNodeDataPtr(), -1);
    QCOMPARE(node.model->received.size(), std::size_t(2));
    QCOMPARE(node.model->received[0].data, data);
    QCOMPARE(node.model->received[0].index, 2);
    QVERIFY(node.model->received[1].data.isNull());
    QCOMPARE(node.model->received[1].index, -1);

    Numbers left;
    CNodeBase(std::make_unique<CConsumer>(left)).propagateData(CTestData::make(2), 0);
    QCOMPARE(left, Numbers({1})); // it was handed over: only the other data is left
}

void tst_CNodeBase::otherSignalsOfTheModelAreNotConnected()
{
    const STestNode node;
    Q_EMIT node.model->dataInvalidated(0);
    Q_EMIT node.model->computingStarted();
    Q_EMIT node.model->computingFinished();
    Q_EMIT node.model->infoInjected({});
    QCOMPARE(node.model->outDataCalls, 0);
    QVERIFY(node.model->received.empty());
}

void tst_CNodeBase::saveHoldsIdAndModel()
{
    const STestNode node(1, 1, QStringLiteral("Blur"));
    QCOMPARE(node->save(), QJsonObject({{"id", node->id().toString()}, {"model", QJsonObject({{"name", "Blur"}})}}));

    const STestNode fresh(1, 1, QStringLiteral("Blur"));
    fresh->restore(node->save());
    QCOMPARE(fresh->save(), node->save());
}

void tst_CNodeBase::restoreTakesIdAndModel()
{
    const STestNode node;
    const Core::CId id = Core::CId::createId();
    const QJsonObject settings{{"name", "Test"}, {"radius", 3}};
    Plugin::AppCore::ISerializable& serializable = *node;
    serializable.restore({{"id", id.toString()}, {"model", settings}});
    QVERIFY(node->id() == id);
    QCOMPARE(node.model->restored, std::vector<QJsonObject>({settings}));
}

void tst_CNodeBase::restoreWithoutKeys()
{
    const STestNode node;
    node->restore({});
    QVERIFY(node->id() == Core::CId());
    node->restore({{"id", "camera"}, {"model", 3}});
    QVERIFY(node->id() == Core::CId());
    QCOMPARE(node.model->restored, std::vector<QJsonObject>({QJsonObject(), QJsonObject()}));
}

void tst_CNodeBase::restoreLeavesThePorts()
{
    const SFan fan(1);
    fan.source->restore(STestNode()->save());
    QCOMPARE(fan.source.outputs().size(), std::size_t(1));
    fan.source.model->offer(CTestData::make(2));
    QCOMPARE(fan.deliveries(2), 1);
}

void tst_CNodeBase::destructorLeavesConnectionsAlone()
{
    SFan fan(2);
    fan.source.node.reset();
    QCOMPARE(fan.deliveries(-1), 0);
    for (const auto& sink : fan.sinks)
        QCOMPARE(std::as_const(**sink).nodeState().getEntries(In)[0].size(), std::size_t(1));
    fan.connections.front()->propagateData(CTestData::make(3));
    QCOMPARE(fan.deliveries(3), 1);
}

void tst_CNodeBase::modelsDestructorMayUseItsNode()
{
    SFan fan(2);
    const STestNode upstream;
    const auto feed = join(upstream, fan.source);
    CTestModel* const model = fan.source.model;
    CNodeBase* const dying = fan.source.node.get();
    const Core::CId id = dying->id();
    bool reached = false;
    model->onDestroyed = [&] {
        reached = true;
        Q_EMIT model->dataUpdated(0);
        dying->onDataUpdated(0);
        dying->propagateData(CTestData::make(5), 0);
        upstream.model->offer(CTestData::make(6));
        for (const auto& connection : fan.connections)
            QVERIFY(!std::as_const(*connection).getNode(Out));
        QVERIFY(!std::as_const(*feed).getNode(In));
        QVERIFY(dying->id() == id);
        QVERIFY(!dying->nodeDataModel());
        QVERIFY(dying->nodeState().getEntries(Out).empty());
        QVERIFY(dying->nodeState().getEntries(In).empty());
        QCOMPARE(dying->save().value("id").toString(), id.toString());
        dying->restore(QJsonObject());
    };
    model->out = CTestData::make(1);

    fan.source.node.reset();

    QVERIFY(reached);
    QCOMPARE(fan.deliveries(1), 0);
}

void tst_CNodeBase::modelsDestructorMayUpdateItsNodeInADelivery()
{
    SFan fan(1);
    CTestModel* const model = fan.source.model;
    model->out = CTestData::make(1);
    bool reached = false;
    model->onDestroyed = [&] { // few frames below the delivery, whose visit must not be taken for one with a model
        reached = true;
        Q_EMIT model->dataUpdated(0);
    };
    model->onSetInData = [&fan](const CNodeDataPtr&, NodePortIndex) { fan.source.node.reset(); };

    fan.source->propagateData(CTestData::make(2), 0);

    QVERIFY(reached);
    QVERIFY(fan.sinks[0]->model->received.empty());
}

void tst_CNodeBase::modelsDestructorMayConnectItsNode()
{
    STestNode node;
    const STestNode other;
    CNodeBase* const dying = node.node.get();
    std::unique_ptr<CNodeConnection> connection;
    node.model->onDestroyed = [&] {
        connection = std::make_unique<CNodeConnection>(*dying, 0, *other, 0, NodeDataConverter());
        enter(*connection);
        connection->propagateData(CTestData::make(1));
        QVERIFY(!std::as_const(*connection).getNode(In)); // a node that is being destroyed is no end
        connection->setNodeToPort(*other, In, 0);
        connection->setNodeToPort(*dying, In, 0);
        QVERIFY(!std::as_const(*connection).getNode(In)); // and the former end is none any more
    };

    node.node.reset();

    QVERIFY(!std::as_const(*connection).getNode(In));
    other.model->offer(CTestData::make(2));
    QVERIFY(connection->save().isEmpty());
}

void tst_CNodeBase::modelMayDestroyItsNodeInSaveAndRestore()
{
    STestNode node;
    node.model->onSave = [&node] { node.node.reset(); };
    const QString id = node->id().toString();
    QCOMPARE(node->save(), QJsonObject({{"id", id}, {"model", QJsonObject({{"name", "Test"}})}}));
    QVERIFY(!node.node);

    node = STestNode();
    node.model->onRestore = [&node] { node.node.reset(); };
    node->restore({});
    QVERIFY(!node.node);
}

void tst_CNodeBase::retiredNodeGoesAtOnce()
{
    SFan fan(1);
    fan.source.model->offer(CTestData::make(1)); // a walk that has ended
    CGraphInspector::retire(std::move(fan.source.node));
    QCOMPARE(CTestModel::alive(), 1);
    QVERIFY(!std::as_const(*fan.connections[0]).getNode(Out));
    QCOMPARE(fan.connections[0]->getPortIndex(Out), -1);
}

void tst_CNodeBase::retiredNodeLivesUntilItIsSavedAndRestored()
{
    for (const bool isSaved : {true, false}) {
        STestNode node;
        int modelsMeanwhile = 0;
        const auto retire = [&] {
            int& models = modelsMeanwhile; // what was captured goes with the model
            CGraphInspector::retire(std::move(node.node));
            models = CTestModel::alive();
        };
        node.model->onSave = node.model->onRestore = retire;
        if (isSaved)
            node->save();
        else
            node->restore({});
        QCOMPARE(modelsMeanwhile, 1);
        QCOMPARE(CTestModel::alive(), 0);
    }
}

void tst_CNodeBase::retiredNodeLivesUntilTheLastDeliveryHasEnded()
{
    STestNode node;
    int modelsMeanwhile = 0;
    node.model->onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (CTestData::valueOf(data) == 2) {
            CGraphInspector::retire(std::move(node.node));
        } else {
            int& models = modelsMeanwhile;
            node->propagateData(CTestData::make(2), 0);
            models = CTestModel::alive();
        }
    };
    node->propagateData(CTestData::make(1), 0);
    QCOMPARE(modelsMeanwhile, 1);
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeBase::retiredNodeMayBeDestroyedInADelivery()
{
    STestNode node;
    node.model->onSetInData = [&node](const CNodeDataPtr&, NodePortIndex) {
        CNodeBase* const retired = node.node.get();
        CGraphInspector::retire(std::move(node.node));
        delete retired; // the end of the delivery must not destroy it again
    };
    node->propagateData(CTestData::make(1), 0);
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeBase::retiredNodesModelMayUseIt()
{
    STestNode node;
    CNodeBase* const dying = node.node.get();
    int saved = 0;
    node.model->onDestroyed = [&] {
        ++saved;
        QVERIFY(saved < 3);
        dying->save();
        dying->restore({});
        dying->onDataUpdated(0);
    };
    CGraphInspector::retire(std::move(node.node));
    QCOMPARE(saved, 1);
}

void tst_CNodeBase::retiredNodePassesNothingOn()
{
    SFan fan(1);
    const CNodeBase* const node = fan.source.node.get();
    fan.source.model->onOutData = [&](NodePortIndex) {
        fan.source.model->onOutData = nullptr;
        CGraphInspector::retire(std::move(fan.source.node));
        // Whoever knows the node may use it as long as it is there.
        node->propagateData(CTestData::make(2), 0);
        return CNodeDataPtr();
    };
    fan.source->onDataUpdated(0);
    QVERIFY(fan.sinks[0]->model->received.empty());
    QCOMPARE(CTestModel::alive(), 1);
}

void tst_CNodeBase::foreignThreadsUpdateIsQueued()
{
    for (const bool isDestroyedMeanwhile : {false, true}) {
        SFan fan(1);
        const QThread* servedIn = nullptr;
        fan.onDelivery([&servedIn](std::size_t) { servedIn = QThread::currentThread(); });
        fan.source.model->out = CTestData::make(1);

        CTestThread thread([&fan] { Q_EMIT fan.source.model->dataUpdated(0); });
        thread.join();
        QCOMPARE(fan.source.model->outDataCalls, 0);
        if (isDestroyedMeanwhile)
            fan.source.node.reset();
        QCoreApplication::sendPostedEvents();

        QCOMPARE(fan.deliveries(1), isDestroyedMeanwhile ? 0 : 1);
        QCOMPARE(servedIn, isDestroyedMeanwhile ? nullptr : QThread::currentThread());
    }
}

void tst_CNodeBase::graphsOfDifferentThreadsDoNotMeet()
{
    std::atomic<int> served{0};
    const auto work = [&served] {
        for (int round = 0; round < 200; ++round) {
            const STestNode source;
            const STestNode sink;
            CNodeConnection connection(*sink, 0, *source, 0, {});
            // Entered so that every walk looks it up among all the connections there are.
            source->nodeState().getEntries(Out)[0].emplace(connection.id(), &connection);
            source->propagateData(CTestData::make(round), 0);
            served += sink.model->values() == Numbers({round});
        }
    };
    CTestThread threads[] = {CTestThread(work), CTestThread(work), CTestThread(work)};
    for (CTestThread& thread : threads)
        thread.join();
    QCOMPARE(served.load(), 600);
}

QTEST_GUILESS_MAIN(tst_CNodeBase)

#include "tst_CNodeBase.moc"
