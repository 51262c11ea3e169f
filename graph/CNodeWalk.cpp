// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The way of data through a graph: the halves of CNodeBase and CNodeConnection that a walk consists of. They stand in
// one file, in the order in which they call each other, so that a hop from one model to the next becomes one function.

#include "graph/CConversion_p.h"
#include "graph/CNodeVisit_p.h"
#include "graph/support/Reports_p.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeConnection.h>

#include <QScopeGuard>

#include <utility>

namespace Plugin::Halvex {
namespace {

/// Warns if \a data, which the caller's visit of \a node gave out or is about to take in, is of another type than the
/// node's model says of that port. Where Q_ASSERT does not assert, nobody asks.
void warnIfOtherType([[maybe_unused]] const CNodeDataPtr& data, [[maybe_unused]] const CNodeBase* node,
                     [[maybe_unused]] ENodePortType portType, [[maybe_unused]] NodePortIndex index)
{
#if !defined(QT_NO_DEBUG) || defined(QT_FORCE_ASSERTS)
    if (!data || !node || !node->nodeDataModel())
        return;
    swallowExceptions(lcGraph, "Asking for the type of a port", [&] {
        const CNodeVisit visit(*node);
        const QString given = data->type().id;
        if (visit.isOver())
            return;
        const QString said = node->nodeDataModel()->dataType(portType, index).id;
        if (given == said || visit.isOver())
            return;
        const QString name = node->nodeDataModel()->name();
        if (!visit.isOver())
            warnOnce("% port % of the model \"%\" of node % is for \"%\", but \"%\" comes there.",
                     portType == ENodePortType::In ? QStringLiteral("Input") : QStringLiteral("Output"),
                     QString::number(index), name, node->id().toString(), said, given);
    });
#endif
}

/// For the handler of an exception that leaves setInData() of \a node: names it if an event loop may be who gets it,
/// which would end the process without a word about the model.
[[gnu::cold]] void warnOfException(const CNodeBase& node, const CNodeVisit& visit)
{
    if (visit.isOver() || QThread::currentThread()->loopLevel() == 0)
        return;
    swallowExceptions(lcGraph, "Asking for the name of a model", [&] {
        const QString name = node.nodeDataModel()->name();
        if (!visit.isOver())
            warnOnce(
                "An exception leaves setInData() of the model \"%\" of node %: an event loop that gets it ends the "
                "process.",
                name, node.id().toString());
    });
}

} // namespace

template <typename DataPtr>
Q_ALWAYS_INLINE void CNodeBase::deliver(DataPtr&& data, NodePortIndex inPortIndex, CStackGauge& gauge) const
{
    const CNodeVisit visit(*this, gauge);
    if (Q_UNLIKELY(visit.isRoundTooMany())) {
        dropData(gauge, "a feedback loop comes back to it again and again");
        return;
    }
    try {
        m_model->setInData(std::forward<DataPtr>(data), inPortIndex);
    } catch (...) {
        if (!visit.isExceptionOfOthers())
            warnOfException(*this, visit);
        throw;
    }
}

Q_ALWAYS_INLINE void CNodeConnection::deliverConverted(CNodeDataPtr&& data, CStackGauge& gauge) const
{
    CConversion conversion(*this);
    CNodeDataPtr converted = conversion.convert(std::move(data));
    if (conversion.isConnectionThere())
        warnIfOtherType(converted, m_in.node, ENodePortType::In, m_in.index);
    if (conversion.isConnectionThere() && m_in.node)
        m_in.node->deliver(std::move(converted), m_in.index, gauge);
}

// A copy is what a fan-out delivers, whose loop has no registers to spare: a function of its own.
void CNodeConnection::deliverConverted(const CNodeDataPtr& data, CStackGauge& gauge) const
{
    deliverConverted(CNodeDataPtr(data), gauge);
}

template <typename DataPtr>
Q_ALWAYS_INLINE void CNodeConnection::deliver(DataPtr&& data, CStackGauge& gauge) const
{
    if (!m_in.node)
        return;
    if (m_converter)
        deliverConverted(std::forward<DataPtr>(data), gauge);
    else
        m_in.node->deliver(std::forward<DataPtr>(data), m_in.index, gauge);
}

Q_ALWAYS_INLINE void CNodeBase::deliverToPort(NodePortIndex outIndex, CNodeDataPtr&& data, const CNodeVisit& visit)
{
    if (Q_UNLIKELY(uint(outIndex) >= m_state.m_readyRows) && !m_state.prepareRow(outIndex)) {
        warnOfMissingPort(outIndex);
        return;
    }

    // Those that the row has now: one that is added comes behind, one that is taken out keeps its place for us.
    const quint64 start = m_state.m_lastChange;
    const int last = int(m_state.m_outRows[outIndex].size()) - 1;
    if (last < 0)
        return;
    for (int position = 0; position < last; ++position) {
        const CNodeState::SPlace& place = m_state.m_outRows[outIndex][position];
        if (place.until > start)
            place.connection->deliver(data, visit.gauge());
        if (!visit.mayGoOn())
            return;
    }
    const CNodeState::SPlace& place = m_state.m_outRows[outIndex][last];
    if (place.until > start)
        place.connection->deliver(std::move(data), visit.gauge());
}

void CNodeBase::onDataUpdated(NodePortIndex index)
{
    // Mostly the model answers a delivery, and the walk belongs to that visit.
    CNodeVisit* const visit = m_state.m_visit;
    if (Q_LIKELY(visit && visit->isFirstAndIdle() && visit->gauge().hasRoom(visit)))
        walk(index, *visit);
    else
        updateCarefully(index, visit);
}

Q_ALWAYS_INLINE void CNodeBase::walk(NodePortIndex index, CNodeVisit& visit)
{
    Q_ASSERT(m_model);
    const CNodeVisit::CWalk walk(visit);
    CNodeDataPtr data = m_model->outData(index);
    if (visit.mayGoOn())
        warnIfOtherType(data, this, ENodePortType::Out, index);
    if (!data || !visit.mayGoOn())
        return;
    try {
        deliverToPort(index, std::move(data), visit);
    } catch (...) {
        visit.noteException();
        throw;
    }
}

void CNodeBase::updateCarefully(NodePortIndex index, CNodeVisit* visit)
{
    if (!m_model)
        return;
    if (!visit || visit->isWalking())
        updateAlone(index);
    else if (visit->mayGoOn())
        walkIfRoom(index, *visit);
}

void CNodeBase::updateAlone(NodePortIndex index)
{
    const CNodeVisit visit(*this);
    if (visit.isRoundTooMany())
        dropData(visit.gauge(), "its output announces itself whenever it is asked for");
    else
        onDataUpdated(index);
}

void CNodeBase::walkIfRoom(NodePortIndex index, CNodeVisit& visit)
{
    if (visit.gauge().hasRoom(&visit)) {
        walk(index, visit);
    } else if (!visit.gauge().beginFarWalk()) {
        dropData(visit.gauge(), "the stack has no room for what comes behind it");
    } else {
        const auto end = qScopeGuard([&visit] { visit.gauge().endFarWalk(); });
        walk(index, visit);
    }
}

void CNodeBase::propagateData(CNodeDataPtr ptrNodeData, NodePortIndex inPortIndex) const
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    if (m_model)
        deliver(std::move(ptrNodeData), inPortIndex, CStackGauge::ofThisThread());
}

void CNodeBase::dropData(CStackGauge& gauge, const char* reason) const
{
    gauge.countDrop();
    if (!std::exchange(m_hasWarned, true))
        qCWarning(lcGraph, "Data is dropped at the model \"%s\" of node %s: %s.", qUtf8Printable(m_model->name()),
                  qUtf8Printable(m_id.toString()), reason);
}

void CNodeBase::warnOfMissingPort(NodePortIndex outIndex) const
{
    warnOnce("The model \"%\" of node % gives data for output port %, which it does not have: its nPorts() said so "
             "when the node was made.",
             m_model->name(), m_id.toString(), QString::number(outIndex));
}

void CNodeConnection::propagateData(CNodeDataPtr data) const
{
    deliver(std::move(data), CStackGauge::ofThisThread());
}

} // namespace Plugin::Halvex
