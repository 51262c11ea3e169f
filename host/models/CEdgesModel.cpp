// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CEdgesModel.h"

#include "host/models/GrayImage.h"

#include <opencv2/imgproc.hpp>

namespace Host {
namespace {

cv::Mat edgesOf(const cv::Mat& image)
{
    cv::Mat edges;
    cv::Canny(grayImage(image), edges, 50, 150);
    return edges;
}

} // namespace

QString CEdgesModel::modelName()
{
    return QStringLiteral("Edges");
}

AImageFilterModel::Filter CEdgesModel::makeFilter() const
{
    return &edgesOf;
}

} // namespace Host
