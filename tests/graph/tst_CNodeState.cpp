// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeState.h>

#include "support/CMessageCatcher.h"
#include "support/CRowInspector.h"
#include "support/STestNode.h"

#include <QtTest>

#include <algorithm>
#include <functional>
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

/// A table for a model with these ports.
CNodeState makeState(unsigned int inPorts, unsigned int outPorts)
{
    return CNodeState(std::make_unique<CTestModel>(inPorts, outPorts));
}

/// Two nodes and a connection between them that no table holds, in a place where another can follow it.
struct SLooseConnection
{
    SLooseConnection() { connection.emplace(*sink, 0, *source, 0, NodeDataConverter()); }

    STestNode source;
    STestNode sink;
    std::optional<CNodeConnection> connection;
};

/// Counts how often each side's ports are asked for, and changes its mind each time.
class CUnsteadyModel : public CTestModel
{
public:
    unsigned int nPorts(ENodePortType portType) const override
    {
        asked.push_back(portType);
        return unsigned(asked.size());
    }
    mutable std::vector<ENodePortType> asked;
};

} // namespace

class tst_CNodeState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasOneEmptyMapPerPort();
    void portCountsAreReadOnce();
    void nullModelHasNoPorts();
    void morePortsThanAnIndexCanTellAreRefused();
    void missingPortIsReported_data();
    void missingPortIsReported();
    void existingPortIsNotReported();
    void constAndModifiableEntriesAreTheSame();
    void setConnectionEntersItUnderItsId();
    void connectionOfAnotherPortIsGoneWhenDestroyed();
    void settingTwiceLeavesOneEntry();
    void settingLeavesAnEntryThatIsThere();
    void erasingTakesOneEntryOut();
    void erasingWhatIsNotThereChangesNothing();
    void nullEntryIsErased();
    void missingPortIsNeitherSetNorErased();
    void tablesFollowOnceTheyWereMade();
    void writtenEntriesAreServed();
    void writtenEntryTakesTheOthersPlace();
    void writtenEntriesAreServedWhileAnotherWalkStands();
    void rowIsTidyAfterAWalk();
    void connectionsAreACopy();
    void copyIsIndependent();
    void assignedCopyIsIndependent();
    void tableAssignedToItselfStays();
    void moveTakesTheEntriesAlong();
    void movedTableServesNothing();
    void walkServesTheTableThatItBeganWith();
    void destructorLeavesConnectionsAlone();
    void connectionLeavesItsOwnTables();
    void destroyedConnectionIsNeverUsed_data();
    void destroyedConnectionIsNeverUsed();
    void connectionInAnothersPlaceIsNotTakenForIt_data();
    void connectionInAnothersPlaceIsNotTakenForIt();
    void inputsKeepNoDestroyedConnectionEither_data();
    void inputsKeepNoDestroyedConnectionEither();
    void nullEntryIsNeverUsed();
    void tablesMayChangePlacesBetweenNodes();

private:
    static void addWaysIntoATable();
};

void tst_CNodeState::hasOneEmptyMapPerPort()
{
    const CNodeState state = makeState(0, 2);
    QVERIFY(state.getEntries(In).empty());
    QCOMPARE(state.getEntries(Out).size(), std::size_t(2));
    QVERIFY(state.getEntries(None).empty());
    for (const CNodeState::Connections& port : state.getEntries(Out))
        QVERIFY(port.empty());

    QCOMPARE(makeState(3, 0).getEntries(In).size(), std::size_t(3));
}

void tst_CNodeState::portCountsAreReadOnce()
{
    auto owned = std::make_unique<CUnsteadyModel>();
    const CUnsteadyModel& model = *owned;
    const std::unique_ptr<CNodeDataModel> held = std::move(owned);

    const CNodeState state(held);

    QCOMPARE(model.asked, std::vector<ENodePortType>({In, Out}));
    QCOMPARE(state.getEntries(In).size(), std::size_t(1));
    QCOMPARE(state.getEntries(Out).size(), std::size_t(2));
    QCOMPARE(model.asked.size(), std::size_t(2));
}

