// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CGrabResultData.h"

#include <vector>

/// A complete frame of 64 x 48 zero bytes with the number 5, as a camera's stream hands it to a graph.
inline Plugin::Halvex::CNodeDataPtr frameData(const char* pixelFormat = "Mono8")
{
    const auto pixels = std::make_shared<std::vector<std::byte>>(64 * 48);
    Veltra::SGrabResult result;
    result.pixels = pixels->data();
    result.size = pixels->size();
    result.width = result.stride = 64;
    result.height = 48;
    result.pixelFormat = QString::fromLatin1(pixelFormat);
    result.complete = true;
    result.owner = pixels;
    const Host::SFrameInfo info{5, {}};
    return QSharedPointer<Host::CGrabResultData>::create(Veltra::CGrabResultPtr(std::move(result)), info);
}
