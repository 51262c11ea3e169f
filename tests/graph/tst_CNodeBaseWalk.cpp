// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeBase.h>

#include "graph/TestGraph.h"
#include "support/CGraphInspector.h"
#include "support/CLeakTest.h"
#include "support/CMessageCatcher.h"

#include <QtTest>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

using namespace Plugin::Halvex;

namespace {

constexpr ENodePortType Out = ENodePortType::Out;

using Numbers = std::vector<int>;

/// What the sink at a position of a fan does in its delivery.
using Deed = void (*)(SFan&, std::size_t);

/// How many of the connections of a fan.
enum EHowMany
{
    NoneOfThem,
    One,
    AllButOne,
    All
};

int countOf(EHowMany howMany, int count)
{
    return howMany == All ? count : howMany == AllButOne ? count - 1 : howMany == One ? 1 : 0;
}

template <typename Member>
void resetOthers(std::vector<Member>& members, std::size_t position)
{
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (i != position)
            members[i].reset();
    }
}

} // namespace

Q_DECLARE_METATYPE(Deed)
Q_DECLARE_METATYPE(EHowMany)

class tst_CNodeBaseWalk : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void nullOutputIsNotPropagated();
    void nodeWithoutConnectionsAsksOnce();
    void missingPortIsAskedAndReported();
    void onlyTheUpdatedPortIsServed();
    void connectionsOfOnePortShareTheData();
    void lastDeliveryHandsThePointerOver();
    void isSynchronousAndDepthFirst();
    void releasesItsDataAtTheEnd();

    void sinkMayChangeTheGraph_data();
    void sinkMayChangeTheGraph();
    void sinkMayDestroyTheWholeGraph();
    void connectionInAnothersPlaceIsNotServed();
    void addedConnectionIsNotServedInTheSameWalk();
    void modelMayLoseItsNodeWhenAsked();
    void nodeMayGoInAFurtherRound();
    void mayBeginAnew();
    void exceptionsPassThrough();
};

void tst_CNodeBaseWalk::nullOutputIsNotPropagated()
{
    const SFan fan(1);
    fan.source.model->offer(CTestData::make(1));
    fan.source.model->offer(CNodeDataPtr());
    QCOMPARE(fan.source.model->outDataCalls, 2);
    QCOMPARE(fan.sinks[0]->model->values(), Numbers({1}));
}

void tst_CNodeBaseWalk::nodeWithoutConnectionsAsksOnce()
{
    const STestNode node;
    const CMessageCatcher messages;
    node.model->offer(CTestData::make(1));
    QCOMPARE(node.model->outDataCalls, 1);
    QVERIFY(node.model->received.empty());
    QCOMPARE(messages.texts(), QStringList());
}

void tst_CNodeBaseWalk::missingPortIsAskedAndReported()
{
    for (const int index : {-1, 1}) {
        for (const bool hasData : {true, false}) {
            const SFan fan(1);
            Numbers asked;
            fan.source.model->onOutData = [&](NodePortIndex port) {
                asked.push_back(port);
                return hasData ? CTestData::make(1) : CNodeDataPtr();
            };
            const CMessageCatcher messages;
            Q_EMIT fan.source.model->dataUpdated(index);

            QCOMPARE(asked, Numbers({index}));
            QVERIFY(fan.sinks[0]->model->received.empty());
            const QString report = "Plugin::Halvex::CNodeState::connections : Could not find port  %1  of type  2";
            QCOMPARE(messages.texts("default"), hasData ? QStringList(report.arg(index)) : QStringList());
            QCOMPARE(messages.texts("halvex.usage").size(), hasData ? 1 : 0);
        }
    }
}

