// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CEdgesModel.h"

#include "host/models/GrayImage.h"

#include <opencv2/imgproc.hpp>

namespace Host {

QString CEdgesModel::modelName()
{
    return QStringLiteral("Edges");
}

cv::Mat CEdgesModel::process(const cv::Mat& image) const
{
    cv::Mat edges;
    cv::Canny(grayImage(image), edges, 50, 150);
    return edges;
}

} // namespace Host
