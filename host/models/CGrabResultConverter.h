// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <QString>

namespace Host {

/**
 * Turns a camera frame into an image, to be registered for connections from a port of grab results to one of images.
 *
 * Mono8, Mono16 and BGR8 pixels are not copied: the image keeps the frame. RGB8 and the 8-bit Bayer patterns become
 * colour images, Mono10 to Mono14 grey ones with 16 bits, as CImageData says.
 *
 * Threads: stateless.
 */
class CGrabResultConverter
{
public:
    /// Whether frames of this pixel format, a GenICam name, can be converted.
    static bool supports(const QString& pixelFormat);

    /// The image; null for null, for data that is no camera frame, for a pixel format that is not supported, and
    /// for rows that do not begin at whole values.
    Plugin::Halvex::CNodeDataPtr operator()(const Plugin::Halvex::CNodeDataPtr& data) const;
};

} // namespace Host
