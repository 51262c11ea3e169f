// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeConnection.h>

#include "graph/TestGraph.h"

#include <QtTest>

#include <memory>
#include <type_traits>
#include <vector>

using namespace Plugin::Halvex;

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
constexpr ENodePortType Unknown = ENodePortType(7);

using Numbers = std::vector<int>;

/// Both ends by name and index, "-" where there is no node: "source 1 > sink 2".
QString endsOf(const CNodeConnection& connection)
{
    const auto textOf = [&connection](ENodePortType side) {
        const CNodeBase* const node = connection.getNode(side);
        return QStringLiteral("%1 %2").arg(node ? node->nodeDataModel()->name() : QStringLiteral("-"),
                                           QString::number(connection.getPortIndex(side)));
    };
    return textOf(Out) + QStringLiteral(" > ") + textOf(In);
}

/// Every updated() of a connection: the ends as its handlers find them.
class CUpdates
{
public:
    explicit CUpdates(CNodeConnection& connection)
    {
        QObject::connect(&connection, &CNodeConnection::updated, &connection,
                         [this, &connection](CNodeConnection& conn) {
                             ends << (&conn == &connection ? endsOf(conn) : QStringLiteral("another connection"));
                         });
    }

    QStringList ends;
};

using Change = void (*)(SPair&);

} // namespace

Q_DECLARE_METATYPE(Plugin::Halvex::ENodePortType)
Q_DECLARE_METATYPE(Change)

class tst_CNodeConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyConnectionHasItsOwnId();
    void hasTwoEndsAndNoOther();
    void changesOfTheEnds_data();
    void changesOfTheEnds();
    void endsOfHalfConnections_data();
    void endsOfHalfConnections();
    void setNodeToPortAnnouncesWhatItHasStored();
    void tablesAreLeftToTheHost();
    void dataTypeAsksTheModels_data();
    void dataTypeAsksTheModels();
    void dataArrivesUnconverted();
    void writtenNodeStaysWhenTheOneBeforeItGoes();
    void deliveryHandsThePointerOver();
    void converterTurnsAllData();
    void converterIsReplacedSilently();
    void removeFromNodesLeavesBothTables();
    void removeFromNodesOfAHalfConnection();
    void destructorDeliversEmptyDataOnce();
    void destructorDeliversThroughTheConverter();
    void destructorOfAHalfConnectionDeliversNothing();
    void saveHoldsTheEnds();
    void saveHoldsTheConvertersTypes();
    void typeJsonHoldsIdAndName();
    void restoreDoesNothing();
    void outlivesItsNodes_data();
    void outlivesItsNodes();
};

void tst_CNodeConnection::everyConnectionHasItsOwnId()
{
    const STestNode node;
    const CNodeConnection first(In, *node, 0);
    const CNodeConnection second(*node, 0, *node, 0, {});
    QVERIFY(first.id() != Core::CId());
    QVERIFY(second.id() != Core::CId());
    QVERIFY(first.id() != second.id());
    QVERIFY(first.id() == first.id());
    QVERIFY(!first.parent());
    QVERIFY(!second.parent());
}

void tst_CNodeConnection::hasTwoEndsAndNoOther()
{
    const SPair pair;
    CNodeConnection& connection = *pair.connection;
    for (const ENodePortType other : {None, Unknown}) {
        QVERIFY(!std::as_const(connection).getNode(other));
        QCOMPARE(connection.getPortIndex(other), -1);
        QCOMPARE(&connection.getNode(other), &connection.getNode(Out)); // a field to write to
    }
    QCOMPARE(connection.getNode(In), pair.sink.node.get());
    QCOMPARE(connection.getNode(Out), pair.source.node.get());
}

