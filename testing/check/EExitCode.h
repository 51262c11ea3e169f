// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Plugin::Halvex::Testing {

/// How halvex-check ends. Scripts know the numbers.
enum class EExitCode
{
    Kept = 0,      ///< All rules that could be tried are kept.
    Broken = 1,    ///< At least one is not.
    NotChecked = 2 ///< Wrong arguments, no such file or model, or a plugin whose models cannot be listed.
};

} // namespace Plugin::Halvex::Testing
