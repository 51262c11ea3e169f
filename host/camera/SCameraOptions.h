// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <chrono>
#include <optional>
#include <utility>
#include <vector>

namespace Host {

/// Which camera to open, and how. A plain value.
struct SCameraOptions
{
    /// "fake", "fake-1", "fake-2"..., each a camera of its own that is built into the library, the IP address (or host
    /// name) of a GigE Vision camera, or the id of a USB3 Vision camera.
    QString address = QStringLiteral("fake");
    QString pixelFormat;          ///< GenICam name; empty leaves the camera's own.
    double framesPerSecond = 0.0; ///< 0 leaves the camera's own rate.
    int buffers = 16;             ///< Frames that may be in flight at once, from 1 to mostBuffers.

    std::vector<std::pair<QString, QString>> features; ///< GenICam features to set last, in this order, as text.
    std::chrono::milliseconds reconnect{0};            ///< How long it is waited for when it has gone; 0: not at all.
    std::chrono::milliseconds silence{5000};           ///< Then it has gone.
    std::optional<bool> resend{}; ///< Whether a GigE Vision camera is asked for lost packets again.
    bool canNameCommands = true;  ///< Whether errors may name a command to type; not for people who look at a window.

    static constexpr int mostBuffers = 10000;
    static constexpr double mostFramesPerSecond = 10000.0;

    /// Whether it is one of the cameras that are built into the library.
    static bool isFake(const QString& address);
};

} // namespace Host
