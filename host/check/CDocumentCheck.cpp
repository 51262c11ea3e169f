// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CDocumentCheck.h"

#include "host/check/CChainReader.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CSceneReader.h"
#include "host/check/CShapeCheck.h"
#include "host/check/CWordFinder.h"
#include "host/check/DocumentGraph.h"
#include "host/check/JsonText.h"
#include "host/models/IHostModels.h"

#include <Halvex/service/INodeService.h>

#include <algorithm>
#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// Any if it is neither.
EDocumentKind kindOf(const SJsonNode& root)
{
    if (root.isArray())
        return EDocumentKind::Chain;
    return root.isObject() ? EDocumentKind::Scene : EDocumentKind::Any;
}

} // namespace

CDocumentCheck::CDocumentCheck(INodeService& service, const IHostModels& models, SCheckOptions options)
    : m_service(service)
    , m_models(models)
    , m_options(std::move(options))
{
}

CDocumentCheck::~CDocumentCheck() = default;

std::vector<SFault> CDocumentCheck::read(const QByteArray& text, SDocumentGraph* result)
{
    m_connections.clear();
    CFaultList faults(text);
    CJsonTree tree;
    if (!readJson(text, tree, faults))
        return faults.sorted();
    SJsonNode& root = *tree.root();
    const EDocumentKind kind = m_options.kind == EDocumentKind::Any ? kindOf(root) : m_options.kind;
    if (kind == EDocumentKind::Any) {
        faults.addError(EFaultRule::WrongType, root,
                        tr("%1, where an array (a chain) or an object (a scene) belongs").arg(description(root)));
        return faults.sorted();
    }

    const bool isChain = kind == EDocumentKind::Chain;
    CWordFinder words;
    const QJsonObject schema = shippedSchema(isChain ? QStringLiteral("chain") : QStringLiteral("scene"));
    CShapeCheck(schema, faults, words).check(root);
    if (kindOf(root) != kind || faults.isCut())
        return faults.sorted();

    CModelCatalogue catalogue(*m_service.registry());
    CGraphCheck graph(catalogue, faults);
    CNodeReader nodes(catalogue, faults, words, m_options);
    const auto source = m_models.createCameraSource(QStringLiteral("camera"));
    SGraphNode camera;
    camera.outputs = portTypes(*source, ENodePortType::Out);
    camera.hasModel = true;
    camera.isCamera = true;
    if (isChain) {
        CChainReader(graph, nodes, faults, words, m_options, camera).read(root);
        for (int i = 0; i < m_options.cameras.size(); ++i)
            m_connections.push_back(graph.connectionsOf(i));
    } else {
        CSceneReader(graph, nodes, faults, words, m_models, camera).read(root);
    }
    if (result) {
        *result = documentGraph(graph, kind, faults);
        addCaptions(result);
    }
    return faults.sorted();
}

// Those of cameras: which they stand for is known only when all is read.
void CDocumentCheck::addCaptions(SDocumentGraph* graph) const
{
    for (SDocumentNode& node : graph->nodes) {
        const QString name = node.camera.isEmpty() ? QStringLiteral("any") : node.camera;
        if (node.kind == ENodeKind::Source)
            node.caption = m_models.createCameraSource(name)->caption();
    }
}

std::size_t CDocumentCheck::connections(int camera) const
{
    const auto at = std::size_t(camera);
    return at < m_connections.size() ? m_connections[at] : 0;
}

bool hasErrors(const std::vector<SFault>& faults)
{
    return std::any_of(faults.begin(), faults.end(), [](const SFault& fault) { return fault.isError; });
}

} // namespace Host
