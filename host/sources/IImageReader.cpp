// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/IImageReader.h"

#include <opencv2/core/utils/logger.hpp>

namespace Host {

void silenceOpenCv()
{
    cv::utils::logging::setLogLevel(cv::utils::logging::LOG_LEVEL_SILENT);
    // FFmpeg, which reads the videos, has a log of its own.
    constexpr const char* level = "OPENCV_FFMPEG_LOGLEVEL";
    if (!qEnvironmentVariableIsSet(level))
        qputenv(level, "-8");
}

} // namespace Host
