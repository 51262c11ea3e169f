// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeConnection.h>

#include "graph/TestGraph.h"
#include "support/CGraphInspector.h"
#include "support/CMessageCatcher.h"

#include <QtTest>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

using namespace Plugin::Halvex;

namespace {

constexpr ENodePortType In = ENodePortType::In;
constexpr ENodePortType Out = ENodePortType::Out;

using Numbers = std::vector<int>;

/// Runs \a work when the last copy of it is gone.
std::shared_ptr<void> atTheEnd(std::function<void()> work)
{
    return std::shared_ptr<void>(nullptr, [work = std::move(work)](void*) { work(); });
}

/// A converter that changes nothing and holds something.
NodeDataConverter holding(std::shared_ptr<void> held)
{
    return [held = std::move(held)](CNodeDataPtr data) { return data; };
}

} // namespace

/// Converters, what they hold, and models: foreign code that a connection calls and that may do anything to it.
class tst_CNodeConnectionCallbacks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void converterOutlivesTheLastDelivery();
    void connectionIsWholeInTheLastDelivery();
    void dyingConnectionTakesNoConverter();
    void converterMayDestroyTheConnection();
    void converterLivesUntilItReturns();
    void converterMayPutAnotherConnectionInItsPlace();
    void converterMayReplaceItself();
    void converterMayBeReplacedTwiceWhileItRuns();
    void converterMayChangeTheInEnd();
    void whatAConverterHeldMayTakeTheInNodeAlong();
    void whatAConverterHeldMayTakeTheConnectionAlong();
    void whatAConverterHeldMayUseADyingConnection();
    void modelMayDestroyTheConnectionThatServesIt();
    void modelMayDestroyTheConnectionThatItIsSavedFor();
    void nodeLivesUntilItsModelHasNamedAType();
    void modelMayMoveTheEndInTheLastDelivery();
    void modelMayEnterADyingConnection();
    void exceptionsOfDeliveriesPassThrough();
    void exceptionsOfTheLastDeliveryAreReported();
};

void tst_CNodeConnectionCallbacks::converterOutlivesTheLastDelivery()
{
    QStringList events;
    SPair pair(holding(atTheEnd([&events] { events << QStringLiteral("converter gone"); })));
    pair.sink.model->onSetInData = [&events](const CNodeDataPtr&, NodePortIndex) {
        events << QStringLiteral("delivered");
    };
    pair.connection.reset();
    QCOMPARE(events, QStringList({"delivered", "converter gone"}));
}

void tst_CNodeConnectionCallbacks::connectionIsWholeInTheLastDelivery()
{
    SPair pair;
    std::size_t entries = 0;
    pair.sink.model->onSetInData = [&](const CNodeDataPtr&, NodePortIndex) { entries = pair.source.outputs(1).size(); };
    pair.connection.reset();
    QCOMPARE(entries, std::size_t(1));
    QVERIFY(pair.source.outputs(1).empty());
}

void tst_CNodeConnectionCallbacks::dyingConnectionTakesNoConverter()
{
    SPair pair;
    CNodeConnection* const dying = pair.connection.get();
    pair.connection->setTypeConverter(holding(atTheEnd([dying] {
        dying->setTypeConverter([](const CNodeDataPtr&) { return CTestData::make(5); });
        dying->propagateEmptyData();
    })));
    pair.connection.reset();
    QCOMPARE(pair.values(), Numbers({-1, -1}));
}

void tst_CNodeConnectionCallbacks::converterMayDestroyTheConnection()
{
    SPair pair;
    int seen = 0;
    const auto destroy = [&pair, &seen](int value) {
        pair.connection.reset();
        seen = value;
    };
    const auto small = [&destroy](CNodeDataPtr data) {
        if (data)
            destroy(5);
        return data;
    };
    static_assert(sizeof(small) <= 2 * sizeof(void*), "lies inside of the std::function, in what the connection owns");
    const auto large = [&destroy, state = Numbers(1000, 6)](CNodeDataPtr data) {
        if (data)
            destroy(state.back());
        return data;
    };
    int expected = 5;
    for (const NodeDataConverter& converter : {NodeDataConverter(small), NodeDataConverter(large)}) {
        pair.connection = join(pair.source, pair.sink, converter, 1, 2);
        pair.sink.model->received.clear();
        pair.source.model->offer(CTestData::make(1), 1);
        QCOMPARE(seen, expected++);
        QCOMPARE(pair.values(), Numbers({-1}));
    }
}

void tst_CNodeConnectionCallbacks::converterLivesUntilItReturns()
{
    bool isHeld = true;
    bool wasHeldWhileItRan = false;
    SPair pair;
    const auto destroy = [&] { // what the converter captured must not be asked for this
        pair.connection.reset();
        wasHeldWhileItRan = isHeld;
    };
    pair.connection->setTypeConverter(
        [&destroy, end = atTheEnd([&isHeld] { isHeld = false; })](const CNodeDataPtr& data) {
            if (data)
                destroy();
            return data;
        });
    pair.source.model->offer(CTestData::make(1), 1);
    QVERIFY(wasHeldWhileItRan && !isHeld);
}

