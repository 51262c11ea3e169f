// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CSceneLoader.h"

#include "host/base/Attempt.h"
#include "host/base/Shown.h"
#include "host/run/PortError.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/scene/CNodeScene.h>

#include <QJsonArray>
#include <QJsonObject>

namespace Host {

using namespace Plugin::Halvex;

namespace {

Core::CId readId(const QJsonValue& json)
{
    return Core::CId(json.toString().toLatin1().constData());
}

QString place(int node)
{
    return QStringLiteral("nodes[%1]").arg(node);
}

} // namespace

CSceneLoader::CSceneLoader(CNodeScene& scene, CNodeBase& camera)
    : m_scene(scene)
    , m_camera(camera)
{
}

QString CSceneLoader::load(const QJsonObject& document)
{
    for (const QLatin1String key : {DocumentKeys::nodes, DocumentKeys::connections}) {
        if (!document.value(key).isArray())
            return QStringLiteral("%1: no array").arg(key);
    }

    const QJsonArray nodes = document.value(DocumentKeys::nodes).toArray();
    for (int i = 0; i < nodes.size(); ++i) {
        const QString error = addNode(i, nodes.at(i));
        if (!error.isEmpty())
            return QStringLiteral("nodes[%1]: %2").arg(i).arg(error);
    }
    if (m_cameraNumber < 0)
        return QStringLiteral("nodes: no %1 among them").arg(shown(m_camera.nodeDataModel()->name()));

    const QJsonArray connections = document.value(DocumentKeys::connections).toArray();
    for (int i = 0; i < connections.size(); ++i) {
        const QString error = addConnection(connections.at(i));
        if (!error.isEmpty())
            return QStringLiteral("connections[%1]: %2").arg(i).arg(error);
    }
    const int looped = nodeOfLoop(int(m_nodes.size()), m_edges);
    return looped < 0 ? QString() : QStringLiteral("connections: they lead from nodes[%1] back to it").arg(looped);
}

QString CSceneLoader::addNode(int index, const QJsonValue& json)
{
    const QJsonValue model = json[DocumentKeys::model];
    if (!model.isObject())
        return QStringLiteral("no object with a model");
    const QString name = model[DocumentKeys::name].toString();
    const auto& creators = m_scene.registry().registeredModelCreators();
    if (creators.find(name) == creators.end())
        return QStringLiteral("no model %1 is registered").arg(shown(name));
    const bool isCamera = name == m_camera.nodeDataModel()->name();
    if (model[DocumentKeys::isUnique].toBool() && !isCamera)
        return QStringLiteral("a unique %1 is not made anew, and there is none to refer to").arg(shown(name));

    const QJsonValue idText = json[DocumentKeys::id];
    const Core::CId id = readId(idText);
    if (id == Core::CId())
        return QStringLiteral("%1 is no id").arg(shown(idText.toString()));
    const auto known = m_numbers.emplace(id, index);
    if (!known.second)
        return QStringLiteral("has the id of nodes[%1]").arg(known.first->second);
    return isCamera ? addCamera(index) : makeNode(json.toObject());
}

QString CSceneLoader::addCamera(int index)
{
    if (m_cameraNumber >= 0)
        return QStringLiteral("a second %1, after nodes[%2]")
            .arg(shown(m_camera.nodeDataModel()->name()))
            .arg(m_cameraNumber);
    m_cameraNumber = index;
    m_nodes.push_back(&m_camera);
    return {};
}

QString CSceneLoader::makeNode(const QJsonObject& json)
{
    const QString name = json[DocumentKeys::model][DocumentKeys::name].toString();
    CNodeBase* node = nullptr;
    const QString thrown = attempt(QStringLiteral("making %1").arg(shown(name)), [&] {
        node = &m_scene.restoreNode(json);
        return true;
    });
    if (!thrown.isEmpty())
        return thrown;
    m_nodes.push_back(node);
    return m_sinkNames.add(node->nodeDataModel());
}

QString CSceneLoader::addConnection(const QJsonValue& json)
{
    const auto number = [&](QLatin1String key) {
        const auto found = m_numbers.find(readId(json[key]));
        return found == m_numbers.end() ? -1 : found->second;
    };
    if (!json.isObject())
        return QStringLiteral("no object");
    const int from = number(DocumentKeys::outId);
    const int to = number(DocumentKeys::inId);
    if (from < 0 || to < 0)
        return QStringLiteral("no node has its %1").arg(from < 0 ? DocumentKeys::outId : DocumentKeys::inId);

    const CNodeBase& out = *m_nodes[std::size_t(from)];
    const CNodeBase& in = *m_nodes[std::size_t(to)];
    const int outIndex = json[DocumentKeys::outIndex].toInt();
    const int inIndex = json[DocumentKeys::inIndex].toInt();
    QString error = portError(*out.nodeDataModel(), ENodePortType::Out, outIndex, place(from));
    if (error.isEmpty())
        error = portError(*in.nodeDataModel(), ENodePortType::In, inIndex, place(to));
    if (error.isEmpty())
        error = checkTypes(out, outIndex, in, inIndex, json[DocumentKeys::converter]);
    if (!error.isEmpty())
        return error;

    // The camera's node has an id of its own, whatever the document calls it.
    QJsonObject connection = json.toObject();
    connection.insert(QString(DocumentKeys::outId), out.id().toString());
    if (!m_scene.restoreConnection(connection))
        return QStringLiteral("the scene refuses it");
    m_edges.emplace_back(from, to);
    return {};
}

QString CSceneLoader::checkTypes(const CNodeBase& out, int outIndex, const CNodeBase& in, int inIndex,
                                 const QJsonValue& converter) const
{
    const SNodeDataType given = out.nodeDataModel()->dataType(ENodePortType::Out, outIndex);
    const SNodeDataType taken = in.nodeDataModel()->dataType(ENodePortType::In, inIndex);
    if (converter.isUndefined()) {
        if (given.id == taken.id)
            return {};
        return QStringLiteral("%1 to %2 without a converter").arg(shown(given.id), shown(taken.id));
    }
    const SNodeDataType from{converter[DocumentKeys::out][DocumentKeys::id].toString(), {}};
    const SNodeDataType to{converter[DocumentKeys::in][DocumentKeys::id].toString(), {}};
    if (from.id != given.id || to.id != taken.id)
        return QStringLiteral("a converter from %1 to %2 between ports of %3 and %4")
            .arg(shown(from.id), shown(to.id), shown(given.id), shown(taken.id));
    if (!m_scene.registry().getTypeConverter(from, to))
        return QStringLiteral("no converter from %1 to %2 is registered").arg(shown(from.id), shown(to.id));
    return {};
}

} // namespace Host
