// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The way of data through a graph: the halves of CNodeBase and CNodeConnection that a walk consists of. They stand in
// one file, in the order in which they call each other, so that a hop from one model to the next becomes one function.

#include "graph/CConnectionSnapshot_p.h"
#include "graph/CGraphOwner_p.h"
#include "graph/CStackGauge_p.h"

#include <utility>

namespace Plugin {
namespace Halvex {

inline void CNodeBase::deliver(CNodeDataPtr&& data, NodePortIndex inPortIndex) const
{
    if (!m_model)
        return;
    if (!CStackGauge::hasRoom(CStackGauge::EFor::Delivery)) {
        dropForLackOfRoom();
        return;
    }
    const CNodeVisit visit(*this);
    m_model->setInData(std::move(data), inPortIndex);
}

inline void CNodeConnection::deliver(CNodeDataPtr&& data) const
{
    const CNodeBase* const node = m_in.node();
    if (!node)
        return;
    if (Q_UNLIKELY(m_converter))
        deliverConverted(std::move(data));
    else
        node->deliver(std::move(data), m_in.indexAtNode());
}

void CNodeConnection::deliverConverted(CNodeDataPtr&& data) const
{
    const CConnectionWatch self(m_id, this);
    // Held for the call alone: if it was replaced meanwhile, what it captured goes before anything else is asked.
    CNodeDataPtr converted = (*CConverterShare(m_converter))(std::move(data));
    const CNodeBase* const node = self.get() ? m_in.node() : nullptr;
    if (node)
        node->deliver(std::move(converted), m_in.indexAtNode());
}

void CNodeBase::deliverToAll(NodePortIndex outIndex, CNodeDataPtr&& data, const CNodeVisit& visit) const
{
    const CNodeState::Connections* const port = m_state.requirePort(ENodePortType::Out, outIndex);
    if (!port || port->empty())
        return;
    const CConnectionSnapshot snapshot(m_state, *port);
    const int last = snapshot.size() - 1;
    for (int position = 0; position <= last && !visit.isOver(); ++position) {
        if (visit.isRoundOfCutLoop())
            return;
        if (const CNodeConnection* const connection = snapshot.at(position))
            connection->deliver(position < last ? CNodeDataPtr(data) : std::move(data));
    }
}

void CNodeBase::onDataUpdated(NodePortIndex index)
{
    if (!m_model)
        return;
    if (Q_UNLIKELY(!CNodeVisit::isFirstAndNear(*this))) {
        update(index);
        return;
    }

    // The model answers a delivery.
    CNodeVisit& delivery = *m_visit;
    const CNodeVisit::CInner inner(delivery);
    CNodeDataPtr data = m_model->outData(index);
    if (!data || delivery.isOver())
        return;
    // Nothing comes before the turn of a single connection that could destroy it, so it needs no watching.
    if (Q_LIKELY(m_state.hasOnlyConnection(index)))
        m_state.onlyConnection().deliver(std::move(data));
    else
        deliverToAll(index, std::move(data), delivery);
}

void CNodeBase::update(NodePortIndex index) const
{
    const CNodeVisit visit(*this);
    // A loop through several paths would be cut once for every sequence of paths, and there are more of those than
    // anybody can wait for. So a cut ends the rounds of the loop; what came before the first round goes on.
    if (visit.isRoundOfCutLoop())
        return;
    // A delivery has asked already, but not an output that announces itself whenever it is asked for.
    if (visit.isRepeated() && !CStackGauge::hasRoom(CStackGauge::EFor::Update)) {
        dropForLackOfRoom();
        return;
    }
    CNodeDataPtr data = m_model->outData(index);
    if (data && !visit.isOver())
        deliverToAll(index, std::move(data), visit);
}

void CNodeBase::propagateData(CNodeDataPtr ptrNodeData, NodePortIndex inPortIndex) const
{
    deliver(std::move(ptrNodeData), inPortIndex);
}

void CNodeConnection::propagateData(CNodeDataPtr data) const
{
    deliver(std::move(data));
}

void CNodeVisit::leave()
{
    if (!m_node)
        return;
    CNodeVisit** place = &m_node->m_visit;
    while (*place != this) // at once, but for visits on the stacks of several coroutines
        place = &(*place)->m_outer;
    *place = m_outer;
    if (m_node->m_isRetired && !m_node->m_visit)
        delete m_node;
}

} // namespace Halvex
} // namespace Plugin