void tst_CNodeState::morePortsThanAnIndexCanTellAreRefused()
{
    const std::unique_ptr<CNodeDataModel> model =
        std::make_unique<CTestModel>(unsigned(std::numeric_limits<NodePortIndex>::max()) + 1);
    QVERIFY_EXCEPTION_THROWN(CNodeState{model}, std::bad_alloc);
}

void tst_CNodeState::nullModelHasNoPorts()
{
    const CNodeState state{std::unique_ptr<CNodeDataModel>()};
    QVERIFY(state.getEntries(In).empty());
    QVERIFY(state.getEntries(Out).empty());
}

void tst_CNodeState::missingPortIsReported_data()
{
    QTest::addColumn<ENodePortType>("portType");
    QTest::addColumn<NodePortIndex>("index");
    QTest::addColumn<QString>("place");

    QTest::newRow("no inputs") << In << 0 << " 0  of type  1";
    QTest::newRow("negative") << Out << -1 << " -1  of type  2";
    QTest::newRow("one too far") << Out << 2 << " 2  of type  2";
    QTest::newRow("largest") << Out << std::numeric_limits<int>::max() << " 2147483647  of type  2";
    QTest::newRow("smallest") << Out << std::numeric_limits<int>::min() << " -2147483648  of type  2";
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

void tst_CNodeState::existingPortIsNotReported()
{
    const CNodeState state = makeState(1, 2);
    const CMessageCatcher messages;
    QVERIFY(state.connections(In, 0).empty());
    QVERIFY(state.connections(Out, 1).empty());
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CNodeState::constAndModifiableEntriesAreTheSame()
{
    CNodeState state = makeState(1, 1);
    for (const ENodePortType side : {In, Out, None, ENodePortType(7)})
        QCOMPARE(&state.getEntries(side), &std::as_const(state).getEntries(side));
    QVERIFY(&state.getEntries(In) != &state.getEntries(Out));
    QCOMPARE(&state.getEntries(None), &state.getEntries(ENodePortType(7)));

    const Core::CId id = Core::CId::createId();
    state.getEntries(Out)[0].emplace(id, nullptr);
    QCOMPARE(std::as_const(state).getEntries(Out)[0].count(id), std::size_t(1));
    QVERIFY(std::as_const(state).getEntries(In)[0].empty());
}

void tst_CNodeState::setConnectionEntersItUnderItsId()
{
    SLooseConnection loose;
    CNodeState state = makeState(2, 2);
    state.setConnection(Out, 1, *loose.connection);

    const CNodeState::Connections expected{{loose.connection->id(), &*loose.connection}};
    QCOMPARE(state.connections(Out, 1), expected);
    QVERIFY(state.connections(Out, 0).empty());
    QVERIFY(state.connections(In, 1).empty());

    state.setConnection(In, 0, *loose.connection);
    QCOMPARE(state.connections(In, 0), expected);
}

void tst_CNodeState::connectionOfAnotherPortIsGoneWhenDestroyed()
{
    const STestNode source(1, 2);
    const STestNode sink;
    auto connection = std::make_unique<CNodeConnection>(*sink, 0, *source, 0, NodeDataConverter());
    source->nodeState().setConnection(Out, 1, *connection);
    QCOMPARE(source.outputs(1).size(), std::size_t(1));

    connection.reset();

    QVERIFY(source.outputs(1).empty());
    sink.model->received.clear();
    source.model->offer(CTestData::make(1), 1);
    QVERIFY(sink.model->received.empty());
}

void tst_CNodeState::settingTwiceLeavesOneEntry()
{
    SLooseConnection loose;
    CNodeState state = makeState(1, 1);
    state.setConnection(Out, 0, *loose.connection);
    state.setConnection(Out, 0, *loose.connection);
    QCOMPARE(state.connections(Out, 0).size(), std::size_t(1));
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

    state.eraseConnection(Out, 0, first.connection->id());

    QCOMPARE(state.connections(Out, 0), CNodeState::Connections({{second.connection->id(), &*second.connection}}));
    QCOMPARE(state.connections(Out, 1).size(), std::size_t(1));
}

void tst_CNodeState::erasingWhatIsNotThereChangesNothing()
{
    SLooseConnection loose;
    CNodeState state = makeState(1, 1);
    state.setConnection(Out, 0, *loose.connection);
    state.eraseConnection(Out, 0, Core::CId::createId());
    state.eraseConnection(Out, 0, Core::CId());
    state.eraseConnection(In, 0, loose.connection->id());
    QCOMPARE(state.connections(Out, 0).size(), std::size_t(1));
}

void tst_CNodeState::nullEntryIsErased()
{
    CNodeState state = makeState(0, 1);
    const Core::CId id = Core::CId::createId();
    state.getEntries(Out)[0].emplace(id, nullptr);
    state.eraseConnection(Out, 0, id);
    QVERIFY(state.getEntries(Out)[0].empty());
}

void tst_CNodeState::missingPortIsNeitherSetNorErased()
{
    SLooseConnection loose;
    CNodeState state = makeState(1, 1);
    state.setConnection(Out, 0, *loose.connection);
    const CMessageCatcher messages;
    for (const NodePortIndex index : {-1, 1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        state.setConnection(Out, index, *loose.connection);
        state.eraseConnection(Out, index, loose.connection->id());
    }
    state.setConnection(None, 0, *loose.connection);
    state.eraseConnection(None, 0, loose.connection->id());

    QCOMPARE(state.getEntries(Out).size(), std::size_t(1));
    QCOMPARE(state.connections(Out, 0).size(), std::size_t(1));
    QVERIFY(state.getEntries(None).empty());
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

void tst_CNodeState::writtenEntriesAreServed()
{
    const STestNode source;
    const SLooseConnection loose;
    auto& port = source->nodeState().getEntries(Out)[0];
    port.emplace(loose.connection->id(), const_cast<CNodeConnection*>(&*loose.connection));
    source.model->offer(CTestData::make(1));
    port.clear();
    source.model->offer(CTestData::make(2));
    port.emplace(loose.connection->id(), const_cast<CNodeConnection*>(&*loose.connection));
    source.model->offer(CTestData::make(3));
    // What the host takes out and enters again by other ways is served as well.
    port.clear();
    source->nodeState().setConnection(Out, 0, const_cast<CNodeConnection&>(*loose.connection));
    source.model->offer(CTestData::make(4));
    QCOMPARE(loose.sink.model->values(), std::vector<int>({1, 3, 4}));
}

void tst_CNodeState::writtenEntryTakesTheOthersPlace()
{
    const STestNode source;
    const STestNode sink;
    const auto connection = join(source, sink);
    SLooseConnection loose;
    source->nodeState().getEntries(Out)[0].at(connection->id()) = &*loose.connection;
    source.model->offer(CTestData::make(1));
    QVERIFY(sink.model->received.empty());
    QCOMPARE(loose.sink.model->values(), std::vector<int>({1}));
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
    const std::vector<int> values = sink.model->values();
    QCOMPARE(std::count(values.begin(), values.end(), 2), 1);
    QCOMPARE(CRowInspector::places(source->nodeState(), Out, 0), 1);
}

void tst_CNodeState::rowIsTidyAfterAWalk()
{
    const STestNode source;
    const STestNode sink;
    auto stays = join(source, sink);
    std::vector<std::unique_ptr<CNodeConnection>> others(5);
    for (auto& other : others)
        other = join(source, sink);
    int places = 0;
    sink.model->onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (!data || others.empty())
            return;
        others[0]->removeFromNodes();
        others[1].reset();
        const auto going = std::move(others);
        others.clear();
        places = CRowInspector::places(source->nodeState(), Out, 0);
    };

    source.model->offer(CTestData::make(1));

    QVERIFY(places > 1);
    QCOMPARE(CRowInspector::places(source->nodeState(), Out, 0), 1);
    sink.model->received.clear();
    source.model->offer(CTestData::make(2));
    QCOMPARE(sink.model->values(), std::vector<int>({2}));
}

void tst_CNodeState::connectionsAreACopy()
{
    SLooseConnection first;
    SLooseConnection second;
    CNodeState state = makeState(1, 1);
    state.setConnection(Out, 0, *first.connection);
    state.setConnection(Out, 0, *second.connection);

    const CNodeState::Connections copy = state.connections(Out, 0);
    int visited = 0;
    for (const auto& entry : copy) {
        state.eraseConnection(Out, 0, first.connection->id());
        state.eraseConnection(Out, 0, second.connection->id());
        QVERIFY(entry.second->id() == entry.first);
        ++visited;
    }

    QCOMPARE(visited, 2);
    QVERIFY(state.connections(Out, 0).empty());
}

void tst_CNodeState::copyIsIndependent()
{
    SLooseConnection loose;
    CNodeState state = makeState(1, 2);
    state.setConnection(Out, 1, *loose.connection);

    CNodeState copy(state);
    QCOMPARE(copy.getEntries(In), state.getEntries(In));
    QCOMPARE(copy.getEntries(Out), state.getEntries(Out));
    copy.eraseConnection(Out, 1, loose.connection->id());

    QVERIFY(copy.connections(Out, 1).empty());
    QCOMPARE(state.connections(Out, 1).size(), std::size_t(1));
}

void tst_CNodeState::assignedCopyIsIndependent()
{
    SLooseConnection loose;
    CNodeState state = makeState(1, 2);
    state.setConnection(Out, 1, *loose.connection);

    CNodeState copy = makeState(5, 0);
    copy = state;
    QCOMPARE(copy.getEntries(In).size(), std::size_t(1));
    QCOMPARE(copy.getEntries(Out), state.getEntries(Out));
    state.eraseConnection(Out, 1, loose.connection->id());

    QCOMPARE(copy.connections(Out, 1).size(), std::size_t(1));
}

void tst_CNodeState::moveTakesTheEntriesAlong()
{
    SLooseConnection loose;
    CNodeState state = makeState(1, 2);
    state.setConnection(Out, 1, *loose.connection);

    CNodeState moved(std::move(state));
    QCOMPARE(moved.getEntries(In).size(), std::size_t(1));
    QCOMPARE(moved.connections(Out, 1).size(), std::size_t(1));

    CNodeState assigned = makeState(5, 0);
    assigned = std::move(moved);
    QCOMPARE(assigned.getEntries(In).size(), std::size_t(1));
    QCOMPARE(assigned.connections(Out, 1).size(), std::size_t(1));
}

void tst_CNodeState::tableAssignedToItselfStays()
{
    const STestNode source;
    const STestNode sink;
    const auto connection = join(source, sink);
    CNodeState& table = source->nodeState();
    CNodeState& same = source->nodeState();
    table = same;
    table = std::move(same);
    source.model->offer(CTestData::make(1));
    QCOMPARE(sink.model->values(), std::vector<int>({1}));
}

void tst_CNodeState::walkServesTheTableThatItBeganWith()
{
    const STestNode source;
    const STestNode sink;
    const auto first = join(source, sink);
    const auto second = join(source, sink);
    sink.model->onSetInData = [&](const CNodeDataPtr&, NodePortIndex) { source->nodeState() = makeState(1, 1); };
    source.model->offer(CTestData::make(1));
    QCOMPARE(sink.model->values(), std::vector<int>({1, 1}));
    source.model->offer(CTestData::make(2));
    QCOMPARE(sink.model->values(), std::vector<int>({1, 1}));
    QCOMPARE(CRowInspector::places(source->nodeState(), Out, 0), 0);
}

void tst_CNodeState::movedTableServesNothing()
{
    const STestNode source;
    const STestNode sink;
    const auto connection = join(source, sink);

    const CNodeState moved(std::move(source->nodeState()));
    source.model->offer(CTestData::make(1));

    QVERIFY(sink.model->received.empty());
    QCOMPARE(moved.connections(Out, 0).size(), std::size_t(1));
}

void tst_CNodeState::destructorLeavesConnectionsAlone()
{
    SLooseConnection loose;
    {
        CNodeState state = makeState(1, 1);
        state.setConnection(Out, 0, *loose.connection);
    }
    loose.connection->propagateData(CTestData::make(3));
    QCOMPARE(loose.sink.model->values(), std::vector<int>({3}));
}

void tst_CNodeState::connectionLeavesItsOwnTables()
{
    SLooseConnection loose;
    enter(*loose.connection);
    loose.connection.reset();
    // Looked at directly, since connections() might merely have left a stale entry out.
    QVERIFY(std::as_const(*loose.source).nodeState().getEntries(Out)[0].empty());
    QVERIFY(std::as_const(*loose.sink).nodeState().getEntries(In)[0].empty());
}

/// How a connection comes into a node's table from which it will not take itself out.
using WayIntoATable = std::function<void(CNodeBase& holder, CNodeConnection& connection)>;
Q_DECLARE_METATYPE(WayIntoATable)

void tst_CNodeState::addWaysIntoATable()
{
    QTest::addColumn<WayIntoATable>("enterInto");

    QTest::newRow("another node's table") << WayIntoATable(
        [](CNodeBase& holder, CNodeConnection& connection) { holder.nodeState().setConnection(Out, 0, connection); });
    QTest::newRow("assigned table") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        CNodeState state = makeState(1, 1);
        state.setConnection(Out, 0, connection);
        holder.nodeState() = state;
    });
    QTest::newRow("move-assigned table") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        CNodeState state = makeState(1, 1);
        state.setConnection(Out, 0, connection);
        holder.nodeState() = std::move(state);
    });
    QTest::newRow("table of its own node") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        enter(connection);
        holder.nodeState() = std::as_const(connection).getNode(Out)->nodeState();
    });
    QTest::newRow("moved from its own node") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        enter(connection);
        holder.nodeState() = std::move(std::as_const(connection).getNode(Out)->nodeState());
    });
    QTest::newRow("end set to another node") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        CNodeBase& source = *std::as_const(connection).getNode(Out);
        connection.setNodeToPort(holder, Out, 0);
        enter(connection);
        connection.setNodeToPort(source, Out, 0);
    });
    QTest::newRow("end set by no side") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        CNodeBase& source = *std::as_const(connection).getNode(Out);
        connection.setNodeToPort(holder, Out, 0);
        enter(connection);
        connection.setNodeToPort(source, None, 0);
    });
    QTest::newRow("end set to another port") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        connection.setNodeToPort(holder, Out, 0);
        enter(connection);
        connection.setNodeToPort(holder, Out, 1);
    });
    QTest::newRow("end cleared") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        connection.setNodeToPort(holder, Out, 0);
        enter(connection);
        connection.clearNode(Out);
    });
    QTest::newRow("end cleared by no side") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        connection.setNodeToPort(holder, Out, 0);
        enter(connection);
        connection.clearNode(None);
    });
    QTest::newRow("end overwritten") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        CNodeBase* const source = std::as_const(connection).getNode(Out);
        connection.setNodeToPort(holder, Out, 0);
        enter(connection);
        connection.getNode(Out) = source;
    });
    QTest::newRow("end overwritten with null") << WayIntoATable([](CNodeBase& holder, CNodeConnection& connection) {
        connection.setNodeToPort(holder, Out, 0);
        enter(connection);
        connection.getNode(Out) = nullptr;
    });
}

