// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/RenderImage.h"

#include "host/models/HistogramSteps.h"
#include "host/viewer/images/OwnDepth.h"
#include "host/viewer/images/ScaleImage.h"

namespace Host {

namespace {

cv::Mat areaOf(const cv::Mat& image, const QRect& part)
{
    return image(cv::Rect(part.x(), part.y(), part.width(), part.height()));
}

// In the values of the image.
SValueRange rangeOf(const CImageData& data, const cv::Mat& area, const SImageLook& look)
{
    if (look.rangeMode == ERangeMode::Automatic)
        return usedRange(area);
    if (look.rangeMode == ERangeMode::Full)
        return fullRange(area);
    const double scale = ownScale(data);
    return {look.manualRange.black * scale, look.manualRange.white * scale};
}

std::vector<SChannelStatistics> ownStatistics(const cv::Mat& area, double scale)
{
    std::vector<SChannelStatistics> channels = imageStatistics(area);
    for (SChannelStatistics& channel : channels) {
        channel.mean /= scale;
        channel.least /= scale;
        channel.most /= scale;
        channel.deviation /= scale;
    }
    return channels;
}

} // namespace

SRenderedImage renderImage(const QSharedPointer<const CImageData>& data, const SViewport& viewport,
                           const SImageLook& look)
{
    const cv::Mat& image = data->image();
    const QSize size(image.cols, image.rows);
    SRenderedImage result;
    result.data = data;
    result.viewport = viewport;
    result.place = viewport.covered(size);
    result.selection = look.selection & QRect({0, 0}, size);
    const QRect area = result.selection.isEmpty() ? viewport.visible(size) : result.selection;
    if (area.isEmpty())
        return result;

    const cv::Mat values = areaOf(image, area);
    const SValueRange range = rangeOf(*data, values, look);
    const auto color = [&](const cv::Mat& part) { return colorImage(part, range, look.palette); };
    result.picture = scaleImage(image, viewport, color);
    const double scale = ownScale(*data);
    result.range = {range.black / scale, range.white / scale};
    if (!result.selection.isEmpty())
        result.statistics = ownStatistics(values, scale);
    if (look.hasHistogram)
        result.histogram = histogramSteps(values);
    return result;
}

} // namespace Host
