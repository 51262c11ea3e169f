// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/SViewport.h"

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

// One axis of keepInView().
double kept(double origin, double view, double image)
{
    const double free = view - image;
    if (free >= 0.0)
        return std::floor(free / 2);
    return std::round(std::min(0.0, std::max(free, origin)));
}

} // namespace

void SViewport::fit(const QSize& image)
{
    if (image.isEmpty() || size.isEmpty())
        return;
    const double across = double(size.width()) / image.width();
    const double down = double(size.height()) / image.height();
    zoom = std::max(leastZoom, std::min({across, down, mostZoom}));
    keepInView(image);
}

void SViewport::zoomAt(double newZoom, const QPointF& anchor, const QSize& image)
{
    const QPointF still = toImage(anchor);
    zoom = std::max(leastZoom, std::min(newZoom, mostZoom));
    origin = anchor - still * zoom;
    keepInView(image);
}

void SViewport::panBy(const QPointF& way, const QSize& image)
{
    origin += way;
    keepInView(image);
}

QRect SViewport::visible(const QSize& image) const
{
    if (size.isEmpty() || image.isEmpty())
        return {};
    const QPointF first = toImage({0.0, 0.0});
    const QPointF end = toImage({double(size.width()), double(size.height())});
    const QPoint from(int(std::floor(first.x())), int(std::floor(first.y())));
    const QPoint to(int(std::ceil(end.x())) - 1, int(std::ceil(end.y())) - 1);
    return QRect(from, to) & QRect({0, 0}, image);
}

QRect SViewport::covered(const QSize& image) const
{
    if (size.isEmpty() || image.isEmpty())
        return {};
    const QPointF end = toDevice({double(image.width()), double(image.height())});
    const QPoint from(int(std::lround(origin.x())), int(std::lround(origin.y())));
    const QPoint to(int(std::lround(end.x())) - 1, int(std::lround(end.y())) - 1);
    return QRect(from, to) & QRect({0, 0}, size);
}

void SViewport::keepInView(const QSize& image)
{
    origin = {kept(origin.x(), size.width(), image.width() * zoom),
              kept(origin.y(), size.height(), image.height() * zoom)};
}

} // namespace Host
