// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CBlurModel.h"

#include <opencv2/imgproc.hpp>

namespace Host {
namespace {

cv::Mat blurred(const cv::Mat& image)
{
    cv::Mat blurred;
    cv::GaussianBlur(image, blurred, cv::Size(7, 7), 0);
    return blurred;
}

} // namespace

QString CBlurModel::modelName()
{
    return QStringLiteral("Blur");
}

AImageFilterModel::Filter CBlurModel::makeFilter() const
{
    return &blurred;
}

} // namespace Host
