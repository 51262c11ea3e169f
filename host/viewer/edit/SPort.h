// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/ENodePortType.h>
#include <Halvex/platform/CId.h>

namespace Host {

/// One port of a node. A plain value, which stays good when the node goes and comes back.
struct SPort
{
    Core::CId node;
    Plugin::Halvex::ENodePortType side = Plugin::Halvex::ENodePortType::None; ///< None: no port at all.
    int index = 0;

    friend bool operator==(const SPort& left, const SPort& right)
    {
        return left.node == right.node && left.side == right.side && left.index == right.index;
    }
    friend bool operator!=(const SPort& left, const SPort& right) { return !(left == right); }
};

} // namespace Host
