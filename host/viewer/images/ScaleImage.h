// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/images/SViewport.h"

#include <opencv2/core.hpp>

#include <QImage>

#include <functional>

namespace Host {

/// What is seen of \a image through \a viewport, at one pixel for each of viewport.covered(). Smaller than 1:1, pixels
/// are averaged in their full depth before \a color colours them; beyond 1:1 each stays a rectangle of one colour. Null
/// if nothing is seen. Threads: any.
QImage scaleImage(const cv::Mat& image, const SViewport& viewport, const std::function<QImage(const cv::Mat&)>& color);

} // namespace Host
