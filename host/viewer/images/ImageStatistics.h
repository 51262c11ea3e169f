// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <opencv2/core.hpp>

#include <vector>

namespace Host {

/// Of the values of one channel. A plain value.
struct SChannelStatistics
{
    double mean = 0.0;
    double least = 0.0;
    double most = 0.0;
    double deviation = 0.0; ///< The standard deviation of all values, not an estimate from some.
};

/// One for each channel of \a image, which must not be empty. Threads: any.
std::vector<SChannelStatistics> imageStatistics(const cv::Mat& image);

} // namespace Host
