// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The scene as a document: the half of CNodeScene that writes and reads it.

#include "graph/CNodeVisit_p.h"
#include "graph/support/JsonObject_p.h"
#include "graph/support/JsonText_p.h"
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

/// The array under \a key of \a root; empty, after a warning, if something else is there.
QJsonArray readArray(const QJsonObject& root, QLatin1String key)
{
    const QJsonValue value = root.value(key);
    if (!value.isArray() && !value.isUndefined())
        warnOnce("\"%\" of a scene document is no array and is left out.", key);
    return value.toArray();
}

/// Warns that a connection is left out. An import has told already of a label that nothing has, which has the null id.
void warnOfMissingNode(const QJsonValue& id)
{
    const QString text = id.toString();
    if (text != Core::CId().toString())
        warnOnce("A connection of a document is left out: the scene has no node \"%\".", text);
}

/// Warns of models in \a nodes that \a registry could not make again.
void warnOfUnknownModels(const QJsonArray& nodes, const CNodeDataModelRegistry& registry)
{
    for (const QJsonValue& node : nodes) {
        const QJsonObject model = node[DocumentKeys::model].toObject();
        const QString name = model.value(DocumentKeys::name).toString();
        if (!isUnique(model) && registry.registeredModelCreators().count(name) == 0)
            warnOnce("The model \"%\" of node % is saved, but not registered under that name: the document cannot be "
                     "loaded.",
                     name, node[DocumentKeys::id].toString());
    }
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

    if (self && m_registry)
        warnOfUnknownModels(nodes, *std::shared_ptr<const CNodeDataModelRegistry>(m_registry));

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
    const QPointer<const CNodeScene> self(this);
    const QJsonObject document = readJson(data, QStringLiteral("A scene document"), QJsonValue::Object).object();
    if (self)
        load(document);
}

void CNodeScene::load(const QJsonObject& root)
{
    const QPointer<CNodeScene> self(this);

    const QJsonArray nodes = readArray(root, DocumentKeys::nodes);
    const QJsonArray connections = readArray(root, DocumentKeys::connections);
    if (!self)
        return;
    for (const QJsonValue& json : nodes) {
        const QJsonObject nodeJson = json.toObject();
        const QJsonObject modelJson = nodeJson.value(DocumentKeys::model).toObject();
        // A unique model is only ever matched against a node that is here already, and nobody asks which.
        if (!isUnique(modelJson))
            makeNode(nodeJson, modelJson);
        if (!self)
            return;
    }

    for (const QJsonValue& json : connections) {
        if (json.isObject())
            restoreConnection(json.toObject());
        else
            warnOnce("A connection of a document is left out: it is no object.");
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
    if (!in || !out) {
        warnOfMissingNode(connectionJson.value(in ? DocumentKeys::outId : DocumentKeys::inId));
        return nullptr;
    }
    const int inIndex = connectionJson.value(DocumentKeys::inIndex).toInt();
    const int outIndex = connectionJson.value(DocumentKeys::outIndex).toInt();
    if (!in->m_state.hasPort(ENodePortType::In, inIndex) || !out->m_state.hasPort(ENodePortType::Out, outIndex)) {
        warnOnce("A connection of a document is left out: it leads from output port % of node % to input port % of "
                 "node %, and one of them is not there.",
                 QString::number(outIndex), out->id().toString(), QString::number(inIndex), in->id().toString());
        return nullptr;
    }
    return createConnection(*in, inIndex, *out, outIndex, converter);
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
