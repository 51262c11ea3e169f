// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "ImageFilters.h"

#include <opencv2/imgproc.hpp>

using namespace Plugin::Halvex;

CNodeDataPtr makeNoise()
{
    cv::Mat image(filterRows, filterColumns, CV_8UC1);
    cv::randu(image, 0, 256);
    return QSharedPointer<CImage>::create(image);
}

const cv::Mat& imageIn(const CNodeDataPtr& data)
{
    Q_ASSERT(data.dynamicCast<CImage>());
    return static_cast<const CImage&>(*data).image();
}

cv::Mat blurred(const cv::Mat& image)
{
    cv::Mat result;
    cv::GaussianBlur(image, result, cv::Size(15, 15), 0);
    return result;
}

cv::Mat edgesOf(const cv::Mat& image)
{
    cv::Mat result;
    cv::Canny(image, result, 50, 150);
    return result;
}
