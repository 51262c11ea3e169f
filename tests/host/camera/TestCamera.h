// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CAravisCamera.h"

#include <cstring>

/// A camera that streams. If it cannot, the process ends and says why.
inline std::unique_ptr<Host::CAravisCamera> startCamera(const Host::SCameraOptions& options)
{
    QString error;
    auto camera = Host::CAravisCamera::open(options, &error);
    if (!camera || !camera->start(&error))
        qFatal("%s", qPrintable(error));
    return camera;
}

/// The built-in camera.
inline std::unique_ptr<Host::CAravisCamera> startFake(int buffers = 16, double framesPerSecond = 200)
{
    Host::SCameraOptions options;
    options.framesPerSecond = framesPerSecond;
    options.buffers = buffers;
    return startCamera(options);
}

/// Whether a Mono8 frame shows the cameras' test pattern without a fault: diagonal stripes, so that every row is the
/// row above moved by one pixel. A row that was left from another frame breaks it.
inline bool showsTestPattern(const Veltra::SGrabResult& frame)
{
    for (int y = 1; y < frame.height; ++y) {
        const std::byte* above = frame.pixels + std::ptrdiff_t(y - 1) * frame.stride;
        if (std::memcmp(above + 1, above + frame.stride, std::size_t(frame.width - 1)) != 0)
            return false;
    }
    return frame.height > 1;
}
