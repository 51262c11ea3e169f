// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageDock.h"

#include "host/viewer/images/CHistogramView.h"
#include "host/viewer/images/CImageFolders.h"
#include "host/viewer/images/CImageStatus.h"
#include "host/viewer/images/CImageView.h"
#include "host/viewer/images/CRangeBar.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/recording/CRecorder.h"
#include "viewer/TestView.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Host;

namespace {

struct SDock
{
    SDock()
    {
        model->setViewName(QStringLiteral("Left"));
        dock = std::make_unique<CImageDock>(*model, folders);
        dock->setFloating(true);
        dock->resize(500, 400);
        dock->show();
    }

    bool activate()
    {
        dock->activateWindow();
        if (!QTest::qWaitForWindowActive(dock.get()))
            return false;
        dock->view().setFocus();
        return QTest::qWaitFor([this] { return dock->view().hasFocus(); });
    }

    bool showImage(const cv::Mat& pixels, int bits = 8) const
    {
        const auto image = viewImage(pixels, bits);
        model->setInData(image, 0);
        return QTest::qWaitFor([&] { return dock->view().rendered().data == image; });
    }

    QAction& action(const char* name) const
    {
        const auto allImageActions = dock->imageActions();
        for (QAction* const action : allImageActions) {
            if (action->objectName() == QLatin1String(name))
                return *action;
        }
        qFatal("there is no action %s", name);
    }

    template <typename Part>
    Part& part() const
    {
        return *dock->findChild<Part*>();
    }

    CImageFolders folders;
    std::unique_ptr<CViewModel> model = std::make_unique<CViewModel>();
    std::unique_ptr<CImageDock> dock;
};

} // namespace

class tst_CImageDock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newDock();
    void titleFollowsTheModel();
    void imageAndItsValueAreShown();
    void keysZoom();
    void rectangleIsDrawnAfterItsButton();
    void falseColorsAreChosen();
    void manualRangeBeginsWithWhatIsSeen();
    void histogramIsShown();
    void viewIsCopied();
    void imageIsSaved();
    void recordingIsBegunAndEnded();
    void toolBarIsReachedByTheKeyboard();
    void narrowDockIsPossible();
    void modelMayGoFirst();
    void dockMayGoWhileItRecords();
};

void tst_CImageDock::newDock()
{
    const SDock shown;
    QCOMPARE(shown.dock->windowTitle(), QStringLiteral("Left"));
    QCOMPARE(shown.dock->accessibleName(), QStringLiteral("Left"));
    QVERIFY(shown.part<CHistogramView>().isHidden());
    QVERIFY(shown.part<CRangeBar>().isHidden());
    QTRY_VERIFY(!shown.action("image.copy").isEnabled());
    QVERIFY(!shown.action("image.record.stop").isVisible());
}

void tst_CImageDock::titleFollowsTheModel()
{
    const SDock shown;
    shown.model->setViewName(QStringLiteral("Right"));
    QCOMPARE(shown.dock->windowTitle(), QStringLiteral("Right"));
}

void tst_CImageDock::imageAndItsValueAreShown()
{
    SDock shown;
    QVERIFY(shown.showImage(cv::Mat(100, 200, CV_16UC1, cv::Scalar(3071 * 16)), 12));
    CImageView& view = shown.dock->view();
    QTest::mouseMove(&view, view.rect().center());
    QTRY_VERIFY(shown.part<CImageStatus>().probeText().endsWith(QStringLiteral(": 3071")));
    // The value follows the image, too.
    QVERIFY(shown.showImage(cv::Mat(100, 200, CV_16UC1, cv::Scalar(5 * 16)), 12));
    QTRY_VERIFY(shown.part<CImageStatus>().probeText().endsWith(QStringLiteral(": 5")));
}

