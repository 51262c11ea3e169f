// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeConnection.h>

#include <memory>
#include <utility>

namespace Plugin::Halvex {

/// What nodes and connections keep for their scene, for the tests.
class CGraphInspector
{
public:
    /// Takes a node out of the graph as its scene would.
    static void retire(std::unique_ptr<CNodeBase> node) { CNodeBase::retire(std::move(node)); }

    /// Whether nobody has begun to remove it.
    static bool isStaying(const CNodeBase& node) { return node.m_stage == CNodeBase::EStage::Staying; }
    static bool isStaying(const CNodeConnection& connection)
    {
        return connection.m_stage == CNodeConnection::EStage::Staying;
    }
};

} // namespace Plugin::Halvex