void tst_CNodeBaseWalk::onlyTheUpdatedPortIsServed()
{
    const STestNode source(0, 2);
    const STestNode first(1, 1);
    const STestNode second(2, 1);
    const auto one = join(source, first, {}, 0, 0);
    const auto other = join(source, second, {}, 1, 1);

    source.model->offer(CTestData::make(1), 1);

    QVERIFY(first.model->received.empty());
    QCOMPARE(second.model->values(), Numbers({1}));
    QCOMPARE(second.model->received[0].index, 1);
}

void tst_CNodeBaseWalk::connectionsOfOnePortShareTheData()
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

void tst_CNodeBaseWalk::lastDeliveryHandsThePointerOver()
{
    for (const int count : {1, 2, 20}) {
        for (const bool converts : {false, true}) {
            for (const bool answersADelivery : {false, true}) {
                Numbers left;
                const STestNode source;
                source.model->onSetInData = [&source](const CNodeDataPtr&, int) { source->onDataUpdated(0); };
                source.model->onOutData = [](NodePortIndex) { return CTestData::make(1); };
                std::vector<std::unique_ptr<CNodeBase>> sinks;
                std::vector<std::unique_ptr<CNodeConnection>> connections;
                for (int i = 0; i < count; ++i) {
                    sinks.push_back(std::make_unique<CNodeBase>(std::make_unique<CConsumer>(left)));
                    const NodeDataConverter converter = converts ? &passOn : NodeDataConverter();
                    connections.push_back(std::make_unique<CNodeConnection>(*sinks.back(), 0, *source, 0, converter));
                    enter(*connections.back());
                }

                if (answersADelivery)
                    source->propagateData(CNodeDataPtr(), 0);
                else
                    source->onDataUpdated(0);

                // What a sink other than the last one lets go of is still wanted by the others.
                Numbers expected(std::size_t(count - 1), 1);
                expected.push_back(0);
                QCOMPARE(left, expected);
            }
        }
    }
}

void tst_CNodeBaseWalk::isSynchronousAndDepthFirst()
{
    const SFan fan(2);
    const STestNode below[] = {STestNode(), STestNode()};
    QString order;
    std::vector<std::unique_ptr<CNodeConnection>> connections;
    for (std::size_t i = 0; i < 2; ++i) {
        connections.push_back(join(*fan.sinks[i], below[i]));
        CTestModel& sink = *fan.sinks[i]->model;
        sink.onSetInData = [&order, &sink, i](const CNodeDataPtr& data, NodePortIndex) {
            if (!data)
                return;
            order += QStringLiteral("<%1").arg(i);
            sink.offer(data);
            order += QStringLiteral(">");
        };
        below[i].model->onSetInData = [&order, i](const CNodeDataPtr& data, NodePortIndex) {
            if (data)
                order += QStringLiteral("b%1").arg(i);
        };
    }

    fan.source.model->offer(CTestData::make(1));

    QVERIFY2(order == QLatin1String("<0b0><1b1>") || order == QLatin1String("<1b1><0b0>"), qPrintable(order));
}

void tst_CNodeBaseWalk::releasesItsDataAtTheEnd()
{
    for (const int count : {1, 2, 20}) {
        const SFan fan(count, &passOn);
        fan.source.model->onOutData = [](NodePortIndex) { return CTestData::make(1); };
        fan.source->onDataUpdated(0); // as a host may
        QCOMPARE(fan.source.model->outDataCalls, 1);
        QCOMPARE(fan.deliveries(1), count);
        for (const auto& sink : fan.sinks) {
            sink->model->received.clear();
            sink->model->out.reset();
        }
        QCOMPARE(CTestData::alive(), 0);
    }
}