void tst_CNodeConnection::changesOfTheEnds_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("ends");
    QTest::addColumn<int>("updates");
    const auto addRow = [](const char* name, const char* ends, int updates, Change change) {
        QTest::newRow(name) << change << QString(ends) << updates;
    };

    addRow("as made", "source 1 > sink 2", 0, [](SPair&) {});
    addRow("in set", "source 1 > other 7", 1, [](SPair& p) { p.connection->setNodeToPort(*p.other, In, 7); });
    addRow("out set", "other 8 > sink 2", 1, [](SPair& p) { p.connection->setNodeToPort(*p.other, Out, 8); });
    addRow("same set", "source 1 > sink 2", 1, [](SPair& p) { p.connection->setNodeToPort(*p.source, Out, 1); });
    addRow("none set", "other 1 > sink 0", 1, [](SPair& p) { p.connection->setNodeToPort(*p.other, None, 0); });
    addRow("unknown set", "other 1 > sink 0", 1, [](SPair& p) { p.connection->setNodeToPort(*p.other, Unknown, 0); });
    addRow("in cleared", "source 1 > - -1", 0, [](SPair& p) { p.connection->clearNode(In); });
    addRow("out cleared", "- -1 > sink 2", 0, [](SPair& p) { p.connection->clearNode(Out); });
    addRow("none cleared", "- -1 > sink 2", 0, [](SPair& p) { p.connection->clearNode(None); });
    addRow("unknown cleared", "- -1 > sink 2", 0, [](SPair& p) { p.connection->clearNode(Unknown); });
    addRow("in written", "source 1 > other 2", 0, [](SPair& p) { p.connection->getNode(In) = p.other.node.get(); });
    addRow("none written", "other 1 > sink 2", 0, [](SPair& p) { p.connection->getNode(None) = p.other.node.get(); });
    addRow("null written", "source 1 > - 2", 0, [](SPair& p) { p.connection->getNode(In) = nullptr; });
    addRow("in node gone", "source 1 > - -1", 0, [](SPair& p) { p.sink.node.reset(); });
    addRow("out node gone", "- -1 > sink 2", 0, [](SPair& p) { p.source.node.reset(); });
    addRow("written back, and gone", "source 1 > - -1", 0, [](SPair& p) {
        p.connection->getNode(In) = nullptr;
        p.connection->getNode(In) = p.sink.node.get();
        p.sink.node.reset();
    });
}

void tst_CNodeConnection::changesOfTheEnds()
{
    QFETCH(const Change, change);
    SPair pair;
    const CUpdates updates(*pair.connection);
    const Core::CId id = pair.connection->id();
    change(pair);
    QTEST(endsOf(*pair.connection), "ends");
    QTEST(int(updates.ends.size()), "updates");
    QVERIFY(pair.connection->id() == id);
    QVERIFY(pair.sink.node == nullptr || pair.sink.model->received.empty());
}

void tst_CNodeConnection::endsOfHalfConnections_data()
{
    QTest::addColumn<ENodePortType>("side");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("ends");
    const auto addRow = [](const char* name, ENodePortType side, const char* ends, Change change) {
        QTest::newRow(name) << side << change << QString(ends);
    };

    addRow("in", In, "- -1 > source 3", [](SPair&) {});
    addRow("out", Out, "source 3 > - -1", [](SPair&) {});
    addRow("none", None, "source -1 > - 3", [](SPair&) {});
    addRow("in gone", In, "- -1 > - -1", [](SPair& p) { p.source.node.reset(); });
    addRow("index given alone stays", None, "- -1 > - 3", [](SPair& p) { p.source.node.reset(); });
    addRow("index given alone cleared", None, "source -1 > - -1", [](SPair& p) { p.connection->clearNode(In); });
    addRow("fresh after its node was gone", Out, "other -1 > - 0", [](SPair& p) {
        p.source.node.reset();
        p.connection->setNodeToPort(*p.other, None, 0); // the out node alone, and the in index
    });
    addRow("index set where the node is gone", In, "other -1 > - 2", [](SPair& p) {
        p.source.node.reset();
        p.connection->setNodeToPort(*p.other, None, 2);
    });
    addRow("node given alone", Out, "other 3 > - 0", [](SPair& p) {
        p.connection->getNode(Out) = nullptr;
        p.connection->setNodeToPort(*p.other, None, 0);
    });
    addRow("node given alone takes the index along", Out, "- -1 > - 0", [](SPair& p) {
        p.connection->getNode(Out) = nullptr;
        p.connection->setNodeToPort(*p.other, None, 0);
        p.other.node.reset();
    });
    addRow("completed after its node was gone", Out, "other 0 > other 1", [](SPair& p) {
        p.source.node.reset();
        p.connection->setNodeToPort(*p.other, Out, 0);
        p.connection->setNodeToPort(*p.other, In, 1);
        QCOMPARE(p.connection->save().size(), 4);
    });
}

