// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/HistogramChart.h"

#include <opencv2/core.hpp>

#include <QTest>

#include <array>
#include <thread>

using namespace Host;

namespace {

// Pixels of about that colour, in the middle of the chart at a value of 256.
int pixelsNear(const cv::Mat& chart, double value, const cv::Vec3b& color)
{
    const int x = int(67 + value / 256 * (611 - 67));
    cv::Mat found;
    cv::inRange(chart(cv::Rect(x - 4, 80, 9, 240)), cv::Scalar(color) - cv::Scalar::all(30),
                cv::Scalar(color) + cv::Scalar::all(30), found);
    return cv::countNonZero(found);
}

bool isSame(const cv::Mat& left, const cv::Mat& right)
{
    return left.size() == right.size() && left.type() == right.type() && cv::norm(left, right, cv::NORM_INF) == 0.0;
}

} // namespace

class tst_HistogramChart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void channelsStandAtTheirValues();
    void depthDoesNotMatter();
    void threadsDrawTheSame();
};

void tst_HistogramChart::channelsStandAtTheirValues()
{
    const cv::Vec3b blue(204, 102, 51);
    const cv::Vec3b green(79, 146, 46);
    const cv::Vec3b red(51, 60, 204);
    const cv::Mat chart = histogramChart(cv::Mat(60, 80, CV_8UC3, cv::Scalar(50, 120, 200)));
    QCOMPARE(chart.size(), cv::Size(640, 400));
    QCOMPARE(chart.type(), CV_8UC3);
    QVERIFY(pixelsNear(chart, 50, blue) > 100);
    QVERIFY(pixelsNear(chart, 120, green) > 100);
    QVERIFY(pixelsNear(chart, 200, red) > 100);
    QCOMPARE(pixelsNear(chart, 200, blue) + pixelsNear(chart, 120, red) + pixelsNear(chart, 50, green), 0);
}

void tst_HistogramChart::depthDoesNotMatter()
{
    const cv::Vec3b gray(110, 95, 84);
    QVERIFY(pixelsNear(histogramChart(cv::Mat(60, 80, CV_8UC1, cv::Scalar(64))), 64, gray) > 100);
    QVERIFY(pixelsNear(histogramChart(cv::Mat(60, 80, CV_16UC1, cv::Scalar(64 * 256))), 64, gray) > 100);
}

void tst_HistogramChart::threadsDrawTheSame()
{
    std::array<cv::Mat, 4> charts;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < charts.size(); ++i)
        threads.emplace_back([&charts, i] {
            for (int round = 0; round < 5; ++round)
                charts[i] = histogramChart(cv::Mat(60, 80, CV_8UC1, cv::Scalar(40.0 * double(i))));
        });
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t i = 0; i < charts.size(); ++i)
        QVERIFY(isSame(charts[i], histogramChart(cv::Mat(60, 80, CV_8UC1, cv::Scalar(40.0 * double(i))))));
}

QTEST_GUILESS_MAIN(tst_HistogramChart)
#include "tst_HistogramChart.moc"
