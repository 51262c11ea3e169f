// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "world/Operations.h"
#include "world/STables.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

// What both halves of the table of operations use.

using namespace Plugin::Halvex;

using Arguments = SArguments;

// Enough for everything to happen, and few enough for a difference to be understood and for walks to end.
constexpr std::size_t mostNodes = 10;
constexpr std::size_t mostConnections = 16;
constexpr int mostScenes = 4;

inline bool hasRoom(const CNodeScene* scene)
{
    return scene && scene->nodes().size() < mostNodes && scene->connections().size() < mostConnections;
}

inline int number(const CWorld& world, const CNodeScene* scene)
{
    return world.witness().numberOf(scene);
}

inline int number(const CWorld& world, const CNodeBase* node)
{
    return world.witness().numberOf(node);
}

inline ANodeDataModel* namedModel(const SPlace& place)
{
    return qobject_cast<ANodeDataModel*>(place.node->nodeDataModel());
}

inline bool hasOtherRegistry(const CWorld& world, const CNodeScene& scene)
{
    return &scene.registry() != world.service().registry().get();
}

/// A port: mostly there, seldom not.
inline int port(int argument)
{
    return argument % 16 == 15 ? 2 : argument % 16 == 14 ? -1 : argument % 2;
}

/// Proves that the object has gone.
inline Proof goes(const QPointer<QObject>& object)
{
    return [object] { return !object; };
}

/// All operations but those of the matrix.
std::vector<SOperation> otherOperations();
