// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeConnection.h>

#include "support/CContextTranslator.h"
#include "support/CMessageCatcher.h"
#include "support/MetaMethods.h"
#include "support/STestNode.h"

#include <QProcess>
#include <QtTest>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <type_traits>
#include <vector>

using namespace Plugin::Halvex;

Q_DECLARE_METATYPE(Plugin::Halvex::ENodePortType)

namespace {

static_assert(std::is_base_of_v<QObject, CNodeConnection> &&
                  std::is_base_of_v<Plugin::AppCore::ISerializable, CNodeConnection>,
              "both can be had from it");
static_assert(!std::is_copy_constructible_v<CNodeConnection> && !std::is_move_constructible_v<CNodeConnection>,
              "a connection has an identity");
static_assert(std::is_nothrow_destructible_v<CNodeConnection>, "what models throw at the end is swallowed");

constexpr ENodePortType In = ENodePortType::In;
constexpr ENodePortType Out = ENodePortType::Out;
constexpr ENodePortType None = ENodePortType::None;

/// A connection that shows its protected operation.
class COpenConnection : public CNodeConnection
{
public:
    using CNodeConnection::CNodeConnection;
    using CNodeConnection::getTypeJson;
};

/// Two nodes and a connection from the source's output 1 to the sink's input 2, in the tables of both.
struct SPair
{
    explicit SPair(NodeDataConverter converter = {})
        : connection(join(source, sink, std::move(converter), 1, 2))
    {
    }

    CNodeBase* in() const { return std::as_const(*connection).getNode(In); }
    CNodeBase* out() const { return std::as_const(*connection).getNode(Out); }

    STestNode source{0, 2};
    STestNode sink{3, 1};
    std::unique_ptr<CNodeConnection> connection;
};

CNodeDataPtr addTen(const CNodeDataPtr& data)
{
    return data ? CNodeDataPtr(CTestData::make(CTestData::valueOf(data) + 10)) : CNodeDataPtr();
}

/// Runs \a work when the last copy of it is gone.
std::shared_ptr<void> atTheEnd(std::function<void()> work)
{
    return std::shared_ptr<void>(nullptr, [work = std::move(work)](void*) { work(); });
}

/// Every updated() of a connection: whose it was, and the ends as they were then.
class CUpdates
{
public:
    explicit CUpdates(CNodeConnection& connection)
    {
        QObject::connect(&connection, &CNodeConnection::updated, &connection,
                         [this, &connection](CNodeConnection& conn) {
                             isOfItself = isOfItself && &conn == &connection;
                             inIndices.push_back(conn.getPortIndex(In));
                             outIndices.push_back(conn.getPortIndex(Out));
                         });
    }

    std::size_t count() const { return inIndices.size(); }

    bool isOfItself = true;
    std::vector<NodePortIndex> inIndices;
    std::vector<NodePortIndex> outIndices;
};

/// How often updated() is emitted by the test function \a name of this program, as Qt Test's own log has it: nobody
/// can be connected to an object that is being made.
int updatesLoggedIn(const QString& name)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("-vs"), name});
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return -1;
    return process.readAll().count(") updated (");
}

} // namespace

class tst_CNodeConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObject();
    void translatesUnderItsClassName();
    void everyConnectionHasItsOwnId();
    void completeConnectionHasBothEnds();
    void halfConnectionHasOneEnd();
    void halfConnectionOfNoSide();
    void constructorsAnnounceTheEnds();
    void makesACompleteConnection();
    void makesAHalfConnection();
    void constructorEntersNothing();
    void modifiableNodeIsTheField();
    void dataTypeAsksTheModels_data();
    void dataTypeAsksTheModels();
    void dataTypeOfNoEndIsEmpty();
    void setNodeToPortStoresAndAnnounces();
    void setNodeToPortForNoSide();
    void setNodeToPortLeavesTables();
    void setNodeToPortLeavesAPortThatIsMissing();
    void clearNodeClearsOneEndSilently();
    void clearNodeForNoSideClearsTheOutEnd();
    void converterIsReplacedSilently();
    void dataArrivesUnconverted();
    void deliveryHandsThePointerOver();
    void converterTurnsData();
    void converterIsCalledForEmptyData();
    void converterIsNotCalledWithoutAnInNode();
    void outNodeIsNotConsulted();
    void removeFromNodesLeavesBothTables();
    void removeFromNodesOfAHalfConnection();
    void destructorDeliversEmptyDataOnce();
    void destructorDeliversThroughTheConverter();
    void destructorOfAHalfConnectionDeliversNothing();
    void converterOutlivesTheLastDelivery();
    void dyingConnectionTakesNoConverter();
    void saveHoldsTheEnds();
    void saveHoldsTheConvertersTypes();
    void saveIsEmptyWithoutBothEnds();
    void typeJsonHoldsIdAndName();
    void restoreDoesNothing();

    void outlivesItsInNode();
    void outlivesItsOutNode();
    void outlivesBothNodes();
    void halfConnectionOutlivesItsNode();
    void goneNodeTakesItsIndexAlong();
    void indexGivenAloneStays();
    void endIsFreshAfterItsNodeWasGone();
    void indexOfAnEndWhoseNodeIsGoneStays();
    void nodeGivenAloneTakesTheIndexAlong();
    void writtenNodeIsUsed();
    void writtenNodeKeepsTheIndex();

    void converterMayDestroyTheConnection();
    void smallConverterMayDestroyTheConnection();
    void converterMayPutAnotherConnectionInItsPlace();
    void converterMayReplaceItself();
    void converterMayDestroyTheInNode();
    void converterMayClearTheInEnd();
    void whatAConverterHeldMayTakeTheInNodeAlong();
    void whatAConverterHeldMayTakeTheConnectionAlong();
    void replacedConverterMayTakeTheConnectionAlong();
    void whatAConverterHeldMayUseADyingConnection();
    void handlerMayDestroyTheConnection();
    void modelMayDestroyTheConnectionThatServesIt();
    void modelMayDestroyTheConnectionThatItIsSavedFor();
    void modelMayMoveTheEndInTheLastDelivery();
    void modelMayEnterADyingConnection();

    void exceptionsOfDeliveriesPassThrough();
    void exceptionsOfTheLastDeliveryAreReported_data();
    void exceptionsOfTheLastDeliveryAreReported();
};

