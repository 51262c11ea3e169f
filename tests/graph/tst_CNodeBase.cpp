// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeBase.h>

#include "graph/CGraphOwner_p.h"
#include "support/BoundedWait.h"
#include "support/CContextTranslator.h"
#include "support/CMessageCatcher.h"
#include "support/MetaMethods.h"
#include "support/STestNode.h"

#include <QThread>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <numeric>
#include <optional>
#include <stdexcept>
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

/// A source, several sinks, and a connection from the source's output to each of them.
struct SFan
{
    explicit SFan(int count, const NodeDataConverter& converter = {})
    {
        for (int i = 0; i < count; ++i) {
            sinks.push_back(std::make_unique<STestNode>());
            connections.push_back(join(source, *sinks.back(), converter));
        }
    }

    /// Runs \a handler with the sink's position whenever a sink receives data that is not empty.
    void onDelivery(const std::function<void(std::size_t)>& handler)
    {
        for (std::size_t i = 0; i < sinks.size(); ++i) {
            sinks[i]->model->onSetInData = [handler, i](const CNodeDataPtr& data, NodePortIndex) {
                if (data)
                    handler(i);
            };
        }
    }

    STestNode source;
    std::vector<std::unique_ptr<STestNode>> sinks;
    std::vector<std::unique_ptr<CNodeConnection>> connections;
};

/// How many deliveries of \a value the sinks of a fan had.
int deliveries(const SFan& fan, int value)
{
    return std::accumulate(fan.sinks.begin(), fan.sinks.end(), 0, [value](int sum, const auto& sink) {
        const std::vector<int> values = sink->model->values();
        return sum + int(std::count(values.begin(), values.end(), value));
    });
}

/// Runs \a work in a thread with a stack of \a stackSize bytes; in this one if it is 0.
void runOnAStackOf(uint stackSize, const std::function<void()>& work)
{
    if (stackSize == 0) {
        work();
        return;
    }
    const std::unique_ptr<QThread> thread(QThread::create(work));
    thread->setStackSize(stackSize);
    thread->start();
    waitForEnd(*thread);
}

/// Lets its data go before it returns, and notes how many data objects there are then.
class CConsumer : public CTestModel
{
public:
    explicit CConsumer(std::vector<int>& left)
        : m_left(left)
    {
    }
    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        data.reset();
        m_left.push_back(CTestData::alive());
    }

private:
    std::vector<int>& m_left;
};

} // namespace

class tst_CNodeBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void metaObject();
    void slotsAreInvokable();
    void translatesUnderItsClassName();
    void newNodeHasAnIdItsModelAndItsPorts();
    void nullModelIsReplaced();
    void modelGoesWithTheNode();
    void propagateDataReachesTheModel();
    void propagateDataHandsThePointerOver();
    void otherSignalsOfTheModelAreNotConnected();
    void nullOutputIsNotPropagated();
    void nodeWithoutConnectionsAsksOnce();
    void missingPortIsAskedAndReported_data();
    void missingPortIsAskedAndReported();
    void onlyTheUpdatedPortIsServed();
    void connectionsOfOnePortShareTheData();
    void lastDeliveryHandsThePointerOver_data();
    void lastDeliveryHandsThePointerOver();
    void walkIsSynchronousAndDepthFirst();
    void walkCanBeStartedByHand();
    void dataIsReleasedAfterTheWalk();
    void saveHoldsIdAndModel();
    void restoreTakesIdAndModel();
    void restoreWithoutKeys();
    void restoreLeavesThePorts();
    void savedNodeIsRestored();

    void destroyedConnectionIsSkipped_data();
    void destroyedConnectionIsSkipped();
    void erasedConnectionIsServed();
    void connectionInAnothersPlaceIsNotServed();
    void addedConnectionIsNotServedInTheSameWalk();
    void servedConnectionMayBeDestroyed();
    void sinkMayDestroyTheSource();
    void sinkMayDestroyItself();
    void laterSinkMayBeDestroyed();
    void sinkMayDestroyTheWholeGraph();
    void modelMayDestroyItsNodeWhenAsked();
    void relayMayGoWhenAsked_data();
    void relayMayGoWhenAsked();
    void converterMayDestroyTheSource();
    void dataMayDestroyTheSourceWhenItGoes();
    void walkMayBeginAnew();
    void modelsDestructorMayUseItsNode();
    void modelsDestructorMayUpdateItsNodeInADelivery();
    void modelsDestructorMayConnectItsNode();
    void modelMayDestroyItsNodeInSaveAndRestore();
    void destructorLeavesConnectionsAlone();

    void retiredNodeGoesAtOnce();
    void retiredNodeLivesUntilTheWalkHasLeft();
    void retiredNodeLivesUntilItIsSaved();
    void retiredNodeLivesUntilItIsRestored();
    void retiredNodesModelMayUseIt();
    void retiredNodePassesNothingOn();

    void exceptionsPassThrough_data();
    void exceptionsPassThrough();
    void feedbackLoopIsCut_data();
    void feedbackLoopIsCut();
    void loopIsCutAfterAThousandRounds();
    void loopThatEndsByItselfIsLeftAlone();
    void feedbackLoopIsReportedOnce();
    void loopThroughSeveralPathsEnds();
    void loopThroughSeveralUpdatesEnds_data();
    void loopThroughSeveralUpdatesEnds();
    void cutEndsNoOtherUpdatesOfADelivery();
    void outputThatAnnouncesItselfIsCut_data();
    void outputThatAnnouncesItselfIsCut();
    void longChainIsServed_data();
    void longChainIsServed();
    void foreignThreadsUpdateIsQueued();
    void queuedUpdateOfADestroyedNodeIsDropped();
    void graphsOfDifferentThreadsDoNotMeet();
};

