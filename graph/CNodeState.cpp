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
    // Survives exchanged operator: a model with that many ports needs 64 GiB for its rows.
    if (ports > unsigned(std::numeric_limits<int>::max()))
        qBadAlloc();
    return int(ports);
}

} // namespace

/// The tables first: a host may have written into them.
template <typename Visitor>
void CNodeState::forEachConnection(ENodePortType side, NodePortIndex port, const Visitor& visitor) const
{
    if (m_tables) {
        for (const auto& entry : table(side)[std::size_t(port)]) {
            if (entry.second)
                visitor(*entry.second);
        }
        return;
    }
    for (const SPlace& place : rows(side)[port]) {
        if (place.until == staysFilled)
            visitor(*place.connection);
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

// NOLINTNEXTLINE(performance-unnecessary-value-param): clear() would empty what is assigned, if it is this very table
CNodeState& CNodeState::operator=(CNodeState other) noexcept
{
    clear();
    copyFrom(other);
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
        // Survives removed statement: what is not in the table the next walk takes out of the row.
        return;
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
    if (hasPort(side, index))
        return true;
    qDebug() << "Plugin::Halvex::CNodeState::connections"
             << ": Could not find port " << index << " of type " << int(side);
    return false;
}

void CNodeState::resizeRows(int inPorts, int outPorts)
{
    m_inPorts = inPorts;
    m_outPorts = outPorts;
    m_readyRows = uint(outPorts);
    // No row is taken away: a walk may stand in it.
    // Survives exchanged operator: to resize to the same size changes nothing.
    if (m_inRows.size() < inPorts)
        m_inRows.resize(inPorts);
    // Survives exchanged operator: to resize to the same size changes nothing.
    if (m_outRows.size() < outPorts)
        m_outRows.resize(outPorts);
}

void CNodeState::addPlace(ENodePortType side, NodePortIndex port, CNodeConnection& connection)
{
    static_assert(sizeof(SPlace) <= 16, "four to a line of the cache");
    if (connection.findEntry(*this, side, port))
        return; // a host may have taken it out of the table alone, or written it there twice
    Row& row = rows(side)[port];
    connection.m_entries.append({this, side, port, int(row.size())});
    row.append({&connection, staysFilled});
}

void CNodeState::takeOut(ENodePortType side, NodePortIndex port, const CNodeConnection& connection)
{
    if (m_tables && hasPort(side, port))
        table(side)[std::size_t(port)].erase(connection.id());
    if (const SEntry* const entry = connection.findEntry(*this, side, port))
        givePlaceUp(*entry, {place(*entry).connection, ++m_lastChange});
}

void CNodeState::givePlaceUp(const SEntry& entry, SPlace left)
{
    place(entry) = left;
    if (m_visit)
        CNodeVisit::leaveUntidy(*this);
    else
        removePlace(entry);
}

void CNodeState::removePlace(SEntry entry)
{
    Q_ASSERT(!m_visit); // a walk would miss what moves
    if (CNodeConnection* const connection = place(entry).connection)
        connection->m_entries.remove(connection->m_entries.indexOf(entry));
    Row& row = rows(entry.side)[entry.port];
    const SPlace moved = row.last();
    row.removeLast();
    if (entry.position == row.size())
        return;
    // Survives exchanged neighbours: what is moved names its connection in both places.
    place(entry) = moved;
    auto& entries = moved.connection->m_entries;
    entries[entries.indexOf({this, entry.side, entry.port, int(row.size())})].position = entry.position;
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

bool CNodeState::prepareRow(NodePortIndex outPort)
{
    Q_ASSERT(m_visit); // so that no place moves
    if (!requirePort(ENodePortType::Out, outPort))
        return false;
    const Connections& port = table(ENodePortType::Out)[std::size_t(outPort)];
    const Row& row = m_outRows[outPort];
    for (int position = 0; position < row.size(); ++position) {
        const SPlace& place = row[position];
        if (place.until != staysFilled)
            continue;
        const auto found = port.find(place.connection->id());
        if (found == port.end() || found->second != place.connection)
            givePlaceUp({this, ENodePortType::Out, outPort, position}, {place.connection, ++m_lastChange});
    }
    for (const auto& entry : port) {
        if (entry.second)
            addPlace(ENodePortType::Out, outPort, *entry.second);
    }
    return true;
}

void CNodeState::copyFrom(const CNodeState& other)
{
    resizeRows(other.m_inPorts, other.m_outPorts);
    if (other.m_tables)
        m_tables = std::make_unique<Tables>(*other.m_tables);
    for (const ENodePortType side : portSides) {
        for (NodePortIndex port = 0; hasPort(side, port); ++port)
            other.forEachConnection(side, port, [&](CNodeConnection& connection) { addPlace(side, port, connection); });
    }
}

void CNodeState::clear()
{
    // Survives exchanged neighbours: none of the three sees what the others change.
    resizeRows(0, 0);
    // Survives exchanged neighbours: the same.
    m_tables.reset();
    ++m_lastChange;
    for (const ENodePortType side : portSides) {
        for (Row& row : rows(side)) {
            for (SPlace& place : row)
                // Survives swapped arguments: it is the smaller one of two.
                place.until = std::min(place.until, m_lastChange);
        }
    }
    if (m_visit)
        CNodeVisit::leaveUntidy(*this);
    else
        tidy();
}

void CNodeState::forgetConnection(const SEntry& entry, const Core::CId& id)
{
    if (m_tables && hasPort(entry.side, entry.port))
        table(entry.side)[std::size_t(entry.port)].erase(id);
    givePlaceUp(entry, {nullptr, 0});
}

void CNodeState::tidy()
{
    for (const ENodePortType side : portSides) {
        for (NodePortIndex port = 0; port < rows(side).size(); ++port) {
            // From the end, so that the place that fills a gap is one that stays.
            for (int position = int(rows(side)[port].size()) - 1; position >= 0; --position) {
                if (rows(side)[port][position].until != staysFilled)
                    removePlace({this, side, port, position});
            }
        }
    }
}

} // namespace Plugin::Halvex
