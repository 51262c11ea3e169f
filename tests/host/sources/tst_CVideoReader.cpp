// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CVideoReader.h"

#include "TestFile.h"
#include "TestImages.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Host;
using ERead = IImageReader::ERead;

class tst_CVideoReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void imagesWithTheirTimes();
    void noVideo();
    void endsTooEarly();
};

void tst_CVideoReader::imagesWithTheirTimes()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("a.avi");
    QVERIFY(writeVideo(name, 20));
    QString error;
    const auto video = CVideoReader::open(name, &error);
    QVERIFY2(video, qPrintable(error));
    QCOMPARE(video->description(), QStringLiteral("video '%1'").arg(name));
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 20; ++i) {
            cv::Mat image;
            QCOMPARE(video->read(&image, &error), ERead::Image);
            QCOMPARE(image.type(), CV_8UC3);
            QVERIFY(std::abs(int(image.at<cv::Vec3b>(0, 0)[0]) - 8 * i) < 6);
            QCOMPARE(video->origin(), QStringLiteral("%1#%2").arg(name).arg(i));
            QCOMPARE(video->timestampNs().value_or(0) / 1000000, quint64(40 * i));
        }
        cv::Mat none;
        QCOMPARE(video->read(&none, &error), ERead::End);
        QVERIFY(video->rewind(&error));
    }
}

void tst_CVideoReader::noVideo()
{
    const QTemporaryDir folder;
    QString error;
    const QString name = folder.filePath("a.avi");
    QVERIFY(!CVideoReader::open(name, &error));
    QCOMPARE(error, QStringLiteral("cannot read the video '%1': No such file or directory").arg(name));
    QVERIFY(write(name, "no video"));
    QVERIFY(!CVideoReader::open(name, &error));
    QCOMPARE(
        error,
        QStringLiteral("cannot read the video '%1': no video, or one in a format that is not known here").arg(name));
}

void tst_CVideoReader::endsTooEarly()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("a.avi");
    QVERIFY(writeVideo(name, 20) && cutFile(name, 0.6));
    QString error;
    const auto video = CVideoReader::open(name, &error);
    QVERIFY2(video, qPrintable(error));
    int frames = 0;
    ERead read = ERead::Image;
    for (; read == ERead::Image && frames < 21; ++frames) {
        cv::Mat image;
        read = video->read(&image, &error);
    }
    QCOMPARE(read, ERead::Failed);
    QCOMPARE(error, QStringLiteral("the video '%1' ends after %2 of 20 frames: a part of it is missing or broken")
                        .arg(name)
                        .arg(frames - 1));
}

QTEST_GUILESS_MAIN(tst_CVideoReader)
#include "tst_CVideoReader.moc"
