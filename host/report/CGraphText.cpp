// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CGraphText.h"

#include <Halvex/scene/CNodeScene.h>

#include <QTextStream>

#include <algorithm>
#include <tuple>

namespace Host {

using namespace Plugin::Halvex;

namespace {

const CNodeBase* nodeAt(const CNodeConnection& connection, ENodePortType side)
{
    return connection.getNode(side);
}

bool isWhole(const CNodeConnection& connection)
{
    return nodeAt(connection, ENodePortType::In) && nodeAt(connection, ENodePortType::Out);
}

QString edgeLabel(const CNodeConnection& connection)
{
    const SNodeDataType from = connection.dataType(ENodePortType::Out);
    const SNodeDataType to = connection.dataType(ENodePortType::In);
    return from.id == to.id ? from.name : QStringLiteral("%1 to %2").arg(from.name, to.name);
}

QString quoted(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

CGraphText::CGraphText(const CNodeScene& scene)
{
    addEdges(scene, addNodes(scene));
}

// The longest way from a node without input to each node.
CGraphText::Numbers CGraphText::depths(const CNodeScene& scene)
{
    Numbers depths;
    // No way without a loop is longer than there are nodes; stopping there also ends with loops.
    bool isChanged = true;
    for (std::size_t round = 0; isChanged && round < scene.nodes().size(); ++round) {
        isChanged = false;
        for (const auto& entry : scene.connections()) {
            const CNodeConnection& connection = *entry.second;
            if (!isWhole(connection))
                continue;
            const int least = depths[nodeAt(connection, ENodePortType::Out)] + 1;
            int& depth = depths[nodeAt(connection, ENodePortType::In)];
            isChanged = isChanged || depth < least;
            depth = std::max(depth, least);
        }
    }
    return depths;
}

CGraphText::Numbers CGraphText::addNodes(const CNodeScene& scene)
{
    using Place = std::tuple<int, QString, Core::CId, const CNodeBase*>;
    Numbers depth = depths(scene);
    std::vector<Place> places;
    for (const auto& entry : scene.nodes()) {
        const CNodeBase* node = entry.second.get();
        places.emplace_back(depth[node], node->nodeDataModel()->caption(), entry.first, node);
    }
    std::sort(places.begin(), places.end());

    Numbers numbers;
    for (const Place& place : places) {
        numbers[std::get<3>(place)] = int(m_nodes.size());
        m_nodes.push_back(std::get<3>(place));
        m_captions.push_back(std::get<1>(place));
    }
    return numbers;
}

void CGraphText::addEdges(const CNodeScene& scene, const Numbers& numbers)
{
    for (const auto& entry : scene.connections()) {
        const CNodeConnection& connection = *entry.second;
        if (!isWhole(connection))
            continue;
        const auto from = numbers.find(nodeAt(connection, ENodePortType::Out));
        const auto to = numbers.find(nodeAt(connection, ENodePortType::In));
        // A connection may lead to a node of another scene.
        if (from != numbers.end() && to != numbers.end())
            m_edges.push_back({from->second, to->second, edgeLabel(connection)});
    }
    std::sort(m_edges.begin(), m_edges.end(), [](const SEdge& left, const SEdge& right) {
        return std::tie(left.from, left.to, left.label) < std::tie(right.from, right.to, right.label);
    });
}

FlowEdges CGraphText::edges() const
{
    FlowEdges edges;
    for (const SEdge& edge : m_edges)
        edges.emplace_back(edge.from, edge.to);
    return edges;
}

QString CGraphText::text() const
{
    QString text;
    QTextStream out(&text);
    auto edge = m_edges.begin();
    for (std::size_t node = 0; node < m_captions.size(); ++node) {
        out << "  [" << node << "] " << m_captions[node] << '\n';
        for (; edge != m_edges.end() && edge->from == int(node); ++edge)
            out << "        " << edge->label << " -> [" << edge->to << "] " << m_captions[std::size_t(edge->to)]
                << '\n';
    }
    out.flush();
    return text;
}

QString CGraphText::dot() const
{
    QString text;
    QTextStream out(&text);
    out << "digraph Halvex {\n    rankdir=LR\n    node [shape=box]\n";
    for (std::size_t node = 0; node < m_captions.size(); ++node)
        out << "    n" << node << " [label=" << quoted(m_captions[node]) << "]\n";
    for (const SEdge& edge : m_edges)
        out << "    n" << edge.from << " -> n" << edge.to << " [label=" << quoted(edge.label) << "]\n";
    out << "}\n";
    out.flush();
    return text;
}

} // namespace Host
