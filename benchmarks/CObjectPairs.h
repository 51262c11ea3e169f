// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>

#include <memory>
#include <vector>

/// The floor S, written by hand: pairs of QObjects, linked by pointer, each pair to the one before.
class CObjectPairs
{
public:
    explicit CObjectPairs(int pairs)
    {
        m_nodes.reserve(std::size_t(pairs));
        CNode* last = nullptr;
        for (int pair = 0; pair < pairs; ++pair) {
            m_nodes.push_back(std::make_unique<CNode>(last));
            last = m_nodes.back().get();
        }
    }

private:
    class CModel : public QObject
    {
    };

    class CNode : public QObject
    {
    public:
        explicit CNode(CNode* before)
            : m_model(std::make_unique<CModel>())
            , m_before(before)
        {
        }

    private:
        std::unique_ptr<CModel> m_model;
        [[maybe_unused]] CNode* m_before;
    };

    std::vector<std::unique_ptr<CNode>> m_nodes;
};
