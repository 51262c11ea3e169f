// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageView.h"

#include "viewer/TestView.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace Host;

namespace {

// A view of 400 x 200 pixels with an image of 200 x 100 that fits into it twice as large.
struct SView
{
    SView()
    {
        view.resize(400, 200);
        view.show();
        view.setImage(viewImage(rampImage()));
    }

    bool waitForPicture()
    {
        return QTest::qWaitFor(
            [this] { return !view.rendered().picture.isNull() && view.rendered().viewport == view.viewport(); });
    }

    void turnWheel(const QPoint& at, int notches)
    {
        QWheelEvent event(at, view.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
    }

    void moveMouse(const QPoint& to, Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QMouseEvent event(QEvent::MouseMove, to, Qt::NoButton, buttons, modifiers);
        QCoreApplication::sendEvent(&view, &event);
    }

    void drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mousePress(&view, Qt::LeftButton, modifiers, from);
        moveMouse((from + to) / 2, Qt::LeftButton, modifiers);
        moveMouse(to, Qt::LeftButton, modifiers);
        QTest::mouseRelease(&view, Qt::LeftButton, modifiers, to);
    }

    CImageView view;
};

} // namespace

class tst_CImageView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newView();
    void imageFitsAndIsDrawn();
    void newestImageIsShown();
    void calmWhenNothingIsNew();
    void noImageTakesThePictureAway();
    void wheelZoomsAtThePointer();
    void dragMovesTheImage();
    void shiftAndDragDrawsARectangle();
    void imageStaysWhileARectangleIsDrawn();
    void drawingEndsWithTheRectangle();
    void arrowsMoveTheView();
    void keysMoveTheProbe();
    void keysMoveTheRectangle();
    void probeIsInTheImageOnly();
    void restingPointerTellsWhatComesUnderIt();
    void fitFollowsTheSizeAndZoomStays();
    void lookChangesThePicture();
    void seenHasTheRectangle();
    void removedWhileTheWorkerDraws();
};

void tst_CImageView::newView()
{
    CImageView view;
    QVERIFY(!view.rendered().data);
    QVERIFY(view.seen().isNull());
    QVERIFY(!view.probe());
    QVERIFY(view.selection().isNull());
    QVERIFY(!view.isDrawing());
    QCOMPARE(view.shown(), quint64(0));
    QVERIFY(!view.accessibleName().isEmpty());
    QVERIFY(!view.grab().isNull());
}

void tst_CImageView::imageFitsAndIsDrawn()
{
    SView shown;
    QVERIFY(shown.waitForPicture());
    QCOMPARE(shown.view.viewport().zoom, 2.0 * shown.view.devicePixelRatioF());
    QTRY_COMPARE(shown.view.shown(), quint64(1));
    const QImage seen = shown.view.seen();
    QCOMPARE(seen.size(), QSize(400, 200) * shown.view.devicePixelRatio());
    QCOMPARE(qRed(seen.pixel(seen.width() / 2, 50)), 100);
    // What is on the screen is that picture.
    QCOMPARE(qRed(shown.view.grab().toImage().pixel(seen.width() / 2, 50)), 100);
}

void tst_CImageView::newestImageIsShown()
{
    SView shown;
    QSharedPointer<CImageData> newest;
    for (int i = 0; i < 100; ++i) {
        newest = viewImage(rampImage(), 8, quint64(i));
        shown.view.setImage(newest);
    }
    QTRY_COMPARE(shown.view.rendered().data, newest.staticCast<const CImageData>());
    QTRY_VERIFY(shown.view.shown() >= 1);
    QVERIFY(shown.view.shown() < 20);
}

void tst_CImageView::calmWhenNothingIsNew()
{
    SView shown;
    QVERIFY(shown.waitForPicture());
    QTRY_VERIFY(!shown.view.findChild<QTimer*>()->isActive());
    QSignalSpy rendered(&shown.view, &CImageView::renderedChanged);
    QVERIFY(!rendered.wait(100)); // several turns of the timer
}

void tst_CImageView::noImageTakesThePictureAway()
{
    SView shown;
    QVERIFY(shown.waitForPicture());
    shown.view.setImage({});
    QTRY_VERIFY(!shown.view.rendered().data);
    QVERIFY(shown.view.seen().isNull());
}