void tst_CNodeConnectionCallbacks::converterMayPutAnotherConnectionInItsPlace()
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

    QCOMPARE(sink.model->values(), Numbers({-1}));
    QVERIFY(late.model->received.empty());
}

void tst_CNodeConnectionCallbacks::converterMayReplaceItself()
{
    bool isHeld = true;
    bool wasHeldWhileItRan = false;
    const SPair pair;
    const auto replace = [&] { // what the converter captured must not be asked for this
        pair.connection->setTypeConverter(addTen);
        wasHeldWhileItRan = isHeld;
    };
    pair.connection->setTypeConverter(
        [&replace, state = Numbers(1000, 5), end = atTheEnd([&isHeld] { isHeld = false; })](const CNodeDataPtr&) {
            replace();
            return CTestData::make(state.back());
        });
    pair.deliver(1);
    QVERIFY(wasHeldWhileItRan && !isHeld);
    pair.deliver(2);
    QCOMPARE(pair.values(), Numbers({5, 12}));
}

void tst_CNodeConnectionCallbacks::converterMayBeReplacedTwiceWhileItRuns()
{
    bool isHeld = true;
    bool wasHeldWhileItRan = false;
    const SPair pair;
    const auto replaceTwice = [&] {
        pair.connection->setTypeConverter({});
        pair.connection->setTypeConverter(addTen);
        wasHeldWhileItRan = isHeld;
    };
    pair.connection->setTypeConverter(
        [&replaceTwice, end = atTheEnd([&isHeld] { isHeld = false; })](CNodeDataPtr data) {
            replaceTwice();
            return data;
        });
    pair.deliver(1);
    QVERIFY(wasHeldWhileItRan && !isHeld);
    pair.deliver(2);
    QCOMPARE(pair.values(), Numbers({1, 12}));
}

void tst_CNodeConnectionCallbacks::converterMayChangeTheInEnd()
{
    // What counts is the end as it is when the data is ready.
    const SPair pair;
    CNodeConnection& connection = *pair.connection; // its last delivery comes when the pair's pointer has ended
    connection.setTypeConverter([&connection](CNodeDataPtr data) {
        connection.clearNode(In);
        return data;
    });
    pair.deliver(1);
    QVERIFY(pair.sink.model->received.empty());

    connection.setNodeToPort(*pair.sink, In, 0);
    connection.setTypeConverter([&connection, &pair](CNodeDataPtr data) {
        connection.setNodeToPort(*pair.other, In, 0);
        return data;
    });
    pair.deliver(2);
    QCOMPARE(pair.other.model->values(), Numbers({2}));
    QVERIFY(pair.sink.model->received.empty());
}

void tst_CNodeConnectionCallbacks::whatAConverterHeldMayTakeTheInNodeAlong()
{
    SPair pair;
    pair.connection->setTypeConverter([&pair, end = atTheEnd([&pair] { pair.sink.node.reset(); })](CNodeDataPtr data) {
        pair.connection->setTypeConverter({});
        return data;
    });
    pair.deliver(1);
    QVERIFY(!pair.sink.node);
}

void tst_CNodeConnectionCallbacks::whatAConverterHeldMayTakeTheConnectionAlong()
{
    for (const bool inADelivery : {false, true}) {
        SPair pair;
        const auto end = [&pair] { return atTheEnd([&pair] { pair.connection.reset(); }); };
        if (inADelivery) {
            pair.connection->setTypeConverter([&pair, held = end()](CNodeDataPtr data) {
                pair.connection->setTypeConverter({});
                return data;
            });
            pair.deliver(1);
        } else {
            pair.connection->setTypeConverter(holding(end()));
            pair.connection->setTypeConverter(addTen);
        }
        QVERIFY(!pair.connection);
        QCOMPARE(pair.values(), Numbers({-1}));
    }
}

void tst_CNodeConnectionCallbacks::whatAConverterHeldMayUseADyingConnection()
{
    SPair pair;
    CNodeConnection& dying = *pair.connection;
    int ended = 0;
    pair.connection->setTypeConverter(holding(atTheEnd([&] {
        ++ended;
        pair.source.model->offer(CTestData::make(2), 1); // no walk reaches it, which would be without a converter
        dying.propagateEmptyData();
        dying.setTypeConverter(addTen);
        enter(dying);
    })));
    pair.connection.reset();
    QCOMPARE(ended, 1);
    QVERIFY(pair.source.outputs(1).empty());
    pair.source.model->offer(CTestData::make(1), 1);
    QCOMPARE(pair.values(), Numbers({-1, -1}));
}

