// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CWeakLink.h"

#include <QtTest>

#include <memory>
#include <type_traits>

using namespace Plugin::Halvex;

namespace {

struct STarget
{
    CWeakAnchor<STarget> anchor;
};

using Link = CWeakLink<STarget>;

// Both are strung together by their addresses.
static_assert(!std::is_copy_constructible_v<Link> && !std::is_move_constructible_v<Link>, "stays where it is");
static_assert(!std::is_copy_constructible_v<CWeakAnchor<STarget>>, "stays where it is");
static_assert(std::is_nothrow_destructible_v<Link> && std::is_nothrow_destructible_v<CWeakAnchor<STarget>>,
              "used in destructors");

} // namespace

class tst_CWeakLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isNullAtFirst();
    void pointsAtItsTarget();
    void becomesNullWithItsTarget();
    void releasedAnchorCanBeLinkedAgain();
    void leavesFromAnyPlace_data();
    void leavesFromAnyPlace();
    void goesOverToAnotherTarget();
    void overwrittenPointerStaysWhenTheTargetGoes();
    void overwrittenLinkLeavesItsTarget();
};

void tst_CWeakLink::isNullAtFirst()
{
    const Link link;
    QVERIFY(!link.get());
    QVERIFY(!link.target());
    QVERIFY(!STarget().anchor.hasLinks());
}

void tst_CWeakLink::pointsAtItsTarget()
{
    STarget target;
    const Link link(&target, target.anchor);
    QCOMPARE(link.get(), &target);
    QCOMPARE(link.target(), &target);
    QVERIFY(target.anchor.hasLinks());
}

void tst_CWeakLink::becomesNullWithItsTarget()
{
    auto target = std::make_unique<STarget>();
    const Link first(target.get(), target->anchor);
    const Link second(target.get(), target->anchor);
    target.reset();
    for (const Link* const link : {&first, &second}) {
        QVERIFY(!link->get());
        QVERIFY(!link->target());
    }
}

void tst_CWeakLink::releasedAnchorCanBeLinkedAgain()
{
    STarget target;
    Link link(&target, target.anchor);
    target.anchor.release();
    QVERIFY(!link.get());
    QVERIFY(!target.anchor.hasLinks());
    link.link(&target, target.anchor);
    QCOMPARE(link.get(), &target);
}

void tst_CWeakLink::leavesFromAnyPlace_data()
{
    QTest::addColumn<int>("leaving");

    QTest::newRow("first") << 0;
    QTest::newRow("middle") << 1;
    QTest::newRow("last") << 2;
}

void tst_CWeakLink::leavesFromAnyPlace()
{
    QFETCH(const int, leaving);
    auto target = std::make_unique<STarget>();
    Link links[3];
    for (Link& link : links)
        link.link(target.get(), target->anchor);

    links[leaving].unlink();
    links[leaving].unlink();

    for (int position = 0; position < 3; ++position)
        QCOMPARE(links[position].get(), position == leaving ? nullptr : target.get());
    target.reset();
    for (const Link& link : links)
        QVERIFY(!link.get());
}

void tst_CWeakLink::goesOverToAnotherTarget()
{
    auto first = std::make_unique<STarget>();
    STarget second;
    Link link(first.get(), first->anchor);
    link.link(&second, second.anchor);
    QVERIFY(!first->anchor.hasLinks());
    first.reset();
    QCOMPARE(link.get(), &second);
}

void tst_CWeakLink::overwrittenPointerStaysWhenTheTargetGoes()
{
    auto target = std::make_unique<STarget>();
    STarget other;
    Link link(target.get(), target->anchor);
    link.object() = &other;
    QCOMPARE(link.target(), target.get());
    target.reset();
    QCOMPARE(link.get(), &other);
    QVERIFY(!link.target());
}

void tst_CWeakLink::overwrittenLinkLeavesItsTarget()
{
    STarget target;
    STarget other;
    {
        Link link(&target, target.anchor);
        link.object() = &other;
    }
    QVERIFY(!target.anchor.hasLinks());
    QVERIFY(!other.anchor.hasLinks());
}

QTEST_GUILESS_MAIN(tst_CWeakLink)

#include "tst_CWeakLink.moc"
