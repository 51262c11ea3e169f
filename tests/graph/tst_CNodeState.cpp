// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeState.h>

#include "support/CMessageCatcher.h"
#include "support/CRowInspector.h"
#include "support/STestNode.h"

#include <QtTest>

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <type_traits>

using namespace Plugin::Halvex;

Q_DECLARE_METATYPE(Plugin::Halvex::ENodePortType)

namespace {

static_assert(!std::is_polymorphic_v<CNodeState>, "a plain class");
static_assert(std::is_copy_constructible_v<CNodeState> && std::is_copy_assignable_v<CNodeState>, "a value");
static_assert(std::is_nothrow_move_constructible_v<CNodeState> && std::is_nothrow_move_assignable_v<CNodeState>,
              "moved without failing");
static_assert(!std::is_default_constructible_v<CNodeState>, "a table belongs to a model's ports");
static_assert(std::is_same_v<CNodeState::Connections, std::unordered_map<Core::CId, CNodeConnection*>>,
              "hosts name this type in full");

constexpr ENodePortType In = ENodePortType::In;
constexpr ENodePortType Out = ENodePortType::Out;
constexpr ENodePortType None = ENodePortType::None;
constexpr NodePortIndex Largest = std::numeric_limits<NodePortIndex>::max();
constexpr NodePortIndex Smallest = std::numeric_limits<NodePortIndex>::min();

using Numbers = std::vector<int>;

/// A table for a model with these ports.
CNodeState makeState(unsigned int inPorts, unsigned int outPorts)
{
    return CNodeState(std::make_unique<CTestModel>(inPorts, outPorts));
}

/// Two nodes and a connection between them that no table holds, in a place where another can follow it.
struct SLooseConnection
{
    SLooseConnection() { make(); }
    void make() { connection.emplace(*sink, 0, *source, 0, NodeDataConverter()); }

    STestNode source;
    STestNode sink;
    std::optional<CNodeConnection> connection;
};

/// A table with a connection at output 1.
struct STable
{
    STable() { state.setConnection(Out, 1, *loose.connection); }

    SLooseConnection loose;
    CNodeState state = makeState(1, 2);
};

/// Two nodes that are connected.
struct SLine
{
    void offer(int value) const { source.model->offer(CTestData::make(value)); }
    Numbers values() const { return sink.model->values(); }

    STestNode source;
    STestNode sink;
    std::unique_ptr<CNodeConnection> connection = join(source, sink);
};

/// One that comes into the table of a third node, from which it will not take itself out.
struct SForeignConnection : SLooseConnection
{
    SForeignConnection() { table.setConnection(Out, 0, *connection); }

    STestNode holder;
    CNodeState table = makeState(1, 1); ///< To be given to the holder.
};
using WayIn = void (*)(SForeignConnection&);
using ComingBack = void (*)(const SLine&);

} // namespace

Q_DECLARE_METATYPE(WayIn)
Q_DECLARE_METATYPE(ComingBack)

class tst_CNodeState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasOneEmptyMapPerPort();
    void portCountsAreReadOnce();
    void morePortsThanAnIndexCanTellAreRefused();
    void missingPortIsReported_data();
    void missingPortIsReported();
    void constAndModifiableEntriesAreTheSame();
    void setConnectionEntersItUnderItsId();
    void settingLeavesAnEntryThatIsThere();
    void erasingTakesOneEntryOut();
    void missingPortIsNeitherSetNorErased();
    void tablesFollowOnceTheyWereMade();
    void nullEntryIsNeverUsed();
    void writtenEntriesAreServed();
    void writtenEntryTakesTheOthersPlace();
    void writtenEntriesAreServedWhileAnotherWalkStands();
    void rowIsTidyAfterAWalk();
    void connectionsAreACopy();
    void copiesAreIndependent();
    void moveTakesTheEntriesAlong();
    void tableAssignedToItselfStays();
    void movedTableServesNothing();
    void copyKeepsWhatAHostHasWritten();
    void erasedConnectionIsNotServed();
    void connectionComesBackInADelivery_data();
    void connectionComesBackInADelivery();
    void walkServesTheTableThatItBeganWith();
    void connectionGoesAfterItsTable();
    void destructorLeavesConnectionsAlone();
    void destroyedConnectionIsNeverUsed_data();
    void destroyedConnectionIsNeverUsed();
    void inputsKeepNoDestroyedConnectionEither();
    void tablesMayChangePlacesBetweenNodes();
};