void tst_CNodeConnection::endsOfHalfConnections()
{
    QFETCH(const ENodePortType, side);
    QFETCH(const Change, change);
    SPair pair;
    pair.connection = std::make_unique<CNodeConnection>(side, *pair.source, 3); // a port that there is not
    QVERIFY(pair.connection->save().isEmpty());
    change(pair);
    QTEST(endsOf(*pair.connection), "ends");
}

void tst_CNodeConnection::setNodeToPortAnnouncesWhatItHasStored()
{
    const SPair pair;
    const CUpdates updates(*pair.connection);
    pair.connection->setNodeToPort(*pair.other, In, 7);
    pair.connection->setNodeToPort(*pair.other, Out, 8);
    QCOMPARE(updates.ends, QStringList({"source 1 > other 7", "other 8 > other 7"}));
}

void tst_CNodeConnection::tablesAreLeftToTheHost()
{
    const SPair pair;
    const CNodeConnection connection(*pair.sink, 0, *pair.source, 0, {});
    QVERIFY(pair.source.outputs(0).empty());
    QVERIFY(pair.sink->nodeState().connections(In, 0).empty());

    pair.connection->setNodeToPort(*pair.other, Out, 0);
    QVERIFY(pair.other.outputs().empty());
    QCOMPARE(pair.source.outputs(1).size(), std::size_t(1));
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
    QTest::newRow("both, unknown") << true << true << Unknown << "source 7 1";
    QTest::newRow("in only, in") << true << false << In << "sink 1 2";
    QTest::newRow("in only, out") << true << false << Out << "sink 1 2";
    QTest::newRow("in only, neither") << true << false << None << "sink 1 2";
    QTest::newRow("out only, in") << false << true << In << "source 2 1";
    QTest::newRow("out only, out") << false << true << Out << "source 2 1";
    QTest::newRow("out only, neither") << false << true << None << "source 2 1";
    QTest::newRow("no end, in") << false << false << In << "";
    QTest::newRow("no end, out") << false << false << Out << "";
    QTest::newRow("no end, neither") << false << false << None << "";
}

void tst_CNodeConnection::dataTypeAsksTheModels()
{
    QFETCH(const bool, hasIn);
    QFETCH(const bool, hasOut);
    QFETCH(const ENodePortType, portType);
    const SPair pair;
    for (CTestModel* const model : {pair.sink.model, pair.source.model}) {
        model->onDataType = [name = model->name()](ENodePortType side, NodePortIndex index) {
            return SNodeDataType{QStringLiteral("%1 %2 %3").arg(name).arg(int(side)).arg(index), QString()};
        };
    }
    if (!hasIn)
        pair.connection->clearNode(In);
    if (!hasOut)
        pair.connection->clearNode(Out);

    QTEST(pair.connection->dataType(portType).id, "asked");
}

