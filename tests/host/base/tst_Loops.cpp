// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Loops.h"

#include <QTest>

using namespace Host;

class tst_Loops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void none();
    void nearestFirst();
    void whatOnlyLiesBehindIsNoLoop();
    void loopThatTheSourceDoesNotReach();
};

void tst_Loops::none()
{
    QCOMPARE(nodesOnLoops(0, {}, 0), std::vector<int>());
    QCOMPARE(nodesOnLoops(3, {{0, 1}, {0, 2}, {1, 2}}, 0), std::vector<int>());
}

void tst_Loops::nearestFirst()
{
    QCOMPARE(nodesOnLoops(4, {{0, 3}, {3, 2}, {2, 1}, {1, 3}}, 0), std::vector<int>({3, 2, 1}));
    QCOMPARE(nodesOnLoops(2, {{0, 1}, {1, 1}}, 0), std::vector<int>{1});
}

void tst_Loops::whatOnlyLiesBehindIsNoLoop()
{
    QCOMPARE(nodesOnLoops(5, {{0, 1}, {1, 2}, {2, 1}, {2, 3}, {3, 4}}, 0), std::vector<int>({1, 2}));
}

void tst_Loops::loopThatTheSourceDoesNotReach()
{
    QCOMPARE(nodesOnLoops(3, {{1, 2}, {2, 1}}, 0), std::vector<int>({1, 2}));
}

QTEST_GUILESS_MAIN(tst_Loops)
#include "tst_Loops.moc"