void tst_CNodeState::hasOneEmptyMapPerPort()
{
    const CMessageCatcher messages;
    const CNodeState state = makeState(1, 2);
    QCOMPARE(state.getEntries(In).size(), std::size_t(1));
    QCOMPARE(state.getEntries(Out).size(), std::size_t(2));
    QVERIFY(state.getEntries(None).empty());
    for (const CNodeState::Connections& port : state.getEntries(Out))
        QVERIFY(port.empty());
    QVERIFY(state.connections(In, 0).empty());
    QVERIFY(state.connections(Out, 1).empty());
    QCOMPARE(messages.texts(), QStringList());

    const CNodeState none{std::unique_ptr<CNodeDataModel>()};
    QVERIFY(none.getEntries(In).empty());
    QVERIFY(none.getEntries(Out).empty());
}

void tst_CNodeState::portCountsAreReadOnce()
{
    class CUnsteadyModel : public CTestModel
    {
    public:
        unsigned int nPorts(ENodePortType side) const override
        {
            asked.push_back(side);
            return unsigned(asked.size());
        }
        mutable std::vector<ENodePortType> asked;
    };
    const std::unique_ptr<CNodeDataModel> model = std::make_unique<CUnsteadyModel>();
    const auto& asked = static_cast<CUnsteadyModel&>(*model).asked;

    const CNodeState state(model);

    QCOMPARE(asked, std::vector<ENodePortType>({In, Out}));
    QCOMPARE(state.getEntries(In).size(), std::size_t(1));
    QCOMPARE(state.getEntries(Out).size(), std::size_t(2));
    QCOMPARE(asked.size(), std::size_t(2));
}

void tst_CNodeState::morePortsThanAnIndexCanTellAreRefused()
{
    const std::unique_ptr<CNodeDataModel> model = std::make_unique<CTestModel>(unsigned(Largest) + 1);
    QVERIFY_EXCEPTION_THROWN(CNodeState{model}, std::bad_alloc);
}

void tst_CNodeState::missingPortIsReported_data()
{
    QTest::addColumn<ENodePortType>("portType");
    QTest::addColumn<NodePortIndex>("index");
    QTest::addColumn<QString>("place");

    QTest::newRow("no inputs") << In << 0 << " 0  of type  1";
    QTest::newRow("negative") << Out << -1 << " -1  of type  2";
    QTest::newRow("one too far") << Out << 2 << " 2  of type  2";
    QTest::newRow("largest") << Out << Largest << " 2147483647  of type  2";
    QTest::newRow("smallest") << Out << Smallest << " -2147483648  of type  2";
    QTest::newRow("neither side") << None << 0 << " 0  of type  0";
    QTest::newRow("neither side, negative") << None << -1 << " -1  of type  0";
    QTest::newRow("unknown side") << ENodePortType(7) << 1 << " 1  of type  7";
}

void tst_CNodeState::missingPortIsReported()
{
    QFETCH(const ENodePortType, portType);
    QFETCH(const NodePortIndex, index);
    QFETCH(const QString, place);
    const CNodeState state = makeState(0, 2);

    const CMessageCatcher messages;
    QVERIFY(state.connections(portType, index).empty());

    const QString text = QStringLiteral("Plugin::Halvex::CNodeState::connections : Could not find port ");
    QCOMPARE(messages.texts(), QStringList(text + place));
    QCOMPARE(messages.texts("default").size(), 1);
}

void tst_CNodeState::constAndModifiableEntriesAreTheSame()
{
    CNodeState state = makeState(1, 1);
    for (const ENodePortType side : {In, Out, None, ENodePortType(7)})
        QCOMPARE(&state.getEntries(side), &std::as_const(state).getEntries(side));
    QVERIFY(&state.getEntries(In) != &state.getEntries(Out));
    QCOMPARE(&state.getEntries(None), &state.getEntries(ENodePortType(7)));
}

