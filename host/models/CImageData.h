// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/IFrameInfo.h"

#include <Halvex/graph/CNodeData.h>
#include <Halvex/platform/CGrabResultPtr.h>

#include <opencv2/core.hpp>

namespace Host {

/**
 * An image: 8 or 16 bits per channel, one channel (grey) or three (blue, green, red). Immutable, and shared by every
 * node that gets it: whoever wants to draw into it clones it.
 *
 * 16 bits are used from the highest one down, whatever the camera's depth: a Mono12 value is 16 times as large here.
 * So black and white are the same for all depths, and nothing of a value is lost.
 *
 * Threads: may be made in one thread and read and dropped in others.
 */
class CImageData : public Plugin::Halvex::CNodeData, public IFrameInfo
{
public:
    CImageData(cv::Mat image, const SFrameInfo& info);

    /// An image whose pixels are those of \a pixels, which it keeps.
    CImageData(cv::Mat image, const SFrameInfo& info, Veltra::CGrabResultPtr pixels);

    static Plugin::Halvex::SNodeDataType dataType();
    Plugin::Halvex::SNodeDataType type() const override { return dataType(); }

    const cv::Mat& image() const { return m_image; }
    const SFrameInfo& info() const override { return m_info; }

private:
    Veltra::CGrabResultPtr m_pixels; // before the image that points into it
    cv::Mat m_image;
    SFrameInfo m_info;
};

} // namespace Host
