// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/RunPicture.h"

#include "host/base/Counted.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Host {

namespace {

SPictureNode nodeOf(const QJsonValue& json, int group)
{
    SPictureNode node;
    node.kind = kindNamed(json["kind"].toString());
    node.caption = json["name"].toString();
    node.group = group;
    const QJsonValue rate = json["frames_per_second"];
    if (rate.isDouble())
        node.note = QStringLiteral("%1 per second").arg(rate.toDouble(), 0, 'f', 1);
    const auto dropped = quint64(json["dropped"].toDouble());
    if (dropped > 0)
        node.warning = QStringLiteral("%1 dropped").arg(dropped);
    if (!json["last_error"].toString().isEmpty())
        node.warning = json["last_error"].toString();
    return node;
}

// Whether the edge leads from and to a node that is there.
bool addEdge(const QJsonValue& json, int first, SPicture* picture)
{
    const int nodes = int(picture->nodes.size()) - first;
    const int from = json["from"].toInt(-1);
    const int to = json["to"].toInt(-1);
    if (from < 0 || from >= nodes || to < 0 || to >= nodes)
        return false;
    SPictureEdge edge;
    edge.from = first + from;
    edge.to = first + to;
    edge.type = json["type"].toString();
    edge.note = counted(quint64(json["delivered"].toDouble()), "frame");
    edge.outPort = json["out_port"].toString();
    edge.inPort = json["in_port"].toString();
    picture->edges.push_back(edge);
    return true;
}

bool addCamera(const QJsonValue& json, int group, SPicture* picture)
{
    const int first = int(picture->nodes.size());
    const QJsonArray nodes = json["nodes"].toArray();
    for (const QJsonValue& node : nodes)
        picture->nodes.push_back(nodeOf(node, group));
    bool isSound = json["nodes"].isArray() && json["connections"].isArray();
    const QJsonArray connections = json["connections"].toArray();
    for (const QJsonValue& connection : connections)
        isSound = addEdge(connection, first, picture) && isSound;
    return isSound;
}

} // namespace

SPicture runPicture(const QByteArray& report, QString* error)
{
    QJsonParseError parseError{};
    const QJsonDocument document = QJsonDocument::fromJson(report, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        *error = QStringLiteral("no JSON: %1 at offset %2").arg(parseError.errorString()).arg(parseError.offset);
        return {};
    }
    SPicture picture;
    const QJsonValue all = document.object().value(QLatin1String("cameras"));
    const QJsonArray cameras = all.toArray();
    bool isSound = all.isArray();
    for (int i = 0; i < cameras.size(); ++i) {
        if (cameras.size() > 1)
            picture.groups << cameras.at(i)["camera"].toString();
        isSound = addCamera(cameras.at(i), i, &picture) && isSound;
    }
    if (!isSound)
        *error = QStringLiteral("it is no report of 'halvex-host run --json'");
    return isSound ? picture : SPicture();
}

} // namespace Host
