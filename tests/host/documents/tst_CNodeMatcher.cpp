// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/CNodeMatcher.h"

#include "host/base/FlowOrder.h"

#include <QTest>

using namespace Host;

namespace {

// Nodes of these models, each with a name, and connections between their numbers.
SComparedGraph graph(const QStringList& models, const FlowEdges& edges, const QString& prefix = QStringLiteral("n"))
{
    SComparedGraph graph;
    graph.kind = EDocumentKind::Chain;
    for (const QString& model : models) {
        const QString name = prefix + QString::number(graph.nodes.size());
        graph.nodes.push_back({name, name, QJsonObject{{"name", model}}});
    }
    for (const auto& edge : edges) {
        graph.connections.emplace_back();
        graph.connections.back().from = edge.first;
        graph.connections.back().to = edge.second;
    }
    return graph;
}

std::vector<int> partners(const CNodeMatcher& matcher, const SComparedGraph& left)
{
    std::vector<int> partners;
    for (std::size_t i = 0; i < left.nodes.size(); ++i)
        partners.push_back(matcher.partnerOf(int(i)));
    return partners;
}

} // namespace

class tst_CNodeMatcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesGoBeforeLooks();
    void namesOfAnotherKindOfDocumentSayNothing();
    void neighboursTellEqualNodesApart();
    void portsTellEqualNodesApart();
    void onlyOneOfItsModelLeadsToItsNeighbours();
    void settingsMayDiffer();
    void everyPairIsMutual();
};

void tst_CNodeMatcher::namesGoBeforeLooks()
{
    const SComparedGraph left = graph({"Blur", "Edges"}, {});
    const SComparedGraph right = graph({"Edges", "Blur"}, {});
    CNodeMatcher matcher(left, right);
    matcher.pairByName();
    matcher.pairByLooks();
    QCOMPARE(partners(matcher, left), std::vector<int>({0, 1}));
}

void tst_CNodeMatcher::namesOfAnotherKindOfDocumentSayNothing()
{
    const SComparedGraph left = graph({"Blur", "Edges"}, {});
    SComparedGraph right = graph({"Edges", "Blur"}, {});
    right.kind = EDocumentKind::Scene;
    CNodeMatcher matcher(left, right);
    matcher.pairByName();
    QCOMPARE(partners(matcher, left), std::vector<int>({-1, -1}));
    matcher.pairByLooks();
    QCOMPARE(partners(matcher, left), std::vector<int>({1, 0}));
}

void tst_CNodeMatcher::neighboursTellEqualNodesApart()
{
    // Three equal filters in a line, in another order.
    const SComparedGraph left = graph({"Camera", "Blur", "Blur", "Blur", "Sink"}, {{0, 1}, {1, 2}, {2, 3}, {3, 4}});
    const SComparedGraph right =
        graph({"Blur", "Sink", "Blur", "Camera", "Blur"}, {{3, 2}, {2, 4}, {4, 0}, {0, 1}}, "other");
    CNodeMatcher matcher(left, right);
    matcher.pairByLooks();
    QCOMPARE(partners(matcher, left), std::vector<int>({3, 2, 4, 0, 1}));
}

void tst_CNodeMatcher::portsTellEqualNodesApart()
{
    SComparedGraph left = graph({"Split", "Blur", "Blur"}, {{0, 1}, {0, 2}});
    SComparedGraph right = left;
    left.connections[0].outPort = 1;
    right.connections[1].outPort = 1;
    CNodeMatcher matcher(left, right);
    matcher.pairByLooks();
    QCOMPARE(partners(matcher, left), std::vector<int>({0, 2, 1}));
}

void tst_CNodeMatcher::onlyOneOfItsModelLeadsToItsNeighbours()
{
    // All that is connected differs somewhere, and the filters come in another order.
    const SComparedGraph left = graph({"Blur", "Blur", "Edges", "Threshold"}, {{1, 2}, {0, 3}});
    const SComparedGraph right =
        graph({"Blur", "Blur", "Edges", "Sink", "Histogram"}, {{0, 2}, {2, 3}, {1, 4}}, "other");
    CNodeMatcher matcher(left, right);
    matcher.pairByLooks();
    QCOMPARE(partners(matcher, left), std::vector<int>({1, 0, 2, -1}));
}

void tst_CNodeMatcher::settingsMayDiffer()
{
    const SComparedGraph left = graph({"Blur", "Blur"}, {});
    SComparedGraph right = graph({"Blur", "Blur"}, {}, "other");
    right.nodes[0].model.insert("size", 21);
    CNodeMatcher matcher(left, right);
    matcher.pairByLooks();
    // Equal settings go first, then the model alone.
    QCOMPARE(partners(matcher, left), std::vector<int>({1, 0}));
}

void tst_CNodeMatcher::everyPairIsMutual()
{
    const SComparedGraph left = graph({"Blur", "Blur", "Blur", "Edges"}, {{0, 3}, {1, 3}});
    const SComparedGraph right = graph({"Blur", "Sink", "Blur"}, {{0, 1}}, "other");
    CNodeMatcher matcher(left, right);
    matcher.pairByLooks();
    int pairs = 0;
    for (std::size_t i = 0; i < left.nodes.size(); ++i) {
        const int partner = matcher.partnerOf(int(i));
        if (partner < 0)
            continue;
        ++pairs;
        QCOMPARE(matcher.partnerOfRight(partner), int(i));
        QCOMPARE(right.nodes[std::size_t(partner)].model, left.nodes[i].model);
    }
    QCOMPARE(pairs, 2);
    QCOMPARE(matcher.partnerOfRight(1), -1);
}

QTEST_GUILESS_MAIN(tst_CNodeMatcher)
#include "tst_CNodeMatcher.moc"
