// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CGraphBuilder.h"

#include "host/base/InputFile.h"
#include "host/base/Shown.h"
#include "host/check/CDocumentCheck.h"
#include "host/check/FaultReport.h"
#include "host/models/IHostModels.h"
#include "host/report/Counted.h"
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

QString cannotLoad(const QString& document, const QString& reason)
{
    return QStringLiteral("cannot load '%1': %2").arg(document, reason);
}

// The errors of a document as 'check' tells them, below a line that says how many; empty if there are none.
QString errorsText(const SCheckedFile& document)
{
    const QStringList lines = errorLines(document);
    if (lines.isEmpty())
        return {};
    const QString reason = QStringLiteral("it has %1:\n").arg(counted(quint64(lines.size()), "error"));
    return cannotLoad(document.file, reason + lines.join(QLatin1Char('\n')));
}

QString noScene(const QString& camera)
{
    return QStringLiteral("the service gives the camera %1 no scene").arg(shown(camera));
}

std::map<Core::CId, QString> labels(const std::vector<Core::CId>& made, const QJsonArray& elements)
{
    std::map<Core::CId, QString> labels;
    for (int i = 0; i < elements.size() && std::size_t(i) < made.size(); ++i)
        labels.emplace(made[std::size_t(i)], elements.at(i)[DocumentKeys::name].toString());
    return labels;
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
    CDocumentCheck check(m_service, m_models, {EDocumentKind::Chain, cameras});
    *error = errorsText({chain.name, check.check(chain.source)});
    if (!error->isEmpty())
        return {};

    std::vector<std::unique_ptr<CStreamGraph>> graphs;
    for (int i = 0; i < cameras.size(); ++i) {
        const SCameraScene place = addCamera(cameras.at(i));
        if (!place.isThere()) {
            *error = noScene(cameras.at(i));
            return {};
        }
        // An import makes the nodes in the order of the elements.
        std::vector<Core::CId> made;
        const auto collecting = QObject::connect(place.scene.data(), &CNodeScene::nodeCreated, place.scene.data(),
                                                 [&made](const CNodeBase& node) { made.push_back(node.id()); });
        // Counted, since an import that makes less than the chain says is no failure to the service.
        const bool isImported = m_service.importDocument(QString::fromUtf8(chain.text));
        QObject::disconnect(collecting);
        if (!isImported || !place.isThere() || place.scene->nodes().size() != 1 + std::size_t(chain.elements.size()) ||
            place.scene->connections().size() != check.connections(i)) {
            *error = cannotLoad(chain.name,
                                QStringLiteral("not all of it came into the scene of %1").arg(shown(cameras.at(i))));
            return {};
        }
        graphs.push_back(std::make_unique<CStreamGraph>(*place.scene, *place.camera));
        graphs.back()->setLabels(labels(made, chain.elements));
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

std::unique_ptr<CStreamGraph> CGraphBuilder::load(const QString& file, const QString& camera, QString* error)
{
    const QByteArray text = readDocument(file, error);
    if (error->isEmpty())
        *error = errorsText(
            {inputName(file), CDocumentCheck(m_service, m_models, {EDocumentKind::Scene, {camera}}).check(text)});
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
