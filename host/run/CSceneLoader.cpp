// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CSceneLoader.h"

#include "host/base/Attempt.h"
#include "host/base/Shown.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/scene/CNodeScene.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QPointer>

namespace Host {

using namespace Plugin::Halvex;

namespace {

Core::CId readId(const QJsonValue& json)
{
    return Core::CId(json.toString().toLatin1().constData());
}

} // namespace

CSceneLoader::CSceneLoader(CNodeScene& scene, CNodeBase& camera)
    : m_scene(scene)
    , m_camera(camera)
{
}

QString CSceneLoader::load(const QJsonObject& document)
{
    const QPointer<CNodeScene> scene(&m_scene);
    const QPointer<CNodeBase> camera(&m_camera);
    const auto isGone = [&] { return !scene || !camera; };
    const QString gone = tr("the scene is gone");
    const QJsonArray nodes = document.value(DocumentKeys::nodes).toArray();
    for (int i = 0; i < nodes.size(); ++i) {
        const QString error = addNode(nodes.at(i).toObject());
        if (isGone())
            return gone;
        if (!error.isEmpty())
            return QStringLiteral("nodes[%1]: %2").arg(i).arg(error);
    }
    const QJsonArray connections = document.value(DocumentKeys::connections).toArray();
    for (int i = 0; i < connections.size(); ++i) {
        const bool isMade = addConnection(connections.at(i).toObject());
        if (isGone())
            return gone;
        if (!isMade)
            return tr("connections[%1]: the scene refuses it").arg(i);
    }
    return {};
}

QString CSceneLoader::addNode(const QJsonObject& json)
{
    const QString name = json[DocumentKeys::model][DocumentKeys::name].toString();
    if (name == m_camera.nodeDataModel()->name()) {
        m_cameraId = readId(json[DocumentKeys::id]);
        return {};
    }
    return attempt(tr("making %1").arg(shown(name)), [&] {
        m_scene.restoreNode(json);
        return true;
    });
}

bool CSceneLoader::addConnection(QJsonObject json)
{
    // The camera's node has an id of its own, whatever the document calls it.
    if (readId(json[DocumentKeys::outId]) == m_cameraId)
        json.insert(QString(DocumentKeys::outId), m_camera.id().toString());
    return m_scene.restoreConnection(json) != nullptr;
}

} // namespace Host
