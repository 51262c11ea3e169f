// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// Which camera to open, and how. A plain value.
struct SCameraOptions
{
    QString address = QStringLiteral("fake"); ///< "fake", or the IP address (or host name) of a GigE Vision camera.
    QString pixelFormat;                      ///< GenICam name; empty leaves the camera's own.
    double framesPerSecond = 0.0;             ///< 0 leaves the camera's own rate.
    int buffers = 16;                         ///< Frames that may be in flight at once, at least 1.
};

} // namespace Host
