// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "scene/CNodeScene.h"

#include <QString>

/**
 * Proves a scene sound, between operations: every node and connection stands under its own id; every complete
 * connection is in the port tables of both its nodes exactly once, and the tables hold nothing else that exists.
 *
 * Returns an empty text, or what is wrong: `QCOMPARE(inconsistencyOf(scene), QString())`.
 */
inline QString inconsistencyOf(const Plugin::Halvex::CNodeScene& scene)
{
    using namespace Plugin::Halvex;

    for (const auto& entry : scene.connections()) {
        const CNodeConnection& connection = *entry.second;
        if (connection.id() != entry.first)
            return QStringLiteral("a connection stands under another id");
        for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
            const CNodeBase* const node = connection.getNode(side);
            const bool isHalf = !connection.getNode(ENodePortType::In) || !connection.getNode(ENodePortType::Out);
            if (!node || isHalf)
                continue;
            const auto port = node->nodeState().connections(side, connection.getPortIndex(side));
            const auto found = port.find(entry.first);
            if (found == port.end() || found->second != &connection)
                return QStringLiteral("a connection is missing in a port table of its node");
        }
    }

    for (const auto& entry : scene.nodes()) {
        if (!entry.second || entry.second->id() != entry.first)
            return QStringLiteral("a node is missing or stands under another id");
        const CNodeBase& node = *entry.second;
        for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
            const auto& ports = node.nodeState().getEntries(side);
            for (std::size_t index = 0; index < ports.size(); ++index) {
                for (const auto& attached : ports[index]) {
                    const auto found = scene.connections().find(attached.first);
                    if (found == scene.connections().end())
                        return QStringLiteral("a port table holds a connection that the scene does not");
                    const CNodeConnection& connection = *found->second;
                    if (connection.getNode(side) != &node || connection.getPortIndex(side) != int(index))
                        return QStringLiteral("a port table holds a connection that is attached elsewhere");
                }
            }
        }
    }
    return QString();
}
