// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CThresholdModel.h"

#include "host/models/GrayImage.h"

#include <opencv2/imgproc.hpp>

namespace Host {
namespace {

cv::Mat thresholded(const cv::Mat& image, double level, int type)
{
    cv::Mat blackAndWhite;
    cv::threshold(grayImage(eightBitImage(image)), blackAndWhite, level, 255, type);
    return blackAndWhite;
}

} // namespace

QString CThresholdModel::modelName()
{
    return QString::fromLatin1("Threshold");
}

void CThresholdModel::setMethod(EMethod method)
{
    changeSetting(&m_method, method);
}

void CThresholdModel::setLevel(int level)
{
    if (level >= 0 && level <= 255)
        changeSetting(&m_level, level);
}

AImageFilterModel::Filter CThresholdModel::makeFilter() const
{
    const int type = m_method == EMethod::Otsu ? int(cv::THRESH_BINARY) | int(cv::THRESH_OTSU) : int(cv::THRESH_BINARY);
    return [level = m_level, type](const cv::Mat& image) { return thresholded(image, level, type); };
}

} // namespace Host
