// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CImageFiles.h"

#include "TestFile.h"
#include "TestImages.h"
#include "TestTable.h"

#include <QTemporaryDir>

using namespace Host;

class tst_CImageFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void folderInTheOrderOfNumbers();
    void pattern();
    void asTheyAreInTheFile_data();
    void asTheyAreInTheFile();
    void nothingThere();
    void brokenImage();

private:
    // The grey values of all images, then "end" or what is wrong.
    static QString values(CImageFiles& files)
    {
        QString text;
        QString error;
        for (;;) {
            cv::Mat image;
            const IImageReader::ERead read = files.read(&image, &error);
            if (read != IImageReader::ERead::Image)
                return text + (read == IImageReader::ERead::End ? QStringLiteral("end") : error);
            text += QStringLiteral("%1 ").arg(image.at<uchar>(0, 0));
        }
    }
};

void tst_CImageFiles::folderInTheOrderOfNumbers()
{
    const QTemporaryDir folder;
    QVERIFY(writeImages(folder.path(), 12));
    QVERIFY(write(folder.filePath("notes.txt"), "no image, and not looked at"));
    QString error;
    const auto files = CImageFiles::open(folder.path(), &error);
    QVERIFY2(files, qPrintable(error));
    QCOMPARE(files->description(), QStringLiteral("12 images of '%1'").arg(folder.path()));
    QCOMPARE(values(*files), QStringLiteral("0 1 2 3 4 5 6 7 8 9 10 11 end"));
    QVERIFY(files->file().endsWith("/shot-11.png"));
    QVERIFY(files->rewind(&error));
    QCOMPARE(values(*files), QStringLiteral("0 1 2 3 4 5 6 7 8 9 10 11 end"));
}

void tst_CImageFiles::pattern()
{
    const QTemporaryDir folder;
    QVERIFY(writeImages(folder.filePath("a"), 3) && writeImages(folder.filePath("b"), 3));
    QString error;
    auto files = CImageFiles::open(folder.filePath("*/shot-[12].png"), &error);
    QVERIFY2(files, qPrintable(error));
    QCOMPARE(values(*files), QStringLiteral("1 2 1 2 end"));
    files = CImageFiles::open(folder.filePath("a/shot-2.png"), &error);
    QVERIFY2(files, qPrintable(error));
    QCOMPARE(files->description(), QStringLiteral("image '%1'").arg(folder.filePath("a/shot-2.png")));
    QCOMPARE(values(*files), QStringLiteral("2 end"));
}

void tst_CImageFiles::asTheyAreInTheFile_data()
{
    addColumns<int>({"type"});
    addRow("grey", CV_8UC1);
    addRow("grey of 16 bits", CV_16UC1);
    addRow("colour", CV_8UC3);
    addRow("colour of 16 bits", CV_16UC3);
    addRow("transparent", CV_8UC4);
}

void tst_CImageFiles::asTheyAreInTheFile()
{
    QFETCH(int, type);
    const QTemporaryDir folder;
    const cv::Mat given = plainImage(type, 200);
    QVERIFY(writeImage(folder.filePath("a.png"), given));
    QString error;
    cv::Mat read;
    QCOMPARE(CImageFiles::open(folder.path(), &error)->read(&read, &error), IImageReader::ERead::Image);
    QCOMPARE(read.type(), type);
    QCOMPARE(cv::norm(read, given, cv::NORM_INF), 0.0);
}

void tst_CImageFiles::nothingThere()
{
    const QTemporaryDir folder;
    QString error;
    QVERIFY(!CImageFiles::open(folder.path(), &error));
    QVERIFY2(error.startsWith(QStringLiteral("no image in the folder '%1'; it takes *.bmp, ").arg(folder.path())),
             qPrintable(error));
    QVERIFY(!CImageFiles::open(folder.filePath("*.png"), &error));
    QCOMPARE(error, QStringLiteral("no file matches '%1'").arg(folder.filePath("*.png")));
    QVERIFY(!CImageFiles::open(folder.filePath("nosuchdir"), &error));
    QCOMPARE(error, QStringLiteral("no such folder or file: '%1'").arg(folder.filePath("nosuchdir")));
}

void tst_CImageFiles::brokenImage()
{
    const QTemporaryDir folder;
    QVERIFY(writeImages(folder.path(), 2));
    QVERIFY(cutFile(folder.filePath("shot-1.png"), 0.5));
    QVERIFY(QFile::link(folder.filePath("nowhere"), folder.filePath("shot-2.png")));
    QVERIFY(QDir(folder.path()).mkdir("shot-3.png"));
    QString error;
    const auto files = CImageFiles::open(folder.filePath("*.png"), &error);
    QCOMPARE(values(*files),
             QStringLiteral("0 cannot read '%1': no image, or a broken one").arg(folder.filePath("shot-1.png")));
    QCOMPARE(values(*files),
             QStringLiteral("cannot read '%1': No such file or directory").arg(folder.filePath("shot-2.png")));
    QCOMPARE(values(*files), QStringLiteral("cannot read '%1': it is a folder").arg(folder.filePath("shot-3.png")));
    QCOMPARE(values(*files), QStringLiteral("end"));
}

QTEST_GUILESS_MAIN(tst_CImageFiles)
#include "tst_CImageFiles.moc"
