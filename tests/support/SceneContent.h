// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/scene/CNodeScene.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QStringList>

/// One line for each thing that a scene's document says and reading brings back: no unique models, which are only
/// referred to, no unique names, which models are made with, and no converters between types that the registry has none
/// for.
inline QStringList contentOf(const Plugin::Halvex::CNodeScene& scene)
{
    const auto lineOf = [](const QJsonObject& json) {
        return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
    };
    const auto typeIn = [](const QJsonValue& json) {
        return Plugin::Halvex::SNodeDataType{json[QLatin1String("id")].toString(),
                                             json[QLatin1String("name")].toString()};
    };
    const QJsonObject document = QJsonDocument::fromJson(scene.saveToMemory()).object();
    QStringList lines;
    QSet<QString> ids;
    const QJsonArray nodes = document[QLatin1String("nodes")].toArray();
    for (const QJsonValue& node : nodes) {
        if (node[QLatin1String("model")][QLatin1String("is_unique")].toBool())
            continue;
        ids << node[QLatin1String("id")].toString();
        QJsonObject json = node.toObject();
        QJsonObject model = json[QLatin1String("model")].toObject();
        model.remove(QLatin1String("unique_name"));
        json[QLatin1String("model")] = model;
        lines << lineOf(json);
    }

    const QJsonArray connections = document[QLatin1String("connections")].toArray();
    for (const QJsonValue& connection : connections) {
        if (!ids.contains(connection[QLatin1String("in_id")].toString()) ||
            !ids.contains(connection[QLatin1String("out_id")].toString()))
            continue;
        QJsonObject json = connection.toObject();
        const QJsonValue converter = json[QLatin1String("converter")];
        if (!scene.registry().getTypeConverter(typeIn(converter[QLatin1String("out")]),
                                               typeIn(converter[QLatin1String("in")])))
            json.remove(QLatin1String("converter"));
        lines << lineOf(json);
    }
    lines.sort();
    return lines;
}
