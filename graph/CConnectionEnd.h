// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CWeakLink.h"
#include "graph/NodePortIndex.h"

namespace Plugin {
namespace Halvex {

class CNodeBase;

/**
 * Internal to CNodeConnection, of which it is a member.
 *
 * One end of a connection: a node and a port of it, where the node may go at any time.
 *
 * When the node goes, the end is as if it had been cleared. The node's pointer can be handed out for writing; what
 * was written is taken over at the next use, provided that it points at a node that exists. Null written there takes
 * the node away and leaves the index.
 *
 * Threads: the graph's thread.
 */
class CConnectionEnd
{
public:
    /// The node, null if none is set or it is gone.
    CNodeBase* node() const
    {
        if (m_link.get() != m_link.target())
            adoptWrittenNode();
        return m_link.get();
    }

    /// The node's pointer itself, for writing.
    CNodeBase*& nodeField()
    {
        node();
        return m_link.object();
    }

    /// The port's index, -1 if none is set.
    NodePortIndex index() const { return !node() && m_indexIsOfNode ? -1 : m_index; }

    /// The same for an end that has a node.
    NodePortIndex indexAtNode() const { return m_index; }

    /// Links the end to \a node.
    void setNode(CNodeBase& node);

    /// The index of an end that has a node goes with it; one given alone stays.
    void setIndex(NodePortIndex index);

    /// No node and index -1.
    void clear();

private:
    void adoptWrittenNode() const;

    NodePortIndex m_index = -1;
    mutable bool m_indexIsOfNode = false;
    mutable CWeakLink<CNodeBase> m_link;
};

} // namespace Halvex
} // namespace Plugin
