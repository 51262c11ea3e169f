// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SCameraOptions.h"

#include <QString>

#include <chrono>
#include <vector>

namespace Host {

/// What one run does. A plain value.
struct SRunOptions
{
    std::vector<SCameraOptions> cameras{SCameraOptions()}; ///< At least one, each with an address of its own.
    int frames = 300;                                      ///< Complete frames of each camera, 1 to maxFrames.
    int writeEvery = 30;                                   ///< Each sink writes every so many frames, at least 1.
    QString output = QStringLiteral("halvex-output");      ///< Folder for everything that is written.
    QString plugins;                                       ///< Folder with plugins; empty for that of the program.
    QString chain;                                         ///< Chain to import; empty for the default one.
    QString load;                            ///< Scene document instead of a chain, for one camera; empty for none.
    QString save;                            ///< File for the scene document of one camera; empty for none.
    std::chrono::milliseconds silence{5000}; ///< A camera without any frame for so long has gone.

    /// The delay of every frame is kept until the end of the run, 8 bytes for each sink.
    static constexpr int maxFrames = 1000000;
};

} // namespace Host
