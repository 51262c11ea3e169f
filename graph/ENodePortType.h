// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Plugin::Halvex {

/// The side of a node that a port is on. The numbers are frozen: they stand in log messages.
enum class ENodePortType
{
    None = 0, ///< Neither. No node has such a port; CNodeConnection tells what its operations do with it.
    In = 1,   ///< Takes data.
    Out = 2   ///< Gives data.
};

} // namespace Plugin::Halvex
