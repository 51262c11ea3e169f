// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CGraphInspector.h"
#include "support/CRowInspector.h"
#include "support/CSceneInspector.h"

#include <Halvex/scene/CNodeScene.h>

#include <QString>

#include <algorithm>
#include <set>
#include <vector>

/// Scenes whose connections may lead from one into another.
using SceneWorld = std::vector<const Plugin::Halvex::CNodeScene*>;

namespace SceneConsistency {

using namespace Plugin::Halvex;

/// Whether a scene of \a world has that very connection.
inline bool holds(const SceneWorld& world, const CNodeConnection& connection)
{
    return std::any_of(world.begin(), world.end(), [&connection](const CNodeScene* scene) {
        const auto found = scene->connections().find(connection.id());
        return found != scene->connections().end() && found->second.get() == &connection;
    });
}

/// What is wrong with \a connection, which a scene holds, and with its entries in the tables of its nodes.
inline QString inconsistencyOf(const CNodeConnection& connection)
{
    const bool isComplete = connection.getNode(ENodePortType::In) && connection.getNode(ENodePortType::Out);
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        const CNodeBase* const node = connection.getNode(side);
        if (!node)
            continue;
        if (!isComplete)
            continue;
        const auto& ports = node->nodeState().getEntries(side);
        const auto index = std::size_t(connection.getPortIndex(side));
        if (index >= ports.size())
            return QStringLiteral("a connection leads to a port that is not there");
        const auto found = ports[index].find(connection.id());
        if (found == ports[index].end() || found->second != &connection)
            return QStringLiteral("a connection is missing in a port table of its node");
    }
    return QString();
}

/// What is wrong with the port tables of \a node.
inline QString inconsistencyOf(const CNodeBase& node, const SceneWorld& world)
{
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        const auto& ports = node.nodeState().getEntries(side);
        for (std::size_t index = 0; index < ports.size(); ++index) {
            for (const auto& entry : ports[index]) {
                const CNodeConnection* const connection = entry.second;
                if (!connection)
                    return QStringLiteral("a port table holds a null connection");
                if (connection->id() != entry.first)
                    return QStringLiteral("a port table holds a connection under another id");
                // With one entry where it belongs, this is what makes it the only one.
                if (connection->getNode(side) != &node || connection->getPortIndex(side) != int(index))
                    return QStringLiteral("a port table holds a connection that is attached elsewhere");
                if (!holds(world, *connection))
                    return QStringLiteral("a port table holds a connection that no scene does");
            }
            if (CRowInspector::places(node.nodeState(), side, int(index)) != int(ports[index].size()))
                return QStringLiteral("a port's row does not have a place for each connection of its table");
        }
    }
    return QString();
}

} // namespace SceneConsistency

/**
 * Proves scenes sound, between operations: nothing waits in their queues; every node and connection stands
 * under its own id and is not on its way out; every complete connection is in the port tables of both its nodes exactly
 * once; the tables hold nothing else.
 *
 * Returns an empty text, or what is wrong: `QCOMPARE(inconsistencyOf(scene), QString())`.
 *
 * \a world: all scenes that are connected with each other.
 */
inline QString inconsistencyOf(const SceneWorld& world)
{
    using namespace Plugin::Halvex;

    std::set<const CNodeBase*> nodes;
    for (const CNodeScene* scene : world) {
        if (CSceneInspector::queueLength(*scene) != 0)
            return QStringLiteral("something waits in the scene's queue");
        if (CSceneInspector::depth(*scene) != 0)
            return QStringLiteral("an announcement of the scene has not ended");

        for (const auto& entry : scene->nodes()) {
            if (entry.second->id() != entry.first)
                return QStringLiteral("a node stands under another id");
            if (!CGraphInspector::isStaying(*entry.second))
                return QStringLiteral("a node that stays is marked as leaving");
            nodes.insert(entry.second.get());
        }
        for (const auto& entry : scene->connections()) {
            if (entry.second->id() != entry.first)
                return QStringLiteral("a connection stands under another id");
            if (!CGraphInspector::isStaying(*entry.second))
                return QStringLiteral("a connection that stays is marked as leaving");
            const QString wrong = SceneConsistency::inconsistencyOf(*entry.second);
            if (!wrong.isEmpty())
                return wrong;
            // A node at its end may be in no scene at all.
            for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
                if (const CNodeBase* const node = std::as_const(*entry.second).getNode(side))
                    nodes.insert(node);
            }
        }
    }

    for (const CNodeBase* node : nodes) {
        const QString wrong = SceneConsistency::inconsistencyOf(*node, world);
        if (!wrong.isEmpty())
            return wrong;
    }
    return QString();
}

/// The same for a scene that is connected with no other.
inline QString inconsistencyOf(const Plugin::Halvex::CNodeScene& scene)
{
    return inconsistencyOf(SceneWorld{&scene});
}