void tst_CNodeConnection::metaObject()
{
    const QMetaObject& meta = CNodeConnection::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("Plugin::Halvex::CNodeConnection"));
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(methodsOf(meta), QStringList(QStringLiteral("public signal updated(CNodeConnection& conn)")));
    QCOMPARE(otherMembersOf(meta), 0);
    QCOMPARE(SPair().connection->metaObject(), &meta);
}

void tst_CNodeConnection::translatesUnderItsClassName()
{
    const CContextTranslator translator;
    QCOMPARE(CNodeConnection::tr("any"), QStringLiteral("Plugin::Halvex::CNodeConnection"));
}

void tst_CNodeConnection::everyConnectionHasItsOwnId()
{
    const STestNode node;
    const CNodeConnection first(In, *node, 0);
    const CNodeConnection second(*node, 0, *node, 0, {});
    QVERIFY(first.id() != Core::CId());
    QVERIFY(second.id() != Core::CId());
    QVERIFY(first.id() != second.id());
    QVERIFY(first.id() == first.id());
}

void tst_CNodeConnection::completeConnectionHasBothEnds()
{
    const SPair pair;
    QCOMPARE(pair.in(), pair.sink.node.get());
    QCOMPARE(pair.connection->getPortIndex(In), 2);
    QCOMPARE(pair.out(), pair.source.node.get());
    QCOMPARE(pair.connection->getPortIndex(Out), 1);
    for (const ENodePortType other : {None, ENodePortType(7)}) {
        QVERIFY(!std::as_const(*pair.connection).getNode(other));
        QCOMPARE(pair.connection->getPortIndex(other), -1);
    }
    QVERIFY(!pair.connection->parent());
}

void tst_CNodeConnection::halfConnectionHasOneEnd()
{
    const STestNode node;
    const CNodeConnection in(In, *node, 3);
    QCOMPARE(in.getNode(In), node.node.get());
    QCOMPARE(in.getPortIndex(In), 3);
    QVERIFY(!in.getNode(Out));
    QCOMPARE(in.getPortIndex(Out), -1);
    QVERIFY(!in.parent());

    const CNodeConnection out(Out, *node, 4);
    QCOMPARE(out.getNode(Out), node.node.get());
    QCOMPARE(out.getPortIndex(Out), 4);
    QVERIFY(!out.getNode(In));
    QCOMPARE(out.getPortIndex(In), -1);

    out.propagateData(CTestData::make(1));
    QVERIFY(node.model->received.empty());
    QVERIFY(out.save().isEmpty());
    QVERIFY(in.save().isEmpty());
}

void tst_CNodeConnection::halfConnectionOfNoSide()
{
    const STestNode node;
    const CNodeConnection connection(None, *node, 5);
    QCOMPARE(connection.getNode(Out), node.node.get());
    QCOMPARE(connection.getPortIndex(Out), -1);
    QVERIFY(!connection.getNode(In));
    QCOMPARE(connection.getPortIndex(In), 5);
}

void tst_CNodeConnection::constructorsAnnounceTheEnds()
{
    QCOMPARE(updatesLoggedIn(QStringLiteral("makesACompleteConnection")), 2);
    QCOMPARE(updatesLoggedIn(QStringLiteral("makesAHalfConnection")), 1);
}

void tst_CNodeConnection::makesACompleteConnection()
{
    const STestNode node;
    const CNodeConnection connection(*node, 0, *node, 0, {});
    QVERIFY(connection.id() != Core::CId());
}

void tst_CNodeConnection::makesAHalfConnection()
{
    const STestNode node;
    const CNodeConnection connection(Out, *node, 0);
    QVERIFY(connection.id() != Core::CId());
}

void tst_CNodeConnection::constructorEntersNothing()
{
    const STestNode source;
    const STestNode sink;
    const CNodeConnection connection(*sink, 0, *source, 0, {});
    QVERIFY(source.outputs().empty());
    QVERIFY(sink->nodeState().connections(In, 0).empty());
}

void tst_CNodeConnection::modifiableNodeIsTheField()
{
    const SPair pair;
    QCOMPARE(pair.connection->getNode(In), pair.sink.node.get());
    QCOMPARE(&pair.connection->getNode(None), &pair.connection->getNode(Out));
    QCOMPARE(&pair.connection->getNode(ENodePortType(7)), &pair.connection->getNode(Out));
    QVERIFY(&pair.connection->getNode(In) != &pair.connection->getNode(Out));
    QCOMPARE(pair.connection->getNode(None), pair.source.node.get());
}

