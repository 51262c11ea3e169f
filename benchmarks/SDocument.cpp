// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "SDocument.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

// Kept, and inserted one by one: initialiser lists would make each key anew.
struct SKeys
{
    QString connections = QStringLiteral("connections");
    QString id = QStringLiteral("id");
    QString inId = QStringLiteral("in_id");
    QString inIndex = QStringLiteral("in_index");
    QString model = QStringLiteral("model");
    QString name = QStringLiteral("name");
    QString nodes = QStringLiteral("nodes");
    QString outId = QStringLiteral("out_id");
    QString outIndex = QStringLiteral("out_index");
};

const SKeys& keys()
{
    static const SKeys keys;
    return keys;
}

} // namespace

SDocument SDocument::read(const QByteArray& text)
{
    const QJsonObject root = QJsonDocument::fromJson(text).object();
    SDocument document;

    const QJsonArray nodes = root.value(keys().nodes).toArray();
    document.nodes.reserve(std::size_t(nodes.size()));
    for (const QJsonValue& value : nodes) {
        const QJsonObject node = value.toObject();
        document.nodes.push_back(
            {node.value(keys().id).toString(), node.value(keys().model).toObject().value(keys().name).toString()});
    }

    const QJsonArray connections = root.value(keys().connections).toArray();
    document.connections.reserve(std::size_t(connections.size()));
    for (const QJsonValue& value : connections) {
        const QJsonObject connection = value.toObject();
        document.connections.push_back(
            {connection.value(keys().inId).toString(), connection.value(keys().inIndex).toInt(),
             connection.value(keys().outId).toString(), connection.value(keys().outIndex).toInt()});
    }
    return document;
}

QByteArray SDocument::write() const
{
    QJsonArray nodeArray;
    for (const SNode& node : nodes) {
        QJsonObject model;
        model.insert(keys().name, node.model);
        QJsonObject object;
        object.insert(keys().id, node.id);
        object.insert(keys().model, model);
        nodeArray.append(object);
    }
    QJsonArray connectionArray;
    for (const SConnection& connection : connections) {
        QJsonObject object;
        object.insert(keys().inId, connection.inId);
        object.insert(keys().inIndex, connection.inIndex);
        object.insert(keys().outId, connection.outId);
        object.insert(keys().outIndex, connection.outIndex);
        connectionArray.append(object);
    }
    QJsonObject root;
    root.insert(keys().nodes, nodeArray);
    root.insert(keys().connections, connectionArray);
    return QJsonDocument(root).toJson();
}