void tst_CNodeState::setConnectionEntersItUnderItsId()
{
    SLooseConnection loose;
    CNodeState state = makeState(2, 2);
    const CNodeState::Connections expected{{loose.connection->id(), &*loose.connection}};
    for (int time = 0; time < 2; ++time) { // once is enough
        state.setConnection(Out, 1, *loose.connection);
        QCOMPARE(state.connections(Out, 1), expected);
    }
    QVERIFY(state.connections(Out, 0).empty());
    QVERIFY(state.connections(In, 1).empty());

    state.setConnection(In, 0, *loose.connection);
    QCOMPARE(state.connections(In, 0), expected);
}

void tst_CNodeState::settingLeavesAnEntryThatIsThere()
{
    SLooseConnection loose;
    SLooseConnection other;
    CNodeState state = makeState(1, 1);
    state.getEntries(Out)[0].emplace(loose.connection->id(), &*other.connection);
    state.setConnection(Out, 0, *loose.connection);
    QCOMPARE(std::as_const(state).getEntries(Out)[0].at(loose.connection->id()), &*other.connection);
}

void tst_CNodeState::erasingTakesOneEntryOut()
{
    SLooseConnection first;
    SLooseConnection second;
    CNodeState state = makeState(1, 2);
    state.setConnection(Out, 0, *first.connection);
    state.setConnection(Out, 0, *second.connection);
    state.setConnection(Out, 1, *first.connection);

    for (const Core::CId& id : {first.connection->id(), first.connection->id(), Core::CId::createId(), Core::CId()})
        state.eraseConnection(Out, 0, id);
    state.eraseConnection(In, 0, second.connection->id());

    QCOMPARE(state.connections(Out, 0), CNodeState::Connections({{second.connection->id(), &*second.connection}}));
    QCOMPARE(state.connections(Out, 1).size(), std::size_t(1));
}

void tst_CNodeState::missingPortIsNeitherSetNorErased()
{
    STable table;
    CNodeConnection& connection = *table.loose.connection;
    const CMessageCatcher messages;
    for (const NodePortIndex index : {-1, 2, Largest, Smallest}) {
        table.state.setConnection(Out, index, connection);
        table.state.eraseConnection(Out, index, connection.id());
    }
    table.state.setConnection(None, 0, connection);
    table.state.eraseConnection(None, 0, connection.id());

    QCOMPARE(table.state.getEntries(Out).size(), std::size_t(2));
    QCOMPARE(table.state.connections(Out, 1).size(), std::size_t(1));
    QVERIFY(table.state.getEntries(None).empty());
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CNodeState::tablesFollowOnceTheyWereMade()
{
    SLooseConnection first;
    SLooseConnection second;
    CNodeState state = makeState(1, 1);
    state.setConnection(Out, 0, *first.connection);
    const CNodeState::Connections& port = std::as_const(state).getEntries(Out)[0];
    QCOMPARE(port.size(), std::size_t(1));

    state.setConnection(Out, 0, *second.connection);
    QCOMPARE(port.size(), std::size_t(2));
    QCOMPARE(port.at(second.connection->id()), &*second.connection);
    state.eraseConnection(Out, 0, first.connection->id());
    QCOMPARE(port.size(), std::size_t(1));
    second.connection.reset();
    QVERIFY(port.empty());
}

void tst_CNodeState::nullEntryIsNeverUsed()
{
    const STestNode node;
    auto& port = node->nodeState().getEntries(Out)[0];
    const Core::CId id = Core::CId::createId();
    port.emplace(id, nullptr);
    node.model->offer(CTestData::make(1));
    node->nodeState().eraseConnection(Out, 0, id);
    QVERIFY(port.empty());
}

void tst_CNodeState::writtenEntriesAreServed()
{
    const STestNode source;
    SLooseConnection loose;
    auto& port = source->nodeState().getEntries(Out)[0];
    port.emplace(loose.connection->id(), &*loose.connection);
    source.model->offer(CTestData::make(1));
    port.clear();
    source.model->offer(CTestData::make(2));
    port.emplace(loose.connection->id(), &*loose.connection);
    source.model->offer(CTestData::make(3));
    // What the host takes out and enters again by other ways is served as well.
    port.clear();
    source->nodeState().setConnection(Out, 0, *loose.connection);
    source.model->offer(CTestData::make(4));
    QCOMPARE(loose.sink.model->values(), Numbers({1, 3, 4}));
}

void tst_CNodeState::writtenEntryTakesTheOthersPlace()
{
    const SLine line;
    SLooseConnection loose;
    line.source->nodeState().getEntries(Out)[0].at(line.connection->id()) = &*loose.connection;
    line.offer(1);
    QCOMPARE(line.values(), Numbers());
    QCOMPARE(loose.sink.model->values(), Numbers({1}));
}

void tst_CNodeState::writtenEntriesAreServedWhileAnotherWalkStands()
{
    const STestNode source;
    const STestNode sink;
    std::vector<std::unique_ptr<CNodeConnection>> connections(3);
    for (auto& connection : connections)
        connection = join(source, sink);
    auto& port = source->nodeState().getEntries(Out)[0];
    sink.model->onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (CTestData::valueOf(data) != 1 || connections.size() < 3)
            return;
        port.erase(connections[0]->id());
        connections.pop_back();
        source.model->offer(CTestData::make(2));
    };
    source.model->offer(CTestData::make(1));
    const Numbers values = sink.model->values();
    QCOMPARE(std::count(values.begin(), values.end(), 2), 1);
    QCOMPARE(CRowInspector::places(source->nodeState(), Out, 0), 1);
}

