// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CRelayModel.h"
#include "SShape.h"

#include <Halvex/scene/CNodeScene.h>

#include <vector>

/// A shape, built with a scene.
class CSceneGraph
{
public:
    explicit CSceneGraph(const SShape& shape, const Plugin::Halvex::NodeDataConverter& converter = {})
        : m_scene(nullptr, nullptr)
    {
        std::vector<Plugin::Halvex::CNodeBase*> nodes;
        for (const SShape::SDegree& degree : shape.degrees())
            nodes.push_back(&m_scene.createNode(makeModel(degree)));
        m_first = nodes.front();

        std::vector<int> usedPorts(nodes.size(), 0);
        for (const SShape::SEdge& edge : shape.edges) {
            const auto to = std::size_t(edge.to);
            m_scene.createConnection(*nodes[to], usedPorts[to]++, *nodes[std::size_t(edge.from)], 0, converter);
        }
    }

    void walk(const Plugin::Halvex::CNodeDataPtr& data) { m_first->propagateData(data, 0); }

private:
    Plugin::Halvex::CNodeScene m_scene;
    Plugin::Halvex::CNodeBase* m_first;
};