void tst_CNodeBase::initTestCase()
{
    // What a plugin does once, so that updates can come from other threads.
    qRegisterMetaType<NodePortIndex>("NodePortIndex");
}

void tst_CNodeBase::metaObject()
{
    const QMetaObject& meta = CNodeBase::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("Plugin::Halvex::CNodeBase"));
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(methodsOf(meta), QStringList({
                                  QStringLiteral("public slot propagateData(CNodeDataPtr ptrNodeData, "
                                                 "NodePortIndex inPortIndex)"),
                                  QStringLiteral("public slot onDataUpdated(NodePortIndex index)"),
                              }));
    QCOMPARE(otherMembersOf(meta), 0);
    QCOMPARE(STestNode()->metaObject(), &meta);
}

void tst_CNodeBase::slotsAreInvokable()
{
    const STestNode node;
    const QMetaObject& meta = CNodeBase::staticMetaObject;
    const CNodeDataPtr data = CTestData::make(3);
    QVERIFY(
        meta.method(meta.methodOffset()).invoke(node.node.get(), Q_ARG(CNodeDataPtr, data), Q_ARG(NodePortIndex, 0)));
    QCOMPARE(node.model->values(), std::vector<int>({3}));
    const int asked = node.model->outDataCalls;
    QVERIFY(meta.method(meta.methodOffset() + 1).invoke(node.node.get(), Q_ARG(NodePortIndex, 0)));
    QCOMPARE(node.model->outDataCalls, asked + 1);
}

