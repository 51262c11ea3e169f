// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The scene as a document: the half of CNodeScene that writes and reads it.

#include "graph/CNodeVisit_p.h"
#include "graph/support/JsonObject_p.h"
#include "graph/support/Reports_p.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/scene/CNodeScene.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>

#include <stdexcept>
#include <string>
#include <vector>

namespace Plugin::Halvex {
namespace {

SNodeDataType readType(const QJsonValue& json)
{
    return {json[DocumentKeys::id].toString(), json[DocumentKeys::name].toString()};
}

bool isUnique(const QJsonObject& modelJson)
{
    return modelJson.value(DocumentKeys::isUnique).toBool();
}

} // namespace

QByteArray CNodeScene::saveToMemory() const
{
    // What save() of a model does is up to the model: the tables are not iterated while it runs.
    const QPointer<const CNodeScene> self(this);
    QJsonArray nodes;
    std::vector<std::shared_ptr<CNodeConnection>> present;
    if (forEachNode([&nodes](const CNodeBase* node) { nodes.append(node->save()); })) {
        // Survives removed statement: without the room it is only slower.
        present.reserve(m_connections.size());
        for (const auto& entry : m_connections)
            present.push_back(entry.second);
    }

    QJsonArray connections;
    for (const auto& connection : present) {
        if (!self || m_connections.count(connection->id()) == 0)
            continue;
        const QJsonObject json = connection->save();
        if (!json.isEmpty())
            connections.append(json);
    }
    return QJsonDocument(jsonObject({{DocumentKeys::nodes, nodes}, {DocumentKeys::connections, connections}})).toJson();
}

void CNodeScene::loadFromMemory(const QByteArray& data)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    load(QJsonDocument::fromJson(data).object());
}

void CNodeScene::load(const QJsonObject& root)
{
    const QPointer<CNodeScene> self(this);

    const QJsonArray nodes = root.value(DocumentKeys::nodes).toArray();
    for (const QJsonValue& json : nodes) {
        const QJsonObject nodeJson = json.toObject();
        const QJsonObject modelJson = nodeJson.value(DocumentKeys::model).toObject();
        // A unique model is only ever matched against a node that is here already, and nobody asks which.
        if (!isUnique(modelJson))
            makeNode(nodeJson, modelJson);
        if (!self)
            return;
    }

    const QJsonArray connections = root.value(DocumentKeys::connections).toArray();
    for (const QJsonValue& json : connections) {
        restoreConnection(json.toObject());
        if (!self)
            return;
    }
}

CNodeBase& CNodeScene::restoreNode(const QJsonObject& nodeJson)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    const QJsonObject modelJson = nodeJson.value(DocumentKeys::model).toObject();
    return isUnique(modelJson) ? findUnique(modelJson.value(DocumentKeys::name).toString())
                               : makeNode(nodeJson, modelJson);
}

std::shared_ptr<CNodeConnection> CNodeScene::restoreConnection(const QJsonObject& connectionJson)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    // Copying a converter is foreign code: the nodes are looked up after it.
    const QPointer<CNodeScene> self(this);
    const NodeDataConverter converter = findConverter(connectionJson.value(DocumentKeys::converter));
    if (!self)
        return nullptr;
    CNodeBase* const in = findNode(connectionJson.value(DocumentKeys::inId));
    CNodeBase* const out = findNode(connectionJson.value(DocumentKeys::outId));
    if (!in || !out)
        return nullptr;
    return createConnection(*in, connectionJson.value(DocumentKeys::inIndex).toInt(), *out,
                            connectionJson.value(DocumentKeys::outIndex).toInt(), converter);
}

CNodeBase& CNodeScene::makeNode(const QJsonObject& nodeJson, const QJsonObject& modelJson)
{
    const QPointer<CNodeScene> self(this);
    const QString name = modelJson.value(DocumentKeys::name).toString();
    // A share of the registry, because the creator may give the scene another one.
    const std::shared_ptr<CNodeDataModelRegistry> registry = m_registry;
    std::unique_ptr<CNodeDataModel> model = registry ? registry->create(name) : nullptr;
    if (!model)
        throw std::logic_error("No registered model with name " + name.toLocal8Bit().toStdString());
    if (!self)
        return noNode();

    model->setInfo(m_info);
    auto node = std::make_unique<CNodeBase>(std::move(model));
    node->restore(nodeJson);
    return self ? addNode(std::move(node)) : noNode();
}

CNodeBase& CNodeScene::findUnique(const QString& modelName)
{
    CNodeBase* found = nullptr;
    const QPointer<CNodeScene> self(this);
    const bool isOpen = forEachNode([this, &self, &found, &modelName](CNodeBase* node) {
        if (found)
            return;
        const CNodeVisit visit(*node);
        const bool isMeant = node->nodeDataModel()->name() == modelName; // foreign code, which may remove the node
        if (isMeant && self && !visit.isOver() && holds(*node))
            found = node;
    });
    return isOpen && found ? *found : noNode();
}

CNodeBase* CNodeScene::findNode(const QJsonValue& id) const
{
    const auto found = m_nodes.find(Core::CId(id.toString().toLocal8Bit().constData()));
    return found == m_nodes.end() ? nullptr : found->second.get();
}

NodeDataConverter CNodeScene::findConverter(const QJsonValue& converterJson) const
{
    const std::shared_ptr<CNodeDataModelRegistry> registry = m_registry; // a share, as in makeNode()
    if (converterJson.isUndefined() || !registry)
        return NodeDataConverter();
    return registry->getTypeConverter(readType(converterJson[DocumentKeys::out]),
                                      readType(converterJson[DocumentKeys::in]));
}

} // namespace Plugin::Halvex
