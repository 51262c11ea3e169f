// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SShape.h"

#include <Halvex/graph/CNodeData.h>

#include <boost/signals2.hpp>

#include <memory>
#include <vector>

/// A shape of Boost.Signals2. Each stage keeps the data and emits a signal, to which those that it feeds are connected;
/// a stage that feeds none only keeps the data.
class CSignals2Graph
{
public:
    /// Each node of \a shape has one input.
    explicit CSignals2Graph(const SShape& shape)
    {
        for (int node = 0; node < shape.nodes; ++node)
            m_stages.push_back(std::make_unique<CStage>());
        for (const SShape::SEdge& edge : shape.edges)
            m_stages[std::size_t(edge.from)]->feed(*m_stages[std::size_t(edge.to)]);
    }

    void walk(const Plugin::Halvex::CNodeDataPtr& data) { m_stages.front()->setInData(data); }

private:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;

    class CStage
    {
    public:
        void feed(CStage& consumer)
        {
            m_updated.connect([&consumer](const CNodeDataPtr& data) { consumer.setInData(data); });
            m_isSink = false;
        }

        void setInData(const CNodeDataPtr& data)
        {
            m_data = data;
            if (!m_isSink)
                m_updated(m_data);
        }

    private:
        CNodeDataPtr m_data;
        bool m_isSink = true;
        boost::signals2::signal<void(const CNodeDataPtr&)> m_updated;
    };

    std::vector<std::unique_ptr<CStage>> m_stages;
};
