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

namespace Plugin {
namespace Halvex {
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
    for (const SPlace& place : rows(side)[port].places) {
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
    for (const auto& entry : m_tables->of(side)[std::size_t(port)]) {
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
    if (!hasPort(portType, index) || connection.findEntry(*this, portType, index))
        return;
    if (!m_tables || m_tables->of(portType)[std::size_t(index)].emplace(connection.id(), &connection).second)
        addPlace(portType, index, connection);
}

void CNodeState::eraseConnection(ENodePortType portType, NodePortIndex index, const Core::CId& id)
{
    if (!hasPort(portType, index))
        return;
    Connections& port = tables().of(portType)[std::size_t(index)];
    const auto found = port.find(id);
    if (found == port.end())
        return;
    if (found->second)
        takeOut(portType, index, *found->second);
    else
        port.erase(found);
}

std::vector<CNodeState::Connections>& CNodeState::getEntries(ENodePortType portType)
{
    m_readyRows = 0; // whoever takes this reference may write at any later time
    return tables().of(portType);
}

const std::vector<CNodeState::Connections>& CNodeState::getEntries(ENodePortType portType) const
{
    return tables().of(portType);
}

std::vector<CNodeState::Connections>& CNodeState::STables::of(ENodePortType side)
{
    switch (side) {
    case ENodePortType::In:
        return in;
    case ENodePortType::Out:
        return out;
    case ENodePortType::None:
        break;
    }
    return none;
}

CNodeState::STables& CNodeState::tables() const
{
    if (m_tables)
        return *m_tables;
    auto made = std::make_unique<STables>();
    made->in.reserve(std::size_t(m_inPorts));
    made->out.reserve(std::size_t(m_outPorts));
    for (NodePortIndex port = 0; port < m_inPorts; ++port)
        made->in.push_back(connections(ENodePortType::In, port));
    for (NodePortIndex port = 0; port < m_outPorts; ++port)
        made->out.push_back(connections(ENodePortType::Out, port));
    m_tables = std::move(made);
    return *m_tables;
}

bool CNodeState::hasPort(ENodePortType side, NodePortIndex index) const
{
    // As an unsigned number, a negative index is beyond the end as well.
    switch (side) {
    case ENodePortType::In:
        return uint(index) < uint(m_inPorts);
    case ENodePortType::Out:
        return uint(index) < uint(m_outPorts);
    case ENodePortType::None:
        break;
    }
    return false;
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
    m_inRows.resize(std::max(m_inRows.size(), inPorts));
    m_outRows.resize(std::max(m_outRows.size(), outPorts));
}

void CNodeState::addPlace(ENodePortType side, NodePortIndex port, CNodeConnection& connection)
{
    auto& places = rows(side)[port].places;
    connection.m_entries.append({this, side, port, places.size()});
    places.append({&connection, staysFilled});
}

void CNodeState::takeOut(ENodePortType side, NodePortIndex port, const CNodeConnection& connection)
{
    if (m_tables && hasPort(side, port))
        m_tables->of(side)[std::size_t(port)].erase(connection.id());
    if (const SEntry* const entry = connection.findEntry(*this, side, port))
        givePlaceUp(*entry);
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

CNodeState::Ids CNodeState::connectionIds() const
{
    Ids ids;
    const auto append = [&ids](const CNodeConnection& connection) { ids.append(connection.id()); };
    for (NodePortIndex port = 0; port < m_inPorts; ++port)
        forEachConnection(ENodePortType::In, port, append);
    for (NodePortIndex port = 0; port < m_outPorts; ++port)
        forEachConnection(ENodePortType::Out, port, append);
    return ids;
}

bool CNodeState::isFilled(const SEntry& entry) const
{
    return rows(entry.side)[entry.port].places[entry.position].until == staysFilled;
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
    const Connections& port = tables().out[std::size_t(outPort)];
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
    resizeRows(other.m_inPorts, other.m_outPorts);
    m_readyRows = other.m_readyRows;
    if (other.m_tables)
        m_tables = std::make_unique<STables>(*other.m_tables);
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

void CNodeState::forgetConnection(const SEntry& entry, const CNodeConnection& connection)
{
    if (m_tables && hasPort(entry.side, entry.port)) {
        Connections& port = m_tables->of(entry.side)[std::size_t(entry.port)];
        const auto found = port.find(connection.id());
        if (found != port.end() && found->second == &connection)
            port.erase(found);
    }
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
    for (const ENodePortType side : portSides) {
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

} // namespace Halvex
} // namespace Plugin
