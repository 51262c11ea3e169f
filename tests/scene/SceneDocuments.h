// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "scene/SceneSupport.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

inline const QString idA = QStringLiteral("00000000-0000-0000-0000-00000000000a");
inline const QString idB = QStringLiteral("00000000-0000-0000-0000-00000000000b");
inline const QString idC = QStringLiteral("00000000-0000-0000-0000-00000000000c");
inline const QString noId = QStringLiteral("00000000-0000-0000-0000-000000000000");

inline QJsonObject nodeJson(const QString& id, const QString& name = QStringLiteral("Test"), bool unique = false)
{
    QJsonObject model{{"name", name}};
    if (unique)
        model.insert("is_unique", true);
    return {{"id", id}, {"model", model}};
}

inline QJsonObject connectionJson(const QString& outId, const QString& inId, const QJsonValue& inIndex = 0)
{
    return {{"in_id", inId}, {"in_index", inIndex}, {"out_id", outId}, {"out_index", 0}};
}

inline QJsonObject typeJson(const Plugin::Halvex::SNodeDataType& type)
{
    return {{"id", type.id}, {"name", type.name}};
}

/// \a json with one value more, or another one.
inline QJsonObject with(QJsonObject json, const QString& key, const QJsonValue& value)
{
    json.insert(key, value);
    return json;
}

inline QByteArray documentOf(const QJsonArray& nodes, const QJsonArray& connections = {})
{
    return QJsonDocument(QJsonObject{{"nodes", nodes}, {"connections", connections}}).toJson();
}

/// A scene of one node, with so many arrays in each other beside what is known of it.
inline QByteArray deepDocument(int depth)
{
    QByteArray document = documentOf({with(nodeJson(idA), "more", "depth")});
    return document.replace("\"depth\"", QByteArray(depth, '[') + QByteArray(depth, ']'));
}

// Of a chain of test models, A → B → C.
inline QJsonArray chainNodes()
{
    return {nodeJson(idA), nodeJson(idB), nodeJson(idC)};
}
inline QJsonArray chainConnections()
{
    return {connectionJson(idA, idB), connectionJson(idB, idC)};
}
inline QByteArray chainDocument()
{
    return documentOf(chainNodes(), chainConnections());
}

inline QJsonObject rootOf(const QByteArray& document)
{
    return QJsonDocument::fromJson(document).object();
}

/// A document's contents without the order, which the tables do not keep.
inline QStringList contentsOf(const QByteArray& document)
{
    const QJsonObject root = rootOf(document);
    QStringList contents;
    for (const char* key : {"nodes", "connections"}) {
        const QJsonArray elements = root[QLatin1String(key)].toArray();
        for (const QJsonValue& json : elements)
            contents << key + QString::fromUtf8(QJsonDocument(json.toObject()).toJson(QJsonDocument::Compact));
    }
    contents.sort();
    return contents;
}

/// A scene whose registry knows "Test" (two ports per side), "Named", and the decoupler of test data.
struct SDocumentWorld
{
    using CDecouplerModel = Plugin::Halvex::CGenericNodeDecouplerDataModel<CTestData>;

    SDocumentWorld()
    {
        const QString category = QStringLiteral("Tests");
        const auto createTest = [this] {
            auto model = std::make_unique<CTestModel>(2, 2);
            if (onCreate)
                onCreate(*model);
            return model;
        };
        registry->registerModel(createTest, category);
        registry->registerModel([] { return std::make_unique<CNamedTestModel>(1, 1, "Named"); }, category);
        registry->registerModel<CDecouplerModel>(category);
    }

    void load(const QJsonArray& nodes, const QJsonArray& connections = {}) const
    {
        scene->loadFromMemory(documentOf(nodes, connections));
    }
    void loadChain() const { scene->loadFromMemory(chainDocument()); }
    QJsonObject saved() const { return rootOf(scene->saveToMemory()); }
    QStringList contents() const { return contentsOf(scene->saveToMemory()); }

    static Core::CId toId(const QString& text) { return Core::CId(text.toLatin1().constData()); }
    bool has(const QString& id) const { return scene->nodes().count(toId(id)) == 1; }
    Plugin::Halvex::CNodeBase& node(const QString& id) const { return *scene->nodes().at(toId(id)); }
    CTestModel& model(const QString& id) const { return *static_cast<CTestModel*>(node(id).nodeDataModel()); }
    Plugin::Halvex::CNodeConnection& onlyConnection() const { return *scene->connections().begin()->second; }

    std::function<void(CTestModel&)> onCreate; ///< Called with each "Test" that the registry makes.
    std::shared_ptr<Plugin::Halvex::CNodeDataModelRegistry> registry =
        std::make_shared<Plugin::Halvex::CNodeDataModelRegistry>();
    std::unique_ptr<CTestScene> scene =
        std::make_unique<CTestScene>(registry, QSharedPointer<CTestInfo>::create(), nullptr);
    std::unique_ptr<CSignalLog> log = std::make_unique<CSignalLog>(*scene);
};
