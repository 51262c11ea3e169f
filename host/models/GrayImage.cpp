// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/GrayImage.h"

#include <opencv2/imgproc.hpp>

namespace Host {

cv::Mat grayImage(const cv::Mat& image)
{
    if (image.channels() == 1)
        return image;
    cv::Mat gray;
    cv::cvtColor(image, gray, cv::COLOR_BGR2GRAY);
    return gray;
}

cv::Mat eightBitImage(const cv::Mat& image)
{
    if (image.depth() == CV_8U)
        return image;
    // Moved by half a step, rounding to the nearest value rounds down.
    constexpr double scale = 1.0 / 256;
    cv::Mat result;
    image.convertTo(result, CV_8U, scale, -0.5 + scale / 2);
    return result;
}

} // namespace Host
