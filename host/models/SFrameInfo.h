// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <chrono>
#include <memory>

namespace Host {

/// Where a piece of data comes from; filters pass it on, sinks measure with it.
struct SFrameInfo
{
    quint64 frameNumber = 0;                       ///< As the device counts frames.
    std::chrono::steady_clock::time_point grabbed; ///< When the frame came out of the camera's stream.
    quint64 timestampNs = 0;                       ///< Device clock, nanoseconds; 0 where there is none.
    std::shared_ptr<const void> claim{}; ///< Whoever waits until a frame has gone waits for its end; may be null.
    QString source{};                    ///< The file that it was read from: "a.png", "a.avi#12"; empty for a camera.
    int bits = 0;                        ///< Of a value as the camera counts it: 12 for Mono12. 0 if nobody said.
};

} // namespace Host
