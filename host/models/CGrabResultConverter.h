// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <QString>

namespace Host {

/**
 * Turns a camera frame into an image, to be registered for connections from a port of grab results to one of images.
 *
 * The pixel formats are Mono, RGB, BGR and the four Bayer patterns with 8, 10, 12, 14 or 16 bits, as GenICam's naming
 * convention (PFNC) has them: "Mono12". Mono and Bayer of 10 and 12 bits may be packed, as that convention has it
 * ("Mono12p") or as GigE Vision had it before ("Mono12Packed"). Mono8, Mono16, BGR8 and BGR16 pixels are not copied:
 * the image keeps the frame. More than 8 bits become 16, as CImageData says; Bayer patterns become colours.
 *
 * Threads: stateless.
 */
class CGrabResultConverter
{
public:
    /// Whether frames of this pixel format, a GenICam name, can be converted.
    static bool supports(const QString& pixelFormat);

    /// The image; null for null, for data that is no camera frame, for a pixel format that is not supported, and
    /// for rows that do not begin at whole values, or of packed values at whole bytes, and for a frame whose memory is
    /// smaller than it says.
    Plugin::Halvex::CNodeDataPtr operator()(const Plugin::Halvex::CNodeDataPtr& data) const;
};

} // namespace Host
