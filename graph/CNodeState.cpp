// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CNodeState.h"

#include "graph/CNodeConnection.h"
#include "graph/CNodeDataModel.h"
#include "graph/CNodeVisit_p.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace Plugin {
namespace Halvex {
namespace {

// A port's table keeps that many connections in the one bucket that it has without asking for memory; most ports never
// have more than one.
constexpr std::size_t fewConnections = 12;

constexpr ENodePortType bothSides[] = {ENodePortType::In, ENodePortType::Out};

} // namespace

CNodeState::CNodeState(const std::unique_ptr<CNodeDataModel>& model)
    : m_in(model ? model->nPorts(ENodePortType::In) : 0)
    , m_out(model ? model->nPorts(ENodePortType::Out) : 0)
{
    m_inRows.resize(int(m_in.size()));
    m_outRows.resize(int(m_out.size()));
    m_readyRows = uint(m_out.size());
}

CNodeState::CNodeState(const CNodeState& other)
{
    copyFrom(other);
}

CNodeState::CNodeState(CNodeState&& other) noexcept
{
    copyFrom(other);
    other.clear();
}

CNodeState& CNodeState::operator=(const CNodeState& other)
{
    if (this == &other)
        return *this;
    clear();
    copyFrom(other);
    return *this;
}

CNodeState& CNodeState::operator=(CNodeState&& other) noexcept
{
    if (this == &other)
        return *this;
    clear();
    copyFrom(other);
    other.clear();
    return *this;
}

CNodeState::~CNodeState()
{
    Q_ASSERT(!m_visit);
    clear();
}

CNodeState::Connections CNodeState::connections(ENodePortType portType, NodePortIndex index) const
{
    const Connections* const port = requirePort(portType, index);
    return port ? *port : Connections();
}

void CNodeState::setConnection(ENodePortType portType, NodePortIndex index, CNodeConnection& connection)
{
    if (!findPort(portType, index))
        return;
    Connections& port = table(portType)[std::size_t(index)];
    if (port.empty())
        port.max_load_factor(fewConnections);
    else if (port.size() == fewConnections)
        port.max_load_factor(1);
    if (port.emplace(connection.id(), &connection).second)
        addPlace(portType, index, connection);
}

void CNodeState::eraseConnection(ENodePortType portType, NodePortIndex index, const Core::CId& id)
{
    if (!findPort(portType, index))
        return;
    Connections& port = table(portType)[std::size_t(index)];
    const auto found = port.find(id);
    if (found == port.end())
        return;
    CNodeConnection* const connection = found->second;
    port.erase(found);
    if (const SEntry* const entry = connection ? connection->findEntry(*this, portType, index) : nullptr)
        givePlaceUp(*entry);
}

std::vector<CNodeState::Connections>& CNodeState::getEntries(ENodePortType portType)
{
    m_readyRows = 0; // whoever takes this reference may write at any later time
    return table(portType);
}

const std::vector<CNodeState::Connections>& CNodeState::getEntries(ENodePortType portType) const
{
    return table(portType);
}

const std::vector<CNodeState::Connections>& CNodeState::table(ENodePortType side) const
{
    switch (side) {
    case ENodePortType::In:
        return m_in;
    case ENodePortType::Out:
        return m_out;
    case ENodePortType::None:
        break;
    }
    return m_none;
}

std::vector<CNodeState::Connections>& CNodeState::table(ENodePortType side)
{
    return const_cast<std::vector<Connections>&>(std::as_const(*this).table(side));
}

const CNodeState::Connections* CNodeState::findPort(ENodePortType portType, NodePortIndex index) const
{
    const auto& ports = table(portType);
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

void CNodeState::addPlace(ENodePortType side, NodePortIndex port, CNodeConnection& connection)
{
    auto& places = rows(side)[port].places;
    connection.m_entries.append({this, side, port, places.size()});
    places.append({&connection, staysFilled});
}

void CNodeState::givePlaceUp(SEntry entry)
{
    SPlace& place = rows(entry.side)[entry.port].places[entry.position];
    if (m_visit) {
        place.until = ++m_lastChange;
        CNodeVisit::leaveUntidy(*this);
        return;
    }
    place.connection->dropEntry(entry);
    removePlace(entry.side, entry.port, entry.position);
}

void CNodeState::removePlace(ENodePortType side, NodePortIndex port, int position)
{
    auto& places = rows(side)[port].places;
    const SPlace moved = places.last();
    places.removeLast();
    if (position == places.size())
        return;
    places[position] = moved;
    moved.connection->moveEntry({this, side, port, places.size()}, position);
}

bool CNodeState::isFilled(const SEntry& entry) const
{
    return rows(entry.side)[entry.port].places[entry.position].until == staysFilled;
}

void CNodeState::forgetConnection(const SEntry& entry, const CNodeConnection& connection)
{
    Connections& port = table(entry.side)[std::size_t(entry.port)];
    const auto found = port.find(connection.id());
    if (found != port.end() && found->second == &connection)
        port.erase(found);
    if (m_visit) {
        rows(entry.side)[entry.port].places[entry.position] = {nullptr, 0};
        CNodeVisit::leaveUntidy(*this);
    } else {
        removePlace(entry.side, entry.port, entry.position);
    }
}

void CNodeState::tidy()
{
    m_lastChange = 0;
    for (const ENodePortType side : bothSides) {
        for (NodePortIndex port = 0; port < rows(side).size(); ++port)
            tidyRow(side, port);
    }
}

void CNodeState::tidyRow(ENodePortType side, NodePortIndex port)
{
    // From the end, so that the place that fills a gap is one that stays.
    for (int position = rows(side)[port].places.size() - 1; position >= 0; --position) {
        const SPlace place = rows(side)[port].places[position];
        if (place.until == staysFilled)
            continue;
        if (place.connection)
            place.connection->dropEntry({this, side, port, position});
        removePlace(side, port, position);
    }
}

bool CNodeState::prepareRow(NodePortIndex outPort)
{
    if (!requirePort(ENodePortType::Out, outPort))
        return false;
    readTable(outPort);
    return true;
}

void CNodeState::readTable(NodePortIndex outPort)
{
    const Connections& port = m_out[std::size_t(outPort)];
    const auto before = m_outRows[outPort].places;
    for (const SPlace& place : before) {
        if (place.until != staysFilled)
            continue;
        const auto found = port.find(place.connection->id());
        if (found == port.end() || found->second != place.connection)
            givePlaceUp(*place.connection->findEntry(*this, ENodePortType::Out, outPort));
    }
    for (const auto& entry : port) {
        if (entry.second && !entry.second->findEntry(*this, ENodePortType::Out, outPort))
            addPlace(ENodePortType::Out, outPort, *entry.second);
    }
}

void CNodeState::copyFrom(const CNodeState& other)
{
    m_in = other.m_in;
    m_out = other.m_out;
    m_readyRows = other.m_readyRows;
    for (const ENodePortType side : bothSides) {
        const Rows& from = other.rows(side);
        // Rows are never taken away: a walk may stand in them.
        rows(side).resize(std::max(rows(side).size(), from.size()));
        for (NodePortIndex port = 0; port < from.size(); ++port) {
            for (const SPlace& place : from[port].places) {
                if (place.until == staysFilled)
                    addPlace(side, port, *place.connection);
            }
        }
    }
}

void CNodeState::clear()
{
    m_in.clear();
    m_out.clear();
    m_readyRows = 0;
    ++m_lastChange;
    for (const ENodePortType side : bothSides) {
        for (SRow& row : rows(side)) {
            for (SPlace& place : row.places)
                place.until = std::min(place.until, m_lastChange);
        }
    }
    if (m_visit)
        CNodeVisit::leaveUntidy(*this);
    else
        tidy();
}

} // namespace Halvex
} // namespace Plugin
