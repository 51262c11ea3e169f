// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Loops.h"

#include <algorithm>
#include <cstddef>

namespace Host {

namespace {

using Targets = std::vector<std::vector<int>>;

// All that \a from leads to, the nearest first: itself only if it lies on a loop.
std::vector<int> reached(const Targets& targets, int from)
{
    std::vector<bool> isReached(targets.size(), false);
    std::vector<int> order = targets[std::size_t(from)];
    std::vector<int> met;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const auto node = std::size_t(order[i]);
        if (isReached[node])
            continue;
        isReached[node] = true;
        met.push_back(order[i]);
        order.insert(order.end(), targets[node].begin(), targets[node].end());
    }
    return met;
}

} // namespace

std::vector<int> nodesOnLoops(int nodes, const FlowEdges& edges, int source)
{
    // Most graphs have none.
    const std::vector<int> ordered = flowOrder(nodes, edges);
    if (ordered.size() == std::size_t(nodes))
        return {};
    std::vector<bool> mayLoop(static_cast<std::size_t>(nodes), true);
    for (const int node : ordered)
        mayLoop[std::size_t(node)] = false;
    Targets targets(static_cast<std::size_t>(nodes));
    for (const auto& edge : edges)
        targets[std::size_t(edge.first)].push_back(edge.second);

    std::vector<int> candidates = reached(targets, source);
    for (int node = 0; node < nodes; ++node)
        candidates.push_back(node); // what the source does not reach
    std::vector<int> looped;
    for (const int node : candidates) {
        if (!mayLoop[std::size_t(node)])
            continue;
        mayLoop[std::size_t(node)] = false;
        const std::vector<int> behind = reached(targets, node);
        if (std::find(behind.begin(), behind.end(), node) != behind.end())
            looped.push_back(node);
    }
    return looped;
}

} // namespace Host
