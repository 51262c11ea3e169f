// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <chrono>

namespace Host {

/// How often a camera had gone and came back. A plain value.
struct SAbsences
{
    int count = 0;                      ///< Those that are over.
    std::chrono::milliseconds total{0}; ///< Of these, from the last frame before to the first one after.
    bool isAway = false;                ///< It has gone, and is waited for.
};

} // namespace Host
