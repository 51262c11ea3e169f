// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CStackGauge_p.h"

#include <Halvex/graph/CNodeBase.h>

#include <utility>

namespace Plugin::Halvex {

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
 * A delivery is a visit, and the walk that answers it belongs to it. So the visits that stand in a node at the same
 * time are the rounds of a feedback loop. Data that would begin round mostRounds + 1 is dropped.
 */
class CNodeVisit
{
public:
    static constexpr int mostRounds = 1000;

    // NOLINTBEGIN(cppcoreguidelines-pro-type-member-init,clang-analyzer-optin.cplusplus.UninitializedObject): whoever
    // reads m_dropsBefore has set it, and a hop has no instruction to spare for it
    CNodeVisit(const CNodeBase& node, CStackGauge& gauge)
        : m_node(&node)
        , m_outer(std::exchange(node.m_state.m_visit, this))
        , m_gauge(gauge)
    {
        if (Q_UNLIKELY(m_outer))
            joinOuter();
    }
    explicit CNodeVisit(const CNodeBase& node)
        : CNodeVisit(node, CStackGauge::ofThisThread())
    {
    }
    // NOLINTEND(cppcoreguidelines-pro-type-member-init,clang-analyzer-optin.cplusplus.UninitializedObject)
    ~CNodeVisit()
    {
        if (Q_LIKELY(!m_hasToTidy)) {
            Q_ASSERT(m_node->m_state.m_visit == this);
            m_node->m_state.m_visit = m_outer;
        } else {
            leaveAndTidy();
        }
    }
    Q_DISABLE_COPY(CNodeVisit)

    /// True once the node was destroyed, or has left its scene for good.
    bool isOver() const { return m_round == roundOfGoneNode; }

    /// Whether the data that brought the caller here is to be dropped.
    bool isRoundTooMany() const { return m_round > mostRounds; }

    /// Whether this is the first visit that stands in the node, and no walk has begun in it.
    // Survives returned value, number off by one: what is not so is walked with care, and to the same end.
    bool isFirstAndIdle() const { return m_round == 1; }

    /// Whether a walk that stands here goes on. Not if the node is gone; nor in a further round of a loop in which
    /// something was dropped: a loop through several paths would be cut once for every sequence of paths, and there are
    /// more of those than anybody can wait for. So what was dropped ends all rounds but the first ones of each node.
    bool mayGoOn() const { return Q_LIKELY(m_round == -1) || mayGoOnOtherwise(); }

    /// A visit has room for one walk at a time.
    bool isWalking() const { return m_round < 0; }

    /// For the handler of an exception that a walk brings back: it comes from a model behind this one.
    void noteException() { m_hasToTidy |= quint16(exceptionOfOthers); }
    bool isExceptionOfOthers() const { return (m_hasToTidy & exceptionOfOthers) != 0; }

    CStackGauge& gauge() const { return m_gauge; }

    /// A walk, as long as it lasts.
    class CWalk
    {
    public:
        explicit CWalk(CNodeVisit& visit)
            : m_visit(visit)
        {
            Q_ASSERT(!visit.isWalking());
            if (Q_LIKELY(visit.m_round == 1))
                visit.m_dropsBefore = visit.m_gauge.drops();
            visit.m_round = qint16(-visit.m_round);
        }
        ~CWalk() { m_visit.m_round = qint16(-m_visit.m_round); }
        Q_DISABLE_COPY(CWalk)

    private:
        CNodeVisit& m_visit;
    };

private:
    friend class CNodeBase;
    friend class CNodeState;

    void joinOuter()
    {
        // Survives exchanged neighbours: neither sees what the other one sets.
        m_round = m_outer->isOver() ? roundOfGoneNode : qint16(qMin(qAbs(int(m_outer->m_round)), mostRounds) + 1);
        m_dropsBefore = m_outer->isWalking() ? m_outer->m_dropsBefore : m_gauge.drops();
    }

    bool mayGoOnOtherwise() const { return !isOver() && (m_round == 1 || m_gauge.drops() == m_dropsBefore); }

    static void endAll(const CNodeBase& node)
    {
        for (CNodeVisit* visit = node.m_state.m_visit; visit; visit = visit->m_outer) {
            visit->m_round = roundOfGoneNode;
            // Survives number off by one: that bit spares a warning, and none is given of a node that is gone.
            visit->m_hasToTidy = 1;
        }
    }
    static void forgetNode(const CNodeBase& node)
    {
        endAll(node);
        for (CNodeVisit* visit = std::exchange(node.m_state.m_visit, nullptr); visit; visit = visit->m_outer)
            visit->m_node = nullptr;
    }
    // The outermost visit is to tidy the rows up when it leaves.
    static void leaveUntidy(const CNodeState& state)
    {
        CNodeVisit* outermost = state.m_visit;
        while (outermost->m_outer)
            outermost = outermost->m_outer;
        outermost->m_hasToTidy = 1;
    }
    [[gnu::cold]] void leaveAndTidy()
    {
        if (!m_node)
            return;
        CNodeState& state = m_node->m_state;
        state.m_visit = m_outer;
        if (m_outer)
            return;
        if (isOver())
            delete m_node;
        else
            state.tidy();
    }

    static constexpr qint16 roundOfGoneNode = 0;
    static constexpr int exceptionOfOthers = 2; // tidying up is right then, too

    const CNodeBase* m_node; // null once it was destroyed
    CNodeVisit* m_outer;
    CStackGauge& m_gauge;
    quint64 m_dropsBefore; // when the walk of the first visit that stands here began; not set before that
    qint16 m_round = 1;    // or roundOfGoneNode; its negative while a walk is under way
    // Survives number off by one: to tidy up what is tidy only takes time.
    quint16 m_hasToTidy = 0; // as it leaves; the size lets both be set at once
};

} // namespace Plugin::Halvex
