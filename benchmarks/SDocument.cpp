// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "SDocument.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const QLatin1String connectionsKey("connections");
const QLatin1String idKey("id");
const QLatin1String inIdKey("in_id");
const QLatin1String inIndexKey("in_index");
const QLatin1String modelKey("model");
const QLatin1String nameKey("name");
const QLatin1String nodesKey("nodes");
const QLatin1String outIdKey("out_id");
const QLatin1String outIndexKey("out_index");

} // namespace

SDocument SDocument::read(const QByteArray& text)
{
    const QJsonObject root = QJsonDocument::fromJson(text).object();
    SDocument document;

    const QJsonArray nodes = root.value(nodesKey).toArray();
    document.nodes.reserve(std::size_t(nodes.size()));
    for (const QJsonValue& value : nodes) {
        const QJsonObject node = value.toObject();
        document.nodes.push_back(
            {node.value(idKey).toString(), node.value(modelKey).toObject().value(nameKey).toString()});
    }

    const QJsonArray connections = root.value(connectionsKey).toArray();
    document.connections.reserve(std::size_t(connections.size()));
    for (const QJsonValue& value : connections) {
        const QJsonObject connection = value.toObject();
        document.connections.push_back({connection.value(inIdKey).toString(), connection.value(inIndexKey).toInt(),
                                        connection.value(outIdKey).toString(), connection.value(outIndexKey).toInt()});
    }
    return document;
}

QByteArray SDocument::write() const
{
    QJsonArray nodeArray;
    for (const SNode& node : nodes)
        nodeArray.append(QJsonObject{{idKey, node.id}, {modelKey, QJsonObject{{nameKey, node.model}}}});
    QJsonArray connectionArray;
    for (const SConnection& connection : connections) {
        connectionArray.append(QJsonObject{{inIdKey, connection.inId},
                                           {inIndexKey, connection.inIndex},
                                           {outIdKey, connection.outId},
                                           {outIndexKey, connection.outIndex}});
    }
    return QJsonDocument(QJsonObject{{nodesKey, nodeArray}, {connectionsKey, connectionArray}}).toJson();
}
