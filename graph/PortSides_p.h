// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/ENodePortType.h>

namespace Plugin::Halvex {

/// The sides that a node has ports on. A new one needs rows in CNodeState, and an end in CNodeConnection: these take In
/// for one side and everything else for the other.
constexpr ENodePortType portSides[] = {ENodePortType::In, ENodePortType::Out};

/// Whether \a side is among portSides. It may be any number: hosts pass what they read.
constexpr bool isPortSide(ENodePortType side)
{
    switch (side) { // without a default, so that the compiler asks about a new value
    case ENodePortType::In:
    case ENodePortType::Out:
        return true;
    case ENodePortType::None:
        break;
    }
    return false;
}

} // namespace Plugin::Halvex
