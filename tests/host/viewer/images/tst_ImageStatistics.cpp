// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/ImageStatistics.h"

#include <QTest>

using namespace Host;

class tst_ImageStatistics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ofEachChannel();
    void ofDeepValues();
};

void tst_ImageStatistics::ofEachChannel()
{
    cv::Mat image(2, 2, CV_8UC3, cv::Scalar(1, 2, 3));
    image.at<cv::Vec3b>(0, 0) = {5, 2, 255};
    const std::vector<SChannelStatistics> channels = imageStatistics(image);
    QCOMPARE(channels.size(), std::size_t(3));
    QCOMPARE(channels[0].mean, 2.0);
    QCOMPARE(channels[0].least, 1.0);
    QCOMPARE(channels[0].most, 5.0);
    QCOMPARE(channels[0].deviation, std::sqrt(3.0));
    QCOMPARE(channels[1].deviation, 0.0);
    QCOMPARE(channels[2].most, 255.0);
}

void tst_ImageStatistics::ofDeepValues()
{
    const auto channels = imageStatistics(cv::Mat(3, 3, CV_16UC1, cv::Scalar(60000)));
    QCOMPARE(channels.size(), std::size_t(1));
    QCOMPARE(channels[0].mean, 60000.0);
}

QTEST_GUILESS_MAIN(tst_ImageStatistics)
#include "tst_ImageStatistics.moc"
