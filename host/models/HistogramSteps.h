// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/SHistogramScale.h"

#include <opencv2/core.hpp>

#include <vector>

namespace Host {

/// One more than the greatest value that a channel of \a image can have.
double endOfValues(const cv::Mat& image);

/// How often each step of value occurs in each channel of \a image. There are 256 steps from black to white, whatever
/// the image's depth; 128 or 64 if most values that occur would stand alone, which looks like a comb: there are cameras
/// that give multiples of four.
std::vector<SHistogramScale::Counts> histogramSteps(const cv::Mat& image);

} // namespace Host
