// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SShape.h"
#include "graph/CNodeData.h"

#include <tbb/flow_graph.h>
#include <tbb/global_control.h>

#include <memory>
#include <vector>

/// A shape of oneTBB's flow graph. Each stage keeps the data; it runs where the data came from, without a task of its
/// own, and there is one thread: the others would take part of the work, and of its time.
class CTbbGraph
{
public:
    /// Each node of \a shape has one input.
    explicit CTbbGraph(const SShape& shape)
        : m_oneThread(tbb::global_control::max_allowed_parallelism, 1)
    {
        for (int node = 0; node < shape.nodes; ++node) {
            m_kept.push_back(std::make_unique<CNodeDataPtr>());
            m_stages.push_back(std::make_unique<Stage>(m_graph, tbb::flow::unlimited,
                                                       [kept = m_kept.back().get()](const CNodeDataPtr& data) noexcept {
                                                           *kept = data;
                                                           return data;
                                                       }));
        }
        for (const SShape::SEdge& edge : shape.edges)
            tbb::flow::make_edge(*m_stages[std::size_t(edge.from)], *m_stages[std::size_t(edge.to)]);
    }

    void walk(const Plugin::Halvex::CNodeDataPtr& data)
    {
        m_stages.front()->try_put(data);
        m_graph.wait_for_all();
    }

private:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using Stage = tbb::flow::function_node<CNodeDataPtr, CNodeDataPtr, tbb::flow::lightweight>;

    tbb::global_control m_oneThread;
    tbb::flow::graph m_graph;
    std::vector<std::unique_ptr<CNodeDataPtr>> m_kept;
    std::vector<std::unique_ptr<Stage>> m_stages;
};
