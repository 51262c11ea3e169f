// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/FlowOrder.h"

#include <algorithm>
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

int nodeOfLoop(int nodes, const FlowEdges& edges)
{
    std::vector<char> isLeft(static_cast<std::size_t>(nodes), 1);
    for (const int node : flowOrder(nodes, edges))
        isLeft[std::size_t(node)] = 0;
    const auto first = std::find(isLeft.begin(), isLeft.end(), 1);
    if (first == isLeft.end())
        return -1;

    // Each node that is left has another such node before it: so many steps back, and one stands in a loop.
    std::vector<int> before(static_cast<std::size_t>(nodes), -1);
    for (const auto& edge : edges) {
        if (isLeft[std::size_t(edge.first)])
            before[std::size_t(edge.second)] = edge.first;
    }
    int node = int(first - isLeft.begin());
    for (int i = 0; i < nodes; ++i)
        node = before[std::size_t(node)];
    return node;
}

} // namespace Host
