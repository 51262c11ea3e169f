// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/GraphLayout.h"

#include <QTest>

using namespace Host;

class tst_GraphLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsLaidOutAsNothing();
    void theFlowGoesFromLeftToRight();
    void connectionsDoNotCrossWithoutNeed();
    void nodesKeepClearOfEachOther();
    void fiveHundredNodesKeepClearOfEachOther();
    void aFreePlaceIsTheWantedOne();
    void aTakenPlaceIsAvoided();
};

namespace {

bool overlap(const std::vector<QPointF>& corners, QSizeF size)
{
    for (std::size_t i = 0; i < corners.size(); ++i) {
        for (std::size_t other = i + 1; other < corners.size(); ++other) {
            if (QRectF(corners[i], size).intersects(QRectF(corners[other], size)))
                return true;
        }
    }
    return false;
}

// Chains of ten behind one node.
FlowEdges chains(int nodes)
{
    FlowEdges edges;
    for (int i = 1; i < nodes; ++i)
        edges.emplace_back(i % 10 == 1 ? 0 : i - 1, i);
    return edges;
}

} // namespace

void tst_GraphLayout::nothingIsLaidOutAsNothing()
{
    QVERIFY(layoutGraph({}, {}).empty());
}

void tst_GraphLayout::theFlowGoesFromLeftToRight()
{
    const auto corners = layoutGraph(std::vector<QSizeF>(4, QSizeF(208, 100)), {{2, 1}, {1, 0}, {1, 3}});
    QVERIFY(corners[2].x() + 208 < corners[1].x());
    QVERIFY(corners[1].x() + 208 < corners[0].x());
    QCOMPARE(corners[0].x(), corners[3].x());
}

void tst_GraphLayout::connectionsDoNotCrossWithoutNeed()
{
    // Two chains whose second nodes come in the other order.
    const auto corners = layoutGraph(std::vector<QSizeF>(4, QSizeF(208, 100)), {{0, 3}, {1, 2}});
    QCOMPARE(corners[0].y() < corners[1].y(), corners[3].y() < corners[2].y());
}

void tst_GraphLayout::nodesKeepClearOfEachOther()
{
    const auto corners = layoutGraph(std::vector<QSizeF>(60, QSizeF(208, 120)), chains(60));
    QCOMPARE(corners.size(), std::size_t(60));
    QVERIFY(!overlap(corners, QSizeF(208, 120)));
    // Also in a loop, and without any connection.
    QVERIFY(!overlap(layoutGraph(std::vector<QSizeF>(3, QSizeF(208, 120)), {{0, 1}, {1, 2}, {2, 0}}), {208, 120}));
    QVERIFY(!overlap(layoutGraph(std::vector<QSizeF>(5, QSizeF(208, 120)), {}), {208, 120}));
}

void tst_GraphLayout::fiveHundredNodesKeepClearOfEachOther()
{
    const auto corners = layoutGraph(std::vector<QSizeF>(500, QSizeF(208, 120)), chains(500));
    QVERIFY(!overlap(corners, QSizeF(208, 120)));
}

void tst_GraphLayout::aFreePlaceIsTheWantedOne()
{
    QCOMPARE(findFreePlace({208, 100}, {80, 16}, {}), QPointF(80, 16));
    QCOMPARE(findFreePlace({208, 100}, {81, 15}, {}), QPointF(80, 16)); // on the grid
}

void tst_GraphLayout::aTakenPlaceIsAvoided()
{
    const std::vector<QRectF> taken{{0, 0, 208, 100}, {240, 0, 208, 100}, {0, 140, 208, 100}};
    const QPointF corner = findFreePlace({208, 100}, {16, 16}, taken);
    for (const QRectF& each : taken)
        QVERIFY(!each.intersects(QRectF(corner, QSizeF(208, 100))));
}

QTEST_GUILESS_MAIN(tst_GraphLayout)
#include "tst_GraphLayout.moc"
