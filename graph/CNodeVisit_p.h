// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeBase.h"

#include <atomic>
#include <utility>

namespace Plugin {
namespace Halvex {

/**
 * Who stands in a node: a stretch of code, on the stack. A node that leaves its scene meanwhile lives until the last
 * visit has left it; one that somebody destroys outright is gone, and the visit knows it.
 *
 * \code
 * const CNodeVisit visit(node);
 * const QString name = node.nodeDataModel()->name(); // foreign code: it may remove the node
 * if (visit.isOver())
 *     return;
 * \endcode
 *
 * Visits end in the order opposite to that in which they began. As long as there is one, the rows of the node keep
 * their places; the last one tidies them up.
 *
 * A delivery is a visit, and the walk that answers it belongs to it. So the visits that stand in a node at the same time
 * are the rounds of a feedback loop. Round mostRounds + 1 is dropped.
 */
class CNodeVisit
{
public:
    static constexpr int mostRounds = 1000;

    explicit CNodeVisit(const CNodeBase& node)
        : m_node(&node)
        , m_outer(std::exchange(node.m_state.m_visit, this))
    {
        if (Q_LIKELY(!m_outer)) {
            m_dropsBefore = s_drops.load(std::memory_order_relaxed);
            return;
        }
        m_round = m_outer->m_round + 1;
        m_isOver = m_outer->m_isOver;
        m_dropsBefore = m_outer->m_dropsBefore;
    }
    ~CNodeVisit()
    {
        if (Q_UNLIKELY(m_isOver)) {
            leaveGoneNode();
            return;
        }
        CNodeState& state = m_node->m_state;
        Q_ASSERT(state.m_visit == this);
        state.m_visit = m_outer;
        if (Q_UNLIKELY(state.m_isUntidy) && !m_outer)
            state.tidy();
    }
    Q_DISABLE_COPY(CNodeVisit)

    /// True once the node was destroyed, or has left its scene for good.
    bool isOver() const { return m_isOver; }

    bool isRoundTooMany() const { return m_round > mostRounds; }

    /// Whether this is a further round of a loop in which a delivery was dropped. A loop through several paths would be
    /// cut once for every sequence of paths, and there are more of those than anybody can wait for. So what was dropped
    /// ends all rounds but the first ones of each node.
    bool isRoundOfCutLoop() const { return Q_UNLIKELY(m_round > 1) && hasDropped(); }

    /// Whether a walk that stands here goes on.
    bool mayGoOn() const { return !m_isOver && !isRoundOfCutLoop(); }

    /// Says that a delivery was dropped in this thread.
    static void countDrop() { s_lastDrop = s_drops.fetch_add(1, std::memory_order_relaxed) + 1; }

    /// A visit has room for one walk at a time.
    bool isWalking() const { return m_isWalking; }

    class CWalk
    {
    public:
        explicit CWalk(CNodeVisit& visit)
            : m_visit(visit)
        {
            m_visit.m_isWalking = true;
        }
        ~CWalk() { m_visit.m_isWalking = false; }
        Q_DISABLE_COPY(CWalk)

    private:
        CNodeVisit& m_visit;
    };

private:
    friend class CGraphOwner;
    friend class CNodeBase;

    // The count of all threads first: it hardly ever changes.
    [[gnu::cold]] bool hasDropped() const
    {
        return s_drops.load(std::memory_order_relaxed) != m_dropsBefore && s_lastDrop > m_dropsBefore;
    }

    static bool standsIn(const CNodeBase& node) { return node.m_state.m_visit != nullptr; }
    static void endAll(const CNodeBase& node)
    {
        for (CNodeVisit* visit = node.m_state.m_visit; visit; visit = visit->m_outer)
            visit->m_isOver = true;
    }
    static void forgetNode(const CNodeBase& node)
    {
        endAll(node);
        for (CNodeVisit* visit = std::exchange(node.m_state.m_visit, nullptr); visit; visit = visit->m_outer)
            visit->m_node = nullptr;
    }
    [[gnu::cold]] void leaveGoneNode()
    {
        if (!m_node)
            return;
        m_node->m_state.m_visit = m_outer;
        if (!m_outer)
            delete m_node;
    }

    static inline std::atomic<quint64> s_drops{0};         // in all threads
    static inline thread_local quint64 s_lastDrop = 0;     // the number of this thread's last one

    const CNodeBase* m_node; // null once it was destroyed
    CNodeVisit* m_outer;
    quint64 m_dropsBefore; // of the first visit that stands here
    int m_round = 1;
    bool m_isOver = false;
    bool m_isWalking = false;
};

} // namespace Halvex
} // namespace Plugin
