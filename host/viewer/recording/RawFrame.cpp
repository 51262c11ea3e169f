// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/recording/RawFrame.h"

#include "host/models/CGrabResultData.h"

#include <utility>

namespace Host {

namespace {

// What the bytes of a frame belong to: an image, or a copy of its pixels.
struct SOwner
{
    QSharedPointer<const CImageData> image;
    cv::Mat pixels;
};

} // namespace

Plugin::Halvex::CNodeDataPtr rawFrame(const QSharedPointer<const CImageData>& image)
{
    const cv::Mat& pixels = image->image();
    const auto owner = std::make_shared<const SOwner>(SOwner{image, pixels.isContinuous() ? pixels : pixels.clone()});
    Veltra::SGrabResult frame;
    frame.pixels = reinterpret_cast<const std::byte*>(owner->pixels.data);
    frame.size = owner->pixels.total() * owner->pixels.elemSize();
    frame.width = pixels.cols;
    frame.height = pixels.rows;
    frame.stride = int(owner->pixels.step);
    frame.pixelFormat =
        QLatin1String(pixels.channels() == 1 ? "Mono" : "BGR") + QString::number(8 * pixels.elemSize1());
    frame.frameNumber = image->info().frameNumber;
    frame.timestampNs = image->info().timestampNs;
    frame.complete = true;
    frame.owner = owner;
    return QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(std::move(frame)), image->info());
}

} // namespace Host