void tst_CNodeState::destroyedConnectionIsNeverUsed_data()
{
    addWaysIntoATable();
}

void tst_CNodeState::destroyedConnectionIsNeverUsed()
{
    QFETCH(const WayIntoATable, enterInto);
    const STestNode holder;
    const STestNode source;
    const STestNode sink;
    auto connection = std::make_unique<CNodeConnection>(*sink, 0, *source, 0, NodeDataConverter());
    enterInto(*holder, *connection);
    QCOMPARE(holder.outputs().size(), std::size_t(1));
    holder.model->offer(CTestData::make(1));
    QCOMPARE(sink.model->values(), std::vector<int>({1}));

    connection.reset();
    sink.model->received.clear();

    QVERIFY(holder.outputs().empty());
    QVERIFY(CNodeState(holder->nodeState()).connections(Out, 0).empty());
    holder.model->offer(CTestData::make(2));
    holder->propagateData(CTestData::make(4), 0);
    if (!std::as_const(*source).nodeState().getEntries(Out).empty())
        source.model->offer(CTestData::make(3));
    QVERIFY(sink.model->received.empty());
}

void tst_CNodeState::connectionInAnothersPlaceIsNotTakenForIt_data()
{
    addWaysIntoATable();
}

void tst_CNodeState::connectionInAnothersPlaceIsNotTakenForIt()
{
    QFETCH(const WayIntoATable, enterInto);
    const STestNode holder;
    SLooseConnection loose;
    const CNodeConnection* const place = &*loose.connection;
    enterInto(*holder, *loose.connection);
    loose.connection.reset();
    loose.sink.model->received.clear();

    loose.connection.emplace(*loose.sink, 0, *loose.source, 0, NodeDataConverter());

    QCOMPARE(&*loose.connection, place);
    QVERIFY(holder.outputs().empty());
    holder.model->offer(CTestData::make(2));
    holder->propagateData(CTestData::make(3), 0);
    QVERIFY(loose.sink.model->received.empty());
}

