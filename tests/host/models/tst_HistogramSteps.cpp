// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/HistogramSteps.h"

#include "TestTable.h"

#include <QTest>

#include <algorithm>

using namespace Host;

class tst_HistogramSteps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyNthValue_data();
    void everyNthValue();
    void fewValuesStayApart();
    void channelsHaveTheSameSteps();
};

void tst_HistogramSteps::everyNthValue_data()
{
    addColumns<int, int, int>({"depth", "every", "steps"});
    addRow("all values", CV_8U, 1, 256);
    addRow("even values", CV_8U, 2, 128);
    addRow("multiples of four", CV_8U, 4, 64);
    addRow("multiples of eight, a comb all the same", CV_8U, 8, 64);
    addRow("16 bits", CV_16U, 1, 256);
    addRow("multiples of four, 16 bits", CV_16U, 4, 64);
}

void tst_HistogramSteps::everyNthValue()
{
    QFETCH(int, every);
    cv::Mat ramp(256, 10, CV_8U);
    for (int value = 0; value < 256; ++value)
        ramp.row(value).setTo(value - value % every);
    QFETCH(int, depth);
    ramp.convertTo(ramp, depth, depth == CV_8U ? 1.0 : 256.0);
    const auto channels = histogramSteps(ramp);
    QCOMPARE(channels.size(), std::size_t(1));
    const SHistogramScale::Counts& steps = channels.front();
    QTEST(int(steps.size()), "steps");
    float sum = 0.0F;
    for (const float pixels : steps)
        sum += pixels;
    QCOMPARE(sum, 2560.0F);
    if (every <= 4)
        QCOMPARE(*std::min_element(steps.cbegin(), steps.cend()), *std::max_element(steps.cbegin(), steps.cend()));
}

void tst_HistogramSteps::fewValuesStayApart()
{
    cv::Mat image(10, 10, CV_8U, cv::Scalar(100));
    image.row(3).setTo(102);
    const auto steps = histogramSteps(image).front();
    QCOMPARE(steps.size(), std::size_t(256));
    QCOMPARE(steps[100], 90.0F);
    QCOMPARE(steps[101], 0.0F);
    QCOMPARE(steps[102], 10.0F);
}

void tst_HistogramSteps::channelsHaveTheSameSteps()
{
    cv::Mat image(256, 10, CV_8UC3, cv::Scalar(7, 7, 7));
    for (int value = 0; value < 256; ++value)
        image.row(value).setTo(cv::Scalar(7, value, value - value % 2));
    const auto channels = histogramSteps(image);
    QCOMPARE(channels.size(), std::size_t(3));
    for (const auto& steps : channels)
        QCOMPARE(steps.size(), std::size_t(128));
    QCOMPARE(channels.front()[3], 2560.0F);
}

QTEST_GUILESS_MAIN(tst_HistogramSteps)
#include "tst_HistogramSteps.moc"
