// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeState.h>

#include <vector>

namespace Plugin::Halvex {

/// What a port table keeps to itself, for the tests.
class CRowInspector
{
public:
    /// The connections of a port in the order in which a walk that begins now would serve them.
    static std::vector<const CNodeConnection*> row(const CNodeState& table, ENodePortType side, NodePortIndex port)
    {
        std::vector<const CNodeConnection*> connections;
        for (const CNodeState::SPlace& place : table.rows(side)[port]) {
            if (place.until == CNodeState::staysFilled)
                connections.push_back(place.connection);
        }
        return connections;
    }

    /// How many places a port has, those that were given up included.
    static int places(const CNodeState& table, ENodePortType side, NodePortIndex port)
    {
        return int(table.rows(side)[port].size());
    }
};

} // namespace Plugin::Halvex