void tst_CNodeBaseWalk::sinkMayChangeTheGraph_data()
{
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<EHowMany>("served");
    QTest::addColumn<EHowMany>("emptied"); // connections that have delivered empty data
    QTest::addColumn<EHowMany>("left");    // connections of the source
    const auto addRow = [](const char* name, EHowMany served, EHowMany emptied, EHowMany left, Deed deed) {
        QTest::newRow(name) << deed << served << emptied << left;
    };

    addRow("nothing", All, NoneOfThem, All, [](SFan&, std::size_t) {});
    addRow("its connection destroyed", All, All, NoneOfThem, [](SFan& f, std::size_t i) { f.connections[i].reset(); });
    addRow("others destroyed", One, AllButOne, One, [](SFan& f, std::size_t i) { resetOthers(f.connections, i); });
    addRow("all taken out of the table", All, NoneOfThem, NoneOfThem, [](SFan& f, std::size_t) {
        for (const auto& connection : f.connections)
            connection->removeFromNodes();
    });
    addRow("its node destroyed", All, NoneOfThem, All, [](SFan& f, std::size_t i) { f.sinks[i]->node.reset(); });
    addRow("other sinks destroyed", One, NoneOfThem, All, [](SFan& f, std::size_t i) { resetOthers(f.sinks, i); });
    addRow("source destroyed", One, NoneOfThem, NoneOfThem, [](SFan& f, std::size_t) { f.source.node.reset(); });
    addRow("source retired", One, NoneOfThem, NoneOfThem, [](SFan& f, std::size_t) {
        const int models = CTestModel::alive();
        CGraphInspector::retire(std::move(f.source.node));
        QCOMPARE(CTestModel::alive(), models); // until the walk has left it
    });
}

void tst_CNodeBaseWalk::sinkMayChangeTheGraph()
{
    QFETCH(const Deed, deed);
    QFETCH(const EHowMany, served);
    QFETCH(const EHowMany, emptied);
    QFETCH(const EHowMany, left);
    for (const int count : {1, 2, 3, 16, 17, 30}) {
        for (const NodeDataConverter& converter : {NodeDataConverter(), NodeDataConverter(&passOn)}) {
            SFan fan(count, converter);
            int calls = 0;
            fan.onDelivery([&](std::size_t position) {
                ++calls;
                deed(fan, position);
            });

            fan.source.model->offer(CTestData::make(1));

            QCOMPARE(calls, countOf(served, count));
            QCOMPARE(fan.deliveries(-1), countOf(emptied, count));
            for (const auto& connection : fan.connections)
                QVERIFY(!connection || std::as_const(*connection).getNode(Out) == fan.source.node.get());
            if (fan.source.node)
                QCOMPARE(int(fan.source.outputs().size()), countOf(left, count));
        }
    }
}

void tst_CNodeBaseWalk::sinkMayDestroyTheWholeGraph()
{
    auto fan = std::make_unique<SFan>(3);
    int served = 0;
    fan->onDelivery([&](std::size_t) {
        ++served;
        fan.reset();
    });
    fan->source.model->offer(CTestData::make(1));
    QCOMPARE(served, 1);
    QVERIFY(!fan);
}

void tst_CNodeBaseWalk::connectionInAnothersPlaceIsNotServed()
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

void tst_CNodeBaseWalk::addedConnectionIsNotServedInTheSameWalk()
{
    SFan fan(1);
    const STestNode late;
    std::vector<std::unique_ptr<CNodeConnection>> added;
    fan.onDelivery([&](std::size_t) {
        while (added.size() < 100) // so many that what holds them has to grow
            added.push_back(join(fan.source, late));
    });

    fan.source.model->offer(CTestData::make(1));
    QVERIFY(late.model->received.empty());
    QCOMPARE(fan.deliveries(1), 1);
    fan.source.model->offer(CTestData::make(2));
    QCOMPARE(late.model->received.size(), std::size_t(100));
}

