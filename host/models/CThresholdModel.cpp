// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CThresholdModel.h"

#include "host/models/GrayImage.h"

#include <opencv2/imgproc.hpp>

namespace Host {
namespace {

cv::Mat thresholded(const cv::Mat& image)
{
    cv::Mat blackAndWhite;
    cv::threshold(grayImage(image), blackAndWhite, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
    return blackAndWhite;
}

} // namespace

QString CThresholdModel::modelName()
{
    return QStringLiteral("Threshold");
}

AImageFilterModel::Filter CThresholdModel::makeFilter() const
{
    return &thresholded;
}

} // namespace Host
