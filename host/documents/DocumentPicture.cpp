// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/DocumentPicture.h"

#include "host/base/ConnectionText.h"
#include "host/check/SDocumentGraph.h"

namespace Host {

using namespace Plugin::Halvex;

namespace {

SNodeDataType typeOf(const PortTypes& ports, int port)
{
    return port >= 0 && std::size_t(port) < ports.size() ? ports[std::size_t(port)] : SNodeDataType();
}

QString endText(const PortTypes& ports, const QStringList& names, int port)
{
    return portText(port, ports.size(), names.value(port), typeOf(ports, port));
}

SPictureEdge edgeOf(const SDocumentGraph& graph, const SDocumentConnection& connection)
{
    const SDocumentNode& from = graph.nodes[std::size_t(connection.from)];
    const SDocumentNode& to = graph.nodes[std::size_t(connection.to)];
    SPictureEdge edge;
    edge.from = connection.from;
    edge.to = connection.to;
    edge.type = connectionTypeText(typeOf(from.outputs, connection.outPort), typeOf(to.inputs, connection.inPort));
    edge.outPort = endText(from.outputs, from.outputNames, connection.outPort);
    edge.inPort = endText(to.inputs, to.inputNames, connection.inPort);
    return edge;
}

} // namespace

SPicture documentPicture(const SDocumentGraph& graph)
{
    SPicture picture;
    for (const SDocumentNode& node : graph.nodes) {
        SPictureNode drawn;
        drawn.kind = node.kind;
        drawn.caption = node.caption;
        // An id tells nobody anything.
        if (graph.kind == EDocumentKind::Chain)
            drawn.label = node.label;
        picture.nodes.push_back(drawn);
    }
    for (const SDocumentConnection& connection : graph.connections)
        picture.edges.push_back(edgeOf(graph, connection));
    return picture;
}

} // namespace Host