void tst_CNodeConnection::dataArrivesUnconverted()
{
    const SPair pair;
    const CNodeDataPtr data = CTestData::make(4);
    pair.connection->propagateData(data);
    pair.connection->propagateEmptyData();
    pair.connection->clearNode(Out); // is not consulted
    pair.connection->propagateData(data);

    QCOMPARE(pair.values(), Numbers({4, -1, 4}));
    QCOMPARE(pair.sink.model->received[0].data, data);
    for (const CTestModel::SReceived& received : pair.sink.model->received)
        QCOMPARE(received.index, 2);
    QCOMPARE(pair.source.model->outDataCalls, 0);

    pair.connection->getNode(In) = pair.other.node.get(); // a written node is served
    pair.deliver(6);
    QCOMPARE(pair.other.model->values(), Numbers({6}));
    pair.connection->getNode(In) = nullptr;
    pair.deliver(7);
    QCOMPARE(pair.other.model->values().size() + pair.values().size(), std::size_t(4));
}

void tst_CNodeConnection::writtenNodeStaysWhenTheOneBeforeItGoes()
{
    SPair pair;
    pair.connection->getNode(In) = pair.other.node.get();
    pair.sink.node.reset();
    QCOMPARE(pair.connection->getNode(In), pair.other.node.get());
    pair.deliver(5);
    QCOMPARE(pair.other.model->values(), Numbers({5}));
}

void tst_CNodeConnection::deliveryHandsThePointerOver()
{
    Numbers left;
    CNodeBase node(std::make_unique<CConsumer>(left));
    const CNodeConnection connection(In, node, 0);
    connection.propagateData(CTestData::make(1));
    QCOMPARE(left, Numbers({0}));
}

void tst_CNodeConnection::converterTurnsAllData()
{
    Numbers converted;
    const SPair pair([&converted](const CNodeDataPtr& data) {
        converted.push_back(CTestData::valueOf(data));
        return CTestData::make(7);
    });
    pair.deliver(1);
    pair.connection->propagateEmptyData();
    pair.connection->propagateData(CNodeDataPtr());
    QCOMPARE(pair.values(), Numbers({7, 7, 7}));
    QCOMPARE(pair.sink.model->received[0].index, 2);
    pair.connection->clearNode(In); // nobody to convert for
    pair.deliver(2);
    QCOMPARE(converted, Numbers({1, -1, -1}));
}

void tst_CNodeConnection::converterIsReplacedSilently()
{
    const SPair pair(addTen);
    const CUpdates updates(*pair.connection);
    pair.deliver(1);
    const NodeDataConverter same = addTen;
    pair.connection->setTypeConverter(same);
    pair.deliver(1);
    pair.connection->setTypeConverter([](const CNodeDataPtr&) { return CTestData::make(99); });
    pair.deliver(1);
    pair.connection->setTypeConverter({});
    pair.deliver(1);
    QCOMPARE(pair.values(), Numbers({11, 11, 99, 1}));
    QCOMPARE(updates.ends, QStringList());
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
    QCOMPARE(endsOf(*pair.connection), QStringLiteral("source 1 > sink 2"));
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
        QCOMPARE(pair.values(), Numbers({-1}));
        QCOMPARE(pair.sink.model->received[0].index, 2);
        QCOMPARE(pair.source.model->outDataCalls, 0);
    }
}

void tst_CNodeConnection::destructorDeliversThroughTheConverter()
{
    Numbers converted;
    SPair pair([&converted](const CNodeDataPtr& data) {
        converted.push_back(CTestData::valueOf(data));
        return CTestData::make(8);
    });
    pair.connection.reset();
    QCOMPARE(converted, Numbers({-1}));
    QCOMPARE(pair.values(), Numbers({8}));
}

void tst_CNodeConnection::destructorOfAHalfConnectionDeliversNothing()
{
    const STestNode node;
    std::make_unique<CNodeConnection>(Out, *node, 0).reset();
    QVERIFY(node.model->received.empty());
    std::make_unique<CNodeConnection>(In, *node, 0).reset(); // its end is there
    QCOMPARE(node.model->values(), Numbers({-1}));
}

