// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/OpenSource.h"

#include "host/camera/CAravisCamera.h"
#include "host/sources/CFileSource.h"

namespace Host {

QString nameOf(const SourceOptions& options)
{
    const auto* const camera = std::get_if<SCameraOptions>(&options);
    return camera ? camera->address : std::get<SFileOptions>(options).name;
}

std::unique_ptr<IFrameSource> openSource(const SourceOptions& options, QString* error)
{
    if (const auto* const camera = std::get_if<SCameraOptions>(&options))
        return CAravisCamera::open(*camera, error);
    return CFileSource::open(std::get<SFileOptions>(options), error);
}

} // namespace Host
