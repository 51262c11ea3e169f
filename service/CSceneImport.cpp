// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "service/CSceneImport_p.h"

#include "graph/CNodeVisit_p.h"
#include "graph/support/JsonObject_p.h"
#include "graph/support/JsonText_p.h"
#include "graph/support/Reports_p.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/scene/CNodeScene.h>

namespace Plugin::Halvex {
namespace {

// Of an element of an import document, which has "name" and "model" as well. Frozen: documents hold them.
constexpr QLatin1String uniqueSourcesKey = DocumentKeys::makeKey("unique_sources");
constexpr QLatin1String connectionKey = DocumentKeys::makeKey("connection");
constexpr QLatin1String indexInKey = DocumentKeys::makeKey("index_in");
constexpr QLatin1String indexOutKey = DocumentKeys::makeKey("index _out"); // the blank is part of it

QJsonObject nodeJson(const QString& id, const QJsonObject& model)
{
    return jsonObject({{DocumentKeys::id, id}, {DocumentKeys::model, model}});
}

/// What refers to \a node in a scene document; empty if the model, when it is asked, destroys the node.
QJsonObject referenceTo(const CNodeBase& node)
{
    const CNodeVisit visit(node);
    auto* const model = qobject_cast<ANodeDataModel*>(node.nodeDataModel());
    Q_ASSERT(model);
    const QString name = model->name();
    if (visit.isOver())
        return {};
    const bool isUnique = model->isUnique();
    if (visit.isOver())
        return {};
    return nodeJson(node.id().toString(), jsonObject({{DocumentKeys::name, name}, {DocumentKeys::isUnique, isUnique}}));
}

void warnOfType(const QJsonObject& element, QLatin1String key)
{
    warnOnce("\"%\" of the element \"%\" of an import is to be a list of lists: what is something else is left out.",
             key, element.value(DocumentKeys::name).toString());
}

/// \a value of what stands under \a key of \a element; empty, after a warning, if it is no array.
QJsonArray readArray(const QJsonValue& value, const QJsonObject& element, QLatin1String key)
{
    if (!value.isArray() && !value.isNull() && !value.isUndefined())
        warnOfType(element, key);
    return value.toArray();
}

/// Calls \a visitor with the position and the text of each string in the arrays of "unique_sources".
template <typename Visitor>
void forEachSource(const QJsonObject& element, const Visitor& visitor)
{
    const QJsonArray ports = readArray(element.value(uniqueSourcesKey), element, uniqueSourcesKey);
    for (int port = 0; port < ports.size(); ++port) {
        const QJsonArray names = readArray(ports.at(port), element, uniqueSourcesKey);
        for (const QJsonValue& name : names) {
            if (name.isString())
                visitor(port, name.toString());
            else
                warnOfType(element, uniqueSourcesKey);
        }
    }
}

} // namespace

CSceneImport::CSceneImport(CNodeScene& scene)
{
    scene.iterateOverNodes([this](CNodeBase* node) {
        const auto* const model = qobject_cast<ANodeDataModel*>(node->nodeDataModel());
        if (model && model->hasUniqueName() && !m_sources.contains(model->uniqueName()))
            m_sources.insert(model->uniqueName(), {node, {}});
    });
}

void CSceneImport::addDocument(const QString& text)
{
    const QJsonArray array = readJson(text.toUtf8(), QStringLiteral("An import"), QJsonValue::Array).array();
    QJsonArray elements;
    for (int index = 0; index < array.size(); ++index) {
        if (array.at(index).isObject())
            elements.append(array.at(index));
        else
            warnOnce("Element % of an import is no object and is left out.", QString::number(index));
    }

    for (const QJsonValue& element : qAsConst(elements))
        addNodes(element.toObject());
    for (const QJsonValue& element : qAsConst(elements))
        addConnections(element.toObject());
}

QJsonObject CSceneImport::sceneDocument() const
{
    return jsonObject({{DocumentKeys::nodes, m_nodes}, {DocumentKeys::connections, m_connections}});
}

void CSceneImport::addNodes(const QJsonObject& element)
{
    // A copy is never unique: a unique model would not be made, but looked for.
    QJsonObject model = element.value(DocumentKeys::model).toObject();
    model.insert(QString(DocumentKeys::isUnique), false);
    m_nodes.append(nodeJson(makeId(element.value(DocumentKeys::name).toString()), model));
    forEachSource(element, [this](int, const QString& name) { addSource(name); });
}

void CSceneImport::addSource(const QString& name)
{
    const auto source = m_sources.find(name);
    if (source == m_sources.end())
        return;
    const CNodeBase* const node = source->node;
    if (node && source->json.isEmpty())
        source->json = referenceTo(*node);
    if (source->json.isEmpty())
        return;
    m_ids.insert(name, source->json.value(DocumentKeys::id).toString());
    m_nodes.append(source->json);
}

void CSceneImport::addConnections(const QJsonObject& element)
{
    const QString ownId = idOf(element.value(DocumentKeys::name).toString());
    // A source's output port has the number of the input port that it feeds.
    forEachSource(element, [&](int port, const QString& name) { connectNodes(ownId, port, idOf(name), port); });

    const QJsonArray groups = readArray(element.value(connectionKey), element, connectionKey);
    for (const QJsonValue& group : groups) {
        const QJsonArray consumers = readArray(group, element, connectionKey);
        for (const QJsonValue& consumer : consumers) {
            if (consumer.isString())
                connectNodes(idOfConsumer(consumer.toString()), 0, ownId, 0);
            else if (consumer.isObject())
                connectNodes(idOfConsumer(consumer[DocumentKeys::name].toString()), consumer[indexInKey].toInt(), ownId,
                             consumer[indexOutKey].toInt());
            else
                warnOfType(element, connectionKey);
        }
    }
}

void CSceneImport::connectNodes(const QString& inId, int inIndex, const QString& outId, int outIndex)
{
    m_connections.append(jsonObject({{DocumentKeys::inId, inId},
                                     {DocumentKeys::inIndex, inIndex},
                                     {DocumentKeys::outId, outId},
                                     {DocumentKeys::outIndex, outIndex}}));
}

QString CSceneImport::makeId(const QString& label)
{
    const auto known = m_ids.constFind(label);
    return known != m_ids.constEnd() ? *known : *m_ids.insert(label, Core::CId::createId().toString());
}

QString CSceneImport::idOf(const QString& label)
{
    const auto known = m_ids.constFind(label);
    if (known != m_ids.constEnd())
        return *known;
    const QPointer<CNodeBase> node = m_sources.value(label).node;
    return *m_ids.insert(label, (node ? node->id() : Core::CId()).toString());
}

// A source that is not there is no mistake: a chain for several cameras is imported into the scene of each.
QString CSceneImport::idOfConsumer(const QString& label)
{
    QString id = idOf(label);
    if (id == Core::CId().toString())
        warnOnce("A connection of an import is left out: nothing is labelled \"%\", and no node of the scene has that "
                 "unique name.",
                 label);
    return id;
}

} // namespace Plugin::Halvex