void tst_CNodeConnection::saveHoldsTheEnds()
{
    const SPair pair;
    QCOMPARE(pair.connection->save(), QJsonObject({{"in_id", pair.sink->id().toString()},
                                                   {"in_index", 2},
                                                   {"out_id", pair.source->id().toString()},
                                                   {"out_index", 1}}));
    pair.connection->clearNode(In);
    QVERIFY(pair.connection->save().isEmpty());
}

void tst_CNodeConnection::saveHoldsTheConvertersTypes()
{
    const SPair pair(addTen);
    pair.sink.model->onDataType = [](ENodePortType, NodePortIndex) { return SNodeDataType{"Image", "I"}; };
    pair.source.model->onDataType = [](ENodePortType, NodePortIndex) { return SNodeDataType{"Frame", "F"}; };

    QJsonObject json = pair.connection->save();
    const QJsonObject in{{"id", "Image"}, {"name", "I"}};
    const QJsonObject out{{"id", "Frame"}, {"name", "F"}};
    QCOMPARE(json.take("converter").toObject(), QJsonObject({{"in", in}, {"out", out}}));
    pair.connection->setTypeConverter({});
    QCOMPARE(json, pair.connection->save());
}

void tst_CNodeConnection::typeJsonHoldsIdAndName()
{
    class COpenConnection : public CNodeConnection
    {
    public:
        using CNodeConnection::CNodeConnection;
        using CNodeConnection::getTypeJson;
    };
    const STestNode node;
    const COpenConnection connection(In, *node, 0);
    QCOMPARE(connection.getTypeJson(In), QJsonObject({{"id", "Test data"}, {"name", "T"}}));
}

void tst_CNodeConnection::restoreDoesNothing()
{
    const SPair pair;
    const CUpdates updates(*pair.connection);
    const QJsonObject before = pair.connection->save();
    const Core::CId id = pair.connection->id();
    Plugin::AppCore::ISerializable& serializable = *pair.connection;
    serializable.restore({{"in_index", 0}, {"id", Core::CId::createId().toString()}});
    QCOMPARE(pair.connection->save(), before);
    QVERIFY(pair.connection->id() == id);
    QCOMPARE(updates.ends, QStringList());
}

void tst_CNodeConnection::outlivesItsNodes_data()
{
    QTest::addColumn<Change>("destroy");

    QTest::newRow("in") << Change([](SPair& pair) { pair.sink.node.reset(); });
    QTest::newRow("out") << Change([](SPair& pair) { pair.source.node.reset(); });
    QTest::newRow("both, in first") << Change([](SPair& pair) {
        pair.sink.node.reset();
        pair.source.node.reset();
    });
    QTest::newRow("both, out first") << Change([](SPair& pair) {
        pair.source.node.reset();
        pair.sink.node.reset();
    });
}

void tst_CNodeConnection::outlivesItsNodes()
{
    QFETCH(const Change, destroy);
    int converted = 0;
    SPair pair([&converted](const CNodeDataPtr& data) {
        ++converted;
        return data;
    });
    destroy(pair);

    QVERIFY(pair.connection->save().isEmpty());
    const bool hasNode = pair.sink.node || pair.source.node;
    QCOMPARE(pair.connection->dataType(In).id, hasNode ? CTestData::defaultType().id : QString());
    pair.deliver(1);
    if (pair.source.node)
        pair.source.model->offer(CTestData::make(2), 1);
    pair.connection->removeFromNodes();
    if (pair.source.node)
        QVERIFY(pair.source.outputs(1).empty());
    pair.connection.reset();
    QCOMPARE(converted, pair.sink.node ? 2 : 0); // the first, and the last
    if (pair.sink.node)
        QCOMPARE(pair.values(), Numbers({1, -1}));
}

QTEST_GUILESS_MAIN(tst_CNodeConnection)

#include "tst_CNodeConnection.moc"