void tst_CImageDock::keysZoom()
{
    SDock shown;
    QVERIFY(shown.activate());
    QVERIFY(shown.showImage(rampImage()));
    CImageView& view = shown.dock->view();
    const double fitted = view.viewport().zoom;
    QTest::keyClick(&view, Qt::Key_1);
    QTRY_COMPARE(view.viewport().zoom, 1.0);
    QTest::keyClick(&view, Qt::Key_Plus);
    QTRY_COMPARE(view.viewport().zoom, 1.25);
    QTest::keyClick(&view, Qt::Key_Minus);
    QTRY_COMPARE(view.viewport().zoom, 1.0);
    QTest::keyClick(&view, Qt::Key_0);
    QTRY_COMPARE(view.viewport().zoom, fitted);
}

void tst_CImageDock::rectangleIsDrawnAfterItsButton()
{
    SDock shown;
    QVERIFY(shown.showImage(rampImage()));
    shown.action("image.rectangle").trigger();
    CImageView& view = shown.dock->view();
    QVERIFY(view.isDrawing());
    const QPoint middle = view.rect().center();
    QTest::mousePress(&view, Qt::LeftButton, {}, middle);
    QMouseEvent move(QEvent::MouseMove, middle + QPoint(40, 40), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &move);
    QVERIFY(!view.selection().isEmpty());
    QTest::mouseRelease(&view, Qt::LeftButton, {}, middle + QPoint(40, 40));
    QVERIFY(!shown.action("image.rectangle").isChecked());
    QTRY_VERIFY(shown.part<CImageStatus>().statisticsText().contains(QStringLiteral("Grey")));
}

void tst_CImageDock::falseColorsAreChosen()
{
    SDock shown;
    QVERIFY(shown.showImage(rampImage()));
    shown.action("image.palette.heat").trigger();
    QCOMPARE(shown.dock->view().look().palette, EPalette::Heat);
    QVERIFY(shown.action("image.palette.heat").isChecked());
    QVERIFY(!shown.action("image.palette.plain").isChecked());
}

void tst_CImageDock::manualRangeBeginsWithWhatIsSeen()
{
    SDock shown;
    cv::Mat pixels(100, 200, CV_16UC1, cv::Scalar(100 * 16));
    pixels.colRange(0, 100).setTo(300 * 16);
    QVERIFY(shown.showImage(pixels, 12));
    shown.action("image.range.automatic").trigger();
    QTRY_COMPARE(shown.dock->view().rendered().range.white, 300.0);
    shown.action("image.range.manual").trigger();
    QVERIFY(!shown.part<CRangeBar>().isHidden());
    QVERIFY(shown.part<CRangeBar>().range() == (SValueRange{100, 300}));
    shown.part<CRangeBar>().setRange({0, 4095});
    QTRY_COMPARE(shown.dock->view().rendered().range.white, 4095.0);
    // An image of another depth does not bring the manual range back.
    shown.action("image.range.full").trigger();
    QVERIFY(shown.showImage(rampImage()));
    QCOMPARE(shown.dock->view().look().rangeMode, ERangeMode::Full);
    QTRY_COMPARE(shown.dock->view().rendered().range.white, 255.0);
}

void tst_CImageDock::histogramIsShown()
{
    SDock shown;
    QVERIFY(shown.showImage(rampImage()));
    shown.action("image.histogram").trigger();
    QVERIFY(!shown.part<CHistogramView>().isHidden());
    QTRY_VERIFY(!shown.dock->view().rendered().histogram.empty());
    shown.action("image.logarithmic").trigger();
    QVERIFY(shown.part<CHistogramView>().isLogarithmic());
    shown.action("image.histogram").trigger();
    QVERIFY(shown.part<CHistogramView>().isHidden());
}

void tst_CImageDock::viewIsCopied()
{
    SDock shown;
    QVERIFY(shown.showImage(rampImage()));
    shown.action("image.copy").trigger();
    QCOMPARE(QGuiApplication::clipboard()->image().size(), shown.dock->view().seen().size());
    QVERIFY(!shown.part<CImageStatus>().messageText().isEmpty());
}

