// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SCameraOptions.h"

#include <chrono>

namespace Host {

/// Measures the way from a camera to this program for so long, prints what came of it, and returns the exit code: 1
/// when a frame was lost, too. \a isJson: for programs.
int testCamera(const SCameraOptions& camera, std::chrono::milliseconds time, bool isJson);

} // namespace Host
