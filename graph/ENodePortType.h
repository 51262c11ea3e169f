// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Plugin {
namespace Halvex {

/// The side of a port. The numbers are frozen: they stand in log messages.
enum class ENodePortType
{
    None = 0, ///< Neither side: accepted everywhere, selects no real port.
    In = 1,
    Out = 2
};

} // namespace Halvex
} // namespace Plugin