void tst_CNodeConnection::dataTypeAsksTheModels_data()
{
    QTest::addColumn<bool>("hasIn");
    QTest::addColumn<bool>("hasOut");
    QTest::addColumn<ENodePortType>("portType");
    QTest::addColumn<QString>("asked");

    QTest::newRow("both, in") << true << true << In << "sink 1 2";
    QTest::newRow("both, out") << true << true << Out << "source 2 1";
    QTest::newRow("both, neither") << true << true << None << "source 0 1";
    QTest::newRow("both, unknown") << true << true << ENodePortType(7) << "source 7 1";
    QTest::newRow("in only, in") << true << false << In << "sink 1 2";
    QTest::newRow("in only, out") << true << false << Out << "sink 1 2";
    QTest::newRow("in only, neither") << true << false << None << "sink 1 2";
    QTest::newRow("out only, in") << false << true << In << "source 2 1";
    QTest::newRow("out only, out") << false << true << Out << "source 2 1";
    QTest::newRow("out only, neither") << false << true << None << "source 2 1";
}

void tst_CNodeConnection::dataTypeAsksTheModels()
{
    QFETCH(const bool, hasIn);
    QFETCH(const bool, hasOut);
    QFETCH(const ENodePortType, portType);
    QFETCH(const QString, asked);
    const SPair pair;
    const auto answerAs = [](const QString& node) {
        return [node](ENodePortType side, NodePortIndex index) {
            return SNodeDataType{QStringLiteral("%1 %2 %3").arg(node).arg(int(side)).arg(index), node};
        };
    };
    pair.sink.model->onDataType = answerAs(QStringLiteral("sink"));
    pair.source.model->onDataType = answerAs(QStringLiteral("source"));
    if (!hasIn)
        pair.connection->clearNode(In);
    if (!hasOut)
        pair.connection->clearNode(Out);

    QCOMPARE(pair.connection->dataType(portType).id, asked);
}

void tst_CNodeConnection::dataTypeOfNoEndIsEmpty()
{
    const SPair pair;
    pair.connection->clearNode(In);
    pair.connection->clearNode(Out);
    for (const ENodePortType side : {In, Out, None})
        QVERIFY(pair.connection->dataType(side).id.isEmpty());
}

void tst_CNodeConnection::setNodeToPortStoresAndAnnounces()
{
    const SPair pair;
    const STestNode other(9, 9);
    const CUpdates updates(*pair.connection);
    const Core::CId id = pair.connection->id();

    pair.connection->setNodeToPort(*other, In, 7);
    QCOMPARE(pair.in(), other.node.get());
    QCOMPARE(pair.out(), pair.source.node.get());
    pair.connection->setNodeToPort(*other, Out, 8);
    QCOMPARE(pair.out(), other.node.get());

    // The handlers find the end set already.
    QCOMPARE(updates.inIndices, std::vector<NodePortIndex>({7, 7}));
    QCOMPARE(updates.outIndices, std::vector<NodePortIndex>({1, 8}));
    QVERIFY(updates.isOfItself);
    QVERIFY(pair.connection->id() == id);

    pair.connection->setNodeToPort(*other, Out, 8);
    QCOMPARE(updates.count(), std::size_t(3));
}

void tst_CNodeConnection::setNodeToPortForNoSide()
{
    for (const ENodePortType side : {None, ENodePortType(7)}) {
        const SPair pair;
        const STestNode other;
        const CUpdates updates(*pair.connection);

        pair.connection->setNodeToPort(*other, side, 0);

        QCOMPARE(pair.out(), other.node.get());
        QCOMPARE(pair.connection->getPortIndex(Out), 1);
        QCOMPARE(pair.in(), pair.sink.node.get());
        QCOMPARE(pair.connection->getPortIndex(In), 0);
        QCOMPARE(updates.count(), std::size_t(1));
    }
}

void tst_CNodeConnection::setNodeToPortLeavesTables()
{
    const SPair pair;
    const STestNode other;
    pair.connection->setNodeToPort(*other, Out, 0);
    QVERIFY(other.outputs().empty());
    QCOMPARE(pair.source.outputs(1).size(), std::size_t(1));
}

void tst_CNodeConnection::setNodeToPortLeavesAPortThatIsMissing()
{
    const STestNode source;
    const STestNode sink;
    const STestNode other;
    CNodeConnection connection(*sink, 0, *source, 7, NodeDataConverter());
    connection.setNodeToPort(*other, Out, 0);
    QCOMPARE(std::as_const(connection).getNode(Out), other.node.get());
    QCOMPARE(connection.getPortIndex(Out), 0);
}

void tst_CNodeConnection::clearNodeClearsOneEndSilently()
{
    const SPair pair;
    const CUpdates updates(*pair.connection);

    pair.connection->clearNode(In);
    QVERIFY(!pair.in());
    QCOMPARE(pair.connection->getPortIndex(In), -1);
    QCOMPARE(pair.out(), pair.source.node.get());
    QCOMPARE(pair.connection->getPortIndex(Out), 1);

    pair.connection->clearNode(Out);
    QVERIFY(!pair.out());
    QCOMPARE(pair.connection->getPortIndex(Out), -1);
    QCOMPARE(updates.count(), std::size_t(0));
    QVERIFY(pair.sink.model->received.empty());
}

void tst_CNodeConnection::clearNodeForNoSideClearsTheOutEnd()
{
    for (const ENodePortType side : {None, ENodePortType(7)}) {
        const SPair pair;
        pair.connection->clearNode(side);
        QVERIFY(!pair.out());
        QCOMPARE(pair.connection->getPortIndex(Out), -1);
        QCOMPARE(pair.in(), pair.sink.node.get());
        QCOMPARE(pair.connection->getPortIndex(In), 2);
    }
}

