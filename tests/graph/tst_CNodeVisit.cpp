// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CNodeVisit_p.h"

#include "graph/CGraphOwner_p.h"
#include "support/CRowInspector.h"
#include "support/STestNode.h"

#include <QtTest>

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Plugin::Halvex;

namespace {

static_assert(!std::is_copy_constructible_v<CNodeVisit> && !std::is_copy_assignable_v<CNodeVisit>,
              "a visit is a place on the stack");

constexpr ENodePortType Out = ENodePortType::Out;

/// Visits that stand in one node, one within the other.
class CVisits
{
public:
    explicit CVisits(const STestNode& node)
        : m_node(node)
    {
    }
    ~CVisits()
    {
        while (!m_visits.empty())
            m_visits.pop_back(); // in the order opposite to that in which they began
    }
    Q_DISABLE_COPY(CVisits)

    const CNodeVisit& begin()
    {
        m_visits.push_back(std::make_unique<CNodeVisit>(*m_node));
        return *m_visits.back();
    }

private:
    const STestNode& m_node;
    std::vector<std::unique_ptr<CNodeVisit>> m_visits;
};

} // namespace

class tst_CNodeVisit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void visitLastsAsLongAsItsNode();
    void allVisitsOfADestroyedNodeAreOver();
    void removedNodeLivesUntilTheLastVisitHasLeft();
    void removedNodeGoesAtOnceIfNobodyStandsInIt();
    void visitOfARemovedNodeIsOverFromTheStart();
    void removedNodeMayBeDestroyedByItsVisitor();
    void roundsAreCounted();
    void roundsAreThoseOfOneNode();
    void leavingEndsARound();
    void dropEndsFurtherRounds();
    void earlierDropsEndNothing_data();
    void earlierDropsEndNothing();
    void walkMayGoOnUntilItsNodeIsGone();
    void visitWalksWhileItsWalkLasts();
    void placesStayUntilTheLastVisitHasLeft();
};

void tst_CNodeVisit::visitLastsAsLongAsItsNode()
{
    STestNode node;
    const CNodeVisit visit(*node);
    QVERIFY(!visit.isOver());
    QVERIFY(!visit.isRoundTooMany());
    QVERIFY(visit.mayGoOn());
    QVERIFY(!visit.isWalking());
    node.node.reset();
    QVERIFY(visit.isOver());
}

void tst_CNodeVisit::allVisitsOfADestroyedNodeAreOver()
{
    STestNode node;
    const STestNode other;
    const CNodeVisit outer(*node);
    const CNodeVisit between(*other);
    {
        const CNodeVisit inner(*node);
        node.node.reset();
        QCOMPARE(CTestModel::alive(), 1);
        QVERIFY(inner.isOver());
    }
    QVERIFY(outer.isOver());
    QVERIFY(!between.isOver());
}

