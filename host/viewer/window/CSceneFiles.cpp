// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CSceneFiles.h"

#include "host/base/InputFile.h"
#include "host/check/CDocumentCheck.h"
#include "host/documents/DocumentFile.h"
#include "host/run/CSceneLoader.h"
#include "host/run/Chain.h"
#include "host/run/Output.h"
#include "host/run/SceneFile.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/edit/GraphPart.h"
#include "host/viewer/window/CPositionsFile.h"
#include "host/viewer/window/CScenePage.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <vector>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// The camera's node has another id in each process.
const QString cameraKey = QStringLiteral("camera");

void rename(QMap<QString, QPointF>* positions, const QString& from, const QString& to)
{
    if (positions->contains(from))
        positions->insert(to, positions->take(from));
}

// What says of a graph only that it is not complete is no reason to refuse it: it is here to be edited.
std::vector<SFault> refusals(std::vector<SFault> faults)
{
    const auto isTolerable = [](const SFault& fault) {
        return fault.rule == EFaultRule::Camera || fault.rule == EFaultRule::Unreached ||
               fault.rule == EFaultRule::Sink;
    };
    faults.erase(std::remove_if(faults.begin(), faults.end(), isTolerable), faults.end());
    return faults;
}

std::vector<Core::CId> idsBesides(const CNodeScene& scene, const Core::CId& left)
{
    std::vector<Core::CId> ids;
    for (const auto& node : scene.nodes()) {
        if (node.first != left)
            ids.push_back(node.first);
    }
    return ids;
}

} // namespace

CSceneFiles::CSceneFiles(INodeService& service, const IHostModels& models, const CPositionsFile& positions)
    : m_service(service)
    , m_models(models)
    , m_positions(positions)
{
}

QString CSceneFiles::open(CScenePage& page, const QString& file)
{
    CNodeBase* const camera = page.camera();
    if (!camera)
        return tr("the scene has no camera");
    QString error;
    const QByteArray text = readDocument(file, &error);
    if (!error.isEmpty())
        return error;
    CDocumentCheck check(m_service, m_models, {EDocumentKind::Scene, {page.cameraName()}, /*canNameCommands=*/false});
    error = faultsText(tr("cannot open '%1'"), inputName(file), refusals(check.check(text)));
    if (!error.isEmpty()) {
        m_refusedText = text;
        return error;
    }
    QMap<QString, QPointF> positions = m_positions.load(file);
    rename(&positions, cameraKey, camera->id().toString());
    return replace(page, *camera, positions, QJsonDocument::fromJson(text).object(), file);
}

QString CSceneFiles::replace(CScenePage& page, CNodeBase& camera, const NodePositions& positions,
                             const QJsonObject& document, const QString& file)
{
    // Handlers may destroy scene and camera at each step.
    const QPointer<CNodeScene> scene = page.scene();
    const QPointer<CNodeBase> kept(&camera);
    const Core::CId cameraId = camera.id();
    CGraphEditor& editor = page.editor();
    const NodePositions formerPositions = editor.positions();
    SGraphPart former = partOf(*scene, idsBesides(*scene, cameraId), formerPositions);
    takeOut(*scene, &former, formerPositions);
    // Before the nodes, which are placed by themselves else.
    editor.setPositions(positions);
    QString error;
    if (scene && kept)
        error = idsBesides(*scene, cameraId).empty() ? CSceneLoader(*scene, *kept).load(document)
                                                     : tr("the scene cannot be cleared");
    if (!scene || !kept)
        error = tr("the scene is gone");
    if (error.isEmpty()) {
        editor.undoStack().clear();
        page.setFile(file);
        return {};
    }
    if (!scene)
        return error;
    SGraphPart made = partOf(*scene, idsBesides(*scene, cameraId), {});
    former.positions = formerPositions; // the camera's too
    if (editor.exchange(&made, former) > 0) {
        // What is there now is nobody's document: nothing may be saved over one without a question.
        editor.undoStack().clear();
        editor.undoStack().resetClean();
        page.setFile({});
    }
    return error;
}

QString CSceneFiles::save(CScenePage& page, const QString& file) const
{
    if (!page.scene())
        return tr("the scene is gone");
    QString error = replaceFile(file, orderedScene(page.scene()->saveToMemory()));
    if (!error.isEmpty())
        return error;
    page.editor().undoStack().setClean();
    page.setFile(file);
    QMap<QString, QPointF> positions = page.editor().positions();
    if (const CNodeBase* const camera = page.camera())
        rename(&positions, camera->id().toString(), cameraKey);
    return m_positions.save(file, positions);
}

QString CSceneFiles::importChain(CScenePage& page, const QString& file)
{
    QString error;
    const QStringList cameras{page.cameraName()};
    const SChain chain = withCameras(readChain(file, &error), cameras);
    if (!error.isEmpty())
        return error;
    CDocumentCheck check(m_service, m_models, {EDocumentKind::Chain, cameras, /*canNameCommands=*/false});
    error = faultsText(tr("cannot import '%1'"), chain.name, refusals(check.check(chain.source)));
    if (!error.isEmpty()) {
        m_refusedText = chain.source;
        return error;
    }
    const bool isImported = !page.editor().importChain(QString::fromUtf8(chain.text)).empty();
    return isImported || chain.elements.isEmpty() ? QString() : tr("nothing of '%1' could be made").arg(chain.name);
}

} // namespace Host