void tst_CNodeState::inputsKeepNoDestroyedConnectionEither_data()
{
    QTest::addColumn<ENodePortType>("side");

    QTest::newRow("set for the side") << In;
    QTest::newRow("set for no side") << None; // moves the index of the in end and the node of the out end
}

void tst_CNodeState::inputsKeepNoDestroyedConnectionEither()
{
    QFETCH(const ENodePortType, side);
    const STestNode source;
    const STestNode sink(2, 0);
    auto connection = join(source, sink);
    connection->setNodeToPort(side == In ? *sink : *source, side, 1);
    QCOMPARE(sink->nodeState().connections(In, 0).size(), std::size_t(1));

    connection.reset();

    QVERIFY(sink->nodeState().connections(In, 0).empty());
}

void tst_CNodeState::nullEntryIsNeverUsed()
{
    const STestNode node;
    node->nodeState().getEntries(Out)[0].emplace(Core::CId::createId(), nullptr);
    node.model->offer(CTestData::make(1));
}

void tst_CNodeState::tablesMayChangePlacesBetweenNodes()
{
    const STestNode first;
    const STestNode second;
    const STestNode sink;
    auto connection = join(first, sink);
    std::swap(first->nodeState(), second->nodeState());

    second.model->offer(CTestData::make(5));
    QCOMPARE(sink.model->values(), std::vector<int>({5}));

    connection.reset();
    sink.model->received.clear();
    first.model->offer(CTestData::make(6));
    second.model->offer(CTestData::make(7));
    QVERIFY(sink.model->received.empty());
    QVERIFY(second.outputs().empty());
}

QTEST_GUILESS_MAIN(tst_CNodeState)

#include "tst_CNodeState.moc"
