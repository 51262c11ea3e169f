// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "SWindowByHand.h"
#include "host/viewer/images/CHistogramView.h"
#include "host/viewer/images/CImageDock.h"
#include "host/viewer/images/CImageStatus.h"
#include "host/viewer/images/CImageView.h"
#include "host/viewer/recording/CRecorder.h"
#include "host/viewer/window/CImageDocks.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QImage>
#include <QMenu>
#include <QToolBar>

#include <cmath>

using namespace Host;

namespace {

// The image of a camera that took a single frame.
struct SImageByHand : SWindowByHand
{
    SImageByHand()
    {
        session = connectCamera(QStringLiteral("fake-1"));
        QTRY_VERIFY(session->isOpen());
        session->grabSingle();
        QTRY_COMPARE(window->imageDocks().docks().size(), 1);
        QTRY_VERIFY(view().shown() > 0);
        QTRY_COMPARE(session->state(), CCameraSession::EState::Ready);
    }

    CImageDock& dock() const { return *window->imageDocks().docks().front(); }
    CImageView& view() const { return dock().view(); }
    QPoint middle() const { return view().rect().center(); }
    QAction* tool(const char* name) const { return dock().findChild<QAction*>(QLatin1String(name)); }

    // Of an action in the tool bar, or of the menu that it is in.
    QWidget& button(const char* name) const
    {
        auto* const bar = dock().findChild<QToolBar*>();
        const auto allActions = bar->actions();
        for (QAction* const each : allActions) {
            if (each == tool(name) || (each->menu() && each->menu()->actions().contains(tool(name))))
                return *bar->widgetForAction(each);
        }
        qFatal("no button for %s", name);
    }

    void choose(const char* name)
    {
        const QWidget& opener = button(name);
        hand.choose(opener, opener.rect().center(), {tool(name)});
    }

    // So that there is more of the image than the view shows, on all sides.
    void zoomIn()
    {
        hand.moveTo(view(), middle());
        hand.turnWheel(10);
        QTRY_VERIFY(512 * view().viewport().zoom > 1.5 * view().width());
    }

    QPoint pixelAt(QPoint place) const
    {
        const QPointF pixel = view().viewport().toImage(place);
        return {int(std::floor(pixel.x())), int(std::floor(pixel.y()))};
    }

    CCameraSession* session = nullptr;
};

} // namespace

/// Images as a person looks at them, with mouse and keyboard.
class tst_ImageByHand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void wheelZoomsAtThePointer();
    void fitAndOneToOne();
    void dragMovesTheImage();
    void valueUnderThePointer();
    void rectangleIsMeasured_data();
    void rectangleIsMeasured();
    void histogram();
    void falseColorsFromTheMenu();
    void copyByKey();
    void saveByKey();
    void recordAndStop();
};

void tst_ImageByHand::initTestCase()
{
    QVERIFY2(CHand::isThere(), "it runs on an X server: xvfb-run, with QT_QPA_PLATFORM=xcb");
}

void tst_ImageByHand::wheelZoomsAtThePointer()
{
    SImageByHand test;
    test.zoomIn();
    const CImageView& view = test.view();
    const QPoint place = test.middle() + QPoint(70, -40);
    const double zoom = view.viewport().zoom;
    const QPointF pixel = view.viewport().toImage(place);
    test.hand.moveTo(view, place);
    test.hand.turnWheel(2);
    QTRY_COMPARE(view.viewport().zoom, zoom * 1.25 * 1.25);
    QVERIFY((view.viewport().toImage(place) - pixel).manhattanLength() < 1.0);
    test.hand.turnWheel(-2);
    QTRY_COMPARE(view.viewport().zoom, zoom);
    QVERIFY((view.viewport().toImage(place) - pixel).manhattanLength() < 1.0);
}

void tst_ImageByHand::fitAndOneToOne()
{
    SImageByHand test;
    const double fitted = test.view().viewport().zoom;
    QVERIFY(fitted != 1.0);
    test.hand.click(test.button("image.oneToOne"));
    QTRY_COMPARE(test.view().viewport().zoom, 1.0);
    test.hand.click(test.button("image.fit"));
    QTRY_COMPARE(test.view().viewport().zoom, fitted);
    test.hand.click(test.view(), test.middle()); // the focus
    test.hand.press(Qt::Key_1);
    QTRY_COMPARE(test.view().viewport().zoom, 1.0);
    test.hand.press(Qt::Key_0);
    QTRY_COMPARE(test.view().viewport().zoom, fitted);
    test.hand.press(Qt::Key_Plus);
    QTRY_VERIFY(test.view().viewport().zoom > fitted);
    test.hand.doubleClick(test.view(), test.middle());
    QTRY_COMPARE(test.view().viewport().zoom, fitted);
}

void tst_ImageByHand::dragMovesTheImage()
{
    SImageByHand test;
    test.zoomIn();
    const QPointF origin = test.view().viewport().origin;
    const QPoint way(-60, 30);
    test.hand.drag(test.view(), test.middle(), test.view(), test.middle() + way);
    QTRY_COMPARE(test.view().viewport().origin, origin + way);
}

