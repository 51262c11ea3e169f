// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CImageData.h"

#include <utility>

namespace Host {

CImageData::CImageData(cv::Mat image, const SFrameInfo& info)
    : CImageData(std::move(image), info, {})
{
}

CImageData::CImageData(cv::Mat image, const SFrameInfo& info, Veltra::CGrabResultPtr pixels)
    : m_pixels(std::move(pixels))
    , m_image(std::move(image))
    , m_info(info)
{
}

Plugin::Halvex::SNodeDataType CImageData::dataType()
{
    return {QStringLiteral("Host Image"), QStringLiteral("IMG")};
}

} // namespace Host