void tst_CNodeConnection::converterIsReplacedSilently()
{
    const SPair pair(addTen);
    const CUpdates updates(*pair.connection);
    const auto deliver = [&pair] { pair.connection->propagateData(CTestData::make(1)); };

    deliver();
    const NodeDataConverter same = addTen;
    pair.connection->setTypeConverter(same);
    deliver();
    pair.connection->setTypeConverter([](const CNodeDataPtr&) { return CTestData::make(99); });
    deliver();
    pair.connection->setTypeConverter({});
    deliver();

    QCOMPARE(pair.sink.model->values(), std::vector<int>({11, 11, 99, 1}));
    QCOMPARE(updates.count(), std::size_t(0));
}

void tst_CNodeConnection::dataArrivesUnconverted()
{
    const SPair pair;
    const CNodeDataPtr data = CTestData::make(4);
    pair.connection->propagateData(data);
    pair.connection->propagateEmptyData();

    QCOMPARE(pair.sink.model->received.size(), std::size_t(2));
    QCOMPARE(pair.sink.model->received[0].data, data);
    QCOMPARE(pair.sink.model->received[0].index, 2);
    QVERIFY(pair.sink.model->received[1].data.isNull());
    QCOMPARE(pair.sink.model->received[1].index, 2);
}

void tst_CNodeConnection::deliveryHandsThePointerOver()
{
    class CConsumer : public CTestModel
    {
    public:
        void setInData(CNodeDataPtr data, NodePortIndex) override
        {
            const QWeakPointer<CNodeData> watched = data;
            data.reset();
            isLastOwner = watched.isNull();
        }
        bool isLastOwner = false;
    };
    auto owned = std::make_unique<CConsumer>();
    const CConsumer& model = *owned;
    CNodeBase node(std::move(owned));
    const CNodeConnection connection(In, node, 0);

    connection.propagateData(CTestData::make(1));
    QVERIFY(model.isLastOwner);
}

void tst_CNodeConnection::converterTurnsData()
{
    const SPair pair(addTen);
    pair.connection->propagateData(CTestData::make(4));
    QCOMPARE(pair.sink.model->values(), std::vector<int>({14}));
    QCOMPARE(pair.sink.model->received[0].index, 2);
}

void tst_CNodeConnection::converterIsCalledForEmptyData()
{
    int calledWithNull = 0;
    const SPair pair([&calledWithNull](const CNodeDataPtr& data) {
        calledWithNull += data.isNull();
        return CTestData::make(7);
    });
    pair.connection->propagateEmptyData();
    pair.connection->propagateData(CNodeDataPtr());
    QCOMPARE(calledWithNull, 2);
    QCOMPARE(pair.sink.model->values(), std::vector<int>({7, 7}));
}

void tst_CNodeConnection::converterIsNotCalledWithoutAnInNode()
{
    int called = 0;
    const SPair pair([&called](const CNodeDataPtr& data) {
        ++called;
        return data;
    });
    pair.connection->clearNode(In);
    pair.connection->propagateData(CTestData::make(1));
    QCOMPARE(called, 0);
}

void tst_CNodeConnection::outNodeIsNotConsulted()
{
    const SPair pair;
    pair.connection->propagateData(CTestData::make(1));
    pair.connection->clearNode(Out);
    pair.connection->propagateData(CTestData::make(2));
    QCOMPARE(pair.sink.model->values(), std::vector<int>({1, 2}));
    QCOMPARE(pair.source.model->outDataCalls, 0);
}

void tst_CNodeConnection::removeFromNodesLeavesBothTables()
{
    const SPair pair;
    const auto other = join(pair.source, pair.sink, {}, 1, 2);
    pair.connection->removeFromNodes();
    pair.connection->removeFromNodes();

    const CNodeState::Connections expected{{other->id(), other.get()}};
    QCOMPARE(pair.source.outputs(1), expected);
    QCOMPARE(pair.sink->nodeState().connections(In, 2), expected);
    QCOMPARE(pair.in(), pair.sink.node.get());
    QCOMPARE(pair.connection->getPortIndex(In), 2);
    QCOMPARE(pair.out(), pair.source.node.get());
    QCOMPARE(pair.connection->getPortIndex(Out), 1);
    QVERIFY(pair.sink.model->received.empty());
}

void tst_CNodeConnection::removeFromNodesOfAHalfConnection()
{
    const SPair pair;
    pair.connection->clearNode(In);
    pair.connection->removeFromNodes();
    QVERIFY(pair.source.outputs(1).empty());
    QCOMPARE(std::as_const(*pair.sink).nodeState().getEntries(In)[2].size(), std::size_t(1));

    CNodeConnection half(In, *pair.sink, 0);
    enter(half);
    QCOMPARE(pair.sink->nodeState().connections(In, 0).size(), std::size_t(1));
    half.removeFromNodes();
    QVERIFY(pair.sink->nodeState().connections(In, 0).empty());
}

void tst_CNodeConnection::destructorDeliversEmptyDataOnce()
{
    for (const bool removedBefore : {false, true}) {
        SPair pair;
        if (removedBefore)
            pair.connection->removeFromNodes();
        pair.connection.reset();
        QCOMPARE(pair.sink.model->received.size(), std::size_t(1));
        QVERIFY(pair.sink.model->received[0].data.isNull());
        QCOMPARE(pair.sink.model->received[0].index, 2);
        QCOMPARE(pair.source.model->outDataCalls, 0);
    }
}

