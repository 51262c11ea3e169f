// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeState.h>

#include "graph/CNodeVisit_p.h"
#include "graph/PortSides_p.h"

#include <Halvex/graph/CNodeConnection.h>
#include <Halvex/graph/CNodeDataModel.h>

#include <QDebug>

#include <algorithm>
#include <limits>
#include <utility>

namespace Plugin::Halvex {
namespace {

int countPorts(const CNodeDataModel& model, ENodePortType side)
{
    const unsigned int ports = model.nPorts(side);
    if (ports > unsigned(std::numeric_limits<int>::max()))
        qBadAlloc();
    return int(ports);
}

} // namespace

template <typename Visitor>
void CNodeState::forEachPlace(ENodePortType side, NodePortIndex port, const Visitor& visitor) const
{
    for (const SPlace& place : rows(side)[port]) {
        if (place.until == staysFilled)
            visitor(*place.connection);
    }
}

template <typename Visitor>
void CNodeState::forEachConnection(ENodePortType side, NodePortIndex port, const Visitor& visitor) const
{
    if (!m_tables) {
        forEachPlace(side, port, visitor);
        return;
    }
    for (const auto& entry : table(side)[std::size_t(port)]) {
        if (entry.second)
            visitor(*entry.second);
    }
}

CNodeState::CNodeState(const std::unique_ptr<CNodeDataModel>& model)
{
    if (!model)
        return;
    const int inPorts = countPorts(*model, ENodePortType::In);
    resizeRows(inPorts, countPorts(*model, ENodePortType::Out));
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
    if (!requirePort(portType, index))
        return {};
    Connections found;
    forEachConnection(portType, index,
                      [&found](CNodeConnection& connection) { found.emplace(connection.id(), &connection); });
    return found;
}

void CNodeState::setConnection(ENodePortType portType, NodePortIndex index, CNodeConnection& connection)
{
    if (!hasPort(portType, index))
        return;
    if (m_tables && !table(portType)[std::size_t(index)].emplace(connection.id(), &connection).second)
        return;
    // It has a place already if a host has taken it out of the table alone.
    if (!connection.findEntry(*this, portType, index))
        addPlace(portType, index, connection);
}

void CNodeState::eraseConnection(ENodePortType portType, NodePortIndex index, const Core::CId& id)
{
    if (!hasPort(portType, index))
        return;
    Connections& port = table(portType)[std::size_t(index)];
    const auto found = port.find(id);
    if (found == port.end())
        return;
    const CNodeConnection* const connection = found->second;
    port.erase(found);
    if (connection)
        takeOut(portType, index, *connection);
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

std::vector<CNodeState::Connections>& CNodeState::table(ENodePortType side) const
{
    if (!m_tables) {
        auto made = std::make_unique<Tables>();
        for (const ENodePortType portSide : portSides) {
            for (NodePortIndex port = 0; hasPort(portSide, port); ++port)
                (*made)[std::size_t(portSide)].push_back(connections(portSide, port));
        }
        m_tables = std::move(made);
    }
    return (*m_tables)[std::size_t(isPortSide(side) ? side : ENodePortType::None)];
}

bool CNodeState::hasPort(ENodePortType side, NodePortIndex index) const
{
    // As an unsigned number, a negative index is beyond the end as well.
    return isPortSide(side) && uint(index) < uint(side == ENodePortType::In ? m_inPorts : m_outPorts);
}

bool CNodeState::requirePort(ENodePortType side, NodePortIndex index) const
{
    const bool isThere = hasPort(side, index);
    if (!isThere) {
        qDebug() << "Plugin::Halvex::CNodeState::connections"
                 << ": Could not find port " << index << " of type " << int(side);
    }
    return isThere;
}

void CNodeState::resizeRows(int inPorts, int outPorts)
{
    m_inPorts = inPorts;
    m_outPorts = outPorts;
    m_readyRows = uint(outPorts);
    // No row is taken away: a walk may stand in it.
    if (m_inRows.size() < inPorts)
        m_inRows.resize(inPorts);
    if (m_outRows.size() < outPorts)
        m_outRows.resize(outPorts);
}

void CNodeState::addPlace(ENodePortType side, NodePortIndex port, CNodeConnection& connection)
{
    static_assert(sizeof(SPlace) <= 16, "four to a line of the cache");
    Q_ASSERT(!connection.findEntry(*this, side, port));
    auto& places = rows(side)[port];
    connection.m_entries.append({this, side, port, places.size()});
    places.append({&connection, staysFilled});
}

void CNodeState::takeOut(ENodePortType side, NodePortIndex port, const CNodeConnection& connection)
{
    if (m_tables && hasPort(side, port))
        table(side)[std::size_t(port)].erase(connection.id());
    if (const SEntry* const entry = connection.findEntry(*this, side, port))
        givePlaceUp(*entry);
}

void CNodeState::givePlaceUp(SEntry entry)
{
    SPlace& place = rows(entry.side)[entry.port][entry.position];
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
    Q_ASSERT(!m_visit); // a walk would miss what moves
    auto& places = rows(side)[port];
    const SPlace moved = places.last();
    places.removeLast();
    if (position == places.size())
        return;
    places[position] = moved;
    moved.connection->moveEntry({this, side, port, places.size()}, position);
}

CNodeState::Ids CNodeState::connectionIds() const
{
    Ids ids;
    const auto append = [&ids](const CNodeConnection& connection) { ids.append(connection.id()); };
    for (const ENodePortType side : portSides) {
        for (NodePortIndex port = 0; hasPort(side, port); ++port)
            forEachConnection(side, port, append);
    }
    return ids;
}

bool CNodeState::isFilled(const SEntry& entry) const
{
    return rows(entry.side)[entry.port][entry.position].until == staysFilled;
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
    Q_ASSERT(m_visit); // so that no place moves
    const Connections& port = table(ENodePortType::Out)[std::size_t(outPort)];
    Row& row = m_outRows[outPort];
    for (int position = 0; position < row.size(); ++position) {
        if (row[position].until != staysFilled)
            continue;
        const auto found = port.find(row[position].connection->id());
        if (found == port.end() || found->second != row[position].connection)
            givePlaceUp({this, ENodePortType::Out, outPort, position});
    }
    for (const auto& entry : port) {
        if (entry.second && !entry.second->findEntry(*this, ENodePortType::Out, outPort))
            addPlace(ENodePortType::Out, outPort, *entry.second);
    }
}

void CNodeState::copyFrom(const CNodeState& other)
{
    resizeRows(other.m_inPorts, other.m_outPorts);
    m_readyRows = other.m_readyRows;
    if (other.m_tables)
        m_tables = std::make_unique<Tables>(*other.m_tables);
    for (const ENodePortType side : portSides) {
        for (NodePortIndex port = 0; port < other.rows(side).size(); ++port)
            other.forEachPlace(side, port, [&](CNodeConnection& connection) { addPlace(side, port, connection); });
    }
}

void CNodeState::clear()
{
    resizeRows(0, 0);
    m_tables.reset();
    ++m_lastChange;
    for (const ENodePortType side : portSides) {
        for (Row& row : rows(side)) {
            for (SPlace& place : row)
                place.until = std::min(place.until, m_lastChange);
        }
    }
    if (m_visit)
        CNodeVisit::leaveUntidy(*this);
    else
        tidy();
}

void CNodeState::forgetConnection(const SEntry& entry, const CNodeConnection& connection)
{
    if (m_tables && hasPort(entry.side, entry.port)) {
        Connections& port = table(entry.side)[std::size_t(entry.port)];
        const auto found = port.find(connection.id());
        if (found != port.end() && found->second == &connection)
            port.erase(found);
    }
    if (m_visit) {
        rows(entry.side)[entry.port][entry.position] = {nullptr, 0};
        CNodeVisit::leaveUntidy(*this);
    } else {
        removePlace(entry.side, entry.port, entry.position);
    }
}

void CNodeState::tidy()
{
    m_lastChange = 0;
    for (const ENodePortType side : portSides) {
        for (NodePortIndex port = 0; port < rows(side).size(); ++port)
            tidyRow(side, port);
    }
}

void CNodeState::tidyRow(ENodePortType side, NodePortIndex port)
{
    // From the end, so that the place that fills a gap is one that stays.
    for (int position = rows(side)[port].size() - 1; position >= 0; --position) {
        const SPlace place = rows(side)[port][position];
        if (place.until == staysFilled)
            continue;
        if (place.connection)
            place.connection->dropEntry({this, side, port, position});
        removePlace(side, port, position);
    }
}

} // namespace Plugin::Halvex
