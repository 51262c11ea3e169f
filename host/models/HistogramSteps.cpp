// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/HistogramSteps.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>

namespace Host {

using Counts = SHistogramScale::Counts;

namespace {

constexpr int mostSteps = 256;
constexpr std::size_t leastSteps = 64;
constexpr int leastTeeth = 16; // of a comb; fewer values are what the image shows

Counts counts(const cv::Mat& image, int channel)
{
    const float range[] = {0, float(endOfValues(image))};
    const float* ranges[] = {range};
    cv::Mat bins;
    cv::calcHist(&image, 1, &channel, cv::noArray(), bins, 1, &mostSteps, ranges);
    return {bins.begin<float>(), bins.end<float>()};
}

// Whether most of the values that occur stand alone: those of a camera that leaves out the values between.
bool isComb(const Counts& bins)
{
    int occurring = 0;
    int alone = 0;
    for (std::size_t step = 0; step < bins.size(); ++step) {
        const bool isAfterOther = step > 0 && bins[step - 1] > 0.0F;
        const bool isBeforeOther = step + 1 < bins.size() && bins[step + 1] > 0.0F;
        occurring += bins[step] > 0.0F ? 1 : 0;
        alone += bins[step] > 0.0F && !isAfterOther && !isBeforeOther ? 1 : 0;
    }
    return alone >= leastTeeth && 2 * alone > occurring;
}

Counts joinPairs(const Counts& bins)
{
    Counts joined;
    for (std::size_t step = 0; step + 1 < bins.size(); step += 2)
        joined.push_back(bins[step] + bins[step + 1]);
    return joined;
}

} // namespace

double endOfValues(const cv::Mat& image)
{
    return image.depth() == CV_8U ? 256.0 : 65536.0;
}

std::vector<Counts> histogramSteps(const cv::Mat& image)
{
    std::vector<Counts> channels;
    channels.reserve(std::size_t(image.channels()));
    for (int channel = 0; channel < image.channels(); ++channel)
        channels.push_back(counts(image, channel));
    while (channels.front().size() > leastSteps && std::any_of(channels.cbegin(), channels.cend(), &isComb))
        std::transform(channels.cbegin(), channels.cend(), channels.begin(), &joinPairs);
    return channels;
}

} // namespace Host