void tst_ImageByHand::valueUnderThePointer()
{
    SImageByHand test;
    const auto* const status = test.dock().findChild<CImageStatus*>();
    for (const QPoint way : {QPoint(0, 0), QPoint(20, 10)}) {
        const QPoint place = test.middle() + way;
        const QPoint pixel = test.pixelAt(place);
        test.hand.moveTo(test.view(), place);
        QTRY_VERIFY(test.view().probe() == pixel);
        QVERIFY(status->probeText().startsWith(QStringLiteral("x %1  y %2: ").arg(pixel.x()).arg(pixel.y())));
    }
    test.hand.moveTo(test.button("image.fit"), {4, 4});
    QTRY_VERIFY(!test.view().probe());
    QVERIFY(status->probeText().isEmpty());
}

void tst_ImageByHand::rectangleIsMeasured_data()
{
    QTest::addColumn<bool>("isByButton");
    QTest::newRow("button") << true;
    QTest::newRow("Shift") << false;
}

void tst_ImageByHand::rectangleIsMeasured()
{
    QFETCH(const bool, isByButton);
    SImageByHand test;
    test.session->start(); // images come meanwhile
    const auto* const status = test.dock().findChild<CImageStatus*>();
    const CImageView& view = test.view();
    if (isByButton) {
        test.hand.click(test.button("image.rectangle"));
        QTRY_VERIFY(view.isDrawing());
    }
    const QPoint from = test.middle() - QPoint(50, 40);
    const QPoint to = test.middle() + QPoint(30, 60);
    const QRect wanted(test.pixelAt(from), test.pixelAt(to)); // the statistics take room from the image
    const int height = view.height();
    test.hand.drag(view, from, view, to, isByButton ? Qt::NoModifier : Qt::ShiftModifier);
    QTRY_COMPARE(view.selection(), wanted);
    QTRY_VERIFY(!view.rendered().statistics.empty());
    QVERIFY(!status->statisticsText().isEmpty());
    QTRY_VERIFY(view.height() < height);
    QTRY_COMPARE(view.rendered().place.height(), view.height()); // it is fitted again
    QVERIFY(!view.isDrawing());
    QVERIFY(!test.tool("image.rectangle")->isChecked());
    test.hand.press(Qt::Key_Escape);
    QTRY_VERIFY(view.selection().isNull());
    QTRY_VERIFY(view.rendered().statistics.empty());
}

void tst_ImageByHand::histogram()
{
    SImageByHand test;
    const auto* const histogram = test.dock().findChild<CHistogramView*>();
    QVERIFY(!histogram->isVisible());
    test.hand.click(test.button("image.histogram"));
    QTRY_VERIFY(isSeen(*histogram));
    QTRY_VERIFY(!test.view().rendered().histogram.empty());
}

void tst_ImageByHand::falseColorsFromTheMenu()
{
    SImageByHand test;
    const QImage plain = test.view().seen();
    test.choose("image.palette.heat");
    QTRY_COMPARE(int(test.view().look().palette), int(EPalette::Heat));
    QTRY_VERIFY(test.view().seen() != plain);
    test.choose("image.palette.plain");
    QTRY_COMPARE(test.view().seen(), plain);
}

void tst_ImageByHand::copyByKey()
{
    SImageByHand test;
    QGuiApplication::clipboard()->clear();
    const QImage seen = test.view().seen(); // the message that tells of it takes room from the image
    test.hand.click(test.view(), test.middle());
    test.hand.press(QKeySequence::Copy);
    QTRY_COMPARE(QGuiApplication::clipboard()->image().convertToFormat(seen.format()), seen);
}

void tst_ImageByHand::saveByKey()
{
    SImageByHand test;
    const QString file = test.file("picture.png");
    test.hand.click(test.view(), test.middle());
    test.hand.press(Qt::Key_S);
    QTRY_VERIFY(test.window->findChild<QFileDialog*>());
    const QPointer<QFileDialog> dialog = test.window->findChild<QFileDialog*>();
    QVERIFY(test.hand.giveFocus(*dialog));
    test.hand.press(QKeySequence::SelectAll);
    test.hand.type(file);
    test.hand.press(Qt::Key_Return);
    QTRY_VERIFY(!dialog);
    QTRY_COMPARE(QImage(file).size(), QSize(512, 512));
}

void tst_ImageByHand::recordAndStop()
{
    SImageByHand test;
    const CRecorder& recorder = test.dock().recorder();
    test.session->start();
    test.choose("image.record.png");
    QTRY_COMPARE(recorder.state(), CRecorder::EState::Recording);
    QTRY_VERIFY(recorder.counts().written > 0);
    QVERIFY(!isSeen(test.button("image.record.png")));
    test.hand.click(test.button("image.record.stop"));
    QTRY_COMPARE(recorder.state(), CRecorder::EState::Finished);
    QVERIFY(recorder.folder().startsWith(test.folder.path()));
    QCOMPARE(quint64(QDir(recorder.folder()).entryList({"*.png"}).size()), recorder.counts().written);
    QTRY_VERIFY(isSeen(test.button("image.record.png")));
}

QTEST_MAIN(tst_ImageByHand)
#include "tst_ImageByHand.moc"
