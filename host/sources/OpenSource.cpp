// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/OpenSource.h"

#include "host/camera/CAravisCamera.h"
#include "host/camera/CReconnectingCamera.h"
#include "host/sources/CFileSource.h"

namespace Host {

namespace {

std::unique_ptr<IFrameSource> openCamera(const SCameraOptions& options, QString* error)
{
    if (options.reconnect.count() == 0)
        return CAravisCamera::open(options, error);
    const auto open = [options](QString* reason) { return CAravisCamera::open(options, reason); };
    return CReconnectingCamera::open(open, options.silence, options.reconnect, error);
}

} // namespace

QString nameOf(const SourceOptions& options)
{
    const auto* const camera = std::get_if<SCameraOptions>(&options);
    return camera ? camera->address : std::get<SFileOptions>(options).name;
}

std::unique_ptr<IFrameSource> openSource(const SourceOptions& options, QString* error)
{
    if (const auto* const camera = std::get_if<SCameraOptions>(&options))
        return openCamera(*camera, error);
    return CFileSource::open(std::get<SFileOptions>(options), error);
}

} // namespace Host
