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
    cv::Canny(grayImage(image), edges, level / 3.0, level, size);
    return edges;
}

cv::Mat sobelEdges(const cv::Mat& image, int level, int size)
{
    const cv::Mat gray = grayImage(image);
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
    return QStringLiteral("Edges");
}

void CEdgesModel::setMethod(EMethod method)
{
    m_method = method;
    renewWork();
}

void CEdgesModel::setLevel(int level)
{
    if (level < 1 || level > 1000 || level == m_level)
        return;
    m_level = level;
    renewWork();
}

void CEdgesModel::setSize(int pixels)
{
    if (pixels < 3 || pixels > 7 || pixels % 2 == 0 || pixels == m_size)
        return;
    m_size = pixels;
    renewWork();
}

AImageFilterModel::Filter CEdgesModel::makeFilter() const
{
    const auto edgesOf = m_method == EMethod::Canny ? &cannyEdges : &sobelEdges;
    return [edgesOf, level = m_level, size = m_size](const cv::Mat& image) { return edgesOf(image, level, size); };
}

} // namespace Host
