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
    readFirstOut();
}

CNodeState::CNodeState(const CNodeState& other)
    : m_mayHoldDead(true)
    , m_in(other.m_in)
    , m_out(other.m_out)
{
}

CNodeState::CNodeState(CNodeState&& other) noexcept
{
    *this = std::move(other);
}

CNodeState& CNodeState::operator=(const CNodeState& other)
{
    return *this = CNodeState(other);
}

CNodeState& CNodeState::operator=(CNodeState&& other) noexcept
{
    m_in = std::move(other.m_in);
    m_out = std::move(other.m_out);
    expectDeadEntries();
    other.expectDeadEntries();
    return *this;
}

CNodeState::~CNodeState() = default;

CNodeState::Connections CNodeState::connections(ENodePortType portType, NodePortIndex index) const
{
    const Connections* const port = requirePort(portType, index);
    if (!port)
        return {};
    if (!m_mayHoldDead)
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
    readFirstOut();
}

void CNodeState::eraseConnection(ENodePortType portType, NodePortIndex index, const Core::CId& id)
{
    if (!findPort(portType, index))
        return;
    auto& ports = portType == ENodePortType::In ? m_in : m_out;
    ports[std::size_t(index)].erase(id);
    readFirstOut();
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

void CNodeState::readFirstOut()
{
    const bool isKnown = !m_mayHoldDead && !m_out.empty();
    m_isFirstOutEmpty = isKnown && m_out.front().empty();
    m_onlyOfFirstOut = isKnown && m_out.front().size() == 1 ? m_out.front().begin()->second : nullptr;
}

bool CNodeState::holds(ENodePortType portType, NodePortIndex index, const Core::CId& id) const
{
    const Connections* const port = findPort(portType, index);
    return port && port->count(id) != 0;
}

void CNodeState::expectDeadEntries()
{
    m_mayHoldDead = true;
    readFirstOut();
}

bool CNodeState::exists(const Core::CId& id, const CNodeConnection* connection)
{
    return CLiveObjects::contains(connection, CLiveObjects::EKind::Connection, [&] { return connection->id() == id; });
}

void CNodeState::clear()
{
    m_in.clear();
    m_out.clear();
    readFirstOut();
}

} // namespace Halvex
} // namespace Plugin
