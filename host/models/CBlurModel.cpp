// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CBlurModel.h"

#include "host/models/GrayImage.h"

#include <opencv2/imgproc.hpp>

namespace Host {
namespace {

using EMethod = CBlurModel::EMethod;

// OpenCV has a median of 16 bits up to that size only.
constexpr int mostDeepMedian = 5;

cv::Mat blurred(const cv::Mat& image, EMethod method, int size)
{
    cv::Mat blurred;
    if (method == EMethod::Gaussian)
        cv::GaussianBlur(image, blurred, cv::Size(size, size), 0);
    else if (method == EMethod::Box)
        cv::blur(image, blurred, cv::Size(size, size));
    else
        cv::medianBlur(size <= mostDeepMedian ? image : eightBitImage(image), blurred, size);
    return blurred;
}

} // namespace

QString CBlurModel::modelName()
{
    return QString::fromLatin1("Blur");
}

void CBlurModel::setSize(int pixels)
{
    if (pixels >= 1 && pixels <= 99 && pixels % 2 == 1)
        changeSetting(&m_size, pixels);
}

void CBlurModel::setMethod(EMethod method)
{
    changeSetting(&m_method, method);
}

AImageFilterModel::Filter CBlurModel::makeFilter() const
{
    return [method = m_method, size = m_size](const cv::Mat& image) { return blurred(image, method, size); };
}

} // namespace Host
