// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CImageData.h"

#include <QSharedPointer>

/// An image as a camera of so many bits gives it.
inline QSharedPointer<Host::CImageData> viewImage(const cv::Mat& pixels, int bits = 8, quint64 number = 0)
{
    Host::SFrameInfo info;
    info.frameNumber = number;
    info.bits = bits;
    return QSharedPointer<Host::CImageData>::create(pixels, info);
}

/// Grey, 8 bits: the value of a pixel is its column.
inline cv::Mat rampImage(int width = 200, int height = 100)
{
    cv::Mat image(height, width, CV_8UC1);
    for (int x = 0; x < width; ++x)
        image.col(x).setTo(x);
    return image;
}
