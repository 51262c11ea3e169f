// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "testing/check/EExitCode.h"
#include "testing/check/SArguments.h"

namespace Plugin::Halvex::Testing {

/// Does the part of a check that \a arguments say, in this process, and tells it by messages.
EExitCode runChild(const SArguments& arguments);

} // namespace Plugin::Halvex::Testing
