// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CId.h>

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QPointF>
#include <QString>

#include <vector>

namespace Plugin::Halvex {
class CNodeConnection;
class CNodeScene;
} // namespace Plugin::Halvex

namespace Host {

/// Where nodes are drawn, by their ids: the top left corner of each, in pixels of the unscaled drawing.
using NodePositions = QMap<QString, QPointF>;

/// The nearest point of the grid that all positions are on, so that nodes beside each other stand in line.
constexpr double positionGrid = 8;
QPointF onGrid(QPointF position);

/// Some nodes and connections of a scene, as its document has them, and where the nodes are drawn. A plain value.
struct SGraphPart
{
    std::vector<QJsonObject> nodes;
    std::vector<QJsonObject> connections; ///< In the scene they are found by their ends: their ids are not kept.
    NodePositions positions;
};

/// \a nodes of \a scene with every connection that they have. Nodes that are not there are left out.
SGraphPart partOf(const Plugin::Halvex::CNodeScene& scene, const std::vector<Core::CId>& nodes,
                  const NodePositions& positions);

/// The connection alone.
SGraphPart partOf(const Plugin::Halvex::CNodeConnection& connection);

/// The ids of the nodes in \a part.
std::vector<Core::CId> idsIn(const SGraphPart& part);

/// Removes from \a scene what is there of \a part. The part becomes what the scene had of it at that moment, with the
/// connections that its nodes were given since; what was not there stays in it as it was. Handlers may destroy the
/// scene.
void takeOut(Plugin::Halvex::CNodeScene& scene, SGraphPart* part, const NodePositions& positions);

/// Adds \a part to \a scene, nodes first, all with the ids they have in it. What cannot be made, since its model or an
/// end of it is not there, is left out; returns how many. Handlers may destroy the scene.
int putBack(Plugin::Halvex::CNodeScene& scene, const SGraphPart& part);

/// \a part with new ids and without what cannot be there twice: nodes with a unique model, and connections that lead
/// out of it. \a offset is added to the positions, which are put on the grid.
SGraphPart copyOf(const SGraphPart& part, QPointF offset);

/// \a part as a scene document, with "positions" besides, for the clipboard; and what such a text says.
QByteArray toText(const SGraphPart& part);
SGraphPart partFromText(const QByteArray& text);

} // namespace Host
