// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <opencv2/core.hpp>

namespace Host {

/// \a image in grey; itself when it is grey already.
cv::Mat grayImage(const cv::Mat& image);

/// The 8 highest bits of \a image; itself when it has no more.
cv::Mat eightBitImage(const cv::Mat& image);

} // namespace Host