void tst_CImageView::wheelZoomsAtThePointer()
{
    SView shown;
    const QPoint pointer(301, 61); // the middle of a pixel
    shown.moveMouse(pointer, Qt::NoButton);
    const QPoint before = *shown.view.probe();
    const double zoom = shown.view.viewport().zoom;
    shown.turnWheel(pointer, 4);
    QCOMPARE(shown.view.viewport().zoom, zoom * std::pow(1.25, 4));
    QCOMPARE(*shown.view.probe(), before);
    shown.turnWheel(pointer, -4);
    QCOMPARE(shown.view.viewport().zoom, zoom);
}

void tst_CImageView::dragMovesTheImage()
{
    SView shown;
    shown.view.zoomTo(8.0);
    const QPointF before = shown.view.viewport().origin;
    shown.drag({200, 100}, {150, 120});
    QCOMPARE(shown.view.viewport().origin, before + QPointF(-50, 20) * shown.view.devicePixelRatioF());
    QVERIFY(shown.view.selection().isNull());
}

void tst_CImageView::shiftAndDragDrawsARectangle()
{
    SView shown;
    QSignalSpy changed(&shown.view, &CImageView::selectionChanged);
    shown.drag({20, 40}, {59, 79}, Qt::ShiftModifier);
    QCOMPARE(shown.view.selection(), QRect(10, 20, 20, 20));
    QVERIFY(changed.count() >= 1);
    QTRY_COMPARE(shown.view.rendered().statistics.size(), std::size_t(1));
    QCOMPARE(shown.view.rendered().statistics[0].mean, 19.5);
    // Upwards, and beyond the edge.
    shown.drag({59, 79}, {-100, -100}, Qt::ShiftModifier);
    QCOMPARE(shown.view.selection(), QRect(0, 0, 30, 40));
    QTest::keyClick(&shown.view, Qt::Key_Escape);
    QVERIFY(shown.view.selection().isNull());
    QTRY_VERIFY(shown.view.rendered().statistics.empty());
}

