// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/ENodePortType.h"
#include "graph/NodePortIndex.h"
#include "platform/CId.h"

#include <Halvex/HalvexExport.h>

#include <QtGlobal>

#include <memory>
#include <unordered_map>
#include <vector>

namespace Plugin {
namespace Halvex {

class CNodeConnection;
class CNodeDataModel;

/**
 * A node's table of the connections attached to each of its ports.
 *
 * \code
 * for (const auto& entry : node.nodeState().connections(ENodePortType::Out, 0))
 *     qDebug() << entry.second->id().toString();
 * \endcode
 *
 * The scene enters a connection into the tables of both of its nodes; a connection takes itself out of the tables of
 * its ends when it is removed and, at the latest, when it is destroyed.
 *
 * Ownership: connections are referred to, not owned. The pointers that connections() and getEntries() hand out are
 * good until something destroys the connection. Whatever a host enters by itself (through setConnection(), the
 * modifiable getEntries() or by assigning a table), the library uses an entry only while its connection exists.
 *
 * Port types: In selects the input ports, Out the output ports, anything else a third list that is always empty.
 *
 * Threads: the graph's thread. A walk reads it; entries may be added and erased meanwhile.
 */
class HALVEX_EXPORT CNodeState
{
public:
    /// The connections of one port, by their id. At most one entry per connection; the order means nothing.
    using Connections = std::unordered_map<Core::CId, CNodeConnection*>;

    /// As many ports as \a model has now; none for a null model.
    explicit CNodeState(const std::unique_ptr<CNodeDataModel>& model);
    CNodeState(const CNodeState&);
    CNodeState(CNodeState&&) noexcept;
    CNodeState& operator=(const CNodeState&);
    CNodeState& operator=(CNodeState&&) noexcept;
    ~CNodeState();

    /// A copy of one port's connections. For a port that does not exist: empty, and a debug message says which.
    Connections connections(ENodePortType portType, NodePortIndex index) const;

    /// Enters \a connection under its id; an entry that is there already stays as it is. The port must exist; one
    /// that does not is ignored.
    void setConnection(ENodePortType portType, NodePortIndex index, CNodeConnection& connection);

    /// Takes the entry of \a id out, if there is one.
    void eraseConnection(ENodePortType portType, NodePortIndex index, const Core::CId& id);

    /// All ports of one side, in index order. Entries may be changed through the first form, ports may not. To read,
    /// use the second (std::as_const): once the first was used, every entry is looked up before it is used, for good.
    std::vector<Connections>& getEntries(ENodePortType portType);
    const std::vector<Connections>& getEntries(ENodePortType portType) const;

private:
    friend class CConnectionEnd;
    friend class CConnectionSnapshot;
    friend class CNodeBase;
    friend class CNodeConnection;

    // The port's connections, null if it does not exist; the second form says so in the debug message.
    const Connections* findPort(ENodePortType portType, NodePortIndex index) const;
    const Connections* requirePort(ENodePortType portType, NodePortIndex index) const;

    // The same for an output port. Most models have one only, and finding another takes a division.
    const Connections* requireOutPort(NodePortIndex index) const
    {
        return Q_LIKELY(index == 0 && !m_out.empty()) ? &m_out.front() : requirePort(ENodePortType::Out, index);
    }
    // Whether that output port has no connection, and the connection that it has if there is no other and it can be
    // used. Only of the first port; no and null if that is to be looked up.
    bool isUnconnected(NodePortIndex outIndex) const { return outIndex == 0 && m_isFirstOutEmpty; }
    const CNodeConnection* onlyConnection(NodePortIndex outIndex) const
    {
        return outIndex == 0 ? m_onlyOfFirstOut : nullptr;
    }
    void readFirstOut();

    bool holds(ENodePortType portType, NodePortIndex index, const Core::CId& id) const;
    void expectDeadEntries();
    bool isUsable(const Connections::value_type& entry) const
    {
        return !m_mayHoldDead || exists(entry.first, entry.second);
    }
    // By the id as well, since a new connection may have come to lie where the one that was entered lay.
    static bool exists(const Core::CId& id, const CNodeConnection* connection);
    void clear();

    // What most walks read, next to what they read of the node.
    const CNodeConnection* m_onlyOfFirstOut = nullptr;
    bool m_isFirstOutEmpty = false;
    // Set when an entry may be of a connection that will not take it out, since it does not know of it. Entries are
    // then looked up before they are used, which costs a walk through this node a little. True for every copy.
    bool m_mayHoldDead = false;
    std::vector<Connections> m_in;
    std::vector<Connections> m_out;
    std::vector<Connections> m_none;
};

} // namespace Halvex
} // namespace Plugin
