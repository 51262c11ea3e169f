// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SShape.h"

#include <Halvex/graph/CNodeData.h>

#include <memory>
#include <utility>
#include <vector>

/// The floor F1, written by hand: each stage stores the data and calls the next one. Chains only.
class CCallChain
{
public:
    explicit CCallChain(const SShape& chain)
    {
        for (int node = 0; node < chain.nodes; ++node) {
            m_stages.push_back(std::make_unique<CStage>());
            if (node > 0)
                m_stages[std::size_t(node) - 1]->next = m_stages.back().get();
        }
    }

    void walk(const Plugin::Halvex::CNodeDataPtr& data) { m_stages.front()->setInData(data, 0); }

private:
    class CStage
    {
    public:
        virtual ~CStage() = default;
        virtual void setInData(Plugin::Halvex::CNodeDataPtr data, int index)
        {
            if (!next) {
                m_data = std::move(data);
                return;
            }
            m_data = data;
            next->setInData(std::move(data), index);
        }

        CStage* next = nullptr;

    private:
        Plugin::Halvex::CNodeDataPtr m_data;
    };

    std::vector<std::unique_ptr<CStage>> m_stages;
};
