// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CLiveObjects_p.h"
#include "graph/CNodeConnection.h"

#include <atomic>

namespace Plugin {
namespace Halvex {

/**
 * Knows of each connection that is there when the watch begins whether foreign code has destroyed it since.
 *
 * Why not a CWeakLink: a walk would write to every connection that it is going to serve, twice. As long as no
 * connection at all was destroyed, none of these was either; after that one is looked up, and told by its number from
 * another that has come to lie where it lay.
 */
class CConnectionWatch
{
public:
    /// Whether \a connection, which existed when the watch began, still does.
    bool isThere(const CNodeConnection* connection) const
    {
        return Q_LIKELY(CLiveObjects::removals() == m_removalsBefore) || isFound(connection);
    }

    /// The number of a connection that is being made.
    static quint64 nextNumber() { return ++s_lastNumber; }

private:
    [[gnu::cold]] bool isFound(const CNodeConnection* connection) const
    {
        return CLiveObjects::contains(connection, CLiveObjects::EKind::Connection,
                                      [&] { return connection->m_number <= m_lastNumber; });
    }

    static inline std::atomic<quint64> s_lastNumber{0};

    quint64 m_removalsBefore = CLiveObjects::removals();
    quint64 m_lastNumber = s_lastNumber.load(std::memory_order_relaxed);
};

} // namespace Halvex
} // namespace Plugin
