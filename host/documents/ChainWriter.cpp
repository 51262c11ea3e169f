// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/ChainWriter.h"

#include "host/base/AnyCamera.h"
#include "host/base/Shown.h"
#include "host/check/CModelCatalogue.h"
#include "host/documents/GraphOrder.h"
#include "host/documents/NodeLabels.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QJsonArray>
#include <QJsonDocument>

#include <map>

namespace Host {

using namespace Plugin::Halvex;

namespace {

bool isFromCamera(const SDocumentGraph& graph, const SDocumentConnection& connection)
{
    return graph.nodes[std::size_t(connection.from)].kind == ENodeKind::Source;
}

QString converterText(const SDocumentConnection& connection, CModelCatalogue& models)
{
    const QString from = connection.converter[DocumentKeys::out][DocumentKeys::id].toString();
    const QString to = connection.converter[DocumentKeys::in][DocumentKeys::id].toString();
    const QString model = models.modelBetween(from, to);
    const QString remedy = model.isEmpty() ? QString() : QStringLiteral("; put a %1 between").arg(shown(model));
    return QStringLiteral("a chain's connections have no converter%1").arg(remedy);
}

// For each input port, by its number, the cameras that feed it.
using Sources = std::map<int, QJsonArray>;

QJsonArray sourcesJson(const Sources& sources)
{
    QJsonArray ports;
    for (int port = 0; !sources.empty() && port <= sources.rbegin()->first; ++port) {
        const auto found = sources.find(port);
        ports.append(found == sources.end() ? QJsonArray() : found->second);
    }
    return ports;
}

QJsonValue targetJson(const SDocumentConnection& connection, const QString& label)
{
    if (connection.outPort == 0 && connection.inPort == 0)
        return label;
    return QJsonObject{{"name", label}, {"index_in", connection.inPort}, {"index _out", connection.outPort}};
}

QJsonObject elementJson(const SDocumentNode& node, const QString& label, const Sources& sources,
                        const QJsonArray& targets)
{
    QJsonObject model = node.model;
    model.remove(DocumentKeys::isUnique); // which an import makes false
    QJsonObject element{{"name", label}, {"model", model}};
    if (!sources.empty())
        element.insert(QStringLiteral("unique_sources"), sourcesJson(sources));
    if (!targets.isEmpty())
        element.insert(QStringLiteral("connection"), QJsonArray{QJsonValue(targets)});
    return element;
}

} // namespace

std::vector<SFault> chainFaults(const SDocumentGraph& graph, CModelCatalogue& models)
{
    std::vector<SFault> faults;
    const auto add = [&faults](const SDocumentPlace& place, EFaultRule rule, const QString& message) {
        faults.push_back({true, rule, place.line, place.column, place.path, message});
    };
    for (const SDocumentConnection& each : graph.connections) {
        if (!each.converter.isEmpty())
            add(each.place, EFaultRule::DataType, converterText(each, models));
        else if (isFromCamera(graph, each) && each.outPort != each.inPort)
            add(each.place, EFaultRule::Port,
                QStringLiteral("a chain takes output %1 of a camera to input %1, not to input %2")
                    .arg(each.outPort)
                    .arg(each.inPort));
    }
    return faults;
}

QByteArray chainText(const SDocumentGraph& graph)
{
    const QStringList labels = nodeLabels(graph);
    std::vector<Sources> sources(graph.nodes.size());
    std::vector<QJsonArray> targets(graph.nodes.size());
    for (const SDocumentConnection& each : graph.connections) {
        const QString camera = graph.nodes[std::size_t(each.from)].camera;
        if (isFromCamera(graph, each))
            sources[std::size_t(each.to)][each.inPort].append(camera.isEmpty() ? QString(anyCamera) : camera);
        else
            targets[std::size_t(each.from)].append(targetJson(each, labels.at(each.to)));
    }
    QJsonArray elements;
    for (const int node : flowOrderOf(graph)) {
        const auto at = std::size_t(node);
        if (graph.nodes[at].kind != ENodeKind::Source)
            elements.append(elementJson(graph.nodes[at], labels.at(node), sources[at], targets[at]));
    }
    return QJsonDocument(elements).toJson();
}

} // namespace Host
