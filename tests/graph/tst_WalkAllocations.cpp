// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "support/BoundedWait.h"
#include "support/CTestData.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeConnection.h>

#include <QThread>
#include <QtTest>

#include <cstddef>
#include <memory>
#include <vector>

using namespace Plugin::Halvex;

// Every allocation of the process goes through these: operator new and Qt's containers end in malloc, and a program's
// own malloc comes before the C library's. That one is reached by its second name.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): it is the C library that named them
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t nmemb, std::size_t size);
void* __libc_realloc(void* ptr, std::size_t size);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace {

thread_local long t_allocations = 0;

} // namespace

extern "C" {

Q_DECL_EXPORT void* malloc(std::size_t size)
{
    ++t_allocations;
    return __libc_malloc(size);
}

Q_DECL_EXPORT void* calloc(std::size_t nmemb, std::size_t size)
{
    ++t_allocations;
    return __libc_calloc(nmemb, size);
}

Q_DECL_EXPORT void* realloc(void* ptr, std::size_t size)
{
    ++t_allocations;
    return __libc_realloc(ptr, size);
}
}

namespace {

/// Passes on what it receives and allocates nothing.
class CRelayModel : public CNodeDataModel
{
public:
    QString caption() override { return QString(); }
    QString name() override { return QString(); }
    unsigned int nPorts(ENodePortType) const override { return 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return {}; }
    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        ++received;
        m_data = std::move(data);
        if (m_data)
            Q_EMIT dataUpdated(0);
    }
    CNodeDataPtr outData(NodePortIndex) override { return m_data; }

    int received = 0;

private:
    CNodeDataPtr m_data;
};

class CGraph
{
public:
    CNodeBase& addNode()
    {
        auto model = std::make_unique<CRelayModel>();
        m_models.push_back(model.get());
        m_nodes.push_back(std::make_unique<CNodeBase>(std::move(model)));
        return *m_nodes.back();
    }

    void connectNodes(CNodeBase& out, CNodeBase& in, NodeDataConverter converter = {})
    {
        m_connections.push_back(std::make_unique<CNodeConnection>(in, 0, out, 0, std::move(converter)));
        CNodeConnection& connection = *m_connections.back();
        in.nodeState().setConnection(ENodePortType::In, 0, connection);
        out.nodeState().setConnection(ENodePortType::Out, 0, connection);
    }

    /// Sends data into the first node. Returns what that took of allocations, -1 if not every node was served.
    long allocationsOfAWalk()
    {
        const CNodeDataPtr data = CTestData::make(1);
        const long before = t_allocations;
        m_nodes.front()->propagateData(data, 0);
        const long after = t_allocations;

        for (const CRelayModel* const model : m_models) {
            if (model->received != 1)
                return -1;
        }
        return after - before;
    }

private:
    std::vector<std::unique_ptr<CNodeBase>> m_nodes;
    std::vector<const CRelayModel*> m_models;
    std::vector<std::unique_ptr<CNodeConnection>> m_connections;
};

CNodeDataPtr pass(CNodeDataPtr data)
{
    return data;
}

} // namespace

class tst_WalkAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allocationsAreCounted();
    void connectionsOfOnePort_data();
    void connectionsOfOnePort();
    void chain_data();
    void chain();
    void portWithEntriesOfTheHost();
    void anotherThread();
};

void tst_WalkAllocations::allocationsAreCounted()
{
    const auto counted = [](auto&& work) {
        const long before = t_allocations;
        work();
        return t_allocations - before;
    };
    QCOMPARE(counted([] {}), 0L);
    QVERIFY(counted([] { std::make_unique<CRelayModel>(); }) > 0);
    QCOMPARE(counted([] { QVector<int>(10); }), 1L);
    QVERIFY(counted([] { CTestData::make(1); }) > 0);
}

void tst_WalkAllocations::connectionsOfOnePort_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("converts");

    for (const int count : {1, 2, 16, 17, 100, 1000}) {
        QTest::addRow("%d", count) << count << false;
        QTest::addRow("%d, converting", count) << count << true;
    }
}

void tst_WalkAllocations::connectionsOfOnePort()
{
    QFETCH(const int, count);
    QFETCH(const bool, converts);
    CGraph graph;
    CNodeBase& source = graph.addNode();
    for (int i = 0; i < count; ++i)
        graph.connectNodes(source, graph.addNode(), converts ? pass : NodeDataConverter());
    QCOMPARE(graph.allocationsOfAWalk(), 0L);
}

void tst_WalkAllocations::chain_data()
{
    QTest::addColumn<bool>("converts");

    QTest::newRow("plain") << false;
    QTest::newRow("converting") << true;
}

void tst_WalkAllocations::chain()
{
    QFETCH(const bool, converts);
    CGraph graph;
    CNodeBase* last = &graph.addNode();
    for (int i = 1; i < 100; ++i) {
        CNodeBase& next = graph.addNode();
        graph.connectNodes(*last, next, converts ? pass : NodeDataConverter());
        last = &next;
    }
    QCOMPARE(graph.allocationsOfAWalk(), 0L);
}

void tst_WalkAllocations::portWithEntriesOfTheHost()
{
    CGraph graph;
    CNodeBase& source = graph.addNode();
    for (int i = 0; i < 20; ++i)
        graph.connectNodes(source, graph.addNode());
    // From here on each walk looks for what was written.
    source.nodeState().getEntries(ENodePortType::Out);
    QCOMPARE(graph.allocationsOfAWalk(), 0L);
}

void tst_WalkAllocations::anotherThread()
{
    long allocations = -1;
    const std::unique_ptr<QThread> thread(QThread::create([&allocations] {
        CGraph graph;
        CNodeBase& source = graph.addNode();
        graph.connectNodes(source, graph.addNode());
        allocations = graph.allocationsOfAWalk();
    }));
    thread->start();
    waitForEnd(*thread);
    QCOMPARE(allocations, 0L);
}

QTEST_GUILESS_MAIN(tst_WalkAllocations)

#include "tst_WalkAllocations.moc"