void tst_CNodeState::rowIsTidyAfterAWalk()
{
    const STestNode source;
    const STestNode sink;
    const auto stays = join(source, sink);
    std::vector<std::unique_ptr<CNodeConnection>> others(5);
    for (auto& other : others)
        other = join(source, sink);
    int places = 0;
    sink.model->onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (!data || others.empty())
            return;
        others[0]->removeFromNodes();
        others[1].reset();
        source.model->offer(CTestData::make(3)); // another walk, which is not to tidy up
        const auto going = std::move(others);
        others.clear();
        places = CRowInspector::places(source->nodeState(), Out, 0);
    };

    source.model->offer(CTestData::make(1));

    QCOMPARE(places, 6);
    QCOMPARE(CRowInspector::places(source->nodeState(), Out, 0), 1);
    sink.model->received.clear();
    source.model->offer(CTestData::make(2));
    QCOMPARE(sink.model->values(), Numbers({2}));
}

void tst_CNodeState::connectionsAreACopy()
{
    STable table;
    const CNodeState::Connections copy = table.state.connections(Out, 1);
    table.state.eraseConnection(Out, 1, table.loose.connection->id());
    QCOMPARE(copy.size(), std::size_t(1));
    QVERIFY(table.state.connections(Out, 1).empty());
}

void tst_CNodeState::copiesAreIndependent()
{
    STable table;
    CNodeState& state = table.state;
    CNodeState copy(state);
    CNodeState assigned = makeState(5, 0);
    assigned = state;
    for (const CNodeState* const each : {&copy, &assigned}) {
        QCOMPARE(each->getEntries(In), state.getEntries(In));
        QCOMPARE(each->getEntries(Out), state.getEntries(Out));
    }
    copy.eraseConnection(Out, 1, table.loose.connection->id());
    QVERIFY(copy.connections(Out, 1).empty());
    QCOMPARE(state.connections(Out, 1).size(), std::size_t(1));
    state.eraseConnection(Out, 1, table.loose.connection->id());
    QCOMPARE(assigned.connections(Out, 1).size(), std::size_t(1));
}

void tst_CNodeState::moveTakesTheEntriesAlong()
{
    STable table;
    CNodeState moved(std::move(table.state));
    QCOMPARE(moved.getEntries(In).size(), std::size_t(1));
    QCOMPARE(moved.connections(Out, 1).size(), std::size_t(1));

    CNodeState assigned = makeState(5, 0);
    assigned = std::move(moved);
    QCOMPARE(assigned.getEntries(In).size(), std::size_t(1));
    QCOMPARE(assigned.connections(Out, 1).size(), std::size_t(1));
}

void tst_CNodeState::tableAssignedToItselfStays()
{
    const SLine line;
    CNodeState& table = line.source->nodeState();
    CNodeState& same = line.source->nodeState();
    table = same;
    table = std::move(same);
    line.offer(1);
    QCOMPARE(line.values(), Numbers({1}));
}

