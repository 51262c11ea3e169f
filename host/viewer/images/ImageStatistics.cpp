// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/ImageStatistics.h"

namespace Host {

std::vector<SChannelStatistics> imageStatistics(const cv::Mat& image)
{
    cv::Scalar means;
    cv::Scalar deviations;
    cv::meanStdDev(image, means, deviations);
    std::vector<SChannelStatistics> result;
    for (int channel = 0; channel < image.channels(); ++channel) {
        cv::Mat values;
        cv::extractChannel(image, values, channel);
        SChannelStatistics statistics{means[channel], 0.0, 0.0, deviations[channel]};
        cv::minMaxLoc(values, &statistics.least, &statistics.most);
        result.push_back(statistics);
    }
    return result;
}

} // namespace Host
