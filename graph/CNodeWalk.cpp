// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The way of data through a graph: the halves of CNodeBase and CNodeConnection that a walk consists of. They stand in
// one file, in the order in which they call each other, so that a hop from one model to the next becomes one function.

#include "graph/CConversion_p.h"
#include "graph/CNodeBase.h"
#include "graph/CNodeConnection.h"
#include "graph/CNodeVisit_p.h"
#include "graph/support/LoggingCategory_p.h"

#include <utility>

namespace Plugin {
namespace Halvex {

template <typename DataPtr>
Q_ALWAYS_INLINE void CNodeBase::deliver(DataPtr&& data, NodePortIndex inPortIndex, CStackGauge& gauge) const
{
    if (!m_model)
        return;
    const CNodeVisit visit(*this, gauge);
    if (Q_UNLIKELY(visit.isLoop() || visit.isTooDeep()))
        dropData(visit);
    else
        m_model->setInData(std::forward<DataPtr>(data), inPortIndex);
}

void CNodeConnection::deliverConverted(CNodeDataPtr data, CStackGauge& gauge) const
{
    CConversion conversion(*this);
    CNodeDataPtr converted = conversion.convert(std::move(data));
    if (conversion.isConnectionThere() && m_in.node)
        m_in.node->deliver(std::move(converted), m_in.index, gauge);
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

inline void CNodeBase::deliverToPort(NodePortIndex outIndex, CNodeDataPtr&& data, const CNodeVisit& visit)
{
    if (Q_UNLIKELY(uint(outIndex) >= uint(m_state.m_outRows.size()))) {
        m_state.requirePort(ENodePortType::Out, outIndex);
        return;
    }
    if (Q_UNLIKELY(m_state.m_isWritable))
        m_state.readWrittenTable(outIndex);

    // Those that the row has now: one that is added comes behind, one that is taken out keeps its place for us.
    const quint64 start = m_state.m_lastChange;
    const int last = m_state.m_outRows[outIndex].places.size() - 1;
    for (int position = 0; position <= last; ++position) {
        const CNodeState::SPlace& place = m_state.m_outRows[outIndex].places[position];
        if (place.until <= start)
            continue;
        if (position == last) {
            place.connection->deliver(std::move(data), visit.gauge());
            return;
        }
        place.connection->deliver(data, visit.gauge());
        if (!visit.mayGoOn())
            return;
    }
}

void CNodeBase::onDataUpdated(NodePortIndex index)
{
    CNodeVisit* const visit = m_state.m_visit;
    if (Q_UNLIKELY(!visit || visit->isWalking())) {
        updateAlone(index);
        return;
    }
    // The model answers a delivery, and the walk belongs to that visit.
    if (!visit->mayGoOn())
        return;
    const CNodeVisit::CWalk walk(*visit);
    CNodeDataPtr data = m_model->outData(index);
    if (data && visit->mayGoOn())
        deliverToPort(index, std::move(data), *visit);
}

void CNodeBase::updateAlone(NodePortIndex index)
{
    if (!m_model)
        return;
    const CNodeVisit visit(*this);
    if (visit.isLoop()) // an output that announces itself whenever it is asked for
        dropData(visit);
    else
        onDataUpdated(index);
}

void CNodeBase::propagateData(CNodeDataPtr ptrNodeData, NodePortIndex inPortIndex) const
{
    deliver(std::move(ptrNodeData), inPortIndex, CStackGauge::ofThisThread());
}

void CNodeBase::dropData(const CNodeVisit& visit) const
{
    visit.countDrop();
    if (std::exchange(m_hasWarned, true))
        return;
    const QByteArray model = m_model->name().toUtf8();
    if (visit.isLoop())
        qCWarning(lcGraph, "Data for the model \"%s\" is dropped: a feedback loop has come back to it %d times.",
                  model.constData(), CNodeVisit::mostRounds);
    else
        qCWarning(lcGraph, "Data for the model \"%s\" is dropped: the stack has no room for a chain this long.",
                  model.constData());
}

void CNodeConnection::propagateData(CNodeDataPtr data) const
{
    deliver(std::move(data), CStackGauge::ofThisThread());
}

} // namespace Halvex
} // namespace Plugin
