// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CGraphBuilder.h"

#include "host/base/Shown.h"
#include "host/models/IHostModels.h"
#include "host/run/CChainCheck.h"
#include "host/run/CSceneLoader.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Chain.h"
#include "host/run/SceneFile.h"
#include "scene/CNodeScene.h"
#include "service/INodeService.h"

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

QString cannotLoad(const QString& document, const QString& reason)
{
    return QStringLiteral("cannot load '%1': %2").arg(document, reason);
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
    CChainCheck check(m_service, m_models, cameras);
    const QString reason = check.check(chain.elements);
    if (!reason.isEmpty()) {
        *error = cannotLoad(chain.name, reason);
        return {};
    }

    std::vector<std::unique_ptr<CStreamGraph>> graphs;
    for (int i = 0; i < cameras.size(); ++i) {
        const SCameraScene place = addCamera(cameras.at(i));
        // Counted, since an import that makes less than the chain says is no failure to the service.
        const bool isImported = m_service.importDocument(QString::fromUtf8(chain.text));
        if (!isImported || place.scene.nodes().size() != 1 + std::size_t(chain.elements.size()) ||
            place.scene.connections().size() != check.connections(i)) {
            *error = cannotLoad(chain.name,
                                QStringLiteral("not all of it came into the scene of %1").arg(shown(cameras.at(i))));
            return {};
        }
        graphs.push_back(std::make_unique<CStreamGraph>(place.scene, place.camera));
    }
    return graphs;
}

std::unique_ptr<CStreamGraph> CGraphBuilder::load(const QString& file, const QString& camera, QString* error)
{
    const QJsonObject document = readSceneFile(file, error);
    if (!error->isEmpty())
        return nullptr;
    const SCameraScene place = addCamera(camera);
    const QString reason = CSceneLoader(place.scene, place.camera).load(document);
    if (reason.isEmpty())
        return std::make_unique<CStreamGraph>(place.scene, place.camera);
    *error = cannotLoad(file, reason);
    return nullptr;
}

CGraphBuilder::SCameraScene CGraphBuilder::addCamera(const QString& camera)
{
    // The scene is found by the very object; there is nothing to say in it.
    const auto info = Core::AppCoreComponents::BaseInfoPtr::create();
    const Core::CId id = m_service.addNode(m_models.createCameraSource(camera), info);
    CNodeScene* const scene = m_service.findSceneByInfo(info);
    CNodeBase* const node = m_service.findNode(id);
    Q_ASSERT(scene && node); // a unique source gets both
    return {*scene, *node};
}

} // namespace Host
