// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/NodeLabels.h"

#include "host/documents/GraphOrder.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QHash>
#include <QSet>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

QString modelLabel(const QJsonObject& model)
{
    const QString name = model.value(DocumentKeys::name).toString();
    const QString sink = model.value(DocumentKeys::property)[QLatin1String("sink_name")].toString();
    return sink.isEmpty() ? name : QStringLiteral("%1 %2").arg(name, sink);
}

QString wantedLabel(const SDocumentNode& node, bool isChain, bool hasOneCamera)
{
    const QString camera = QStringLiteral("camera");
    if (node.kind == ENodeKind::Source)
        return hasOneCamera || node.camera.isEmpty() ? camera : QStringLiteral("%1 %2").arg(camera, node.camera);
    return isChain ? node.label : modelLabel(node.model);
}

} // namespace

QStringList nodeLabels(const SDocumentGraph& graph)
{
    const bool isChain = graph.kind == EDocumentKind::Chain;
    const auto cameras = std::count_if(graph.nodes.begin(), graph.nodes.end(),
                                       [](const SDocumentNode& node) { return node.kind == ENodeKind::Source; });
    QSet<QString> taken;
    for (const SDocumentNode& node : graph.nodes) {
        // In a chain, names of cameras and of elements are one space.
        taken.insert(node.camera);
        if (isChain)
            taken.insert(node.label);
    }

    QStringList labels;
    for (std::size_t i = 0; i < graph.nodes.size(); ++i)
        labels << QString();
    QHash<QString, int> last; // the number that was given last
    for (const int node : flowOrderOf(graph)) {
        const SDocumentNode& each = graph.nodes[std::size_t(node)];
        const bool hasLabel = isChain && each.kind != ENodeKind::Source;
        const QString wanted = wantedLabel(each, isChain, cameras == 1);
        QString label = wanted;
        while (!hasLabel && taken.contains(label)) {
            int& number = last[wanted];
            number = qMax(number, 1) + 1;
            label = QStringLiteral("%1 %2").arg(wanted).arg(number);
        }
        taken.insert(label);
        labels[node] = label;
    }
    return labels;
}

} // namespace Host
