// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CEdgesModel.h"

#include "host/models/GrayImage.h"

#include <opencv2/imgproc.hpp>

namespace Host {
namespace {

cv::Mat cannyEdges(const cv::Mat& image, int level, int size)
{
    cv::Mat edges;
    cv::Canny(grayImage(eightBitImage(image)), edges, level / 3.0, level, size);
    return edges;
}

cv::Mat sobelEdges(const cv::Mat& image, int level, int size)
{
    const cv::Mat gray = grayImage(eightBitImage(image));
    cv::Mat across;
    cv::Mat down;
    cv::Sobel(gray, across, CV_32F, 1, 0, size);
    cv::Sobel(gray, down, CV_32F, 0, 1, size);
    // As much as Canny sums up: the two slopes.
    return cv::abs(across) + cv::abs(down) > level;
}

} // namespace

QString CEdgesModel::modelName()
{
    return QString::fromLatin1("Edges");
}

void CEdgesModel::setMethod(EMethod method)
{
    changeSetting(&m_method, method);
}

void CEdgesModel::setLevel(int level)
{
    if (level >= 1 && level <= 1000)
        changeSetting(&m_level, level);
}

void CEdgesModel::setSize(int pixels)
{
    if (pixels >= 3 && pixels <= 7 && pixels % 2 == 1)
        changeSetting(&m_size, pixels);
}

AImageFilterModel::Filter CEdgesModel::makeFilter() const
{
    const auto edgesOf = m_method == EMethod::Canny ? &cannyEdges : &sobelEdges;
    return [edgesOf, level = m_level, size = m_size](const cv::Mat& image) { return edgesOf(image, level, size); };
}

} // namespace Host
