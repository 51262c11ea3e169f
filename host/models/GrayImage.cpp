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

} // namespace Host
