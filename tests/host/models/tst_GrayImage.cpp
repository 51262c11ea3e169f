// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/GrayImage.h"

#include <QTest>

using namespace Host;

class tst_GrayImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void greyStaysItself();
    void coloursAreWeighed();
    void eightHighestBits();
};

void tst_GrayImage::greyStaysItself()
{
    const cv::Mat grey(2, 2, CV_16UC1, cv::Scalar(1000));
    QVERIFY(grayImage(grey).data == grey.data);
    const cv::Mat eight(2, 2, CV_8UC3, cv::Scalar(1, 2, 3));
    QVERIFY(eightBitImage(eight).data == eight.data);
}

void tst_GrayImage::coloursAreWeighed()
{
    const auto greyOf = [](int blue, int green, int red) {
        return int(grayImage(cv::Mat(1, 1, CV_8UC3, cv::Scalar(blue, green, red))).at<uchar>(0));
    };
    QCOMPARE(greyOf(90, 90, 90), 90);
    QVERIFY(greyOf(0, 200, 0) > greyOf(0, 0, 200));
    QVERIFY(greyOf(0, 0, 200) > greyOf(200, 0, 0));
}

void tst_GrayImage::eightHighestBits()
{
    cv::Mat all(256, 256, CV_16UC1);
    for (int value = 0; value < 65536; ++value)
        all.at<ushort>(value / 256, value % 256) = ushort(value);
    const cv::Mat image = eightBitImage(all);
    QCOMPARE(image.type(), CV_8UC1);
    for (int value = 0; value < 65536; ++value)
        QCOMPARE(int(image.at<uchar>(value / 256, value % 256)), value / 256);
}

QTEST_GUILESS_MAIN(tst_GrayImage)
#include "tst_GrayImage.moc"