void tst_CNodeConnection::destructorDeliversThroughTheConverter()
{
    std::vector<int> converted;
    SPair pair([&converted](const CNodeDataPtr& data) {
        converted.push_back(CTestData::valueOf(data));
        return CTestData::make(8);
    });
    pair.connection.reset();
    QCOMPARE(converted, std::vector<int>({-1}));
    QCOMPARE(pair.sink.model->values(), std::vector<int>({8}));
}

void tst_CNodeConnection::destructorOfAHalfConnectionDeliversNothing()
{
    const STestNode node;
    {
        const CNodeConnection out(Out, *node, 0);
    }
    QVERIFY(node.model->received.empty());
    {
        const CNodeConnection in(In, *node, 0);
    }
    QCOMPARE(node.model->values(), std::vector<int>({-1}));
}

void tst_CNodeConnection::dyingConnectionTakesNoConverter()
{
    const STestNode out;
    const STestNode in;
    auto connection = std::make_unique<CNodeConnection>(*in, 0, *out, 0, NodeDataConverter());
    CNodeConnection* const dying = connection.get();
    int converted = 0;
    connection->setTypeConverter([end = atTheEnd([dying, &converted] {
                                      dying->setTypeConverter([&converted](const CNodeDataPtr& data) {
                                          ++converted;
                                          return data;
                                      });
                                      dying->propagateEmptyData();
                                  })](const CNodeDataPtr& data) { return data; });
    connection.reset();
    QCOMPARE(converted, 0);
}

void tst_CNodeConnection::converterOutlivesTheLastDelivery()
{
    QStringList events;
    SPair pair([end = atTheEnd([&events] { events << QStringLiteral("converter gone"); })](const CNodeDataPtr& data) {
        return data;
    });
    pair.sink.model->onSetInData = [&events](const CNodeDataPtr&, NodePortIndex) {
        events << QStringLiteral("delivered");
    };
    pair.connection.reset();
    QCOMPARE(events, QStringList({QStringLiteral("delivered"), QStringLiteral("converter gone")}));
}

void tst_CNodeConnection::saveHoldsTheEnds()
{
    const SPair pair;
    QCOMPARE(pair.connection->save(), QJsonObject({
                                          {QStringLiteral("in_id"), pair.sink->id().toString()},
                                          {QStringLiteral("in_index"), 2},
                                          {QStringLiteral("out_id"), pair.source->id().toString()},
                                          {QStringLiteral("out_index"), 1},
                                      }));
}

void tst_CNodeConnection::saveHoldsTheConvertersTypes()
{
    const SPair pair(addTen);
    pair.sink.model->onDataType = [](ENodePortType, NodePortIndex) {
        return SNodeDataType{QStringLiteral("Image"), QStringLiteral("I")};
    };
    pair.source.model->onDataType = [](ENodePortType, NodePortIndex) {
        return SNodeDataType{QStringLiteral("Frame"), QStringLiteral("F")};
    };

    QJsonObject json = pair.connection->save();
    const QJsonObject converter = json.take(QStringLiteral("converter")).toObject();

    const QJsonObject in{{QStringLiteral("id"), QStringLiteral("Image")},
                         {QStringLiteral("name"), QStringLiteral("I")}};
    const QJsonObject out{{QStringLiteral("id"), QStringLiteral("Frame")},
                          {QStringLiteral("name"), QStringLiteral("F")}};
    QCOMPARE(converter, QJsonObject({{QStringLiteral("in"), in}, {QStringLiteral("out"), out}}));
    pair.connection->setTypeConverter({});
    QCOMPARE(json, pair.connection->save());
}

void tst_CNodeConnection::saveIsEmptyWithoutBothEnds()
{
    for (const ENodePortType side : {In, Out}) {
        const SPair pair(addTen);
        pair.connection->clearNode(side);
        QVERIFY(pair.connection->save().isEmpty());
    }
}

void tst_CNodeConnection::typeJsonHoldsIdAndName()
{
    const STestNode node;
    const COpenConnection connection(In, *node, 0);
    QCOMPARE(connection.getTypeJson(In), QJsonObject({{QStringLiteral("id"), CTestData::defaultType().id},
                                                      {QStringLiteral("name"), CTestData::defaultType().name}}));
}

void tst_CNodeConnection::restoreDoesNothing()
{
    const SPair pair;
    const CUpdates updates(*pair.connection);
    const QJsonObject before = pair.connection->save();
    const Core::CId id = pair.connection->id();
    Plugin::AppCore::ISerializable& serializable = *pair.connection;
    serializable.restore({{QStringLiteral("in_index"), 0}, {QStringLiteral("id"), Core::CId::createId().toString()}});
    QCOMPARE(pair.connection->save(), before);
    QVERIFY(pair.connection->id() == id);
    QCOMPARE(updates.count(), std::size_t(0));
}

void tst_CNodeConnection::outlivesItsInNode()
{
    SPair pair(addTen);
    pair.sink.node.reset();

    QVERIFY(!pair.in());
    QVERIFY(!pair.connection->getNode(In));
    QCOMPARE(pair.connection->getPortIndex(In), -1);
    QCOMPARE(pair.out(), pair.source.node.get());
    QCOMPARE(pair.connection->getPortIndex(Out), 1);
    QVERIFY(pair.connection->save().isEmpty());
    QCOMPARE(pair.connection->dataType(In).id, CTestData::defaultType().id);
    pair.connection->propagateData(CTestData::make(1));
    pair.connection->propagateEmptyData();
    pair.source.model->offer(CTestData::make(2), 1);
    pair.connection->removeFromNodes();
    QVERIFY(pair.source.outputs(1).empty());
    pair.connection.reset();
}