void tst_CNodeState::movedTableServesNothing()
{
    const SLine line;
    const CNodeState moved(std::move(line.source->nodeState()));
    line.offer(1);
    QCOMPARE(line.values(), Numbers());
    QCOMPARE(moved.connections(Out, 0).size(), std::size_t(1));
}

void tst_CNodeState::copyKeepsWhatAHostHasWritten()
{
    STable table;
    table.state.getEntries(Out)[0].emplace(Core::CId::createId(), nullptr);
    table.state.getEntries(Out)[1].clear();
    const CNodeState copy(table.state);
    QCOMPARE(copy.getEntries(Out), std::as_const(table.state).getEntries(Out));
    QVERIFY(copy.connections(Out, 1).empty());
    QVERIFY(table.state.connections(Out, 1).empty());

    const CNodeState moved(std::move(table.state));
    QCOMPARE(moved.getEntries(Out), copy.getEntries(Out));
    QVERIFY(std::as_const(table.state).getEntries(Out).empty()); // NOLINT(bugprone-use-after-move): it has no ports
}

void tst_CNodeState::erasedConnectionIsNotServed()
{
    const SLine line;
    line.source->nodeState().eraseConnection(Out, 0, line.connection->id());
    line.offer(1);
    QCOMPARE(line.values(), Numbers());
}

void tst_CNodeState::connectionComesBackInADelivery_data()
{
    QTest::addColumn<ComingBack>("comesBack");
    QTest::newRow("erased and set") << ComingBack([](const SLine& line) {
        line.source->nodeState().eraseConnection(Out, 0, line.connection->id());
        line.source->nodeState().setConnection(Out, 0, *line.connection);
    });
    QTest::newRow("taken out and set") << ComingBack([](const SLine& line) {
        line.connection->removeFromNodes();
        enter(*line.connection);
    });
    QTest::newRow("copied and assigned") << ComingBack([](const SLine& line) {
        const CNodeState copy(line.source->nodeState());
        line.source->nodeState() = copy;
    });
    QTest::newRow("written, copied and assigned") << ComingBack([](const SLine& line) {
        CNodeState copy(line.source->nodeState());
        copy.getEntries(Out);
        line.source->nodeState() = copy;
    });
}

void tst_CNodeState::connectionComesBackInADelivery()
{
    QFETCH(const ComingBack, comesBack);
    const SLine line;
    line.source.model->onSetInData = [&](const CNodeDataPtr& data, int) {
        comesBack(line);
        line.source.model->offer(data);
    };
    line.source->propagateData(CTestData::make(1), 0);
    line.offer(2);
    QCOMPARE(line.values(), Numbers({1, 2}));
}

void tst_CNodeState::walkServesTheTableThatItBeganWith()
{
    const SLine line;
    const auto second = join(line.source, line.sink);
    line.sink.model->onSetInData = [&line](const CNodeDataPtr&, int) { line.source->nodeState() = makeState(1, 1); };
    for (int frame : {1, 2}) {
        line.offer(frame);
        QCOMPARE(line.values(), Numbers({1, 1}));
    }
    QCOMPARE(CRowInspector::places(line.source->nodeState(), Out, 0), 0);
}

void tst_CNodeState::connectionGoesAfterItsTable()
{
    SLine line;
    line.sink.model->onSetInData = [&line](const CNodeDataPtr& data, int) {
        if (!data)
            return;
        CNodeState withoutPorts = makeState(0, 0);
        withoutPorts.getEntries(Out); // a host asks for its tables
        line.source->nodeState() = std::move(withoutPorts);
        line.connection.reset();
    };
    line.offer(1);
    QVERIFY(line.source->nodeState().getEntries(Out).empty());
    QCOMPARE(line.values(), Numbers({1, -1}));
}

void tst_CNodeState::destructorLeavesConnectionsAlone()
{
    SLooseConnection loose;
    {
        CNodeState state = makeState(1, 1);
        state.setConnection(Out, 0, *loose.connection);
    }
    loose.connection->propagateData(CTestData::make(3));
    QCOMPARE(loose.sink.model->values(), Numbers({3}));
}

