// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/OwnDepth.h"

namespace Host {

namespace {

int valueAt(const cv::Mat& image, const QPoint& pixel, int channel)
{
    const int index = pixel.x() * image.channels() + channel;
    return image.depth() == CV_8U ? int(image.ptr<uchar>(pixel.y())[index]) : int(image.ptr<ushort>(pixel.y())[index]);
}

} // namespace

int ownBits(const CImageData& image)
{
    const int stored = 8 * int(image.image().elemSize1());
    const int bits = image.info().bits;
    // A filter may have made 8 bits of more.
    return bits > 0 && bits < stored ? bits : stored;
}

double ownScale(const CImageData& image)
{
    return 1 << (8 * int(image.image().elemSize1()) - ownBits(image));
}

std::vector<int> ownValues(const CImageData& image, const QPoint& pixel)
{
    const cv::Mat& pixels = image.image();
    if (!cv::Rect(0, 0, pixels.cols, pixels.rows).contains({pixel.x(), pixel.y()}))
        return {};
    std::vector<int> values;
    values.reserve(std::size_t(pixels.channels()));
    for (int channel = 0; channel < pixels.channels(); ++channel)
        values.push_back(valueAt(pixels, pixel, channel) / int(ownScale(image)));
    return values;
}

} // namespace Host