void tst_CNodeBaseWalk::modelMayLoseItsNodeWhenAsked()
{
    using Loss = void (*)(STestNode&);
    const Loss destroy = [](STestNode& node) { node.node.reset(); };
    const Loss retire = [](STestNode& node) { CGraphInspector::retire(std::move(node.node)); };
    const CNodeDataPtr data = CTestData::make(1);
    for (const Loss lose : {destroy, retire}) {
        for (const CNodeDataPtr& answer : {CNodeDataPtr(), data}) {
            for (const int count : {1, 2}) {
                SFan asked(count);
                SFan delivered(count);
                for (SFan* const fan : {&asked, &delivered}) {
                    fan->source.model->onOutData = [fan, lose, answer](NodePortIndex) {
                        lose(fan->source);
                        return answer;
                    };
                }
                asked.source->onDataUpdated(0);
                delivered.source->propagateData(CTestData::make(2), 0);
                QVERIFY(!asked.source.node && !delivered.source.node);
                QCOMPARE(asked.deliveries(1) + delivered.deliveries(1), 0);
                QCOMPARE(CTestModel::alive(), 2 * count);
            }
        }
    }
}

void tst_CNodeBaseWalk::nodeMayGoInAFurtherRound()
{
    // Both rounds stand in the node then, and none of them goes on.
    for (const bool isRetired : {false, true}) {
        SFan fan(2);
        const STestNode between;
        const auto back = join(*fan.sinks[0], fan.source);
        const auto toBetween = join(fan.source, between);
        int rounds = 0;
        fan.source.model->onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
            if (++rounds < 3) {
                fan.source.model->offer(data);
            } else if (isRetired) {
                CGraphInspector::retire(std::move(fan.source.node));
            } else {
                fan.source.node.reset();
            }
        };
        fan.source->propagateData(CTestData::make(1), 0);
        QVERIFY(!fan.source.node);
        QCOMPARE(fan.deliveries(1) + int(between.model->received.size()), 2);
        QCOMPARE(CTestModel::alive(), 3);
    }
}

void tst_CNodeBaseWalk::mayBeginAnew()
{
    const SFan fan(2);
    bool again = true;
    fan.sinks[0]->model->onSetInData = [&](const CNodeDataPtr&, NodePortIndex) {
        if (std::exchange(again, false))
            fan.source.model->offer(CTestData::make(2));
    };
    fan.source.model->offer(CTestData::make(1));
    // The outer walk goes on with what it began with.
    QCOMPARE(fan.deliveries(1), 2);
    QCOMPARE(fan.deliveries(2), 2);
}

void tst_CNodeBaseWalk::exceptionsPassThrough()
{
    for (const QString& place : {QStringLiteral("output"), QStringLiteral("converter"), QStringLiteral("input")}) {
        QString failing = place;
        const auto failIn = [&failing](const char* here) {
            if (failing == QLatin1String(here))
                throw std::runtime_error(here);
        };
        STestNode first;
        SFan fan(2, [&](CNodeDataPtr data) {
            failIn("converter");
            return data;
        });
        const auto connection = join(first, fan.source);
        fan.source.model->onOutData = [&](NodePortIndex) {
            failIn("output");
            return fan.source.model->out;
        };
        fan.onDelivery([&](std::size_t) { failIn("input"); });

        fan.source.model->out = CTestData::make(1);
        QVERIFY_EXCEPTION_THROWN(fan.source->onDataUpdated(0), std::runtime_error);
        // From further up, through the signals of two models.
        QVERIFY_EXCEPTION_THROWN(first.model->offer(CTestData::make(2)), std::runtime_error);
        failing.clear();
        first.model->offer(CTestData::make(3));
        QCOMPARE(fan.deliveries(3), 2);

        // A walk that was left this way stands nowhere any more: a node that is retired goes at once.
        failing = place;
        QVERIFY_EXCEPTION_THROWN(first.model->offer(CTestData::make(4)), std::runtime_error);
        failing.clear();
        const int models = CTestModel::alive();
        CGraphInspector::retire(std::move(first.node));
        QCOMPARE(CTestModel::alive(), models - 1);
    }
}

QTEST_GUILESS_MAIN(tst_CNodeBaseWalk)

#include "tst_CNodeBaseWalk.moc"