void tst_CNodeBase::translatesUnderItsClassName()
{
    const CContextTranslator translator;
    QCOMPARE(CNodeBase::tr("any"), QStringLiteral("Plugin::Halvex::CNodeBase"));
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

void tst_CNodeBase::modelGoesWithTheNode()
{
    STestNode node;
    QCOMPARE(CTestModel::alive(), 1);
    node.node.reset();
    QCOMPARE(CTestModel::alive(), 0);
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
}

void tst_CNodeBase::propagateDataHandsThePointerOver()
{
    std::vector<int> left;
    const CNodeBase node(std::make_unique<CConsumer>(left));

    node.propagateData(CTestData::make(1), 0);
    QCOMPARE(left, std::vector<int>({0}));
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

void tst_CNodeBase::nullOutputIsNotPropagated()
{
    const SFan fan(1);
    fan.source.model->offer(CTestData::make(1));
    fan.source.model->offer(CNodeDataPtr());
    QCOMPARE(fan.source.model->outDataCalls, 2);
    QCOMPARE(fan.sinks[0]->model->values(), std::vector<int>({1}));
}

void tst_CNodeBase::nodeWithoutConnectionsAsksOnce()
{
    const STestNode node;
    const CMessageCatcher messages;
    node.model->offer(CTestData::make(1));
    QCOMPARE(node.model->outDataCalls, 1);
    QVERIFY(node.model->received.empty());
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CNodeBase::missingPortIsAskedAndReported_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("hasData");

    QTest::newRow("negative") << -1 << true;
    QTest::newRow("one too far") << 1 << true;
    QTest::newRow("negative, no data") << -1 << false;
    QTest::newRow("one too far, no data") << 1 << false;
}

void tst_CNodeBase::missingPortIsAskedAndReported()
{
    QFETCH(const int, index);
    QFETCH(const bool, hasData);
    const SFan fan(1);
    std::vector<NodePortIndex> asked;
    fan.source.model->onOutData = [&](NodePortIndex port) {
        asked.push_back(port);
        return hasData ? CTestData::make(1) : CNodeDataPtr();
    };

    const CMessageCatcher messages;
    Q_EMIT fan.source.model->dataUpdated(index);

    QCOMPARE(asked, std::vector<NodePortIndex>({index}));
    QVERIFY(fan.sinks[0]->model->received.empty());
    const QString report =
        QStringLiteral("Plugin::Halvex::CNodeState::connections : Could not find port  %1  of type  2").arg(index);
    QCOMPARE(messages.texts(), hasData ? QStringList(report) : QStringList());
}

void tst_CNodeBase::onlyTheUpdatedPortIsServed()
{
    const STestNode source(0, 2);
    const STestNode first(1, 1);
    const STestNode second(2, 1);
    const auto one = join(source, first, {}, 0, 0);
    const auto other = join(source, second, {}, 1, 1);

    source.model->offer(CTestData::make(1), 1);

    QVERIFY(first.model->received.empty());
    QCOMPARE(second.model->values(), std::vector<int>({1}));
    QCOMPARE(second.model->received[0].index, 1);
}

void tst_CNodeBase::connectionsOfOnePortShareTheData()
{
    const SFan fan(2);
    const CNodeDataPtr data = CTestData::make(1);
    fan.source.model->offer(data);
    for (const auto& sink : fan.sinks) {
        QCOMPARE(sink->model->received.size(), std::size_t(1));
        QCOMPARE(sink->model->received[0].data.data(), data.data());
    }
    QCOMPARE(fan.source.model->outDataCalls, 1);
    QCOMPARE(CTestData::alive(), 1);
}

void tst_CNodeBase::lastDeliveryHandsThePointerOver_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("converts");
    QTest::addColumn<bool>("answersADelivery");

    for (const int count : {1, 2, 20}) {
        QTest::addRow("%d", count) << count << false << false;
        QTest::addRow("%d, in a delivery", count) << count << false << true;
        QTest::addRow("%d, converting", count) << count << true << false;
    }
}

void tst_CNodeBase::lastDeliveryHandsThePointerOver()
{
    QFETCH(const int, count);
    QFETCH(const bool, converts);
    QFETCH(const bool, answersADelivery);
    std::vector<int> left;
    const STestNode source;
    source.model->onSetInData = [&source](const CNodeDataPtr&, NodePortIndex) { Q_EMIT source.model->dataUpdated(0); };
    source.model->onOutData = [](NodePortIndex) { return CTestData::make(1); };
    const NodeDataConverter converter =
        converts ? NodeDataConverter([](CNodeDataPtr data) { return data; }) : NodeDataConverter();
    std::vector<std::unique_ptr<CNodeBase>> sinks;
    std::vector<std::unique_ptr<CNodeConnection>> connections;
    for (int i = 0; i < count; ++i) {
        sinks.push_back(std::make_unique<CNodeBase>(std::make_unique<CConsumer>(left)));
        connections.push_back(std::make_unique<CNodeConnection>(*sinks.back(), 0, *source, 0, converter));
        enter(*connections.back());
    }

    if (answersADelivery)
        source->propagateData(CNodeDataPtr(), 0);
    else
        source->onDataUpdated(0);

    // What a sink other than the last one lets go of is still wanted by the others.
    std::vector<int> expected(std::size_t(count - 1), 1);
    expected.push_back(0);
    QCOMPARE(left, expected);
}

void tst_CNodeBase::walkIsSynchronousAndDepthFirst()
{
    const SFan fan(2);
    const STestNode below[] = {STestNode(), STestNode()};
    QString order;
    std::vector<std::unique_ptr<CNodeConnection>> connections;
    for (std::size_t i = 0; i < 2; ++i) {
        connections.push_back(join(*fan.sinks[i], below[i]));
        CTestModel& sink = *fan.sinks[i]->model;
        sink.onSetInData = [&order, &sink, i](const CNodeDataPtr& data, NodePortIndex) {
            order += QStringLiteral("<%1").arg(i);
            sink.offer(data);
            order += QStringLiteral(">");
        };
        below[i].model->onSetInData = [&order, i](const CNodeDataPtr&, NodePortIndex) {
            order += QStringLiteral("b%1").arg(i);
        };
    }

    fan.source.model->offer(CTestData::make(1));

    QVERIFY2(order == QLatin1String("<0b0><1b1>") || order == QLatin1String("<1b1><0b0>"), qPrintable(order));
    for (const auto& sink : fan.sinks)
        sink->model->onSetInData = nullptr;
    for (const STestNode& node : below)
        node.model->onSetInData = nullptr;
}

void tst_CNodeBase::walkCanBeStartedByHand()
{
    const SFan fan(1);
    fan.source.model->out = CTestData::make(4);
    fan.source->onDataUpdated(0);
    QCOMPARE(fan.source.model->outDataCalls, 1);
    QCOMPARE(fan.sinks[0]->model->values(), std::vector<int>({4}));
}

void tst_CNodeBase::dataIsReleasedAfterTheWalk()
{
    for (const int count : {1, 2, 20}) {
        const SFan fan(count, [](const CNodeDataPtr& data) { return CTestData::make(CTestData::valueOf(data) + 1); });
        fan.source.model->onOutData = [](NodePortIndex) { return CTestData::make(1); };
        fan.source->onDataUpdated(0);
        QCOMPARE(deliveries(fan, 2), count);
        for (const auto& sink : fan.sinks) {
            sink->model->received.clear();
            sink->model->out.reset();
        }
        QCOMPARE(CTestData::alive(), 0);
        for (const auto& connection : fan.connections)
            connection->setTypeConverter({});
    }
}

void tst_CNodeBase::saveHoldsIdAndModel()
{
    const STestNode node(1, 1, QStringLiteral("Blur"));
    QCOMPARE(node->save(),
             QJsonObject({{QStringLiteral("id"), node->id().toString()},
                          {QStringLiteral("model"), QJsonObject({{QStringLiteral("name"), QStringLiteral("Blur")}})}}));
}

void tst_CNodeBase::restoreTakesIdAndModel()
{
    const STestNode node;
    const Core::CId id = Core::CId::createId();
    const QJsonObject settings{{QStringLiteral("name"), QStringLiteral("Test")}, {QStringLiteral("radius"), 3}};
    Plugin::AppCore::ISerializable& serializable = *node;
    serializable.restore({{QStringLiteral("id"), id.toString()}, {QStringLiteral("model"), settings}});
    QVERIFY(node->id() == id);
    QCOMPARE(node.model->restored, std::vector<QJsonObject>({settings}));
}

void tst_CNodeBase::restoreWithoutKeys()
{
    const STestNode node;
    node->restore({});
    QVERIFY(node->id() == Core::CId());
    node->restore({{QStringLiteral("id"), QStringLiteral("camera")}, {QStringLiteral("model"), 3}});
    QVERIFY(node->id() == Core::CId());
    QCOMPARE(node.model->restored, std::vector<QJsonObject>({QJsonObject(), QJsonObject()}));
}

void tst_CNodeBase::restoreLeavesThePorts()
{
    const SFan fan(1);
    fan.source->restore(STestNode()->save());
    QCOMPARE(fan.source.outputs().size(), std::size_t(1));
    fan.source.model->offer(CTestData::make(2));
    QCOMPARE(fan.sinks[0]->model->values(), std::vector<int>({2}));
}

void tst_CNodeBase::savedNodeIsRestored()
{
    const STestNode node;
    const STestNode fresh;
    QVERIFY(fresh->id() != node->id());
    fresh->restore(node->save());
    QVERIFY(fresh->id() == node->id());
    QCOMPARE(fresh->save(), node->save());
}

void tst_CNodeBase::destroyedConnectionIsSkipped_data()
{
    QTest::addColumn<int>("count");

    QTest::newRow("two") << 2;
    QTest::newRow("three") << 3;
    QTest::newRow("sixteen") << 16;
    QTest::newRow("seventeen") << 17;
    QTest::newRow("thirty") << 30;
}

void tst_CNodeBase::destroyedConnectionIsSkipped()
{
    QFETCH(const int, count);
    SFan fan(count);
    fan.onDelivery([&fan](std::size_t served) {
        for (std::size_t i = 0; i < fan.connections.size(); ++i) {
            if (i != served)
                fan.connections[i].reset();
        }
    });

    fan.source.model->offer(CTestData::make(1));

    QCOMPARE(deliveries(fan, 1), 1);
    QCOMPARE(deliveries(fan, -1), count - 1);
    QCOMPARE(fan.source.outputs().size(), std::size_t(1));
}

void tst_CNodeBase::erasedConnectionIsServed()
{
    for (const int count : {1, 3}) {
        SFan fan(count);
        fan.onDelivery([&fan](std::size_t) {
            for (const auto& connection : fan.connections)
                connection->removeFromNodes();
        });

        fan.source.model->offer(CTestData::make(1));
        QCOMPARE(deliveries(fan, 1), count);
        fan.source.model->offer(CTestData::make(2));
        QCOMPARE(deliveries(fan, 2), 0);
    }
}

void tst_CNodeBase::connectionInAnothersPlaceIsNotServed()
{
    const STestNode source;
    const STestNode sinks[] = {STestNode(), STestNode()};
    const STestNode late;
    std::optional<CNodeConnection> connections[2];
    const auto connectTo = [&](std::size_t position, const STestNode& sink) {
        connections[position].emplace(*sink, 0, *source, 0, NodeDataConverter());
        enter(*connections[position]);
    };
    for (std::size_t position = 0; position < 2; ++position) {
        connectTo(position, sinks[position]);
        sinks[position].model->onSetInData = [&, other = 1 - position](const CNodeDataPtr& data, NodePortIndex) {
            if (data)
                connectTo(other, late);
        };
    }

    source.model->offer(CTestData::make(1));

    QCOMPARE(sinks[0].model->values().size() + sinks[1].model->values().size(), std::size_t(2));
    QVERIFY(late.model->received.empty());
}

void tst_CNodeBase::addedConnectionIsNotServedInTheSameWalk()
{
    SFan fan(1);
    const STestNode late;
    std::vector<std::unique_ptr<CNodeConnection>> added;
    fan.onDelivery([&](std::size_t) {
        // Many, so that the port's map moves its entries about.
        while (added.size() < 100)
            added.push_back(join(fan.source, late));
    });

    fan.source.model->offer(CTestData::make(1));
    QVERIFY(late.model->received.empty());
    QCOMPARE(deliveries(fan, 1), 1);
    fan.source.model->offer(CTestData::make(2));
    QCOMPARE(late.model->received.size(), std::size_t(100));
}

void tst_CNodeBase::servedConnectionMayBeDestroyed()
{
    // Of thirty, the one that was made last is hardly ever served first; three are copied in another way.
    for (const auto& [count, converts] : {std::pair(3, false), {3, true}, {30, false}, {30, true}}) {
        SFan fan(count, converts ? NodeDataConverter([](CNodeDataPtr data) { return data; }) : NodeDataConverter());
        fan.onDelivery([&fan](std::size_t served) { fan.connections[served].reset(); });
        fan.source.model->offer(CTestData::make(1));
        QCOMPARE(deliveries(fan, 1), count);
        QCOMPARE(deliveries(fan, -1), count);
        QVERIFY(fan.source.outputs().empty());
    }
}

void tst_CNodeBase::sinkMayDestroyTheSource()
{
    for (const int count : {1, 3, 20}) {
        SFan fan(count);
        fan.onDelivery([&fan](std::size_t) { fan.source.node.reset(); });
        fan.source.model->offer(CTestData::make(1));
        QVERIFY(!fan.source.node);
        QCOMPARE(deliveries(fan, 1), 1);
        for (const auto& connection : fan.connections)
            QVERIFY(!std::as_const(*connection).getNode(Out));
    }
}

void tst_CNodeBase::sinkMayDestroyItself()
{
    SFan fan(3);
    int served = 0;
    fan.onDelivery([&](std::size_t position) {
        ++served;
        fan.sinks[position]->node.reset();
    });
    fan.source.model->offer(CTestData::make(1));
    QCOMPARE(served, 3);
    fan.source.model->offer(CTestData::make(2));
    QCOMPARE(served, 3);
    QCOMPARE(CTestModel::alive(), 1);
}

void tst_CNodeBase::laterSinkMayBeDestroyed()
{
    SFan fan(3);
    int served = 0;
    fan.onDelivery([&](std::size_t position) {
        ++served;
        for (std::size_t i = 0; i < fan.sinks.size(); ++i) {
            if (i != position)
                fan.sinks[i]->node.reset();
        }
    });
    fan.source.model->offer(CTestData::make(1));
    QCOMPARE(served, 1);
}

void tst_CNodeBase::sinkMayDestroyTheWholeGraph()
{
    auto fan = std::make_unique<SFan>(3);
    int served = 0;
    fan->onDelivery([&](std::size_t) {
        ++served;
        fan.reset();
    });
    fan->source.model->offer(CTestData::make(1));
    QCOMPARE(served, 1);
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeBase::modelMayDestroyItsNodeWhenAsked()
{
    for (const bool hasData : {false, true}) {
        SFan fan(2);
        fan.source.model->onOutData = [&fan, hasData](NodePortIndex) {
            fan.source.node.reset();
            return hasData ? CTestData::make(1) : CNodeDataPtr();
        };
        fan.source->onDataUpdated(0);
        QVERIFY(!fan.source.node);
        QCOMPARE(deliveries(fan, 1), 0);
    }
}

void tst_CNodeBase::relayMayGoWhenAsked_data()
{
    QTest::addColumn<bool>("isRetired");

    QTest::newRow("destroyed") << false;
    QTest::newRow("retired") << true;
}

void tst_CNodeBase::relayMayGoWhenAsked()
{
    QFETCH(const bool, isRetired);
    for (const int count : {1, 2}) {
        SFan fan(count);
        fan.source.model->onOutData = [&fan, isRetired](NodePortIndex) {
            if (isRetired)
                CGraphOwner::retire(std::move(fan.source.node));
            else
                fan.source.node.reset();
            return CTestData::make(1);
        };
        fan.source->propagateData(CTestData::make(2), 0);
        QVERIFY(!fan.source.node);
        QCOMPARE(deliveries(fan, 1), 0);
        QCOMPARE(CTestModel::alive(), count);
    }
}

void tst_CNodeBase::converterMayDestroyTheSource()
{
    STestNode* source = nullptr;
    SFan fan(2, [&source](CNodeDataPtr data) {
        source->node.reset();
        return data;
    });
    source = &fan.source;
    fan.source.model->offer(CTestData::make(1));
    // The connection that converted, and its in node, are there still.
    QCOMPARE(deliveries(fan, 1), 1);
}

void tst_CNodeBase::dataMayDestroyTheSourceWhenItGoes()
{
    SFan fan(2);
    fan.source.model->onOutData = [&fan](NodePortIndex) {
        auto data = CTestData::make(1);
        data->onDestroyed = [&fan] { fan.source.node.reset(); };
        return data;
    };
    for (const auto& sink : fan.sinks)
        sink->model->onSetInData = [&sink](const CNodeDataPtr&, NodePortIndex) { sink->model->received.clear(); };
    fan.source->onDataUpdated(0);
    QVERIFY(!fan.source.node);
    for (const auto& sink : fan.sinks)
        sink->model->onSetInData = nullptr;
}

void tst_CNodeBase::walkMayBeginAnew()
{
    const SFan fan(2);
    bool again = true;
    fan.sinks[0]->model->onSetInData = [&](const CNodeDataPtr&, NodePortIndex) {
        if (std::exchange(again, false))
            fan.source.model->offer(CTestData::make(2));
    };
    fan.source.model->offer(CTestData::make(1));
    // The outer walk goes on with what it began with.
    QCOMPARE(deliveries(fan, 1), 2);
    QCOMPARE(deliveries(fan, 2), 2);
    fan.sinks[0]->model->onSetInData = nullptr;
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
        QCOMPARE(dying->save().value(QStringLiteral("id")).toString(), id.toString());
        dying->restore(QJsonObject());
    };
    model->out = CTestData::make(1);

    fan.source.node.reset();

    QVERIFY(reached);
    QCOMPARE(deliveries(fan, 1), 0);
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
    };

    node.node.reset();

    QVERIFY(!std::as_const(*connection).getNode(In));
    other.model->offer(CTestData::make(2));
    QVERIFY(connection->save().isEmpty());
}

