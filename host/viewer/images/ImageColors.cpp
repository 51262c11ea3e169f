// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/ImageColors.h"

#include "host/models/GrayImage.h"
#include "host/models/HistogramSteps.h"

#include <opencv2/imgproc.hpp>

#include <array>

namespace Host {

namespace {

using Table = std::array<QRgb, 256>;

Table grayTable()
{
    Table table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = qRgb(int(i), int(i), int(i));
    return table;
}

Table limitsTable()
{
    Table table = grayTable();
    table.front() = qRgb(0, 64, 255);
    table.back() = qRgb(255, 0, 0);
    return table;
}

Table mapTable(int colorMap)
{
    cv::Mat ramp(1, 256, CV_8UC1);
    for (int i = 0; i < ramp.cols; ++i)
        ramp.at<uchar>(0, i) = uchar(i);
    cv::Mat colors;
    cv::applyColorMap(ramp, colors, colorMap);
    Table table{};
    for (int i = 0; i < ramp.cols; ++i) {
        const auto& color = colors.at<cv::Vec3b>(0, i);
        table[std::size_t(i)] = qRgb(color[2], color[1], color[0]);
    }
    return table;
}

const Table& tableOf(EPalette palette)
{
    static const Table plain = grayTable();
    static const Table heat = mapTable(cv::COLORMAP_INFERNO);
    static const Table spectrum = mapTable(cv::COLORMAP_JET);
    static const Table limits = limitsTable();
    switch (palette) {
    case EPalette::Heat:
        return heat;
    case EPalette::Spectrum:
        return spectrum;
    case EPalette::Limits:
        return limits;
    case EPalette::Plain:
        break;
    }
    return plain;
}

cv::Mat inRange(const cv::Mat& image, const SValueRange& range)
{
    const double scale = 255.0 / (range.white - range.black);
    cv::Mat eight;
    image.convertTo(eight, CV_8U, scale, -range.black * scale);
    return eight;
}

QImage throughTable(const cv::Mat& gray, const Table& table)
{
    QImage result(gray.cols, gray.rows, QImage::Format_RGB32);
    for (int y = 0; y < gray.rows; ++y) {
        const uchar* const from = gray.ptr<uchar>(y);
        auto* const to = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < gray.cols; ++x)
            to[x] = table[from[x]];
    }
    return result;
}

QImage colorful(const cv::Mat& image)
{
    QImage result(image.cols, image.rows, QImage::Format_RGB32);
    // Format_RGB32 lies in memory as blue, green, red and 255 on the machines that this runs on.
    cv::Mat pixels(image.rows, image.cols, CV_8UC4, result.bits(), std::size_t(result.bytesPerLine()));
    cv::cvtColor(image, pixels, cv::COLOR_BGR2BGRA);
    return result;
}

// The first step at which more than \a least values are at or before it, in the order of \a steps.
template <typename Iterator>
int stepOf(Iterator step, Iterator end, double least)
{
    int index = 0;
    double sum = *step;
    while (sum <= least && ++step != end) {
        sum += *step;
        ++index;
    }
    return index;
}

} // namespace

SValueRange fullRange(const cv::Mat& image)
{
    return {0.0, endOfValues(image) - 1.0};
}

SValueRange usedRange(const cv::Mat& image)
{
    const int steps = image.depth() == CV_8U ? 256 : 4096;
    const double stepWidth = endOfValues(image) / steps;
    const float range[] = {0, float(endOfValues(image))};
    const float* ranges[] = {range};
    const int channel = 0;
    const cv::Mat values = image.reshape(1);
    cv::Mat bins;
    cv::calcHist(&values, 1, &channel, cv::noArray(), bins, 1, &steps, ranges);
    const double least = double(values.total()) / 1000.0;
    const std::vector<float> counts(bins.begin<float>(), bins.end<float>());
    const int first = stepOf(counts.cbegin(), counts.cend(), least);
    const int last = steps - 1 - stepOf(counts.crbegin(), counts.crend(), least);
    return {first * stepWidth, std::max(first + 1, last) * stepWidth};
}

QImage colorImage(const cv::Mat& image, const SValueRange& range, EPalette palette)
{
    const bool isAsItIs = image.depth() == CV_8U && range == fullRange(image);
    const cv::Mat eight = isAsItIs ? image : inRange(image, range);
    if (palette == EPalette::Plain && eight.channels() == 3)
        return colorful(eight);
    return throughTable(grayImage(eight), tableOf(palette));
}

} // namespace Host