void tst_CNodeConnection::outlivesItsOutNode()
{
    SPair pair;
    pair.source.node.reset();

    QVERIFY(!pair.out());
    QVERIFY(!pair.connection->getNode(Out));
    QCOMPARE(pair.connection->getPortIndex(Out), -1);
    QCOMPARE(pair.connection->getPortIndex(In), 2);
    QVERIFY(pair.connection->save().isEmpty());
    pair.connection->propagateData(CTestData::make(1));
    pair.connection.reset();
    QCOMPARE(pair.sink.model->values(), std::vector<int>({1, -1}));
    QVERIFY(std::as_const(*pair.sink).nodeState().getEntries(In)[2].empty());
}

void tst_CNodeConnection::outlivesBothNodes()
{
    for (const bool sinkFirst : {false, true}) {
        int converted = 0;
        SPair pair([&converted](const CNodeDataPtr& data) {
            ++converted;
            return data;
        });
        (sinkFirst ? pair.sink : pair.source).node.reset();
        (sinkFirst ? pair.source : pair.sink).node.reset();

        QVERIFY(!pair.in());
        QVERIFY(!pair.out());
        QVERIFY(pair.connection->save().isEmpty());
        QVERIFY(pair.connection->dataType(In).id.isEmpty());
        pair.connection->propagateData(CTestData::make(1));
        pair.connection->removeFromNodes();
        pair.connection.reset();
        QCOMPARE(converted, 0);
    }
}

void tst_CNodeConnection::halfConnectionOutlivesItsNode()
{
    STestNode node;
    const STestNode other;
    CNodeConnection connection(Out, *node, 0);
    node.node.reset();
    QVERIFY(!connection.getNode(None));
    QCOMPARE(connection.getPortIndex(Out), -1);

    // And can be completed all the same.
    connection.setNodeToPort(*other, Out, 0);
    connection.setNodeToPort(*other, In, 0);
    QCOMPARE(connection.save().size(), 4);
}

void tst_CNodeConnection::goneNodeTakesItsIndexAlong()
{
    STestNode node;
    CNodeConnection connection(In, *node, 3);
    const CUpdates updates(connection);
    node.node.reset();
    QCOMPARE(connection.getPortIndex(In), -1);
    QCOMPARE(updates.count(), std::size_t(0));
}

void tst_CNodeConnection::indexGivenAloneStays()
{
    STestNode node;
    CNodeConnection connection(None, *node, 5);
    node.node.reset();
    QVERIFY(!std::as_const(connection).getNode(Out));
    QCOMPARE(connection.getPortIndex(In), 5);

    connection.clearNode(In);
    QCOMPARE(connection.getPortIndex(In), -1);
}

void tst_CNodeConnection::endIsFreshAfterItsNodeWasGone()
{
    STestNode first;
    const STestNode second;
    CNodeConnection connection(Out, *first, 3);
    first.node.reset();
    // Sets the out node alone, so that end has no index since the first node took it along.
    connection.setNodeToPort(*second, None, 0);
    QCOMPARE(std::as_const(connection).getNode(Out), second.node.get());
    QCOMPARE(connection.getPortIndex(Out), -1);
}

void tst_CNodeConnection::indexOfAnEndWhoseNodeIsGoneStays()
{
    STestNode first;
    const STestNode second;
    CNodeConnection connection(In, *first, 3);
    first.node.reset();
    QCOMPARE(connection.getPortIndex(In), -1);
    // Sets the out node and the in index.
    connection.setNodeToPort(*second, None, 2);
    QVERIFY(!std::as_const(connection).getNode(In));
    QCOMPARE(connection.getPortIndex(In), 2);
}

void tst_CNodeConnection::nodeGivenAloneTakesTheIndexAlong()
{
    const STestNode first;
    STestNode second;
    CNodeConnection connection(Out, *first, 3);
    connection.getNode(Out) = nullptr;
    connection.setNodeToPort(*second, None, 0);
    QCOMPARE(connection.getPortIndex(Out), 3);
    second.node.reset();
    QCOMPARE(connection.getPortIndex(Out), -1);
}

void tst_CNodeConnection::writtenNodeIsUsed()
{
    const SPair pair;
    const STestNode other(3, 3);
    const CUpdates updates(*pair.connection);
    pair.connection->getNode(In) = other.node.get();
    pair.connection->getNode(None) = other.node.get();

    QCOMPARE(pair.in(), other.node.get());
    QCOMPARE(pair.out(), other.node.get());
    QCOMPARE(updates.count(), std::size_t(0));
    pair.connection->propagateData(CTestData::make(6));
    QCOMPARE(other.model->values(), std::vector<int>({6}));
    QVERIFY(pair.sink.model->received.empty());

    pair.connection->getNode(In) = nullptr;
    pair.connection->propagateData(CTestData::make(7));
    QCOMPARE(other.model->values(), std::vector<int>({6}));
    QVERIFY(!pair.in());
}

void tst_CNodeConnection::writtenNodeKeepsTheIndex()
{
    SPair pair;
    const STestNode other(3, 3);
    pair.connection->getNode(In) = other.node.get();
    QCOMPARE(pair.connection->getPortIndex(In), 2);
    pair.connection->getNode(In) = nullptr;
    QCOMPARE(pair.connection->getPortIndex(In), 2);
    pair.connection->getNode(In) = pair.sink.node.get();
    QCOMPARE(pair.connection->getPortIndex(In), 2);

    pair.sink.node.reset();
    QCOMPARE(pair.connection->getPortIndex(In), -1);
}