void tst_CNodeBase::modelMayDestroyItsNodeInSaveAndRestore()
{
    class CLastSave : public CTestModel
    {
    public:
        explicit CLastSave(std::unique_ptr<CNodeBase>& node)
            : m_node(node)
        {
        }
        QJsonObject save() const override
        {
            m_node.reset();
            return {};
        }

    private:
        std::unique_ptr<CNodeBase>& m_node;
    };
    std::unique_ptr<CNodeBase> saved;
    saved = std::make_unique<CNodeBase>(std::make_unique<CLastSave>(saved));
    const QString id = saved->id().toString();
    QCOMPARE(saved->save(), QJsonObject({{QStringLiteral("id"), id}, {QStringLiteral("model"), QJsonObject()}}));
    QVERIFY(!saved);

    STestNode restored;
    restored.model->onRestore = [&restored] { restored.node.reset(); };
    restored->restore({});
    QVERIFY(!restored.node);
}

void tst_CNodeBase::destructorLeavesConnectionsAlone()
{
    SFan fan(2);
    fan.source.node.reset();
    QCOMPARE(deliveries(fan, -1), 0);
    for (const auto& sink : fan.sinks)
        QCOMPARE(std::as_const(**sink).nodeState().getEntries(In)[0].size(), std::size_t(1));
    fan.connections.front()->propagateData(CTestData::make(3));
    QCOMPARE(deliveries(fan, 3), 1);
}

