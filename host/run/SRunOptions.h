// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SCameraOptions.h"

#include <QString>

#include <chrono>

namespace Host {

/// What one run does. A plain value.
struct SRunOptions
{
    SCameraOptions camera;
    int frames = 300;                                 ///< Complete frames, 1 to maxFrames.
    int writeEvery = 30;                              ///< Each sink writes every so many frames, at least 1.
    QString output = QStringLiteral("halvex-output"); ///< Folder for everything that is written.
    QString load;                                     ///< Scene document to start from; empty for the demo graph.
    QString save;                                     ///< File for the scene document; empty for none.
    std::chrono::milliseconds silence{5000};          ///< A camera without any frame for so long has gone.

    /// The delay of every frame is kept until the end of the run, 8 bytes for each sink.
    static constexpr int maxFrames = 1000000;
};

} // namespace Host
