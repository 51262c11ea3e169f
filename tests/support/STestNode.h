// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestModel.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeConnection.h>

#include <memory>
#include <utility>

/// A node of its own, outside of any scene, with the model in it.
struct STestNode
{
    explicit STestNode(unsigned int inPorts = 1, unsigned int outPorts = 1,
                       const QString& name = QStringLiteral("Test"))
    {
        auto owned = std::make_unique<CTestModel>(inPorts, outPorts, name);
        model = owned.get();
        node = std::make_unique<Plugin::Halvex::CNodeBase>(std::move(owned));
    }

    Plugin::Halvex::CNodeBase& operator*() const { return *node; }
    Plugin::Halvex::CNodeBase* operator->() const { return node.get(); }

    /// The connections of output \a index.
    Plugin::Halvex::CNodeState::Connections outputs(Plugin::Halvex::NodePortIndex index = 0) const
    {
        return node->nodeState().connections(Plugin::Halvex::ENodePortType::Out, index);
    }

    std::unique_ptr<Plugin::Halvex::CNodeBase> node;
    CTestModel* model = nullptr;
};

/// Enters a connection into the tables of its ends, as a scene does.
inline void enter(Plugin::Halvex::CNodeConnection& connection)
{
    using Plugin::Halvex::ENodePortType;
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        if (Plugin::Halvex::CNodeBase* const node = std::as_const(connection).getNode(side))
            node->nodeState().setConnection(side, connection.getPortIndex(side), connection);
    }
}

/// Connects two nodes, as a scene does.
inline std::unique_ptr<Plugin::Halvex::CNodeConnection> join(const STestNode& out, const STestNode& in,
                                                             Plugin::Halvex::NodeDataConverter converter = {},
                                                             Plugin::Halvex::NodePortIndex outIndex = 0,
                                                             Plugin::Halvex::NodePortIndex inIndex = 0)
{
    auto connection =
        std::make_unique<Plugin::Halvex::CNodeConnection>(*in, inIndex, *out, outIndex, std::move(converter));
    enter(*connection);
    return connection;
}
