// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/DocumentGraph.h"

#include "host/base/AnyCamera.h"
#include "host/check/CFaultList.h"
#include "host/check/CGraphCheck.h"
#include "host/check/CJsonTree.h"

#include <Halvex/graph/DocumentKeys.h>

namespace Host {

using namespace Plugin::Halvex;

namespace {

SDocumentPlace placeOf(const SJsonNode* json, const CFaultList& faults)
{
    if (!json)
        return {};
    const STextPlace place = faults.placeOf(*json);
    return {place.line, place.column, pathOf(*json)};
}

ENodeKind kindOf(const SGraphNode& node)
{
    if (node.isCamera)
        return ENodeKind::Source;
    if (node.isDecoupler)
        return ENodeKind::Decoupler;
    return node.hasModel && node.outputs.empty() ? ENodeKind::Sink : ENodeKind::Filter;
}

// The camera of a scene is called as its model says, that of a chain as its sources do.
QString cameraName(const SGraphNode& node, const QJsonObject& model)
{
    const QString name = node.modelJson ? model.value(DocumentKeys::uniqueName).toString() : node.label;
    return name == anyCamera ? QString() : name;
}

SDocumentNode documentNode(const SGraphNode& node, const CFaultList& faults)
{
    SDocumentNode result;
    result.kind = kindOf(node);
    result.model = node.modelJson ? valueOf(*node.modelJson).toObject() : QJsonObject();
    if (node.isCamera)
        result.camera = cameraName(node, result.model);
    else
        result.label = node.label;
    result.caption = node.hasModel ? node.caption : result.model.value(DocumentKeys::name).toString();
    result.inputs = node.inputs;
    result.outputs = node.outputs;
    result.inputNames = node.inputNames;
    result.outputNames = node.outputNames;
    result.place = placeOf(node.json, faults);
    return result;
}

} // namespace

SDocumentGraph documentGraph(const CGraphCheck& graph, EDocumentKind kind, const CFaultList& faults)
{
    SDocumentGraph result;
    result.kind = kind;
    for (const SGraphNode& node : graph.nodes())
        result.nodes.push_back(documentNode(node, faults));
    for (const SGraphConnection& each : graph.connections())
        result.connections.push_back({each.from, int(each.outPort), each.to, int(each.inPort),
                                      each.converter ? valueOf(*each.converter).toObject() : QJsonObject(),
                                      placeOf(each.json, faults)});
    return result;
}

} // namespace Host
