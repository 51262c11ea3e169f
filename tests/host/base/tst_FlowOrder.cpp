// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/FlowOrder.h"

#include <QTest>

using namespace Host;

class tst_FlowOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyNodeBehindThoseThatLeadToIt();
    void loopsAndWhatLiesBehindAreLeftOut();
    void longChain();
    void depthIsTheLongestWay();
    void depthsInLoops();
};

void tst_FlowOrder::everyNodeBehindThoseThatLeadToIt()
{
    QCOMPARE(flowOrder(0, {}), std::vector<int>());
    QCOMPARE(flowOrder(3, {{2, 1}, {1, 0}, {2, 0}, {2, 0}}), std::vector<int>({2, 1, 0}));
}

void tst_FlowOrder::loopsAndWhatLiesBehindAreLeftOut()
{
    QCOMPARE(flowOrder(4, {{0, 1}, {1, 2}, {2, 1}, {2, 3}}), std::vector<int>{0});
    QCOMPARE(flowOrder(1, {{0, 0}}), std::vector<int>());
}

void tst_FlowOrder::longChain()
{
    constexpr int nodes = 200000;
    FlowEdges edges;
    for (int i = nodes - 1; i > 0; --i)
        edges.emplace_back(i, i - 1);
    const std::vector<int> order = flowOrder(nodes, edges);
    QCOMPARE(order.size(), std::size_t(nodes));
    QCOMPARE(order.front(), nodes - 1);
    QCOMPARE(order.back(), 0);
}

void tst_FlowOrder::depthIsTheLongestWay()
{
    QCOMPARE(flowDepths(0, {}), std::vector<int>());
    QCOMPARE(flowDepths(4, {{2, 1}, {1, 0}, {2, 0}, {2, 0}}), std::vector<int>({2, 1, 0, 0}));
}

void tst_FlowOrder::depthsInLoops()
{
    QCOMPARE(flowDepths(4, {{0, 1}, {1, 2}, {2, 1}, {2, 3}}), std::vector<int>({0, 1, 2, 3}));
    QCOMPARE(flowDepths(2, {{0, 1}, {1, 0}}), std::vector<int>({0, 0}));
    QCOMPARE(flowDepths(1, {{0, 0}}), std::vector<int>{0});
}

QTEST_GUILESS_MAIN(tst_FlowOrder)
#include "tst_FlowOrder.moc"
