// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CGrabResultPtr.h>

#include <memory>
#include <vector>

/// A complete frame of 64 x 48 pixels whose bytes are all \a value.
inline Veltra::CGrabResultPtr testGrab(quint64 number, const char* pixelFormat = "Mono8", int bytesPerPixel = 1,
                                       int value = 0)
{
    const auto pixels =
        std::make_shared<std::vector<std::byte>>(std::size_t(64 * 48 * bytesPerPixel), std::byte(value));
    Veltra::SGrabResult result;
    result.pixels = pixels->data();
    result.size = pixels->size();
    result.width = 64;
    result.stride = 64 * bytesPerPixel;
    result.height = 48;
    result.pixelFormat = QString::fromLatin1(pixelFormat);
    result.frameNumber = number;
    result.complete = true;
    result.owner = pixels;
    return Veltra::CGrabResultPtr(std::move(result));
}
