// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <opencv2/core.hpp>

#include <QString>

namespace Host {

/// Replaces the file \a name by \a image as a PNG, 16 bits as 16 bits; otherwise as writeFile(). It is lightly
/// compressed: speed counts for more than size.
QString writePng(const QString& name, const cv::Mat& image);

} // namespace Host
