// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CHistogramModel.h"

#include "host/models/GrayImage.h"

#include <opencv2/imgproc.hpp>

namespace Host {

QString CHistogramModel::modelName()
{
    return QStringLiteral("Histogram");
}

namespace {

constexpr int values = 256;
constexpr int height = 128;

// How often each grey value occurs, the largest count scaled to the height of the drawing.
cv::Mat counts(const cv::Mat& gray)
{
    const int channel = 0;
    const float range[] = {0, values};
    const float* ranges[] = {range};
    cv::Mat bins;
    cv::calcHist(&gray, 1, &channel, cv::noArray(), bins, 1, &values, ranges);
    cv::normalize(bins, bins, height, 0, cv::NORM_INF);
    return bins;
}

cv::Mat drawnHistogram(const cv::Mat& image)
{
    const cv::Mat bins = counts(grayImage(image));
    cv::Mat drawing = cv::Mat::zeros(height, values, CV_8UC1);
    for (int value = 0; value < values; ++value) {
        const int bar = cvRound(bins.at<float>(value));
        drawing(cv::Rect(value, height - bar, 1, bar)).setTo(255);
    }
    return drawing;
}

} // namespace

AImageFilterModel::Filter CHistogramModel::makeFilter() const
{
    return &drawnHistogram;
}

} // namespace Host
