// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Host {

/// What the program exits with. Frozen: scripts test it.
enum EExitCode
{
    Done = 0,
    Failed = 1,           ///< It ran, and something failed; or two documents differ.
    Refused = 2,          ///< A request that cannot be met: nothing was started.
    InterruptedBase = 128 ///< Plus the signal's number: 130 for SIGINT, 143 for SIGTERM.
};

} // namespace Host
