// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/measure/CLoad.h"

#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"
#include "host/viewer/measure/Waiting.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/INodeService.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr std::chrono::seconds patience{30};
const QString allFrames = QStringLiteral("all");

QJsonObject element(const QString& name, const QString& model, const QString& next, const QString& camera = {})
{
    QJsonObject json{{"name", name}, {"model", QJsonObject{{"name", model}}}};
    if (!next.isEmpty())
        json["connection"] = QJsonArray{QJsonValue(QJsonArray{next})};
    if (!camera.isEmpty())
        json["unique_sources"] = QJsonArray{QJsonValue(QJsonArray{camera})};
    return json;
}

QJsonObject sink(const QString& name)
{
    return {{"name", name},
            {"model", QJsonObject{{"name", "PNG Sink"}, {"property", QJsonObject{{"sink_name", name}}}}}};
}

QString chainFor(const QString& camera, int nodes)
{
    constexpr int nodesOfBranch = 3;
    QJsonArray chain{element(QStringLiteral("image"), QStringLiteral("To Image"), allFrames, camera), sink(allFrames)};
    for (int branch = 0; chain.size() + nodesOfBranch <= nodes; ++branch) {
        const QString number = QString::number(branch);
        chain.append(element("rate " + number, QStringLiteral("DecouplerVGR"), "image " + number, camera));
        chain.append(element("image " + number, QStringLiteral("To Image"), "sink " + number));
        chain.append(sink("sink " + number));
    }
    return QString::fromUtf8(QJsonDocument(chain).toJson());
}

} // namespace

CLoad::CLoad(CCameraSessions& sessions, INodeService& service, const SLoadSize& size)
    : m_sessions(sessions)
    , m_service(service)
    , m_size(size)
{
    connect(&sessions, &CCameraSessions::opened, this, &CLoad::onOpened);
}

bool CLoad::start()
{
    for (int i = 0; i < m_size.cameras; ++i) {
        SCameraOptions camera;
        camera.address = QStringLiteral("fake-%1").arg(i + 1);
        camera.framesPerSecond = m_size.framesPerSecond;
        const CCameraSession* const session = m_sessions.connectCamera(camera);
        // One after the other: the first is the one with the large graph.
        if (!waitFor([session] { return session->state() == CCameraSession::EState::Streaming; }, patience))
            return false;
    }
    return true;
}

void CLoad::end()
{
    const auto sessions = m_sessions.all();
    for (const CCameraSession* const session : sessions)
        m_sessions.disconnectCamera(session->name());
    waitFor([this] { return m_sessions.findChildren<CCameraSession*>().isEmpty(); }, patience);
}

void CLoad::onOpened(CCameraSession* session)
{
    CNodeScene* const scene = session->scene();
    m_service.setActiveScene(scene);
    m_service.importDocument(chainFor(session->name(), m_sessions.all().size() == 1 ? m_size.nodes : 0));
    countAtEnds(*scene);
    session->start();
}

void CLoad::countAtEnds(const CNodeScene& scene)
{
    for (const auto& node : scene.nodes()) {
        auto* const model = qobject_cast<ASinkNodeDataModel*>(node.second->nodeDataModel());
        if (model && model->getDataFlowProxy() && model->property("sinkName").toString() == allFrames)
            connect(model->getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, this, [this] { ++m_delivered; });
    }
}

quint64 CLoad::sent() const
{
    quint64 frames = 0;
    for (const CCameraSession* const session : m_sessions.all())
        frames += session->frames();
    return frames;
}

} // namespace Host
