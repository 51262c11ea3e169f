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

    /// What the node lies in, and is looked up in; null once it was taken out.
    static const void* owner(const CNodeBase& node) { return node.m_owner; }
    static void setOwner(CNodeBase& node, const void* owner, quint64 entry)
    {
        node.m_owner = owner;
        node.m_entry = entry;
    }

    /// Its number there: one that came in later has a higher one.
    static quint64 entry(const CNodeBase& node) { return node.m_entry; }

    /// Whether the removal of a node or a connection has begun; a second request then finds nothing to do.
    static bool isLeaving(const CNodeBase& node) { return node.m_isLeaving; }
    static bool isLeaving(const CNodeConnection& connection) { return connection.m_isLeaving; }
    static void setLeaving(CNodeBase& node, bool leaving) { node.m_isLeaving = leaving; }
    static void setLeaving(CNodeConnection& connection, bool leaving) { connection.m_isLeaving = leaving; }

    /// Whether the node's connections are being taken away: it gets no new ones.
    static bool isClosed(const CNodeBase& node) { return node.m_isClosed; }
    static void setClosed(CNodeBase& node, bool closed) { node.m_isClosed = closed; }

    /// Whether retire() was called: the node is out of the graph and lives only for the visits that stand in it.
    static bool isRetired(const CNodeBase& node) { return node.m_isRetired; }

    /// Takes a node out of the graph: every connection end that points at it is cleared, and it is destroyed, at
    /// once or when the last visit has left it.
    static void retire(std::unique_ptr<CNodeBase> node);
};

/**
 * A stretch of code that stands in a node, on the stack: as long as it lasts, a node that is retired is not destroyed.
 *
 * A node that its owner destroys outright is gone nevertheless, and the visit knows it.
 *
 * Not a CWeakLink: visits end in the order in which they began, the last first, so that a walk can do with less.
 */
class CNodeVisit
{
public:
    explicit CNodeVisit(const CNodeBase& node)
        : m_node(&node)
        , m_outer(node.m_visit)
    {
        if (Q_LIKELY(!m_outer))
            node.m_dropsBefore = CStackGauge::drops();
        else
            m_isOver = m_outer->m_isOver;
        node.m_visit = this;
    }
    ~CNodeVisit()
    {
        if (Q_LIKELY(!m_isOver && m_node->m_visit == this))
            m_node->m_visit = m_outer;
        else
            leave();
    }
    Q_DISABLE_COPY(CNodeVisit)

    /// Whether the caller was called by the first visit of \a node, from not many frames above, and is the second
    /// stretch within it. A visit that is farther away may be on another stack, a coroutine's, and end before the
    /// caller does.
    static bool isFirstAndNear(const CNodeBase& node)
    {
        return reinterpret_cast<quintptr>(node.m_visit) - CStackGauge::position() < fewFrames &&
               !node.m_visit->m_hasInner && !node.m_visit->m_outer;
    }

    /// Whether the code that stands here got here through this node before. A delivery and the walk that it starts are
    /// one way through it.
    bool isRepeated() const { return Q_UNLIKELY(m_outer) && hasManyStretches(); }

    /// Whether this is a further round of a loop in which a delivery was dropped since it first came to this node.
    bool isRoundOfCutLoop() const
    {
        return isRepeated() && m_node && CStackGauge::hasDroppedSince(m_node->m_dropsBefore);
    }

    /// True once the node was destroyed or retired.
    bool isOver() const { return m_isOver; }

    /// A second stretch within a visit, at less than what a visit of its own costs.
    class CInner
    {
    public:
        explicit CInner(CNodeVisit& visit)
            : m_visit(visit)
        {
            m_visit.m_hasInner = true;
        }
        ~CInner() { m_visit.m_hasInner = false; }
        Q_DISABLE_COPY(CInner)

    private:
        CNodeVisit& m_visit;
    };

private:
    friend class CGraphOwner;
    friend class CNodeBase;

    static constexpr quintptr fewFrames = 4096;

    static void setOver(const CNodeBase& node)
    {
        for (CNodeVisit* visit = node.m_visit; visit; visit = visit->m_outer)
            visit->m_isOver = true;
    }
    static void setGone(const CNodeBase& node)
    {
        setOver(node);
        for (CNodeVisit* visit = node.m_visit; visit; visit = visit->m_outer)
            visit->m_node = nullptr;
    }

    // Counted anew each time: on the stacks of coroutines, an outer visit may end before an inner one.
    [[gnu::cold]] bool hasManyStretches() const;
    [[gnu::cold]] void leave();

    const CNodeBase* m_node; // null once it was destroyed
    bool m_hasInner = false;
    bool m_isOver = false;
    CNodeVisit* m_outer;
};

inline void CGraphOwner::retire(std::unique_ptr<CNodeBase> node)
{
    node->m_isRetired = true;
    node->m_ends.release();
    CNodeVisit::setOver(*node);
    if (node->m_visit)
        static_cast<void>(node.release()); // the last visit destroys it
}

} // namespace Halvex
} // namespace Plugin
