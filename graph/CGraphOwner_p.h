// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeVisit_p.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeConnection.h>

#include <memory>

namespace Plugin::Halvex {

/// What the owner of nodes and connections does beyond their public operations.
class CGraphOwner
{
public:
    using ENodeStage = CNodeBase::EStage;
    using EConnectionStage = CNodeConnection::EStage;

    static ENodeStage stage(const CNodeBase& node) { return node.m_stage; }
    static void setStage(CNodeBase& node, ENodeStage stage) { node.m_stage = stage; }
    static EConnectionStage stage(const CNodeConnection& connection) { return connection.m_stage; }
    static void setStage(CNodeConnection& connection, EConnectionStage stage) { connection.m_stage = stage; }

    static const void* owner(const CNodeBase& node) { return node.m_owner; }
    static void setOwner(CNodeBase& node, const void* owner) { node.m_owner = owner; }

    static bool hasPort(const CNodeBase& node, ENodePortType side, NodePortIndex index)
    {
        return node.m_state.hasPort(side, index);
    }

    static auto connectionIds(const CNodeBase& node) { return node.m_state.connectionIds(); }

    /// Takes a node out of the graph: every connection end that leads to it is cleared, and it is destroyed, at once or
    /// when the last visit has left it.
    static void retire(std::unique_ptr<CNodeBase> node)
    {
        Q_ASSERT(node);
        node->m_owner = nullptr;
        node->m_stage = ENodeStage::Closed;
        node->clearEnds();
        CNodeVisit::endAll(*node);
        if (CNodeVisit::standsIn(*node))
            static_cast<void>(node.release()); // the last visit destroys it
    }
};

} // namespace Plugin::Halvex
