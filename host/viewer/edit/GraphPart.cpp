// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/GraphPart.h"

#include "host/base/Attempt.h"
#include "host/viewer/edit/PortFit.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/scene/CNodeScene.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

const QString positionsKey = QStringLiteral("positions");

Core::CId idFrom(const QJsonValue& json)
{
    return Core::CId(json.toString().toLatin1().constData());
}

Core::CId idOf(const QJsonObject& node)
{
    return idFrom(node.value(DocumentKeys::id));
}

bool isUnique(const QJsonObject& node)
{
    return node.value(DocumentKeys::model).toObject().value(DocumentKeys::isUnique).toBool();
}

bool leadsTo(const CNodeConnection& connection, ENodePortType side, const QJsonValue& id, const QJsonValue& index)
{
    const CNodeBase* const node = connection.getNode(side);
    return node && node->id() == idFrom(id) && connection.getPortIndex(side) == index.toInt();
}

bool isAmong(const std::set<Core::CId>& ids, const CNodeConnection& connection, ENodePortType side)
{
    const CNodeBase* const node = connection.getNode(side);
    return node && ids.count(node->id()) > 0;
}

// Held while it is deleted, since handlers may delete it, too.
std::shared_ptr<CNodeConnection> findConnection(const CNodeScene& scene, const QJsonObject& json)
{
    for (const auto& entry : scene.connections()) {
        const CNodeConnection& connection = *entry.second;
        if (leadsTo(connection, ENodePortType::In, json.value(DocumentKeys::inId), json.value(DocumentKeys::inIndex)) &&
            leadsTo(connection, ENodePortType::Out, json.value(DocumentKeys::outId),
                    json.value(DocumentKeys::outIndex)))
            return entry.second;
    }
    return nullptr;
}

// Documents list them as they come out of a table; in a part they have one order, whatever the table's.
void sortConnections(std::vector<QJsonObject>* connections)
{
    const auto key = [](const QJsonObject& json) {
        return std::make_tuple(json.value(DocumentKeys::outId).toString(), json.value(DocumentKeys::outIndex).toInt(),
                               json.value(DocumentKeys::inId).toString(), json.value(DocumentKeys::inIndex).toInt());
    };
    std::sort(connections->begin(), connections->end(),
              [key](const QJsonObject& left, const QJsonObject& right) { return key(left) < key(right); });
}

// What the scene has now of a part. Of nodes that somebody else has removed it is what they were.
SGraphPart presentPart(const CNodeScene& scene, const SGraphPart& part, const NodePositions& positions)
{
    SGraphPart present = partOf(scene, idsIn(part), positions);
    const auto isThere = [&](const QJsonValue& id) {
        const auto ids = idsIn(present);
        return std::find(ids.begin(), ids.end(), idFrom(id)) != ids.end();
    };
    for (const QJsonObject& json : part.connections) {
        // Those of the nodes that are there have been read.
        if (!isThere(json.value(DocumentKeys::inId)) && !isThere(json.value(DocumentKeys::outId)))
            present.connections.push_back(json);
    }
    for (const QJsonObject& json : part.nodes) {
        const QString id = json.value(DocumentKeys::id).toString();
        if (isThere(id))
            continue;
        present.nodes.push_back(json);
        if (part.positions.contains(id))
            present.positions.insert(id, part.positions.value(id));
    }
    return present;
}

} // namespace

QPointF onGrid(QPointF position)
{
    return {std::round(position.x() / positionGrid) * positionGrid,
            std::round(position.y() / positionGrid) * positionGrid};
}

SGraphPart partOf(const CNodeScene& scene, const std::vector<Core::CId>& nodes, const NodePositions& positions)
{
    SGraphPart part;
    const std::set<Core::CId> ids(nodes.begin(), nodes.end());
    for (const Core::CId& id : nodes) {
        if (const CNodeBase* const node = nodeOf(scene, id)) {
            part.nodes.push_back(node->save());
            if (positions.contains(id.toString()))
                part.positions.insert(id.toString(), positions.value(id.toString()));
        }
    }
    for (const auto& entry : scene.connections()) {
        const CNodeConnection& connection = *entry.second;
        if (isAmong(ids, connection, ENodePortType::In) || isAmong(ids, connection, ENodePortType::Out))
            part.connections.push_back(connection.save());
    }
    sortConnections(&part.connections);
    return part;
}

