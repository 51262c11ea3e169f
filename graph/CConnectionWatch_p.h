// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CLiveObjects_p.h"
#include "graph/CNodeState.h"

namespace Plugin {
namespace Halvex {

/**
 * A pointer to a connection that foreign code may destroy meanwhile; it then reads as null.
 *
 * Why not a CWeakLink: a walk would write to every connection that it is going to serve, twice. As long as no
 * connection at all was destroyed, this one was not either; after that it is looked up.
 */
class CConnectionWatch
{
public:
    CConnectionWatch() = default;
    CConnectionWatch(const Core::CId& id, const CNodeConnection* connection)
        : m_connection(connection)
        , m_id(id)
        , m_removalsBefore(CLiveObjects::removals())
    {
    }

    const CNodeConnection* get() const
    {
        if (Q_LIKELY(CLiveObjects::removals() == m_removalsBefore))
            return m_connection;
        return CNodeState::exists(m_id, m_connection) ? m_connection : nullptr;
    }

private:
    const CNodeConnection* m_connection = nullptr;
    Core::CId m_id;
    quint64 m_removalsBefore = 0;
};

} // namespace Halvex
} // namespace Plugin
