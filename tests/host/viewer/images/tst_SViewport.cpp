// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/SViewport.h"

#include <QTest>

using namespace Host;

namespace {

const QSize image(200, 100);

} // namespace

class tst_SViewport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fitShowsAll();
    void pixelUnderThePointerStays();
    void zoomHasLimits();
    void panEndsAtTheEdges();
    void smallImageStandsInTheMiddle();
    void nothingToFit();
};

void tst_SViewport::fitShowsAll()
{
    SViewport viewport{QSize(400, 400)};
    viewport.fit(image);
    QCOMPARE(viewport.zoom, 2.0);
    QCOMPARE(viewport.origin, QPointF(0, 100));
    QCOMPARE(viewport.covered(image), QRect(0, 100, 400, 200));
    QCOMPARE(viewport.visible(image), QRect(QPoint(0, 0), image));
}

void tst_SViewport::pixelUnderThePointerStays()
{
    SViewport viewport{QSize(400, 400)};
    viewport.fit(image);
    const QPointF pointer(100, 200);
    const QPointF before = viewport.toImage(pointer);
    viewport.zoomAt(8.0, pointer, image);
    const QPointF way = viewport.toImage(pointer) - before;
    QVERIFY(std::abs(way.x()) <= 0.5 / 8 && std::abs(way.y()) <= 0.5 / 8);
    QCOMPARE(viewport.toDevice(viewport.toImage({7, 9})), QPointF(7, 9));
}

void tst_SViewport::zoomHasLimits()
{
    SViewport viewport{QSize(400, 400)};
    viewport.zoomAt(1e9, viewport.center(), image);
    QCOMPARE(viewport.zoom, SViewport::mostZoom);
    viewport.zoomAt(0.0, viewport.center(), image);
    QCOMPARE(viewport.zoom, SViewport::leastZoom);
}

void tst_SViewport::panEndsAtTheEdges()
{
    SViewport viewport{QSize(100, 100)};
    viewport.panBy({50, 50}, image);
    QCOMPARE(viewport.origin, QPointF(0, 0));
    viewport.panBy({-30, -30}, image);
    QCOMPARE(viewport.origin, QPointF(-30, 0));
    viewport.panBy({-1000, 0}, image);
    QCOMPARE(viewport.origin, QPointF(-100, 0));
    QCOMPARE(viewport.visible(image), QRect(100, 0, 100, 100));
}

void tst_SViewport::smallImageStandsInTheMiddle()
{
    SViewport viewport{QSize(301, 100)};
    viewport.keepInView(image);
    QCOMPARE(viewport.origin, QPointF(50, 0));
}

void tst_SViewport::nothingToFit()
{
    SViewport viewport;
    viewport.fit(image);
    viewport.fit({});
    QCOMPARE(viewport.zoom, 1.0);
    QVERIFY(viewport.covered(image).isEmpty());
}

QTEST_GUILESS_MAIN(tst_SViewport)
#include "tst_SViewport.moc"