void tst_CNodeState::destroyedConnectionIsNeverUsed_data()
{
    QTest::addColumn<bool>("isEnteredAtHolder");
    QTest::addColumn<WayIn>("comeIn");

    // clang-format off
    const auto addRow = [](const char* name, bool isEnteredAtHolder, WayIn comeIn) {
        QTest::newRow(name) << isEnteredAtHolder << comeIn;
    };
    using World = SForeignConnection;
    addRow("another node's table", false, [](World& w) { w.holder->nodeState().setConnection(Out, 0, *w.connection); });
    addRow("assigned table", false, [](World& w) { w.holder->nodeState() = w.table; });
    addRow("move-assigned table", false, [](World& w) { w.holder->nodeState() = std::move(w.table); });
    addRow("table of its own node", false, [](World& w) { w.holder->nodeState() = w.source->nodeState(); });
    addRow("moved from its own node", false, [](World& w) { w.holder->nodeState() = std::move(w.source->nodeState()); });
    addRow("end set to another node", true, [](World& w) { w.connection->setNodeToPort(*w.source, Out, 0); });
    addRow("end set by no side", true, [](World& w) { w.connection->setNodeToPort(*w.source, None, 0); });
    addRow("end set to another port", true, [](World& w) { w.connection->setNodeToPort(*w.holder, Out, 1); });
    addRow("end cleared", true, [](World& w) { w.connection->clearNode(Out); });
    addRow("end cleared by no side", true, [](World& w) { w.connection->clearNode(None); });
    addRow("end overwritten", true, [](World& w) { w.connection->getNode(Out) = w.source.node.get(); });
    addRow("end overwritten with null", true, [](World& w) { w.connection->getNode(Out) = nullptr; });
    // clang-format on
}

void tst_CNodeState::destroyedConnectionIsNeverUsed()
{
    QFETCH(const bool, isEnteredAtHolder);
    QFETCH(const WayIn, comeIn);
    SForeignConnection world;
    if (isEnteredAtHolder)
        world.connection->setNodeToPort(*world.holder, Out, 0);
    enter(*world.connection);
    comeIn(world);
    const STestNode& holder = world.holder;
    QCOMPARE(holder.outputs().size(), std::size_t(1));
    holder.model->offer(CTestData::make(1));
    QCOMPARE(world.sink.model->values(), Numbers({1}));

    const CNodeConnection* const place = &*world.connection;
    world.connection.reset();
    for (const bool isPlaceTaken : {false, true}) { // by one that is not to be taken for it
        if (isPlaceTaken) {
            world.make();
            QCOMPARE(&*world.connection, place);
        }
        world.sink.model->received.clear();
        QVERIFY(holder.outputs().empty());
        QVERIFY(CNodeState(holder->nodeState()).connections(Out, 0).empty());
        holder.model->offer(CTestData::make(2));
        holder->propagateData(CTestData::make(3), 0);
        world.source.model->offer(CTestData::make(4));
        QVERIFY(world.sink.model->received.empty());
    }
}

void tst_CNodeState::inputsKeepNoDestroyedConnectionEither()
{
    for (const ENodePortType side :
         {In, None}) { // the latter moves the index of the in end and the node of the out end
        const STestNode source;
        const STestNode sink(2, 0);
        auto connection = join(source, sink);
        connection->setNodeToPort(side == In ? *sink : *source, side, 1);
        QCOMPARE(sink->nodeState().connections(In, 0).size(), std::size_t(1));
        connection.reset();
        QVERIFY(sink->nodeState().connections(In, 0).empty());
    }
}

void tst_CNodeState::tablesMayChangePlacesBetweenNodes()
{
    SLine line;
    const STestNode second;
    std::swap(line.source->nodeState(), second->nodeState());

    second.model->offer(CTestData::make(5));
    QCOMPARE(line.values(), Numbers({5}));

    line.connection.reset();
    line.sink.model->received.clear();
    line.offer(6);
    second.model->offer(CTestData::make(7));
    QCOMPARE(line.values(), Numbers());
    QVERIFY(second.outputs().empty());
}

QTEST_GUILESS_MAIN(tst_CNodeState)

#include "tst_CNodeState.moc"
