// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SceneFile.h"

#include "host/base/FlowOrder.h"
#include "host/base/InputFile.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QUuid>

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

namespace Host {

using namespace Plugin::Halvex;

namespace {

using Objects = std::vector<QJsonObject>;

Objects objectsOf(const QJsonObject& document, QLatin1String key)
{
    Objects objects;
    const QJsonArray array = document.value(key).toArray();
    for (const QJsonValue& value : array)
        objects.push_back(value.toObject());
    return objects;
}

QJsonArray arrayOf(const Objects& objects)
{
    QJsonArray array;
    for (const QJsonObject& object : objects)
        array.append(object);
    return array;
}

QString idFor(const QString& uniqueName)
{
    const QUuid space(0x0e2f6f5a, 0x6b1d, 0x4c0e, 0x9a, 0x5b, 0x2d, 0x77, 0x3c, 0x51, 0x80, 0x4e);
    return QUuid::createUuidV5(space, uniqueName).toString(QUuid::WithoutBraces);
}

// Gives the unique nodes ids made of their names, also where connections lead to them. Of two of one name the second
// keeps its own.
void renameUniqueNodes(Objects* nodes, Objects* connections)
{
    QHash<QString, QString> ids;
    QSet<QString> given;
    for (QJsonObject& node : *nodes) {
        const QJsonValue model = node.value(DocumentKeys::model);
        if (!model[DocumentKeys::isUnique].toBool())
            continue;
        const QString id = idFor(model[DocumentKeys::uniqueName].toString());
        if (given.contains(id))
            continue;
        given.insert(id);
        ids.insert(node.value(DocumentKeys::id).toString(), id);
        node.insert(QString(DocumentKeys::id), id);
    }
    for (QJsonObject& connection : *connections) {
        for (const QLatin1String end : {DocumentKeys::inId, DocumentKeys::outId}) {
            const auto id = ids.constFind(connection.value(end).toString());
            if (id != ids.constEnd())
                connection.insert(QString(end), *id);
        }
    }
}

QHash<QString, int> placesById(const Objects& nodes)
{
    QHash<QString, int> places;
    for (const QJsonObject& node : nodes)
        places.insert(node.value(DocumentKeys::id).toString(), places.size());
    return places;
}

void sortNodes(Objects* nodes, const Objects& connections)
{
    const QHash<QString, int> places = placesById(*nodes);
    FlowEdges edges;
    for (const QJsonObject& connection : connections) {
        const int from = places.value(connection.value(DocumentKeys::outId).toString(), -1);
        const int to = places.value(connection.value(DocumentKeys::inId).toString(), -1);
        if (from >= 0 && to >= 0)
            edges.emplace_back(from, to);
    }
    const std::vector<int> depths = flowDepths(int(nodes->size()), edges);

    using Place = std::tuple<int, QString, std::size_t>;
    std::vector<Place> order;
    for (std::size_t i = 0; i < nodes->size(); ++i)
        order.emplace_back(depths[i], (*nodes)[i].value(DocumentKeys::id).toString(), i);
    std::sort(order.begin(), order.end());
    Objects sorted;
    for (const Place& place : order)
        sorted.push_back(std::move((*nodes)[std::get<2>(place)]));
    *nodes = std::move(sorted);
}

void sortConnections(Objects* connections, const QHash<QString, int>& places)
{
    const auto keyOf = [&places](const QJsonObject& json) {
        return std::make_tuple(
            places.value(json.value(DocumentKeys::outId).toString()), json.value(DocumentKeys::outIndex).toInt(),
            places.value(json.value(DocumentKeys::inId).toString()), json.value(DocumentKeys::inIndex).toInt(),
            QJsonDocument(json).toJson(QJsonDocument::Compact));
    };
    using Key = decltype(keyOf(QJsonObject()));
    std::vector<std::pair<Key, QJsonObject>> keyed;
    for (const QJsonObject& connection : *connections)
        keyed.emplace_back(keyOf(connection), connection);
    std::sort(keyed.begin(), keyed.end(), [](const auto& left, const auto& right) { return left.first < right.first; });
    std::transform(keyed.begin(), keyed.end(), connections->begin(), [](const auto& each) { return each.second; });
}

} // namespace

QByteArray orderedScene(const QByteArray& document)
{
    QJsonObject root = QJsonDocument::fromJson(document).object();
    Objects nodes = objectsOf(root, DocumentKeys::nodes);
    Objects connections = objectsOf(root, DocumentKeys::connections);
    renameUniqueNodes(&nodes, &connections);
    sortNodes(&nodes, connections);
    sortConnections(&connections, placesById(nodes));
    root.insert(QString(DocumentKeys::nodes), arrayOf(nodes));
    root.insert(QString(DocumentKeys::connections), arrayOf(connections));
    return QJsonDocument(root).toJson();
}

} // namespace Host
