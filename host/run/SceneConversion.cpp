// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SceneConversion.h"

#include "host/base/Shown.h"
#include "host/documents/DocumentFile.h"
#include "host/run/CGraphBuilder.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Chain.h"
#include "host/run/SceneFile.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/scene/CNodeScene.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <vector>

namespace Host {

using namespace Plugin::Halvex;

namespace {

std::vector<const SDocumentNode*> camerasOf(const SDocumentGraph& graph)
{
    std::vector<const SDocumentNode*> cameras;
    for (const SDocumentNode& node : graph.nodes) {
        if (node.kind == ENodeKind::Source)
            cameras.push_back(&node);
    }
    return cameras;
}

// Where the element of a camera's first connection says its name.
SFault secondCamera(const SDocumentGraph& graph, const SDocumentNode& camera)
{
    const auto number = int(&camera - graph.nodes.data());
    const auto first = std::find_if(graph.connections.begin(), graph.connections.end(),
                                    [number](const SDocumentConnection& each) { return each.from == number; });
    const SDocumentPlace place = first == graph.connections.end() ? SDocumentPlace() : first->place;
    const QString name = camera.camera.isEmpty() ? QStringLiteral("any camera")
                                                 : QStringLiteral("the camera %1").arg(shown(camera.camera));
    return {true,       EFaultRule::Camera,
            place.line, place.column,
            place.path, QStringLiteral("%1 beside another one; a scene has one camera, --camera says which").arg(name)};
}

// A name that no element has, for the camera that has none.
QString unusedName(const SDocumentGraph& graph)
{
    QString name = QStringLiteral("camera");
    const auto isTaken = [&name](const SDocumentNode& node) { return node.label == name; };
    while (std::any_of(graph.nodes.begin(), graph.nodes.end(), isTaken))
        name += QLatin1Char('_');
    return name;
}

// The document with a camera that has no name: any camera.
QByteArray withoutCameraName(const QByteArray& text)
{
    QJsonObject document = QJsonDocument::fromJson(text).object();
    QJsonArray nodes = document.value(DocumentKeys::nodes).toArray();
    for (int i = 0; i < nodes.size(); ++i) {
        QJsonObject node = nodes.at(i).toObject();
        QJsonObject model = node.value(DocumentKeys::model).toObject();
        if (!model.value(DocumentKeys::isUnique).toBool())
            continue;
        model.remove(DocumentKeys::uniqueName);
        node.insert(QString(DocumentKeys::model), model);
        nodes.replace(i, node);
    }
    document.insert(QString(DocumentKeys::nodes), nodes);
    return QJsonDocument(document).toJson();
}

} // namespace

QByteArray sceneOfChain(const SDocumentFile& chain, const QString& camera, INodeService& service,
                        const IHostModels& models, QString* error)
{
    const std::vector<const SDocumentNode*> cameras = camerasOf(chain.graph);
    QString name = camera;
    if (camera.isEmpty()) {
        std::vector<SFault> faults;
        for (std::size_t i = 1; i < cameras.size(); ++i)
            faults.push_back(secondCamera(chain.graph, *cameras[i]));
        *error = faultsText(QStringLiteral("cannot convert '%1'"), chain.name, faults);
        if (!error->isEmpty())
            return {};
        name = cameras.front()->camera;
    }
    const bool isForAny = name.isEmpty();
    if (isForAny)
        name = unusedName(chain.graph);
    const QStringList run{name};
    const auto graphs =
        CGraphBuilder(service, models).import(withCameras(chainOf(chain.name, chain.text), run), run, error);
    if (!error->isEmpty())
        return {};
    const QByteArray scene = graphs.front()->scene().saveToMemory();
    return orderedScene(isForAny ? withoutCameraName(scene) : scene);
}

} // namespace Host