void tst_CNodeBase::retiredNodeGoesAtOnce()
{
    SFan fan(1);
    CGraphOwner::retire(std::move(fan.source.node));
    QCOMPARE(CTestModel::alive(), 1);
    QVERIFY(!std::as_const(*fan.connections[0]).getNode(Out));
    QCOMPARE(fan.connections[0]->getPortIndex(Out), -1);
}

void tst_CNodeBase::retiredNodeLivesUntilTheWalkHasLeft()
{
    SFan fan(3);
    int modelsDuringTheWalk = 0;
    fan.onDelivery([&](std::size_t) {
        CGraphOwner::retire(std::move(fan.source.node));
        modelsDuringTheWalk = CTestModel::alive();
        QVERIFY(!std::as_const(*fan.connections[0]).getNode(Out));
    });
    fan.source.model->offer(CTestData::make(1));
    QCOMPARE(modelsDuringTheWalk, 4);
    QCOMPARE(CTestModel::alive(), 3);
    QCOMPARE(deliveries(fan, 1), 1);
}

void tst_CNodeBase::retiredNodeLivesUntilItIsSaved()
{
    STestNode node;
    int modelsMeanwhile = 0;
    node.model->onSave = [&] {
        int& models = modelsMeanwhile; // what was captured goes with the model
        CGraphOwner::retire(std::move(node.node));
        models = CTestModel::alive();
    };
    node->save();
    QCOMPARE(modelsMeanwhile, 1);
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeBase::retiredNodeLivesUntilItIsRestored()
{
    STestNode node;
    int modelsMeanwhile = 0;
    node.model->onRestore = [&] {
        int& models = modelsMeanwhile;
        CGraphOwner::retire(std::move(node.node));
        models = CTestModel::alive();
    };
    node->restore({});
    QCOMPARE(modelsMeanwhile, 1);
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
    CGraphOwner::retire(std::move(node.node));
    QCOMPARE(saved, 1);
}

void tst_CNodeBase::retiredNodePassesNothingOn()
{
    SFan fan(1);
    const CNodeBase* const node = fan.source.node.get();
    fan.source.model->onOutData = [&](NodePortIndex) {
        fan.source.model->onOutData = nullptr;
        CGraphOwner::retire(std::move(fan.source.node));
        // Whoever knows the node may use it as long as it is there.
        node->propagateData(CTestData::make(2), 0);
        return CNodeDataPtr();
    };
    fan.source->onDataUpdated(0);
    QVERIFY(fan.sinks[0]->model->received.empty());
    QCOMPARE(CTestModel::alive(), 1);
}

void tst_CNodeBase::exceptionsPassThrough_data()
{
    QTest::addColumn<QString>("place");

    QTest::newRow("output") << "output";
    QTest::newRow("converter") << "converter";
    QTest::newRow("input") << "input";
}

void tst_CNodeBase::exceptionsPassThrough()
{
    QFETCH(const QString, place);
    QString failing = place;
    const auto failIn = [&failing](const char* here) {
        if (failing == QLatin1String(here))
            throw std::runtime_error(here);
    };
    const STestNode first;
    const SFan fan(2, [&](CNodeDataPtr data) {
        failIn("converter");
        return data;
    });
    const auto connection = join(first, fan.source);
    fan.source.model->onOutData = [&](NodePortIndex) {
        failIn("output");
        return fan.source.model->out;
    };
    for (const auto& sink : fan.sinks)
        sink->model->onSetInData = [&](const CNodeDataPtr&, NodePortIndex) { failIn("input"); };

    fan.source.model->out = CTestData::make(1);
    QVERIFY_EXCEPTION_THROWN(fan.source->onDataUpdated(0), std::runtime_error);
    // From further up, through the signals of two models.
    QVERIFY_EXCEPTION_THROWN(first.model->offer(CTestData::make(2)), std::runtime_error);

    failing.clear();
    for (const auto& sink : fan.sinks)
        sink->model->received.clear();
    first.model->offer(CTestData::make(3));
    QCOMPARE(deliveries(fan, 3), 2);
    // A walk that was left this way stands nowhere any more: a node that is retired goes at once.
    const int models = CTestModel::alive();
    auto retired = STestNode();
    failing = place;
    const auto last = join(retired, fan.source);
    QVERIFY_EXCEPTION_THROWN(retired.model->offer(CTestData::make(4)), std::runtime_error);
    failing.clear();
    CGraphOwner::retire(std::move(retired.node));
    QCOMPARE(CTestModel::alive(), models);
}

void tst_CNodeBase::feedbackLoopIsCut_data()
{
    QTest::addColumn<uint>("stackSize");

    QTest::newRow("this thread") << 0u;
#ifndef __SANITIZE_THREAD__ // which puts most of that into the thread's local storage
    QTest::newRow("256 KiB") << 256u * 1024;
#endif
    QTest::newRow("1 MiB") << 1024u * 1024;
}

void tst_CNodeBase::feedbackLoopIsCut()
{
    QFETCH(const uint, stackSize);
    const CMessageCatcher messages;
    std::size_t rounds = 0;
    std::vector<int> afterwards;

    runOnAStackOf(stackSize, [&] {
        const STestNode first(1, 1, QStringLiteral("Loop A"));
        const STestNode second(1, 1, QStringLiteral("Loop B"));
        const auto forth = join(first, second);
        auto back = join(second, first);

        first.model->offer(CTestData::make(1));

        rounds = second.model->received.size();

        back.reset();
        first.model->received.clear();
        second.model->received.clear();
        first.model->offer(CTestData::make(2));
        afterwards = second.model->values();
    });

    QVERIFY(rounds > 10);
    QVERIFY2(rounds <= 1000, qPrintable(QString::number(rounds)));
    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QVERIFY2(messages.texts().constFirst().contains(QLatin1String("\"Loop ")),
             qPrintable(messages.texts().constFirst()));
    QCOMPARE(messages.texts().size(), 1);
    QCOMPARE(afterwards, std::vector<int>({2}));
}

void tst_CNodeBase::loopIsCutAfterAThousandRounds()
{
    // However much room the stack has: a loop must not take all of it.
    const CMessageCatcher messages;
    std::size_t rounds = 0;
    runOnAStackOf(64u * 1024 * 1024, [&] {
        const STestNode source(0, 1);
        const STestNode loop(1, 1, QStringLiteral("Echo"));
        const auto entry = join(source, loop);
        const auto back = join(loop, loop);
        source.model->offer(CTestData::make(1));
        rounds = loop.model->received.size();
    });
    QCOMPARE(rounds, std::size_t(1000));
    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QVERIFY(messages.texts().constFirst().contains(QLatin1String("\"Echo\"")));
}

void tst_CNodeBase::loopThatEndsByItselfIsLeftAlone()
{
    const CMessageCatcher messages;
    std::size_t rounds = 0;
    runOnAStackOf(64u * 1024 * 1024, [&] {
        const STestNode loop;
        const auto back = join(loop, loop);
        loop.model->onSetInData = [&loop](const CNodeDataPtr& data, NodePortIndex) {
            if (loop.model->received.size() < 1000)
                loop.model->offer(data);
        };
        loop->propagateData(CTestData::make(1), 0);
        rounds = loop.model->received.size();
    });
    QCOMPARE(rounds, std::size_t(1000));
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CNodeBase::feedbackLoopIsReportedOnce()
{
    const CMessageCatcher messages;
    const STestNode node(1, 1, QStringLiteral("Echo"));
    const auto connection = join(node, node);
    for (int value : {1, 2, 3})
        node.model->offer(CTestData::make(value));
    QCOMPARE(node.model->values().back(), 3);
    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QVERIFY(messages.texts().constFirst().contains(QLatin1String("\"Echo\"")));
}

void tst_CNodeBase::loopThroughSeveralPathsEnds()
{
    // Were every round of the loop to go on after the cut, there would be as many rounds as sequences of paths: two to
    // the power of the depth.
    const CMessageCatcher messages;
    const STestNode source;
    const STestNode loop;
    const STestNode left;
    const STestNode right;
    const STestNode sink(1, 0);
    const auto entry = join(source, loop);
    std::vector<std::unique_ptr<CNodeConnection>> connections;
    for (const STestNode* const path : {&left, &right}) {
        connections.push_back(join(loop, *path));
        connections.push_back(join(*path, loop));
    }
    connections.push_back(join(loop, sink));
    source.model->offer(CTestData::make(1));

    QVERIFY(!messages.texts("halvex.graph").isEmpty());
    QVERIFY(!sink.model->received.empty());
    // The first path was followed down to the cut. Only the first round goes on to the second one, and that leads back
    // to where the loop was cut.
    const std::size_t leftRounds = left.model->received.size();
    const std::size_t rightRounds = right.model->received.size();
    QVERIFY(std::max(leftRounds, rightRounds) > 10);
    QCOMPARE(std::min(leftRounds, rightRounds), std::size_t(1));

    connections.clear();
    const auto direct = join(loop, sink);
    sink.model->received.clear();
    source.model->offer(CTestData::make(2));
    QCOMPARE(sink.model->values(), std::vector<int>({2}));
}

void tst_CNodeBase::loopThroughSeveralUpdatesEnds_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");

    QTest::newRow("ports in order") << 0 << 1;
    QTest::newRow("ports the other way") << 1 << 0;
    QTest::newRow("one port") << 0 << 0;
}

void tst_CNodeBase::loopThroughSeveralUpdatesEnds()
{
    QFETCH(const int, first);
    QFETCH(const int, second);
    const CMessageCatcher messages;
    const STestNode node(1, 2);
    const auto left = join(node, node, {}, 0);
    const auto right = join(node, node, {}, 1);
    std::size_t roundsToTheCut = 0;
    node.model->onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (roundsToTheCut != 0)
            return;
        node.model->offer(data, first);
        if (roundsToTheCut == 0)
            roundsToTheCut = node.model->received.size();
        node.model->offer(data, second);
    };
    node->propagateData(CTestData::make(1), 0);
    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QVERIFY(roundsToTheCut > 10);
    // The first round alone offers its second data.
    QCOMPARE(node.model->received.size(), roundsToTheCut + 1);
}