SGraphPart partOf(const CNodeConnection& connection)
{
    SGraphPart part;
    const QJsonObject json = connection.save();
    if (!json.isEmpty())
        part.connections.push_back(json);
    return part;
}

std::vector<Core::CId> idsIn(const SGraphPart& part)
{
    std::vector<Core::CId> ids;
    for (const QJsonObject& node : part.nodes)
        ids.push_back(idOf(node));
    return ids;
}

void takeOut(CNodeScene& scene, SGraphPart* part, const NodePositions& positions)
{
    const QPointer<CNodeScene> self(&scene);
    const SGraphPart present = presentPart(scene, *part, positions);
    for (const QJsonObject& json : present.connections) {
        const auto connection = self ? findConnection(scene, json) : nullptr;
        if (connection)
            attempt(QString(), [&] { return scene.deleteConnection(*connection), true; });
    }
    for (const QJsonObject& json : present.nodes) {
        CNodeBase* const node = self ? nodeOf(scene, idOf(json)) : nullptr;
        if (node)
            attempt(QString(), [&] { return scene.removeNode(*node), true; });
    }
    *part = present;
}

int putBack(CNodeScene& scene, const SGraphPart& part)
{
    const QPointer<CNodeScene> self(&scene);
    int missing = 0;
    for (const QJsonObject& json : part.nodes) {
        // One that somebody else has put back already stays: the scene would replace it.
        if (!self || nodeOf(scene, idOf(json)))
            continue;
        attempt(QString(), [&] { return &scene.restoreNode(json) != &CNodeScene::noNode(); });
        missing += self && !nodeOf(scene, idOf(json)) ? 1 : 0;
    }
    for (const QJsonObject& json : part.connections) {
        if (!self || findConnection(scene, json))
            continue;
        attempt(QString(), [&] { return scene.restoreConnection(json) != nullptr; });
        missing += self && !findConnection(scene, json) ? 1 : 0;
    }
    return missing;
}

SGraphPart copyOf(const SGraphPart& part, QPointF offset)
{
    SGraphPart copy;
    QMap<QString, QString> newIds;
    for (QJsonObject node : part.nodes) {
        if (isUnique(node))
            continue;
        const QString old = node.value(DocumentKeys::id).toString();
        newIds.insert(old, Core::CId::createId().toString());
        node.insert(QString(DocumentKeys::id), newIds.value(old));
        copy.nodes.push_back(node);
        if (part.positions.contains(old))
            copy.positions.insert(newIds.value(old), onGrid(part.positions.value(old) + offset));
    }
    for (QJsonObject json : part.connections) {
        const QString in = newIds.value(json.value(DocumentKeys::inId).toString());
        const QString out = newIds.value(json.value(DocumentKeys::outId).toString());
        if (in.isEmpty() || out.isEmpty())
            continue;
        json.insert(QString(DocumentKeys::inId), in);
        json.insert(QString(DocumentKeys::outId), out);
        copy.connections.push_back(json);
    }
    return copy;
}

QByteArray toText(const SGraphPart& part)
{
    QJsonArray nodes;
    QJsonArray connections;
    QJsonObject positions;
    for (const QJsonObject& node : part.nodes)
        nodes.append(node);
    for (const QJsonObject& connection : part.connections)
        connections.append(connection);
    for (auto each = part.positions.begin(); each != part.positions.end(); ++each)
        positions.insert(each.key(), QJsonArray{each.value().x(), each.value().y()});
    QJsonObject root;
    root.insert(QString(DocumentKeys::nodes), nodes);
    root.insert(QString(DocumentKeys::connections), connections);
    root.insert(positionsKey, positions);
    return QJsonDocument(root).toJson();
}

SGraphPart partFromText(const QByteArray& text)
{
    const QJsonObject root = QJsonDocument::fromJson(text).object();
    SGraphPart part;
    const QJsonArray nodes = root.value(DocumentKeys::nodes).toArray();
    for (const QJsonValue& node : nodes)
        part.nodes.push_back(node.toObject());
    const QJsonArray connections = root.value(DocumentKeys::connections).toArray();
    for (const QJsonValue& connection : connections)
        part.connections.push_back(connection.toObject());
    const QJsonObject positions = root.value(positionsKey).toObject();
    for (auto each = positions.begin(); each != positions.end(); ++each) {
        const QJsonArray point = each.value().toArray();
        part.positions.insert(each.key(), QPointF(point.at(0).toDouble(), point.at(1).toDouble()));
    }
    return part;
}

} // namespace Host
