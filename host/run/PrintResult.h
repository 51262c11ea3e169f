// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/EExitCode.h"

#include <QString>

namespace Host {

/// Prints \a text and returns \a exitCode; or, when it cannot be written, tells that on standard error and returns
/// Failed at least.
int printResult(const QString& text, int exitCode = Done);

} // namespace Host