void tst_CImageDock::imageIsSaved()
{
    SDock shown;
    const QTemporaryDir folder;
    QVERIFY(shown.showImage(rampImage()));
    for (const char* const name : {"image.saveImage", "image.saveView"}) {
        shown.action(name).trigger();
        const QPointer<QFileDialog> dialog = shown.dock->findChild<QFileDialog*>();
        QVERIFY(dialog);
        QTRY_VERIFY(dialog->isVisible());
        const QString file = folder.filePath(QLatin1String(name) + QStringLiteral(".png"));
        dialog->setDirectory(folder.path());
        dialog->selectFile(file);
        QMetaObject::invokeMethod(dialog, "accept");
        QTRY_VERIFY(QFile::exists(file));
        QTRY_VERIFY(!dialog);
    }
    QTRY_VERIFY(shown.part<CImageStatus>().messageText().contains(QStringLiteral("image.saveView.png")));
}

void tst_CImageDock::recordingIsBegunAndEnded()
{
    SDock shown;
    const QTemporaryDir folder;
    shown.folders.setRecordings(folder.path());
    QVERIFY(shown.showImage(rampImage()));
    shown.action("image.record.png").trigger();
    QCOMPARE(shown.dock->recorder().state(), CRecorder::EState::Recording);
    QVERIFY(shown.action("image.record.stop").isVisible());
    QVERIFY(!shown.action("image.record.video").isEnabled());
    QVERIFY(shown.showImage(rampImage()));
    shown.action("image.record.stop").trigger();
    QTRY_COMPARE(shown.dock->recorder().state(), CRecorder::EState::Finished);
    QCOMPARE(shown.dock->recorder().counts().written, quint64(1));
    QVERIFY(!shown.action("image.record.stop").isVisible());
    QVERIFY(shown.action("image.record.video").isEnabled());
    QVERIFY(shown.dock->recorder().folder().startsWith(folder.path()));
}

void tst_CImageDock::toolBarIsReachedByTheKeyboard()
{
    const SDock shown;
    const auto allChildren = shown.part<QToolBar>().findChildren<QToolButton*>();
    for (const QToolButton* const button : allChildren) {
        if (button->defaultAction())
            QVERIFY(button->focusPolicy() & Qt::TabFocus);
    }
}

void tst_CImageDock::narrowDockIsPossible()
{
    SDock shown;
    QVERIFY(shown.showImage(rampImage()));
    shown.action("image.histogram").trigger();
    shown.dock->resize(190, 400);
    QTRY_COMPARE(shown.dock->width(), 190);
}

void tst_CImageDock::modelMayGoFirst()
{
    SDock shown;
    QVERIFY(shown.showImage(rampImage()));
    shown.model.reset();
    QTRY_VERIFY(!shown.dock->view().rendered().data);
    const auto allImageActions = shown.dock->imageActions();
    for (QAction* const action : allImageActions) {
        if (!action->text().endsWith(QChar(0x2026))) // no dialogs
            action->trigger();
    }
    QVERIFY(!shown.dock->grab().isNull());
}

void tst_CImageDock::dockMayGoWhileItRecords()
{
    SDock shown;
    const QTemporaryDir folder;
    shown.folders.setRecordings(folder.path());
    shown.action("image.record.video").trigger();
    QVERIFY(shown.showImage(rampImage()));
    const QPointer<CRecorder> recorder = &shown.dock->recorder();
    const QString file = QDir(recorder->folder()).filePath(QStringLiteral("video-000000.avi"));
    shown.dock.reset();
    shown.model->setInData(viewImage(rampImage()), 0);
    QCOMPARE(shown.model->delivered(), quint64(2));
    QTRY_VERIFY(!recorder);
    QVERIFY(QFile::exists(file));
}

QTEST_MAIN(tst_CImageDock)
#include "tst_CImageDock.moc"