void tst_CNodeConnection::converterMayDestroyTheConnection()
{
    const STestNode source;
    const STestNode sink;
    std::unique_ptr<CNodeConnection> connection;
    int seen = 0;
    connection = join(source, sink, [&, state = std::vector<int>(1000, 5)](CNodeDataPtr data) {
        if (data) {
            connection.reset();
            seen = state.back();
        }
        return data;
    });

    source.model->offer(CTestData::make(1));

    QCOMPARE(seen, 5);
    QCOMPARE(sink.model->values(), std::vector<int>({-1}));
}

void tst_CNodeConnection::converterMayPutAnotherConnectionInItsPlace()
{
    const STestNode source;
    const STestNode sink;
    const STestNode late;
    std::optional<CNodeConnection> connection;
    connection.emplace(*sink, 0, *source, 0, [&](CNodeDataPtr data) {
        if (data)
            connection.emplace(*late, 0, *source, 0, NodeDataConverter());
        return data;
    });

    connection->propagateData(CTestData::make(1));

    QCOMPARE(sink.model->values(), std::vector<int>({-1}));
    QVERIFY(late.model->received.empty());
}

void tst_CNodeConnection::smallConverterMayDestroyTheConnection()
{
    const STestNode source;
    const STestNode sink;
    struct SSeen
    {
        std::unique_ptr<CNodeConnection> connection;
        int value = 0;
    } seen;
    // Small enough to lie inside of the std::function, and so in what the connection owns.
    const auto converter = [&seen, number = 5](CNodeDataPtr data) {
        if (data) {
            seen.connection.reset();
            seen.value = number;
        }
        return data;
    };
    static_assert(sizeof(converter) <= 2 * sizeof(void*), "a small one");
    seen.connection = join(source, sink, converter);

    seen.connection->propagateData(CTestData::make(1));

    QCOMPARE(seen.value, 5);
    QCOMPARE(sink.model->values(), std::vector<int>({-1}));
}

void tst_CNodeConnection::converterMayReplaceItself()
{
    const STestNode source;
    const STestNode sink;
    std::unique_ptr<CNodeConnection> connection;
    connection = join(source, sink, [&, state = std::vector<int>(1000, 5)](const CNodeDataPtr&) {
        connection->setTypeConverter(addTen);
        return CTestData::make(state.back());
    });

    connection->propagateData(CTestData::make(1));
    connection->propagateData(CTestData::make(2));

    QCOMPARE(sink.model->values(), std::vector<int>({5, 12}));
}

void tst_CNodeConnection::converterMayDestroyTheInNode()
{
    const STestNode source;
    STestNode sink;
    const auto connection = join(source, sink, [&sink](CNodeDataPtr data) {
        sink.node.reset();
        return data;
    });
    source.model->offer(CTestData::make(1));
    QVERIFY(!sink.node);
    QVERIFY(!std::as_const(*connection).getNode(In));
}

void tst_CNodeConnection::converterMayClearTheInEnd()
{
    const STestNode source;
    const STestNode sink;
    const STestNode other;
    std::unique_ptr<CNodeConnection> connection;
    connection = join(source, sink, [&](CNodeDataPtr data) {
        if (data)
            connection->clearNode(In);
        return data;
    });
    connection->propagateData(CTestData::make(1));
    QVERIFY(sink.model->received.empty());

    // What counts is the end as it is when the data is ready.
    connection->setNodeToPort(*sink, In, 0);
    connection->setTypeConverter([&](CNodeDataPtr data) {
        connection->setNodeToPort(*other, In, 0);
        return data;
    });
    connection->propagateData(CTestData::make(2));
    QCOMPARE(other.model->values(), std::vector<int>({2}));
    QVERIFY(sink.model->received.empty());
}

void tst_CNodeConnection::whatAConverterHeldMayTakeTheInNodeAlong()
{
    const STestNode source;
    STestNode sink;
    std::unique_ptr<CNodeConnection> connection;
    connection = join(source, sink, [&, end = atTheEnd([&sink] { sink.node.reset(); })](CNodeDataPtr data) {
        connection->setTypeConverter({});
        return data;
    });
    connection->propagateData(CTestData::make(1));
    QVERIFY(!sink.node);
}

void tst_CNodeConnection::whatAConverterHeldMayTakeTheConnectionAlong()
{
    const STestNode source;
    const STestNode sink;
    std::unique_ptr<CNodeConnection> connection;
    connection = join(source, sink, [&, end = atTheEnd([&connection] { connection.reset(); })](CNodeDataPtr data) {
        connection->setTypeConverter({});
        return data;
    });
    connection->propagateData(CTestData::make(1));
    QVERIFY(!connection);
    QCOMPARE(sink.model->values(), std::vector<int>({-1}));
}

void tst_CNodeConnection::replacedConverterMayTakeTheConnectionAlong()
{
    const STestNode source;
    const STestNode sink;
    std::unique_ptr<CNodeConnection> connection;
    connection =
        join(source, sink, [end = atTheEnd([&connection] { connection.reset(); })](CNodeDataPtr data) { return data; });
    connection->setTypeConverter(addTen);
    QVERIFY(!connection);
    QCOMPARE(sink.model->values(), std::vector<int>({-1}));
}

void tst_CNodeConnection::whatAConverterHeldMayUseADyingConnection()
{
    const STestNode source;
    const STestNode sink;
    CNodeConnection* dying = nullptr;
    int ended = 0;
    auto connection = join(source, sink, [end = atTheEnd([&] {
                                              ++ended;
                                              dying->propagateEmptyData();
                                              dying->setTypeConverter(addTen);
                                              enter(*dying);
                                          })](CNodeDataPtr data) { return data; });
    dying = connection.get();
    connection.reset();
    QCOMPARE(ended, 1);
    QVERIFY(source.outputs().empty());
    source.model->offer(CTestData::make(1));
    QCOMPARE(sink.model->values(), std::vector<int>({-1, -1}));
}

