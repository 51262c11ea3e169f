// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/FlowOrder.h"

#include <cstddef>

namespace Host {

std::vector<int> flowOrder(int nodes, const FlowEdges& edges)
{
    std::vector<std::vector<int>> next(static_cast<std::size_t>(nodes));
    std::vector<int> waitsFor(static_cast<std::size_t>(nodes), 0);
    for (const auto& edge : edges) {
        next[std::size_t(edge.first)].push_back(edge.second);
        ++waitsFor[std::size_t(edge.second)];
    }

    std::vector<int> order;
    for (int node = 0; node < nodes; ++node) {
        if (waitsFor[std::size_t(node)] == 0)
            order.push_back(node);
    }
    for (std::size_t i = 0; i < order.size(); ++i) {
        for (const int node : next[std::size_t(order[i])]) {
            if (--waitsFor[std::size_t(node)] == 0)
                order.push_back(node);
        }
    }
    return order;
}

} // namespace Host
