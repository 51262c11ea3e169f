// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SShape.h"

#include <Halvex/graph/CNodeData.h>

#include <tbb/flow_graph.h>
#include <tbb/global_control.h>

#include <memory>
#include <vector>

/// A shape of oneTBB's flow graph. Each stage keeps the data, and one that feeds others returns it; it runs where the
/// data came from, without a task of its own, and there is one thread: the others would take part of the work, and of
/// its time.
class CTbbGraph
{
public:
    /// Each node of \a shape has one input.
    explicit CTbbGraph(const SShape& shape)
        : m_oneThread(tbb::global_control::max_allowed_parallelism, 1)
    {
        for (const SShape::SDegree& degree : shape.degrees()) {
            m_kept.push_back(std::make_unique<CNodeDataPtr>());
            if (degree.outputs == 0)
                addSink(*m_kept.back());
            else
                addRelay(*m_kept.back());
        }
        for (const SShape::SEdge& edge : shape.edges)
            tbb::flow::make_edge(*m_senders[std::size_t(edge.from)], *m_receivers[std::size_t(edge.to)]);
    }

    void walk(const Plugin::Halvex::CNodeDataPtr& data)
    {
        m_receivers.front()->try_put(data);
        m_graph.wait_for_all();
    }

private:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using Relay = tbb::flow::function_node<CNodeDataPtr, CNodeDataPtr, tbb::flow::lightweight>;
    using Sink = tbb::flow::function_node<CNodeDataPtr, tbb::flow::continue_msg, tbb::flow::lightweight>;

    void addRelay(CNodeDataPtr& kept)
    {
        auto relay = std::make_unique<Relay>(m_graph, tbb::flow::unlimited, [&kept](const CNodeDataPtr& data) noexcept {
            kept = data;
            return data;
        });
        m_receivers.push_back(relay.get());
        m_senders.push_back(relay.get());
        m_stages.push_back(std::move(relay));
    }

    void addSink(CNodeDataPtr& kept)
    {
        auto sink = std::make_unique<Sink>(m_graph, tbb::flow::unlimited, [&kept](const CNodeDataPtr& data) noexcept {
            kept = data;
            return tbb::flow::continue_msg();
        });
        m_receivers.push_back(sink.get());
        m_senders.push_back(nullptr);
        m_stages.push_back(std::move(sink));
    }

    tbb::global_control m_oneThread;
    tbb::flow::graph m_graph;
    std::vector<std::unique_ptr<CNodeDataPtr>> m_kept;
    std::vector<std::unique_ptr<tbb::flow::graph_node>> m_stages;
    std::vector<tbb::flow::receiver<CNodeDataPtr>*> m_receivers; // of each stage
    std::vector<tbb::flow::sender<CNodeDataPtr>*> m_senders;     // of each stage, null for a sink
};
