// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <opencv2/core.hpp>

namespace Host {

/**
 * A chart of how often each value occurs in each channel of \a image: 640 x 400 pixels, 8 bits, colour.
 *
 * When many pixels are black or white, these columns are cut, so that the others can be seen, and their share of all
 * pixels is told above.
 *
 * The values are drawn in steps, see histogramSteps(). The axes say values and pixels, the title the channels.
 *
 * Throws std::runtime_error when the chart library lacks what it draws with. Threads: any; one chart is drawn at a
 * time.
 */
cv::Mat histogramChart(const cv::Mat& image);

} // namespace Host