void tst_CNodeConnection::handlerMayDestroyTheConnection()
{
    SPair pair;
    connect(pair.connection.get(), &CNodeConnection::updated, [&pair] { pair.connection.reset(); });
    pair.connection->setNodeToPort(*pair.source, Out, 0);
    QVERIFY(!pair.connection);
    QCOMPARE(pair.sink.model->values(), std::vector<int>({-1}));
}

void tst_CNodeConnection::modelMayDestroyTheConnectionThatServesIt()
{
    for (const bool converts : {false, true}) {
        SPair pair(converts ? NodeDataConverter(addTen) : NodeDataConverter());
        pair.sink.model->onSetInData = [&pair](const CNodeDataPtr&, NodePortIndex) { pair.connection.reset(); };
        pair.connection->propagateData(CTestData::make(1));
        QCOMPARE(pair.sink.model->values(), std::vector<int>({converts ? 11 : 1, -1}));
    }
}

void tst_CNodeConnection::modelMayDestroyTheConnectionThatItIsSavedFor()
{
    SPair pair(addTen);
    pair.sink.model->onDataType = [&pair](ENodePortType, NodePortIndex) {
        pair.connection.reset();
        return SNodeDataType();
    };
    QVERIFY(pair.connection->save().isEmpty());
    QVERIFY(!pair.connection);
}

void tst_CNodeConnection::modelMayMoveTheEndInTheLastDelivery()
{
    SPair pair;
    const STestNode other;
    CNodeConnection* const dying = pair.connection.get();
    pair.sink.model->onSetInData = [&](const CNodeDataPtr&, NodePortIndex) {
        dying->setNodeToPort(*other, Out, 0);
        enter(*dying);
    };
    pair.connection.reset();
    QVERIFY(pair.source.outputs(1).empty());
    QVERIFY(other.outputs().empty());
    pair.source.model->offer(CTestData::make(1), 1);
    other.model->offer(CTestData::make(1));
    QCOMPARE(pair.sink.model->received.size(), std::size_t(1));
}

void tst_CNodeConnection::modelMayEnterADyingConnection()
{
    SPair pair;
    const STestNode foreign;
    CNodeConnection* const dying = pair.connection.get();
    pair.sink.model->onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (data)
            return;
        foreign->nodeState().setConnection(Out, 0, *dying);
        pair.source->nodeState().setConnection(Out, 1, *dying);
        // Still whole, so that a walk serves it, once.
        pair.source.model->offer(CTestData::make(3), 1);
    };
    pair.connection.reset();
    foreign.model->offer(CTestData::make(4));
    pair.source.model->offer(CTestData::make(5), 1);
    QVERIFY(foreign.outputs().empty());
    QCOMPARE(pair.sink.model->values(), std::vector<int>({-1, 3}));
}

void tst_CNodeConnection::exceptionsOfDeliveriesPassThrough()
{
    const SPair pair(addTen);
    bool throws = true;
    pair.sink.model->onSetInData = [&throws](const CNodeDataPtr&, NodePortIndex) {
        if (throws)
            throw std::runtime_error("full");
    };
    QVERIFY_EXCEPTION_THROWN(pair.connection->propagateData(CTestData::make(1)), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(pair.connection->propagateEmptyData(), std::runtime_error);
    throws = false;
    pair.connection->setTypeConverter([](const CNodeDataPtr&) -> CNodeDataPtr { throw std::logic_error("odd"); });
    QVERIFY_EXCEPTION_THROWN(pair.connection->propagateData(CTestData::make(2)), std::logic_error);
    pair.connection->setTypeConverter(addTen);
    pair.connection->propagateData(CTestData::make(3));
    QCOMPARE(pair.sink.model->values(), std::vector<int>({11, -1, 13}));
}

void tst_CNodeConnection::exceptionsOfTheLastDeliveryAreReported_data()
{
    QTest::addColumn<bool>("inConverter");
    QTest::addColumn<bool>("isStandard");
    QTest::addColumn<QString>("reason");

    QTest::newRow("model, standard") << false << true << "exception: out of paper";
    QTest::newRow("model, other") << false << false << "exception of unknown type";
    QTest::newRow("converter, standard") << true << true << "exception: out of paper";
    QTest::newRow("converter, other") << true << false << "exception of unknown type";
}

void tst_CNodeConnection::exceptionsOfTheLastDeliveryAreReported()
{
    QFETCH(const bool, inConverter);
    QFETCH(const bool, isStandard);
    QFETCH(const QString, reason);
    const auto fail = [isStandard] {
        if (isStandard)
            throw std::runtime_error("out of paper");
        throw 5;
    };
    SPair pair([&](CNodeDataPtr data) {
        if (inConverter)
            fail();
        return data;
    });
    pair.sink.model->onSetInData = [&](const CNodeDataPtr&, NodePortIndex) { fail(); };

    const CMessageCatcher messages;
    pair.connection.reset();

    QCOMPARE(messages.texts("halvex.graph"),
             QStringList(QStringLiteral("A connection's last delivery ended with an ") + reason));
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(pair.source.outputs(1).empty());
    QVERIFY(std::as_const(*pair.sink).nodeState().getEntries(In)[2].empty());
}

QTEST_GUILESS_MAIN(tst_CNodeConnection)

#include "tst_CNodeConnection.moc"
