// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CGraphBuilder.h"

#include "host/base/InputFile.h"
#include "host/base/Shown.h"
#include "host/check/CDocumentCheck.h"
#include "host/documents/DocumentFile.h"
#include "host/models/IHostModels.h"
#include "host/run/CSceneLoader.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Chain.h"
#include "host/run/SceneFile.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/INodeService.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// As faultsText() takes it.
QString cannotLoad()
{
    return QStringLiteral("cannot load '%1'");
}

QString cannotLoad(const QString& document, const QString& reason)
{
    return QStringLiteral("%1: %2").arg(cannotLoad().arg(document), reason);
}

QString noScene(const QString& camera)
{
    return QStringLiteral("the service gives the camera %1 no scene").arg(shown(camera));
}

} // namespace

CGraphBuilder::CGraphBuilder(INodeService& service, const IHostModels& models)
    : m_service(service)
    , m_models(models)
{
}

std::vector<std::unique_ptr<CStreamGraph>> CGraphBuilder::import(const SChain& chain, const QStringList& cameras,
                                                                 QString* error)
{
    return import(std::vector<SChain>{chain}, cameras, error);
}

std::vector<std::unique_ptr<CStreamGraph>> CGraphBuilder::import(const std::vector<SChain>& chains,
                                                                 const QStringList& cameras, QString* error)
{
    const std::vector<SSoundChain> sound = check(chains, cameras, error);
    if (!error->isEmpty())
        return {};

    std::vector<std::unique_ptr<CStreamGraph>> graphs;
    for (int i = 0; i < cameras.size(); ++i) {
        const SCameraScene place = addCamera(cameras.at(i));
        if (!place.isThere()) {
            *error = noScene(cameras.at(i));
            return {};
        }
        std::map<Core::CId, QString> labels;
        for (const SSoundChain& each : sound) {
            if (importInto(place, each.chain, each.connections[std::size_t(i)], &labels))
                continue;
            *error = cannotLoad(each.chain.name,
                                QStringLiteral("not all of it came into the scene of %1").arg(shown(cameras.at(i))));
            return {};
        }
        graphs.push_back(std::make_unique<CStreamGraph>(*place.scene, *place.camera));
        graphs.back()->setLabels(labels);
    }
    // What is done for one camera may have made somebody change the graph of another.
    for (std::size_t i = 0; i < graphs.size(); ++i) {
        if (!graphs[i]->isIntact()) {
            *error = CStreamGraph::changedText(cameras.at(int(i)));
            return {};
        }
    }
    return graphs;
}

// All of their errors at once.
std::vector<CGraphBuilder::SSoundChain> CGraphBuilder::check(const std::vector<SChain>& chains,
                                                             const QStringList& cameras, QString* error)
{
    std::vector<SSoundChain> sound;
    QStringList errors;
    for (const SChain& chain : chains) {
        CDocumentCheck check(m_service, m_models, {EDocumentKind::Chain, cameras});
        errors << faultsText(cannotLoad(), chain.name, check.check(chain.source));
        sound.push_back({chain, {}});
        for (int i = 0; i < cameras.size() && errors.last().isEmpty(); ++i)
            sound.back().connections.push_back(check.connections(i));
    }
    errors.removeAll(QString());
    *error = errors.isEmpty() ? findClash(chains) : errors.join(QLatin1Char('\n'));
    return sound;
}

// Counted, since an import that makes less than the chain says is no failure to the service.
bool CGraphBuilder::importInto(const SCameraScene& place, const SChain& chain, std::size_t connections,
                               std::map<Core::CId, QString>* labels)
{
    // An import makes the nodes in the order of the elements.
    std::vector<Core::CId> made;
    const auto collecting = QObject::connect(place.scene.data(), &CNodeScene::nodeCreated, place.scene.data(),
                                             [&made](const CNodeBase& node) { made.push_back(node.id()); });
    const std::size_t nodesBefore = place.scene->nodes().size();
    const std::size_t connectionsBefore = place.scene->connections().size();
    const bool isImported = m_service.importDocument(QString::fromUtf8(chain.text));
    QObject::disconnect(collecting);
    for (int i = 0; i < chain.elements.size() && std::size_t(i) < made.size(); ++i)
        labels->emplace(made[std::size_t(i)], chain.elements.at(i)[DocumentKeys::name].toString());
    return isImported && place.isThere() &&
           place.scene->nodes().size() == nodesBefore + std::size_t(chain.elements.size()) &&
           place.scene->connections().size() == connectionsBefore + connections;
}

std::unique_ptr<CStreamGraph> CGraphBuilder::load(const QString& file, const QString& camera, QString* error)
{
    const QByteArray text = readDocument(file, error);
    if (error->isEmpty())
        *error = faultsText(cannotLoad(), inputName(file),
                            CDocumentCheck(m_service, m_models, {EDocumentKind::Scene, {camera}}).check(text));
    if (!error->isEmpty())
        return nullptr;
    const SCameraScene place = addCamera(camera);
    if (!place.isThere()) {
        *error = noScene(camera);
        return nullptr;
    }
    const QJsonObject document = QJsonDocument::fromJson(text).object();
    const QString reason = CSceneLoader(*place.scene, *place.camera).load(document);
    if (reason.isEmpty())
        return std::make_unique<CStreamGraph>(*place.scene, *place.camera);
    *error = cannotLoad(inputName(file), reason);
    return nullptr;
}

CGraphBuilder::SCameraScene CGraphBuilder::addCamera(const QString& camera)
{
    // The scene is found by the very object; there is nothing to say in it.
    const auto info = Core::AppCoreComponents::BaseInfoPtr::create();
    const Core::CId id = m_service.addNode(m_models.createCameraSource(camera), info);
    return {m_service.findSceneByInfo(info), m_service.findNode(id)};
}

} // namespace Host
