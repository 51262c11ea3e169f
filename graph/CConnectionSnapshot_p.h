// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CConnectionWatch_p.h"
#include "graph/CNodeState.h"

#include <QVarLengthArray>

namespace Plugin {
namespace Halvex {

/**
 * The connections of one port at one moment, on the stack of a walk; those destroyed since read as null.
 *
 * Up to sixteen connections need no heap. A copy of the port's map would need it for one.
 */
class CConnectionSnapshot
{
public:
    CConnectionSnapshot(const CNodeState& state, const CNodeState::Connections& port)
        : m_connections(int(port.size()))
    {
        const CNodeConnection** place = m_connections.data();
        for (const auto& entry : port)
            *place++ = state.isUsable(entry) ? entry.second : nullptr;
    }

    int size() const { return m_connections.size(); }

    /// The connection at \a position, null if it was destroyed.
    const CNodeConnection* at(int position) const
    {
        const CNodeConnection* const connection = m_connections[position];
        return m_watch.isThere(connection) ? connection : nullptr;
    }

private:
    CConnectionWatch m_watch;
    QVarLengthArray<const CNodeConnection*, 16> m_connections;
};

} // namespace Halvex
} // namespace Plugin
