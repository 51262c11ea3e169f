// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/ENodePortType.h>
#include <Halvex/graph/NodePortIndex.h>
#include <Halvex/platform/CId.h>

#include <QVarLengthArray>
#include <QtGlobal>

#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

namespace Plugin::Halvex {

class CNodeConnection;
class CNodeDataModel;
class CNodeVisit;

/**
 * A node's table of the connections attached to each of its ports.
 *
 * \code
 * for (const auto& entry : node.nodeState().connections(ENodePortType::Out, 0))
 *     qDebug() << entry.second->id().toString();
 * \endcode
 *
 * The scene enters a connection into the tables of both of its nodes; a connection takes itself out of the tables of
 * its ends when the scene deletes it, and at the latest when it is destroyed.
 *
 * Ownership: connections are referred to, not owned. A connection that is destroyed leaves every table that it was
 * entered into, copied tables too; the pointers that connections() and getEntries() hand out are good until then. What
 * a host writes into the modifiable getEntries() is used as it is: that those connections exist is up to the host.
 *
 * Port types: In selects the input ports, Out the output ports, anything else a third list that is always empty.
 *
 * Threads: the graph's thread. Entries may be added and erased while a walk reads the table.
 */
class HALVEX_EXPORT CNodeState
{
public:
    /// The connections of one port, by their id. At most one entry per connection; the order means nothing.
    using Connections = std::unordered_map<Core::CId, CNodeConnection*>;

    /// As many ports as \a model has now; none for a null model.
    explicit CNodeState(const std::unique_ptr<CNodeDataModel>& model);
    /// The same connections in a table of its own.
    CNodeState(const CNodeState&);
    /// Takes the table over; the other one has no ports then.
    CNodeState(CNodeState&&) noexcept;
    /// Lets go of its own table first.
    CNodeState& operator=(CNodeState) noexcept;
    ~CNodeState();

    /// A copy of one port's connections. For a port that does not exist: empty, and a debug message says which.
    Connections connections(ENodePortType portType, NodePortIndex index) const;

    /// Enters \a connection under its id; an entry that is there already stays as it is. The port must exist; one
    /// that does not is ignored.
    void setConnection(ENodePortType portType, NodePortIndex index, CNodeConnection& connection);

    /// Takes the entry of \a id out, if there is one.
    void eraseConnection(ENodePortType portType, NodePortIndex index, const Core::CId& id);

    /// All ports of one side, in index order. The first form is for changing entries; the number of ports must stay.
    /// To read, call the second, through std::as_const(): after the first was called, every walk of this node has to
    /// look for what was written. The reference is good until the state is assigned or destroyed.
    std::vector<Connections>& getEntries(ENodePortType portType);
    /// The same for reading.
    const std::vector<Connections>& getEntries(ENodePortType portType) const;

private:
    friend class CNodeBase;
    friend class CNodeConnection;
    friend class CNodeScene;
    friend class CNodeVisit;
    friend class CRowInspector;

    /// Where a walk finds a connection.
    struct SPlace
    {
        CNodeConnection* connection; ///< Null once it was destroyed.
        quint64 until;               ///< The change that gave the place up. A walk that began before still serves it.
    };
    // Survives number off by one: no number of changes comes near it.
    static constexpr quint64 staysFilled = ~quint64(0);

    /// The connections of one port: what walks read. There is room for one next to the other members, since most ports
    /// have one; what a hop reads then lies together.
    // Survives number off by one: more room changes nothing but the size.
    using Row = QVarLengthArray<SPlace, 1>;
    // Survives number off by one: more room changes nothing but the size.
    using Rows = QVarLengthArray<Row, 1>;

    /// A connection's note of its place in a row.
    struct SEntry
    {
        CNodeState* state;
        ENodePortType side;
        NodePortIndex port;
        int position;

        bool operator==(const SEntry& other) const
        {
            return state == other.state && side == other.side && port == other.port && position == other.position;
        }
    };

    /// The same as tables, by the number of the side: what hosts read.
    // Survives number off by one: no side has the number of a fourth table.
    using Tables = std::array<std::vector<Connections>, 3>;

    bool hasPort(ENodePortType side, NodePortIndex index) const;
    // The same, and says in the debug message which port is missing.
    bool requirePort(ENodePortType side, NodePortIndex index) const;
    void resizeRows(int inPorts, int outPorts);
    Rows& rows(ENodePortType side) { return side == ENodePortType::In ? m_inRows : m_outRows; }
    const Rows& rows(ENodePortType side) const { return side == ENodePortType::In ? m_inRows : m_outRows; }
    std::vector<Connections>& table(ENodePortType side) const;

    // Of all connections: input ports first, in index order. One that leads from the node to itself is there twice.
    // Survives number off by one: more room changes nothing but the size.
    using Ids = QVarLengthArray<Core::CId, 8>;
    Ids connectionIds() const;

    template <typename Visitor>
    void forEachConnection(ENodePortType side, NodePortIndex port, const Visitor& visitor) const;
    void addPlace(ENodePortType side, NodePortIndex port, CNodeConnection& connection);
    // Leaves \a left in the place as long as a walk may read it.
    void givePlaceUp(const SEntry& entry, SPlace left);
    void removePlace(SEntry entry);
    SPlace& place(const SEntry& entry) { return rows(entry.side)[entry.port][entry.position]; }
    // Whether a walk may read the row; first enters what a host has written into the table.
    bool prepareRow(NodePortIndex outPort);
    void takeOut(ENodePortType side, NodePortIndex port, const CNodeConnection& connection);

    void copyFrom(const CNodeState& other);
    void clear();
    // For the connection, which is being destroyed.
    void forgetConnection(const SEntry& entry, const Core::CId& id);
    // For the last visit that leaves the node.
    void tidy();

    // What a walk reads comes first.
    CNodeVisit* m_visit = nullptr; // the innermost stretch of code that stands in the node: places stay where they are
    // Survives number off by one: changes are only compared with one another.
    quint64 m_lastChange = 0; // its number among those of the rows
    // Survives number off by one: it stays in a table without a model alone, and no node has such a one.
    uint m_readyRows = 0; // that a walk may read at once: all, or none once a host may have written into the tables
    int m_outPorts = 0;
    Rows m_outRows;
    int m_inPorts = 0;
    Rows m_inRows;
    mutable std::unique_ptr<Tables> m_tables; // made when a host asks for them, and kept up to date from then on
};

} // namespace Plugin::Halvex