void tst_CNodeBase::cutEndsNoOtherUpdatesOfADelivery()
{
    const CMessageCatcher messages;
    const STestNode relay(1, 3);
    const STestNode loop;
    const STestNode sink(2, 0);
    const auto entry = join(relay, loop);
    const auto back = join(loop, loop);
    const auto first = join(relay, sink, {}, 1, 0);
    const auto second = join(relay, sink, {}, 2, 1);
    relay.model->onSetInData = [&relay](const CNodeDataPtr& data, NodePortIndex) {
        for (NodePortIndex output = 0; output < 3; ++output)
            relay.model->offer(data, output);
    };

    relay->propagateData(CTestData::make(1), 0);

    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QCOMPARE(sink.model->values(), std::vector<int>({1, 1}));
}

void tst_CNodeBase::outputThatAnnouncesItselfIsCut_data()
{
    QTest::addColumn<bool>("isDelivered");

    QTest::newRow("outside of a delivery") << false;
    QTest::newRow("in a delivery") << true;
}

void tst_CNodeBase::outputThatAnnouncesItselfIsCut()
{
    QFETCH(const bool, isDelivered);
    const CMessageCatcher messages;
    const STestNode node(1, 1, QStringLiteral("Lazy"));
    const STestNode left;
    const STestNode right;
    const auto toLeft = join(node, left);
    const auto toRight = join(node, right);
    node.model->onOutData = [&node](NodePortIndex index) {
        Q_EMIT node.model->dataUpdated(index);
        return CTestData::make(1);
    };
    node.model->onSetInData = [&node](const CNodeDataPtr&, NodePortIndex) { Q_EMIT node.model->dataUpdated(0); };
    if (isDelivered)
        node->propagateData(CTestData::make(2), 0);
    else
        node->onDataUpdated(0);
    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QVERIFY(messages.texts().constFirst().contains(QLatin1String("\"Lazy\"")));
    // The way into the loop alone goes on after the cut.
    QCOMPARE(left.model->values(), std::vector<int>({1}));
    QCOMPARE(right.model->values(), std::vector<int>({1}));
}

