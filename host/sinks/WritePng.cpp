// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/WritePng.h"

#include "host/sinks/WriteFile.h"

#include <opencv2/imgcodecs.hpp>

#include <QCoreApplication>

#include <vector>

namespace Host {

namespace {

// Empty when the encoder refuses the image.
std::vector<uchar> encode(const cv::Mat& image)
{
    std::vector<uchar> png;
    try {
        if (!cv::imencode(".png", image, png, {cv::IMWRITE_PNG_COMPRESSION, 1}))
            png.clear();
    } catch (const cv::Exception&) {
        png.clear();
    }
    return png;
}

} // namespace

// The encoder could write the file itself, but it does not notice a full disk.
QString writePng(const QString& name, const cv::Mat& image)
{
    const std::vector<uchar> png = encode(image);
    return png.empty() ? QCoreApplication::translate("Host::WritePng", "the image has no PNG form")
                       : writeFile(name, png.data(), png.size());
}

} // namespace Host
