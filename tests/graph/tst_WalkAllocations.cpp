// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/TestGraph.h"
#include "support/Allocations.h"
#include "support/BoundedWait.h"

#include <QPointer>
#include <QtTest>

#include <memory>
#include <vector>

using namespace Plugin::Halvex;

namespace {

template <typename Work>
long allocationsOf(const Work& work)
{
    const long before = allocations();
    work();
    return allocations() - before;
}

/// Nodes whose models are ready to receive one data object without an allocation of their own.
class CGraph
{
public:
    explicit CGraph(int nodes)
        : m_nodes(std::size_t(nodes))
    {
        for (const STestNode& node : m_nodes) {
            node.model->received.reserve(1);
            m_models.emplace_back(node.model);
        }
    }

    CNodeState& firstTable() const { return m_nodes.front()->nodeState(); }

    void connectNodes(std::size_t out, std::size_t in, bool converts = false)
    {
        m_connections.push_back(join(m_nodes[out], m_nodes[in], converts ? &passOn : NodeDataConverter()));
    }

    /// Sends data into the first node. Returns what that took of allocations, -1 if not every node was served.
    long allocationsOfAWalk() const
    {
        const CNodeDataPtr data = CTestData::make(1);
        const long taken = allocationsOf([&] { m_nodes.front()->propagateData(data, 0); });
        for (const STestNode& node : m_nodes) {
            if (node.model->received.size() != 1)
                return -1;
        }
        return taken;
    }

private:
    std::vector<STestNode> m_nodes;
    std::vector<QPointer<CTestModel>> m_models; // the first pointer to an object allocates
    std::vector<std::unique_ptr<CNodeConnection>> m_connections;
};

} // namespace

class tst_WalkAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allocationsAreCounted();
    void connectionsOfOnePort();
    void chain();
    void portWithEntriesOfTheHost();
    void anotherThread();
    void threadsThatHaveEndedLeaveNothing();
};

void tst_WalkAllocations::allocationsAreCounted()
{
    QCOMPARE(allocationsOf([] {}), 0L);
    QVERIFY(allocationsOf([] { std::make_unique<CTestModel>(); }) > 0);
    QCOMPARE(allocationsOf([] { QVector<int>(10); }), 1L);
    QVERIFY(allocationsOf([] { CTestData::make(1); }) > 0);
}

void tst_WalkAllocations::connectionsOfOnePort()
{
    for (const std::size_t count : {1U, 2U, 16U, 17U, 100U, 1000U}) {
        for (const bool converts : {false, true}) {
            CGraph graph(int(count) + 1);
            for (std::size_t i = 1; i <= count; ++i)
                graph.connectNodes(0, i, converts);
            QCOMPARE(graph.allocationsOfAWalk(), 0L);
        }
    }
}

void tst_WalkAllocations::chain()
{
    for (const bool converts : {false, true}) {
        CGraph graph(100);
        for (std::size_t i = 1; i < 100; ++i)
            graph.connectNodes(i - 1, i, converts);
        QCOMPARE(graph.allocationsOfAWalk(), 0L);
    }
}

void tst_WalkAllocations::portWithEntriesOfTheHost()
{
    CGraph graph(21);
    for (std::size_t i = 1; i <= 20; ++i)
        graph.connectNodes(0, i);
    // From here on each walk looks for what was written.
    graph.firstTable().getEntries(ENodePortType::Out);
    QCOMPARE(graph.allocationsOfAWalk(), 0L);
}

void tst_WalkAllocations::anotherThread()
{
    long taken = -1;
    CTestThread thread([&taken] {
        CGraph graph(2);
        graph.connectNodes(0, 1);
        taken = graph.allocationsOfAWalk();
    });
    thread.join();
    QCOMPARE(taken, 0L);
}

void tst_WalkAllocations::threadsThatHaveEndedLeaveNothing()
{
    QVERIFY(keepsNothing([] {
        CTestThread thread([] { const STestNode node; });
        thread.join();
    }));
}

QTEST_GUILESS_MAIN(tst_WalkAllocations)

#include "tst_WalkAllocations.moc"
