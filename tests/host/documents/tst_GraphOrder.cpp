// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/GraphOrder.h"

#include <QTest>

using namespace Host;

class tst_GraphOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flowThenDocument();
    void withoutConnections();
};

void tst_GraphOrder::flowThenDocument()
{
    SDocumentGraph graph;
    graph.nodes.resize(4);
    const auto connect = [&graph](int from, int to) {
        graph.connections.emplace_back();
        graph.connections.back().from = from;
        graph.connections.back().to = to;
    };
    connect(3, 2);
    connect(3, 0);
    connect(2, 1);
    QCOMPARE(flowOrderOf(graph), std::vector<int>({3, 0, 2, 1}));
    QVERIFY(edgesOf(graph) == (FlowEdges{{3, 2}, {3, 0}, {2, 1}}));
}

void tst_GraphOrder::withoutConnections()
{
    SDocumentGraph graph;
    QCOMPARE(flowOrderOf(graph), std::vector<int>());
    graph.nodes.resize(2);
    QCOMPARE(flowOrderOf(graph), std::vector<int>({0, 1}));
}

QTEST_GUILESS_MAIN(tst_GraphOrder)
#include "tst_GraphOrder.moc"
