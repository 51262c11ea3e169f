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

template <typename DataPtr>
inline void CNodeBase::deliver(DataPtr&& data, NodePortIndex inPortIndex) const
{
    if (!m_model)
        return;
    if (!CStackGauge::hasRoom(CStackGauge::EFor::Delivery)) {
        dropForLackOfRoom();
        return;
    }
    const CNodeVisit visit(*this);
    m_model->setInData(std::forward<DataPtr>(data), inPortIndex);
}

template <typename DataPtr>
inline void CNodeConnection::deliverConverted(DataPtr&& data) const
{
    const CConnectionWatch watch;
    // Held for the call alone: if it was replaced meanwhile, what it captured goes before anything else is asked.
    CNodeDataPtr converted = (*CConverterShare(m_converter))(std::forward<DataPtr>(data));
    const CNodeBase* const node = watch.isThere(this) ? m_in.node() : nullptr;
    if (node)
        node->deliver(std::move(converted), m_in.indexAtNode());
}

template <typename DataPtr>
inline void CNodeConnection::deliver(DataPtr&& data) const
{
    const CNodeBase* const node = m_in.node();
    if (!node)
        return;
    if (m_converter)
        deliverConverted(std::forward<DataPtr>(data));
    else
        node->deliver(std::forward<DataPtr>(data), m_in.indexAtNode());
}

void CNodeBase::deliverToAll(const CNodeState::Connections& port, CNodeDataPtr&& data, const CNodeVisit& visit) const
{
    const CConnectionSnapshot snapshot(m_state, port);
    const int last = snapshot.size() - 1;
    for (int position = 0; !visit.isOver() && !visit.isRoundOfCutLoop(); ++position) {
        const CNodeConnection* const connection = snapshot.at(position);
        if (position == last) {
            if (connection)
                connection->deliver(std::move(data));
            return;
        }
        if (connection)
            connection->deliver(data);
    }
}

inline void CNodeBase::deliverToPort(NodePortIndex outIndex, CNodeDataPtr&& data, const CNodeVisit& visit) const
{
    // Nothing comes before the turn of a single connection that could destroy it, so it needs no watching.
    if (const CNodeConnection* const only = m_state.onlyConnection(outIndex)) {
        only->deliver(std::move(data));
    } else if (!m_state.isUnconnected(outIndex)) {
        const CNodeState::Connections* const port = m_state.requireOutPort(outIndex);
        if (port && !port->empty())
            deliverToAll(*port, std::move(data), visit);
    }
}

void CNodeBase::onDataUpdated(NodePortIndex index)
{
    if (Q_UNLIKELY(!CNodeVisit::isFirstAndNear(*this))) {
        update(index);
        return;
    }

    // The model answers a delivery. So there is one: nothing foreign runs in a visit of a node without a model, which
    // is one that is being destroyed.
    CNodeVisit& delivery = *m_visit;
    const CNodeVisit::CInner inner(delivery);
    CNodeDataPtr data = m_model->outData(index);
    if (data && !delivery.isOver())
        deliverToPort(index, std::move(data), delivery);
}

void CNodeBase::update(NodePortIndex index) const
{
    if (!m_model)
        return;
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
        deliverToPort(index, std::move(data), visit);
}

void CNodeBase::propagateData(CNodeDataPtr ptrNodeData, NodePortIndex inPortIndex) const
{
    deliver(std::move(ptrNodeData), inPortIndex);
}

void CNodeConnection::propagateData(CNodeDataPtr data) const
{
    deliver(std::move(data));
}

bool CNodeVisit::hasManyStretches() const
{
    int stretches = 0;
    for (const CNodeVisit* visit = this; visit; visit = visit->m_outer) {
        stretches += visit->m_hasInner ? 2 : 1;
        if (stretches > 2)
            return true;
    }
    return false;
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
