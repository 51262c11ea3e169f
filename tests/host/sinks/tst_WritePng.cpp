// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/WritePng.h"

#include <opencv2/imgcodecs.hpp>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_WritePng : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allBitsAreWritten();
    void whatGoesWrongIsTold();
};

void tst_WritePng::allBitsAreWritten()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.png");
    for (const int type : {CV_8UC1, CV_16UC1, CV_8UC3, CV_16UC3}) {
        cv::Mat image(4, 5, type);
        cv::randu(image, 0, CV_MAT_DEPTH(type) == CV_8U ? 256 : 65536);
        QCOMPARE(writePng(file, image), QString()); // replaces the one before
        const cv::Mat read = cv::imread(file.toStdString(), cv::IMREAD_UNCHANGED);
        QCOMPARE(read.type(), type);
        QCOMPARE(cv::norm(read, image, cv::NORM_INF), 0.0);
    }
}

void tst_WritePng::whatGoesWrongIsTold()
{
    const QTemporaryDir folder;
    const cv::Mat image(4, 5, CV_8UC1, cv::Scalar(0));
    QCOMPARE(writePng(folder.filePath("nowhere/a.png"), image), QStringLiteral("No such file or directory"));
    QVERIFY(!writePng(folder.filePath("a.png"), cv::Mat()).isEmpty());
    QVERIFY(!QFile::exists(folder.filePath("a.png")));
}

QTEST_GUILESS_MAIN(tst_WritePng)
#include "tst_WritePng.moc"
