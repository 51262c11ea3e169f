// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SCameraOptions.h"
#include "host/sources/SFileOptions.h"

#include <QString>

#include <memory>
#include <variant>

namespace Host {

class IFrameSource;

/// A source of frames, and how to open it. A plain value.
using SourceOptions = std::variant<SCameraOptions, SFileOptions>;

/// By which the run and its chains call it: a camera's address.
QString nameOf(const SourceOptions& options);

/// Opens it. Null, with the reason in \a error, if that fails.
std::unique_ptr<IFrameSource> openSource(const SourceOptions& options, QString* error);

} // namespace Host
