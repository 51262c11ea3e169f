// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CImageData.h"
#include "host/models/SHistogramScale.h"
#include "host/viewer/images/ImageColors.h"
#include "host/viewer/images/ImageStatistics.h"
#include "host/viewer/images/SViewport.h"

#include <QImage>
#include <QRect>
#include <QSharedPointer>

#include <vector>

namespace Host {

/// Which values are shown as black and white.
enum class ERangeMode
{
    Full,      ///< All that the image can have.
    Automatic, ///< Those that occur in what is seen, or in the rectangle; see usedRange().
    Manual     ///< As somebody says.
};

/// How an image is looked at. A plain value.
struct SImageLook
{
    EPalette palette = EPalette::Plain;
    ERangeMode rangeMode = ERangeMode::Full;
    SValueRange manualRange{}; ///< For Manual, in values of the camera's own depth.
    QRect selection{};         ///< The rectangle, in pixels of the image; null without one.
    bool hasHistogram = false; ///< Whether one is wanted.
};

/// What a worker has made of an image. A plain value.
struct SRenderedImage
{
    QSharedPointer<const CImageData> data;            ///< What it was made of; null for nothing.
    SViewport viewport{};                             ///< What it was made for.
    QRect place{};                                    ///< Where the picture is in the view, in device pixels.
    QImage picture{};                                 ///< As large as the place.
    SValueRange range{};                              ///< What is black and white, in the camera's own depth.
    QRect selection{};                                ///< The part of the rectangle that is in the image.
    std::vector<SChannelStatistics> statistics{};     ///< Of the rectangle, in the camera's own depth; else none.
    std::vector<SHistogramScale::Counts> histogram{}; ///< Of the rectangle, or of what is seen; only if wanted.
};

/// The picture of \a data, which is not null, as it is seen through \a viewport, and what there is to tell of it.
/// Threads: any; this is the work.
SRenderedImage renderImage(const QSharedPointer<const CImageData>& data, const SViewport& viewport,
                           const SImageLook& look);

} // namespace Host
