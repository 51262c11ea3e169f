// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageSaver.h"

#include "host/viewer/images/CImageFolders.h"
#include "viewer/TestView.h"

#include <opencv2/imgcodecs.hpp>

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

using namespace Host;

namespace {

struct SSaver
{
    QString file(const char* name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
    QWidget window;
    CImageFolders folders;
    CImageSaver saver{&window, folders};
    QSignalSpy ended{&saver, &CImageSaver::ended};
};

} // namespace

class tst_CImageSaver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void imageIsSavedInFullDepth();
    void viewIsSaved();
    void whatGoesWrongIsTold();
    void personChoosesTheFile();
    void nothingToSaveAsksNothing();
    void leftAloneItWritesAll();
};

void tst_CImageSaver::imageIsSavedInFullDepth()
{
    SSaver saving;
    const cv::Mat deep(4, 5, CV_16UC1, cv::Scalar(3071 * 16));
    saving.saver.saveImage(viewImage(deep, 12), saving.file("a.png"));
    QTRY_COMPARE(saving.ended.count(), 1);
    const cv::Mat read = cv::imread(saving.file("a.png").toStdString(), cv::IMREAD_UNCHANGED);
    QCOMPARE(read.type(), CV_16UC1);
    QCOMPARE(cv::norm(read, deep, cv::NORM_INF), 0.0);
    QVERIFY(saving.ended.at(0).at(0).toString().contains("a.png"));
}

void tst_CImageSaver::viewIsSaved()
{
    SSaver saving;
    QImage view(20, 10, QImage::Format_RGB32);
    view.fill(Qt::red);
    saving.saver.saveView(view, saving.file("b.png"));
    QTRY_COMPARE(saving.ended.count(), 1);
    QCOMPARE(QImage(saving.file("b.png")).convertToFormat(QImage::Format_RGB32), view);
}

void tst_CImageSaver::whatGoesWrongIsTold()
{
    SSaver saving;
    saving.saver.saveImage(viewImage(rampImage()), saving.file("nowhere/a.png"));
    QTRY_COMPARE(saving.ended.count(), 1);
    QVERIFY(saving.ended.at(0).at(0).toString().contains("No such file"));
}

void tst_CImageSaver::personChoosesTheFile()
{
    SSaver saving;
    saving.window.show();
    saving.saver.askForImage(viewImage(rampImage()));
    auto* const dialog = saving.window.findChild<QFileDialog*>();
    QVERIFY(dialog);
    QTRY_VERIFY(dialog->isVisible());
    dialog->setDirectory(saving.folder.path());
    dialog->selectFile(QStringLiteral("chosen"));
    QMetaObject::invokeMethod(dialog, "accept");
    QTRY_VERIFY(QFile::exists(saving.file("chosen.png")));
    QCOMPARE(saving.folders.images(), saving.folder.path());
    QTRY_COMPARE(saving.ended.count(), 1);
}

void tst_CImageSaver::nothingToSaveAsksNothing()
{
    SSaver saving;
    saving.saver.askForImage({});
    saving.saver.askForView({});
    QVERIFY(!saving.window.findChild<QFileDialog*>());
}

void tst_CImageSaver::leftAloneItWritesAll()
{
    const QTemporaryDir folder;
    CImageFolders folders;
    const QPointer<CImageSaver> saver = new CImageSaver(nullptr, folders);
    for (int i = 0; i < 20; ++i)
        saver->saveImage(viewImage(rampImage()), folder.filePath(QStringLiteral("%1.png").arg(i)));
    saver->deleteWhenDone();
    QTRY_VERIFY(!saver);
    QCOMPARE(QDir(folder.path()).entryList({QStringLiteral("*.png")}).size(), 20);
}

QTEST_MAIN(tst_CImageSaver)
#include "tst_CImageSaver.moc"