void tst_CNodeBase::longChainIsServed_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<uint>("stackSize");

    QTest::newRow("100, this thread") << 100 << 0u;
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    // Promised for frames as small as those of the library that is shipped: a hop that is not optimised, or that is
    // watched by a sanitizer, takes several times as much of the stack.
    QTest::newRow("5000, this thread") << 5000 << 0u;
    QTest::newRow("5000, 8 MiB") << 5000 << 8u * 1024 * 1024;
#endif
}

void tst_CNodeBase::longChainIsServed()
{
    QFETCH(const int, length);
    QFETCH(const uint, stackSize);
    const CMessageCatcher messages;
    int served = 0;

    runOnAStackOf(stackSize, [&] {
        const std::vector<STestNode> nodes(static_cast<std::size_t>(length));
        std::vector<std::unique_ptr<CNodeConnection>> connections;
        for (std::size_t i = 1; i < nodes.size(); ++i)
            connections.push_back(join(nodes[i - 1], nodes[i], [](CNodeDataPtr data) { return data; }));

        nodes.front()->propagateData(CTestData::make(1), 0);

        served = int(std::count_if(nodes.begin(), nodes.end(),
                                   [](const STestNode& node) { return node.model->received.size() == 1; }));
    });

    QCOMPARE(served, length);
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CNodeBase::foreignThreadsUpdateIsQueued()
{
    const SFan fan(1);
    const QThread* servedIn = nullptr;
    fan.sinks[0]->model->onSetInData = [&servedIn](const CNodeDataPtr& data, NodePortIndex) {
        if (data)
            servedIn = QThread::currentThread();
    };
    fan.source.model->out = CTestData::make(1);

    const std::unique_ptr<QThread> thread(QThread::create([&fan] { Q_EMIT fan.source.model->dataUpdated(0); }));
    thread->start();
    QVERIFY(thread->wait(30000));
    QCOMPARE(fan.source.model->outDataCalls, 0);

    QTRY_COMPARE(fan.sinks[0]->model->values(), std::vector<int>({1}));
    QCOMPARE(servedIn, QThread::currentThread());
    QCOMPARE(fan.source.model->outDataCalls, 1);
    fan.sinks[0]->model->onSetInData = nullptr;
}

void tst_CNodeBase::queuedUpdateOfADestroyedNodeIsDropped()
{
    SFan fan(1);
    fan.source.model->out = CTestData::make(1);
    const std::unique_ptr<QThread> thread(QThread::create([&fan] { Q_EMIT fan.source.model->dataUpdated(0); }));
    thread->start();
    QVERIFY(thread->wait(30000));
    fan.source.node.reset();
    QCoreApplication::sendPostedEvents();
    QVERIFY(fan.sinks[0]->model->received.empty());
}

void tst_CNodeBase::graphsOfDifferentThreadsDoNotMeet()
{
    std::atomic<int> served{0};
    std::unique_ptr<QThread> threads[3];
    for (auto& thread : threads) {
        thread.reset(QThread::create([&served] {
            for (int round = 0; round < 200; ++round) {
                // Models that count nothing, because the counters of the test's are of one thread.
                class CRelay : public CNodeDataModel
                {
                public:
                    QString caption() override { return {}; }
                    QString name() override { return {}; }
                    unsigned int nPorts(ENodePortType) const override { return 1; }
                    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return {}; }
                    void setInData(CNodeDataPtr data, NodePortIndex) override { m_data = std::move(data); }
                    CNodeDataPtr outData(NodePortIndex) override { return m_data; }

                private:
                    CNodeDataPtr m_data;
                };
                CNodeBase source(std::make_unique<CRelay>());
                CNodeBase sink(std::make_unique<CRelay>());
                CNodeConnection connection(sink, 0, source, 0, {});
                // Entered so that every walk looks it up among all the connections there are.
                source.nodeState().getEntries(Out)[0].emplace(connection.id(), &connection);
                source.propagateData(CTestData::make(round), 0);
                source.onDataUpdated(0);
                served += CTestData::valueOf(sink.nodeDataModel()->outData(0)) == round;
            }
        }));
    }
    for (const auto& thread : threads)
        thread->start();
    for (const auto& thread : threads)
        QVERIFY(thread->wait(60000));
    QCOMPARE(served.load(), 600);
}

QTEST_GUILESS_MAIN(tst_CNodeBase)

#include "tst_CNodeBase.moc"
