// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CConnectionWatch_p.h"

#include <QVarLengthArray>

namespace Plugin {
namespace Halvex {

/**
 * The connections of one port at one moment, on the stack of a walk; those destroyed since read as null.
 *
 * Up to eight connections need no heap. A copy of the port's map would need it for one.
 */
class CConnectionSnapshot
{
public:
    CConnectionSnapshot(const CNodeState& state, const CNodeState::Connections& port)
        : m_watches(int(port.size()))
    {
        int position = 0;
        for (const auto& entry : port) {
            if (state.isUsable(entry))
                m_watches[position++] = CConnectionWatch(entry.first, entry.second);
        }
    }

    int size() const { return m_watches.size(); }

    /// The connection at \a position, null if it was destroyed.
    const CNodeConnection* at(int position) const { return m_watches[position].get(); }

private:
    QVarLengthArray<CConnectionWatch, 8> m_watches;
};

} // namespace Halvex
} // namespace Plugin
