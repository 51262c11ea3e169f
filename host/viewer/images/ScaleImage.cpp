// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/ScaleImage.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace Host {

namespace {

cv::Rect toRect(const QRect& rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

// The pixel of an image with \a count that each of the \a length pixels of a view from \a first on shows.
std::vector<int> sources(int first, int length, double origin, double zoom, int count)
{
    std::vector<int> result(std::size_t(length), 0);
    for (int i = 0; i < length; ++i) {
        const int source = int(std::floor((first + i + 0.5 - origin) / zoom));
        result[std::size_t(i)] = std::max(0, std::min(source, count - 1));
    }
    return result;
}

// Pixels of \a part, which lies at \a corner of the image, by the columns and rows of the image.
QImage enlarged(const QImage& part, const QPoint& corner, const std::vector<int>& columns, const std::vector<int>& rows)
{
    QImage result(int(columns.size()), int(rows.size()), QImage::Format_RGB32);
    for (std::size_t y = 0; y < rows.size(); ++y) {
        auto* const to = reinterpret_cast<QRgb*>(result.scanLine(int(y)));
        if (y > 0 && rows[y] == rows[y - 1]) {
            std::memcpy(to, result.constScanLine(int(y) - 1), columns.size() * sizeof(QRgb));
            continue;
        }
        const auto* const from = reinterpret_cast<const QRgb*>(part.constScanLine(rows[y] - corner.y()));
        for (std::size_t x = 0; x < columns.size(); ++x)
            to[x] = from[columns[x] - corner.x()];
    }
    return result;
}

} // namespace

QImage scaleImage(const cv::Mat& image, const SViewport& viewport, const std::function<QImage(const cv::Mat&)>& color)
{
    const QSize size(image.cols, image.rows);
    const QRect seen = viewport.visible(size);
    const QRect place = viewport.covered(size);
    if (seen.isEmpty() || place.isEmpty())
        return {};
    const cv::Mat part = image(toRect(seen));
    if (viewport.zoom < 1.0) {
        cv::Mat small;
        cv::resize(part, small, cv::Size(place.width(), place.height()), 0, 0, cv::INTER_AREA);
        return color(small);
    }
    if (viewport.zoom == 1.0)
        return color(part);
    return enlarged(color(part), seen.topLeft(),
                    sources(place.x(), place.width(), viewport.origin.x(), viewport.zoom, size.width()),
                    sources(place.y(), place.height(), viewport.origin.y(), viewport.zoom, size.height()));
}

} // namespace Host
