// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// Which files stand in for a camera, and how. A plain value.
struct SFileOptions
{
    enum class EKind
    {
        Images,
        Video
    };

    EKind kind = EKind::Images;
    QString name;                 ///< What the camera would be called by.
    QString place;                ///< A folder with images, a pattern for their names, or the file of a video.
    double framesPerSecond = 0.0; ///< 0: as fast as the graph takes them.
    int framesInFlight = 16;      ///< At least 1.
    bool isLooped = false;        ///< From the beginning again, without end.
};

} // namespace Host
