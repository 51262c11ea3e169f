// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeBase.h"
#include "graph/CNodeConnection.h"
#include "graph/CStackGauge_p.h"

#include <memory>

namespace Plugin {
namespace Halvex {

/// What the owner of nodes and connections, and their neighbours, do beyond their public operations.
class CGraphOwner
{
public:
    static CWeakAnchor<CNodeBase>& ends(CNodeBase& node) { return node.m_ends; }
    static CWeakAnchor<const CNodeBase>& visits(const CNodeBase& node) { return node.m_visits; }
    static CWeakAnchor<const CNodeConnection>& watchers(const CNodeConnection& connection)
    {
        return connection.m_watchers;
    }

    /// Whether the removal of a node or a connection has begun; a second request then finds nothing to do.
    static bool isLeaving(const CNodeBase& node) { return node.m_isLeaving; }
    static bool isLeaving(const CNodeConnection& connection) { return connection.m_isLeaving; }
    static void setLeaving(CNodeBase& node, bool leaving) { node.m_isLeaving = leaving; }
    static void setLeaving(CNodeConnection& connection, bool leaving) { connection.m_isLeaving = leaving; }

    /// The count of dropped deliveries when the first of the visits that stand in the node began.
    static quint64 dropsBefore(const CNodeBase& node) { return node.m_dropsBefore; }
    static void setDropsBefore(const CNodeBase& node, quint64 drops) { node.m_dropsBefore = drops; }

    /// Whether the node's connections are being taken away: it gets no new ones.
    static bool isClosed(const CNodeBase& node) { return node.m_isClosed; }
    static void setClosed(CNodeBase& node, bool closed) { node.m_isClosed = closed; }

    /// Whether retire() was called: the node is out of the graph and lives only for the visits that stand in it.
    static bool isRetired(const CNodeBase& node) { return node.m_isRetired; }

    /// Takes a node out of the graph: every connection end that points at it is cleared, and it is destroyed, at
    /// once or when the last visit has left it.
    static void retire(std::unique_ptr<CNodeBase> node)
    {
        node->m_isRetired = true;
        node->m_ends.release();
        if (node->m_visits.hasLinks())
            static_cast<void>(node.release()); // the last visit destroys it
    }
};

/**
 * A stretch of code that stands in a node, on the stack: as long as it lasts, a node that is retired is not destroyed.
 *
 * A node that its owner destroys outright is gone nevertheless, and the visit knows it.
 */
class CNodeVisit
{
public:
    explicit CNodeVisit(const CNodeBase& node)
    {
        if (!CGraphOwner::visits(node).hasLinks())
            CGraphOwner::setDropsBefore(node, CStackGauge::drops());
        m_node.link(&node, CGraphOwner::visits(node));
    }
    ~CNodeVisit()
    {
        const CNodeBase* const node = m_node.get();
        m_node.unlink();
        if (node && CGraphOwner::isRetired(*node) && !CGraphOwner::visits(*node).hasLinks())
            delete node;
    }
    Q_DISABLE_COPY(CNodeVisit)

    /// Whether the code that stands here got here through this node before. A delivery and the walk that it starts are
    /// one way through it.
    bool isRepeated() const { return m_node.hasOlder(2); }

    /// Whether this is a further round of a loop in which a delivery was dropped since it first came to this node.
    bool isRoundOfCutLoop() const
    {
        return isRepeated() && m_node.get() && CStackGauge::hasDroppedSince(CGraphOwner::dropsBefore(*m_node.get()));
    }

    /// True once the node was destroyed or retired.
    bool isOver() const { return !m_node.get() || CGraphOwner::isRetired(*m_node.get()); }

private:
    CWeakLink<const CNodeBase> m_node;
};

} // namespace Halvex
} // namespace Plugin
