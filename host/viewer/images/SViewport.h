// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>

namespace Host {

/**
 * Which part of an image is seen, and how large. Lengths are in pixels of the screen ("device") or of the image; the
 * pixel (x, y) of either reaches from x to x + 1 and from y to y + 1. A plain value.
 *
 * \code
 * SViewport viewport{widgetSize * devicePixelRatio};
 * viewport.fit(imageSize);
 * viewport.zoomAt(2.0 * viewport.zoom, cursor, imageSize); // the pixel under the cursor stays there
 * \endcode
 *
 * Where it can, the image fills the view; an image that is smaller stands in the middle.
 */
struct SViewport
{
    static constexpr double leastZoom = 1.0 / 64;
    static constexpr double mostZoom = 128.0;

    QSize size;       ///< Of the view, in device pixels.
    double zoom = 1;  ///< Device pixels for one pixel of the image.
    QPointF origin{}; ///< Where the image's upper left corner is, in device pixels; whole numbers.

    /// As large as the view allows, all of it.
    void fit(const QSize& image);

    /// \a newZoom, within the limits, so that what is at \a anchor (device pixels) stays there if it can.
    void zoomAt(double newZoom, const QPointF& anchor, const QSize& image);

    void panBy(const QPointF& way, const QSize& image);

    QPointF center() const { return {size.width() / 2.0, size.height() / 2.0}; }
    QPointF toImage(const QPointF& device) const { return (device - origin) / zoom; }
    QPointF toDevice(const QPointF& image) const { return origin + image * zoom; }

    /// The pixels of the image that are seen, also in part.
    QRect visible(const QSize& image) const;

    /// The pixels of the view whose middle the image covers.
    QRect covered(const QSize& image) const;

    /// Moves the image so that no room is wasted.
    void keepInView(const QSize& image);

    bool operator==(const SViewport& other) const
    {
        return size == other.size && zoom == other.zoom && origin == other.origin;
    }
};

} // namespace Host
