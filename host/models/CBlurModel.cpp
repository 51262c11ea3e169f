// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CBlurModel.h"

#include <opencv2/imgproc.hpp>

namespace Host {

QString CBlurModel::modelName()
{
    return QStringLiteral("Blur");
}

cv::Mat CBlurModel::process(const cv::Mat& image) const
{
    cv::Mat blurred;
    cv::GaussianBlur(image, blurred, cv::Size(7, 7), 0);
    return blurred;
}

} // namespace Host
