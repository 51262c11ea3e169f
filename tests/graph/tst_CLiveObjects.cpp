// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CLiveObjects_p.h"

#include "support/STestNode.h"

#include <QtTest>

using namespace Plugin::Halvex;

namespace {

constexpr CLiveObjects::EKind Node = CLiveObjects::EKind::Node;
constexpr CLiveObjects::EKind Connection = CLiveObjects::EKind::Connection;

} // namespace

class tst_CLiveObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void objectsAreKnownByTheirKind();
    void oneThatIsNotMeantIsNotFound();
};

void tst_CLiveObjects::objectsAreKnownByTheirKind()
{
    const STestNode source;
    STestNode sink;
    auto connection = join(source, sink);
    const CNodeBase* const node = sink.node.get();
    const CNodeConnection* const joint = connection.get();
    QVERIFY(CLiveObjects::contains(node, Node));
    QVERIFY(!CLiveObjects::contains(node, Connection));
    QVERIFY(CLiveObjects::contains(joint, Connection));
    QVERIFY(!CLiveObjects::contains(joint, Node));
    QVERIFY(!CLiveObjects::contains(nullptr, Node));

    connection.reset();
    sink.node.reset();

    QVERIFY(!CLiveObjects::contains(node, Node));
    QVERIFY(!CLiveObjects::contains(joint, Connection));
    QVERIFY(CLiveObjects::contains(source.node.get(), Node));
}

void tst_CLiveObjects::oneThatIsNotMeantIsNotFound()
{
    const STestNode node;
    int asked = 0;
    const auto isMeant = [&asked] { return ++asked == 1; };
    QVERIFY(CLiveObjects::contains(node.node.get(), Node, isMeant));
    QVERIFY(!CLiveObjects::contains(node.node.get(), Node, isMeant));
    QCOMPARE(asked, 2);
    QVERIFY(!CLiveObjects::contains(node.node.get(), Connection, isMeant));
    QCOMPARE(asked, 2);
}

QTEST_APPLESS_MAIN(tst_CLiveObjects)
#include "tst_CLiveObjects.moc"