void tst_CNodeConnectionCallbacks::modelMayDestroyTheConnectionThatServesIt()
{
    for (const bool converts : {false, true}) {
        SPair pair(converts ? NodeDataConverter(addTen) : NodeDataConverter());
        pair.sink.model->onSetInData = [&pair](const CNodeDataPtr&, NodePortIndex) { pair.connection.reset(); };
        pair.deliver(1);
        QCOMPARE(pair.values(), Numbers({converts ? 11 : 1, -1}));
    }
}

void tst_CNodeConnectionCallbacks::modelMayDestroyTheConnectionThatItIsSavedFor()
{
    SPair pair(addTen);
    pair.sink.model->onDataType = [&pair](ENodePortType, NodePortIndex) {
        pair.connection.reset();
        return SNodeDataType();
    };
    QVERIFY(pair.connection->save().isEmpty());
    QVERIFY(!pair.connection);
}

void tst_CNodeConnectionCallbacks::nodeLivesUntilItsModelHasNamedAType()
{
    SPair pair;
    int modelsMeanwhile = 0;
    pair.sink.model->onDataType = [&](ENodePortType, NodePortIndex) {
        int& models = modelsMeanwhile; // what was captured goes with the model
        CGraphInspector::retire(std::move(pair.sink.node));
        models = CTestModel::alive();
        return SNodeDataType();
    };
    QCOMPARE(pair.connection->dataType(In).id, QString());
    QCOMPARE(modelsMeanwhile, 3);
    QCOMPARE(CTestModel::alive(), 2);
}

void tst_CNodeConnectionCallbacks::modelMayMoveTheEndInTheLastDelivery()
{
    SPair pair;
    CNodeConnection& dying = *pair.connection;
    pair.sink.model->onSetInData = [&](const CNodeDataPtr&, NodePortIndex) {
        dying.setNodeToPort(*pair.other, Out, 0);
        enter(dying);
    };
    pair.connection.reset();
    QVERIFY(pair.source.outputs(1).empty());
    QVERIFY(pair.other.outputs().empty());
    pair.source.model->offer(CTestData::make(1), 1);
    pair.other.model->offer(CTestData::make(1));
    QCOMPARE(pair.values(), Numbers({-1}));
}

void tst_CNodeConnectionCallbacks::modelMayEnterADyingConnection()
{
    SPair pair;
    CNodeConnection& dying = *pair.connection;
    pair.sink.model->onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (data)
            return;
        pair.other->nodeState().setConnection(Out, 0, dying);
        pair.source->nodeState().setConnection(Out, 1, dying);
        // Still whole, so that a walk serves it, once.
        pair.source.model->offer(CTestData::make(3), 1);
    };
    pair.connection.reset();
    pair.other.model->offer(CTestData::make(4));
    pair.source.model->offer(CTestData::make(5), 1);
    QVERIFY(pair.other.outputs().empty());
    QCOMPARE(pair.values(), Numbers({-1, 3}));
}

void tst_CNodeConnectionCallbacks::exceptionsOfDeliveriesPassThrough()
{
    const SPair pair(addTen);
    bool throws = true;
    pair.sink.model->onSetInData = [&throws](const CNodeDataPtr&, NodePortIndex) {
        if (throws)
            throw std::runtime_error("full");
    };
    QVERIFY_EXCEPTION_THROWN(pair.deliver(1), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(pair.connection->propagateEmptyData(), std::runtime_error);
    throws = false;
    pair.connection->setTypeConverter([](const CNodeDataPtr&) -> CNodeDataPtr { throw std::logic_error("odd"); });
    QVERIFY_EXCEPTION_THROWN(pair.deliver(2), std::logic_error);
    pair.connection->setTypeConverter(addTen);
    pair.deliver(3);
    QCOMPARE(pair.values(), Numbers({11, -1, 13}));
}

void tst_CNodeConnectionCallbacks::exceptionsOfTheLastDeliveryAreReported()
{
    const auto fail = [](bool isStandard) {
        if (isStandard)
            throw std::runtime_error("out of paper");
        throw 5;
    };
    for (const bool isStandard : {true, false}) {
        for (const bool inConverter : {true, false}) {
            SPair pair([&](CNodeDataPtr data) {
                if (inConverter)
                    fail(isStandard);
                return data;
            });
            pair.sink.model->onSetInData = [&](const CNodeDataPtr&, NodePortIndex) { fail(isStandard); };

            const CMessageCatcher messages;
            pair.connection.reset();

            const QString reason = isStandard ? "exception: out of paper" : "exception of unknown type";
            QCOMPARE(messages.texts("halvex.graph"),
                     QStringList("A connection's last delivery ended with an " + reason));
            QCOMPARE(messages.texts().size(), 1);
            QVERIFY(pair.source.outputs(1).empty());
            QVERIFY(std::as_const(*pair.sink).nodeState().getEntries(In)[2].empty());
        }
    }
}

QTEST_GUILESS_MAIN(tst_CNodeConnectionCallbacks)

#include "tst_CNodeConnectionCallbacks.moc"
