// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CGraphText.h"

#include "host/base/ConnectionText.h"
#include "host/documents/PictureText.h"

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

} // namespace

CGraphText::CGraphText(const CNodeScene& scene)
{
    addEdges(scene, addNodes(scene));
}

// How deep in the flow each node lies.
CGraphText::Numbers CGraphText::depths(const CNodeScene& scene)
{
    Numbers numbers;
    for (const auto& entry : scene.nodes())
        numbers.emplace(entry.second.get(), int(numbers.size()));
    FlowEdges edges;
    for (const auto& entry : scene.connections()) {
        const auto from = numbers.find(nodeAt(*entry.second, ENodePortType::Out));
        const auto to = numbers.find(nodeAt(*entry.second, ENodePortType::In));
        // A connection may lead to a node of another scene, or to none.
        if (from != numbers.end() && to != numbers.end())
            edges.emplace_back(from->second, to->second);
    }
    const std::vector<int> depths = flowDepths(int(numbers.size()), edges);
    for (auto& number : numbers)
        number.second = depths[std::size_t(number.second)];
    return numbers;
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
        m_kinds.push_back(kindOf(*std::get<3>(place)->nodeDataModel()));
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
            m_edges.push_back(
                {from->second, to->second,
                 connectionTypeText(connection.dataType(ENodePortType::Out), connection.dataType(ENodePortType::In))});
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
    SPicture picture;
    for (std::size_t node = 0; node < m_captions.size(); ++node) {
        picture.nodes.emplace_back();
        picture.nodes.back().kind = m_kinds[node];
        picture.nodes.back().caption = m_captions[node];
    }
    for (const SEdge& edge : m_edges)
        picture.edges.push_back({edge.from, edge.to, edge.label, {}, {}, {}});
    return QString::fromUtf8(dotText(picture));
}

} // namespace Host