void tst_CNodeVisit::removedNodeLivesUntilTheLastVisitHasLeft()
{
    STestNode node;
    {
        const CNodeVisit outer(*node);
        {
            const CNodeVisit inner(*node);
            CGraphOwner::retire(std::move(node.node));
            QVERIFY(inner.isOver());
            QVERIFY(outer.isOver());
        }
        QCOMPARE(CTestModel::alive(), 1);
        QCOMPARE(node.model->name(), QStringLiteral("Test"));
    }
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeVisit::removedNodeGoesAtOnceIfNobodyStandsInIt()
{
    STestNode node;
    {
        const CNodeVisit visit(*node);
    }
    CGraphOwner::retire(std::move(node.node));
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeVisit::visitOfARemovedNodeIsOverFromTheStart()
{
    STestNode node;
    CNodeBase& removed = *node;
    {
        const CNodeVisit outer(removed);
        CGraphOwner::retire(std::move(node.node));
        const CNodeVisit inner(removed);
        QVERIFY(inner.isOver());
        QVERIFY(!inner.mayGoOn());
    }
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeVisit::removedNodeMayBeDestroyedByItsVisitor()
{
    STestNode node;
    CNodeBase* const removed = node.node.get();
    const CNodeVisit visit(*removed);
    CGraphOwner::retire(std::move(node.node));
    delete removed; // its last visit must not destroy it again
    QCOMPARE(CTestModel::alive(), 0);
    QVERIFY(visit.isOver());
}

void tst_CNodeVisit::roundsAreCounted()
{
    const STestNode node;
    CVisits visits(node);
    for (int round = 1; round <= CNodeVisit::mostRounds; ++round)
        QVERIFY(!visits.begin().isRoundTooMany());
    QVERIFY(visits.begin().isRoundTooMany());
    QVERIFY(visits.begin().isRoundTooMany());
}

void tst_CNodeVisit::roundsAreThoseOfOneNode()
{
    const STestNode node;
    const STestNode other;
    CVisits visits(node);
    for (int round = 1; round <= CNodeVisit::mostRounds; ++round)
        visits.begin();
    const CNodeVisit visit(*other);
    QVERIFY(!visit.isRoundTooMany());
}

void tst_CNodeVisit::leavingEndsARound()
{
    const STestNode node;
    for (int time = 0; time < 2 * CNodeVisit::mostRounds; ++time) {
        const CNodeVisit visit(*node);
        QVERIFY(!visit.isRoundTooMany());
    }
}

void tst_CNodeVisit::dropEndsFurtherRounds()
{
    const STestNode node;
    CNodeVisit first(*node);
    const CNodeVisit::CWalk walk(first);
    CNodeVisit second(*node);
    const CNodeVisit::CWalk furtherWalk(second);
    QVERIFY(second.mayGoOn());
    second.gauge().countDrop();
    QVERIFY(!second.mayGoOn());
    const CNodeVisit third(*node);
    QVERIFY(!third.mayGoOn());
    QVERIFY(first.mayGoOn());
}

void tst_CNodeVisit::earlierDropsEndNothing_data()
{
    QTest::addColumn<bool>("isFirstWalking");

    QTest::newRow("before a visit that walks") << true;
    QTest::newRow("before a visit that does not") << false;
}

void tst_CNodeVisit::earlierDropsEndNothing()
{
    QFETCH(const bool, isFirstWalking);
    const STestNode node;
    CNodeVisit first(*node);
    first.gauge().countDrop();
    std::optional<CNodeVisit::CWalk> walk;
    if (isFirstWalking)
        walk.emplace(first);
    const CNodeVisit second(*node);
    QVERIFY(second.mayGoOn());
}

void tst_CNodeVisit::walkMayGoOnUntilItsNodeIsGone()
{
    STestNode node;
    CNodeVisit visit(*node);
    const CNodeVisit::CWalk walk(visit);
    QVERIFY(visit.mayGoOn());
    node.node.reset();
    QVERIFY(!visit.mayGoOn());
}

void tst_CNodeVisit::visitWalksWhileItsWalkLasts()
{
    const STestNode node;
    CNodeVisit visit(*node);
    QVERIFY(visit.isFirstAndIdle());
    QVERIFY(!visit.isWalking());
    {
        const CNodeVisit::CWalk walk(visit);
        QVERIFY(visit.isWalking());
        QVERIFY(!visit.isFirstAndIdle());
        const CNodeVisit inner(*node);
        QVERIFY(!inner.isWalking());
        QVERIFY(!inner.isFirstAndIdle());
    }
    QVERIFY(visit.isFirstAndIdle());
    QVERIFY(!visit.isWalking());
}

void tst_CNodeVisit::placesStayUntilTheLastVisitHasLeft()
{
    const STestNode source;
    const STestNode sink;
    auto destroyed = join(source, sink);
    const auto takenOut = join(source, sink);
    const auto stays = join(source, sink);
    const CNodeState& table = source->nodeState();
    const std::vector<const CNodeConnection*> left = {stays.get()};
    {
        const CNodeVisit outer(*source);
        {
            const CNodeVisit inner(*source);
            destroyed.reset();
            takenOut->removeFromNodes();
            QCOMPARE(CRowInspector::row(table, Out, 0), left);
        }
        QCOMPARE(CRowInspector::places(table, Out, 0), 3);
    }
    QCOMPARE(CRowInspector::places(table, Out, 0), 1);
    QCOMPARE(CRowInspector::row(table, Out, 0), left);
}

QTEST_APPLESS_MAIN(tst_CNodeVisit)
#include "tst_CNodeVisit.moc"
