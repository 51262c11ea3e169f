// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CNodeState.h"

#include "graph/CLiveObjects_p.h"
#include "graph/CNodeConnection.h"
#include "graph/CNodeDataModel.h"

#include <QDebug>

#include <utility>

namespace Plugin {
namespace Halvex {
namespace {

// A port's table keeps that many connections in the one bucket that it has without asking for memory; most ports never
// have more than one.
constexpr std::size_t fewConnections = 12;

} // namespace

CNodeState::CNodeState(const std::unique_ptr<CNodeDataModel>& model)
    : m_in(model ? model->nPorts(ENodePortType::In) : 0)
    , m_out(model ? model->nPorts(ENodePortType::Out) : 0)
{
}

CNodeState::CNodeState(const CNodeState&) = default;
CNodeState::CNodeState(CNodeState&&) noexcept = default;
CNodeState& CNodeState::operator=(const CNodeState&) = default;
CNodeState& CNodeState::operator=(CNodeState&&) noexcept = default;
CNodeState::~CNodeState() = default;

CNodeState::Connections CNodeState::connections(ENodePortType portType, NodePortIndex index) const
{
    const Connections* const port = requirePort(portType, index);
    if (!port)
        return {};
    if (!m_mayHoldDead.value)
        return *port;

    Connections existing;
    for (const auto& entry : *port) {
        if (exists(entry.first, entry.second))
            existing.insert(entry);
    }
    return existing;
}

void CNodeState::setConnection(ENodePortType portType, NodePortIndex index, CNodeConnection& connection)
{
    if (!findPort(portType, index))
        return;
    auto& ports = portType == ENodePortType::In ? m_in : m_out;
    Connections& port = ports[std::size_t(index)];
    if (port.empty())
        port.max_load_factor(fewConnections);
    else if (port.size() == fewConnections)
        port.max_load_factor(1);
    port.emplace(connection.id(), &connection);
    if (!connection.leaves(portType, index, *this))
        expectDeadEntries();
}

void CNodeState::eraseConnection(ENodePortType portType, NodePortIndex index, const Core::CId& id)
{
    if (!findPort(portType, index))
        return;
    auto& ports = portType == ENodePortType::In ? m_in : m_out;
    ports[std::size_t(index)].erase(id);
}

std::vector<CNodeState::Connections>& CNodeState::getEntries(ENodePortType portType)
{
    expectDeadEntries(); // whoever takes this reference may enter whatever he likes, at any later time
    return const_cast<std::vector<Connections>&>(std::as_const(*this).getEntries(portType));
}

const std::vector<CNodeState::Connections>& CNodeState::getEntries(ENodePortType portType) const
{
    switch (portType) {
    case ENodePortType::In:
        return m_in;
    case ENodePortType::Out:
        return m_out;
    case ENodePortType::None:
        break;
    }
    return m_none;
}

const CNodeState::Connections* CNodeState::findPort(ENodePortType portType, NodePortIndex index) const
{
    const auto& ports = getEntries(portType);
    // As an unsigned number, a negative index is beyond the end as well.
    return quint64(index) < ports.size() ? &ports[std::size_t(index)] : nullptr;
}

const CNodeState::Connections* CNodeState::requirePort(ENodePortType portType, NodePortIndex index) const
{
    const Connections* const port = findPort(portType, index);
    if (!port) {
        qDebug() << "Plugin::Halvex::CNodeState::connections"
                 << ": Could not find port " << index << " of type " << int(portType);
    }
    return port;
}

bool CNodeState::holds(ENodePortType portType, NodePortIndex index, const Core::CId& id) const
{
    const Connections* const port = findPort(portType, index);
    return port && port->count(id) != 0;
}

bool CNodeState::exists(const Core::CId& id, const CNodeConnection* connection)
{
    return CLiveObjects::contains(connection, CLiveObjects::EKind::Connection) && connection->id() == id;
}

void CNodeState::clear()
{
    m_in.clear();
    m_out.clear();
}

} // namespace Halvex
} // namespace Plugin