// Its statistics appear below meanwhile.
void tst_CImageView::imageStaysWhileARectangleIsDrawn()
{
    SView shown;
    QTest::mousePress(&shown.view, Qt::LeftButton, Qt::ShiftModifier, {20, 40});
    shown.moveMouse({39, 59}, Qt::LeftButton, Qt::ShiftModifier);
    shown.view.resize(400, 100);
    shown.moveMouse({59, 79}, Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(shown.view.selection(), QRect(QPoint(10, 20), QPoint(29, 39)));
    QTest::mouseRelease(&shown.view, Qt::LeftButton, Qt::ShiftModifier, {59, 79});
    QCOMPARE(shown.view.selection(), QRect(QPoint(10, 20), QPoint(29, 39)));
    QCOMPARE(shown.view.viewport().zoom, 1.0);
}

void tst_CImageView::drawingEndsWithTheRectangle()
{
    SView shown;
    QSignalSpy changed(&shown.view, &CImageView::drawingChanged);
    shown.view.setDrawing(true);
    shown.view.setDrawing(true);
    shown.drag({20, 40}, {59, 79});
    QCOMPARE(shown.view.selection(), QRect(10, 20, 20, 20));
    QVERIFY(!shown.view.isDrawing());
    QCOMPARE(changed.count(), 2);
}

void tst_CImageView::arrowsMoveTheView()
{
    SView shown;
    shown.view.zoomTo(8.0 * shown.view.devicePixelRatioF());
    const double zoom = shown.view.viewport().zoom;
    const QRect before = shown.view.viewport().visible({200, 100});
    QTest::keyClick(&shown.view, Qt::Key_Right);
    QTest::keyClick(&shown.view, Qt::Key_Down);
    const QRect after = shown.view.viewport().visible({200, 100});
    QCOMPARE(after.topLeft() - before.topLeft(), QPoint(6, 6));
    QTest::keyClick(&shown.view, Qt::Key_Left);
    QTest::keyClick(&shown.view, Qt::Key_Up);
    QCOMPARE(shown.view.viewport().visible({200, 100}), before);
    QCOMPARE(shown.view.viewport().zoom, zoom);
}

void tst_CImageView::keysMoveTheProbe()
{
    SView shown;
    QSignalSpy changed(&shown.view, &CImageView::probeChanged);
    QTest::keyClick(&shown.view, Qt::Key_Left, Qt::AltModifier);
    const QPoint middle = *shown.view.probe();
    QTest::keyClick(&shown.view, Qt::Key_Left, Qt::AltModifier);
    QTest::keyClick(&shown.view, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(*shown.view.probe(), middle + QPoint(-1, 1));
    QCOMPARE(changed.count(), 3);
}

void tst_CImageView::keysMoveTheRectangle()
{
    SView shown;
    QTest::keyClick(&shown.view, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(shown.view.selection(), QRect(50, 25, 100, 50));
    QTest::keyClick(&shown.view, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&shown.view, Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(shown.view.selection(), QRect(50, 25, 101, 49));
    QTest::keyClick(&shown.view, Qt::Key_Left, Qt::ControlModifier);
    QTest::keyClick(&shown.view, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(shown.view.selection(), QRect(49, 26, 101, 49));
    // It stays in the image.
    shown.view.setSelection({0, 0, 200, 100});
    QTest::keyClick(&shown.view, Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(shown.view.selection(), QRect(0, 0, 200, 100));
}

void tst_CImageView::probeIsInTheImageOnly()
{
    SView shown;
    shown.view.resize(400, 400);
    shown.moveMouse({200, 200}, Qt::NoButton);
    QCOMPARE(shown.view.probe().value_or(QPoint()), QPoint(100, 50));
    shown.moveMouse({200, 20}, Qt::NoButton);
    QVERIFY(!shown.view.probe());
    shown.moveMouse({200, 200}, Qt::NoButton);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&shown.view, &leave);
    QVERIFY(!shown.view.probe());
}

void tst_CImageView::restingPointerTellsWhatComesUnderIt()
{
    SView shown;
    shown.moveMouse({390, 100}, Qt::NoButton);
    QCOMPARE(shown.view.probe()->x(), 195);
    shown.view.zoomTo(8.0 * shown.view.devicePixelRatioF());
    QVERIFY(shown.view.probe()->x() < 195);
}

void tst_CImageView::fitFollowsTheSizeAndZoomStays()
{
    SView shown;
    shown.view.resize(200, 200);
    QCOMPARE(shown.view.viewport().zoom, shown.view.devicePixelRatioF());
    shown.view.zoomTo(5.0);
    shown.view.resize(400, 200);
    QCOMPARE(shown.view.viewport().zoom, 5.0);
    shown.view.setImage({});
    shown.view.setImage(viewImage(rampImage()));
    QCOMPARE(shown.view.viewport().zoom, 5.0);
    QTest::mouseDClick(&shown.view, Qt::LeftButton, {}, {100, 100});
    QCOMPARE(shown.view.viewport().zoom, 2.0 * shown.view.devicePixelRatioF());
}

void tst_CImageView::lookChangesThePicture()
{
    SView shown;
    QVERIFY(shown.waitForPicture());
    const QRgb plain = shown.view.seen().pixel(100, 50);
    shown.view.setColors(EPalette::Heat);
    QTRY_VERIFY(shown.view.seen().pixel(100, 50) != plain);
    shown.view.setColors(EPalette::Plain);
    shown.view.setRange(ERangeMode::Manual, {0, 100});
    const QImage seen = shown.view.seen();
    QTRY_COMPARE(shown.view.seen().pixel(seen.width() - 1, 50), qRgb(255, 255, 255));
    shown.view.setHistogramWanted(true);
    QTRY_VERIFY(!shown.view.rendered().histogram.empty());
}

void tst_CImageView::seenHasTheRectangle()
{
    SView shown;
    QVERIFY(shown.waitForPicture());
    const QImage before = shown.view.seen();
    shown.view.setSelection({20, 20, 40, 40});
    QVERIFY(shown.view.seen() != before);
}

void tst_CImageView::removedWhileTheWorkerDraws()
{
    for (int i = 0; i < 20; ++i) {
        const auto shown = std::make_unique<SView>();
        shown->view.setImage(viewImage(rampImage(2000, 1000)));
    }
    QVERIFY(CTaskRunner::waitForRemovedWork());
}

QTEST_MAIN(tst_CImageView)
#include "tst_CImageView.moc"
