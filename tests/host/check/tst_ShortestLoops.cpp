// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/ShortestLoops.h"

#include "TestTable.h"

using namespace Host;

using Loops = std::vector<std::vector<int>>;
Q_DECLARE_METATYPE(Loops)
Q_DECLARE_METATYPE(FlowEdges)

class tst_ShortestLoops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loops_data();
    void loops();
    void largeRing();
    void largeTangle();
};

void tst_ShortestLoops::loops_data()
{
    addColumns<int, FlowEdges, Loops>({"nodes", "edges", "loops"});
    const auto row = [](const char* name, int nodes, const FlowEdges& edges, const Loops& loops) {
        addRow(name, nodes, edges, loops);
    };
    row("nothing", 0, {}, {});
    row("no edges", 3, {}, {});
    row("diamond", 4, {{0, 1}, {0, 2}, {1, 3}, {2, 3}}, {});
    row("to itself", 2, {{0, 1}, {1, 1}}, {{1}});
    row("two, there and back", 2, {{1, 0}, {0, 1}}, {{0, 1}});
    row("in the order of the flow", 4, {{3, 1}, {1, 2}, {2, 0}, {0, 3}}, {{0, 3, 1, 2}});
    row("way in, way out", 5, {{0, 1}, {1, 2}, {2, 3}, {3, 1}, {3, 4}}, {{1, 2, 3}});
    row("shorter inside", 4, {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {2, 1}}, {{1, 2}});
    row("shorter found late", 6, {{0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 0}, {5, 4}}, {{4, 5}});
    row("itself within a longer one", 3, {{0, 1}, {1, 2}, {2, 0}, {2, 2}}, {{2}});
    row("two apart", 5, {{0, 1}, {1, 0}, {1, 2}, {2, 3}, {3, 4}, {4, 2}}, {{0, 1}, {2, 3, 4}});
    row("edge twice", 2, {{0, 1}, {0, 1}, {1, 0}}, {{0, 1}});
}

void tst_ShortestLoops::loops()
{
    QFETCH(int, nodes);
    QFETCH(FlowEdges, edges);
    QFETCH(Loops, loops);
    QCOMPARE(shortestLoops(nodes, edges), loops);
}

void tst_ShortestLoops::largeRing()
{
    constexpr int count = 100000;
    FlowEdges edges;
    for (int i = 0; i < count; ++i)
        edges.emplace_back(i, (i + 1) % count);
    const Loops loops = shortestLoops(count, edges);
    QCOMPARE(loops.size(), std::size_t(1));
    QCOMPARE(loops.front().size(), std::size_t(count));
}

// Each node leads to many behind it, and the last back to the first: it ends, and another loop is found all the same.
void tst_ShortestLoops::largeTangle()
{
    constexpr int count = 20000;
    FlowEdges edges{{count - 1, 0}, {count, count}};
    for (int i = 0; i < count; ++i) {
        for (int step = 1; step <= 10 && i + step < count; ++step)
            edges.emplace_back(i, i + step);
    }
    const Loops loops = shortestLoops(count + 1, edges);
    QCOMPARE(loops.size(), std::size_t(2));
    QCOMPARE(loops.front().size(), std::size_t(2001));
    QCOMPARE(loops.back(), std::vector<int>{count});
}

QTEST_GUILESS_MAIN(tst_ShortestLoops)
#include "tst_ShortestLoops.moc"
