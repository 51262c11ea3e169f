// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/FlowOrder.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Host {

namespace {

// Who leads where, and how many lead to each.
struct STargets
{
    STargets(int nodes, const FlowEdges& edges)
        : next(std::size_t(nodes))
        , waitsFor(std::size_t(nodes), 0)
    {
        for (const auto& edge : edges) {
            next[std::size_t(edge.first)].push_back(edge.second);
            ++waitsFor[std::size_t(edge.second)];
        }
    }

    std::vector<std::vector<int>> next;
    std::vector<int> waitsFor;
};

// What is left when all that remains waits for itself: the nodes of loops to which something has led, or all of them.
std::vector<int> entriesOfLoops(const std::vector<bool>& isTaken, const std::vector<bool>& isReached)
{
    std::vector<int> entered;
    std::vector<int> left;
    for (int node = 0; node < int(isTaken.size()); ++node) {
        if (isTaken[std::size_t(node)])
            continue;
        left.push_back(node);
        if (isReached[std::size_t(node)])
            entered.push_back(node);
    }
    return entered.empty() ? left : entered;
}

} // namespace

std::vector<int> flowOrder(int nodes, const FlowEdges& edges)
{
    STargets targets(nodes, edges);
    std::vector<std::vector<int>>& next = targets.next;
    std::vector<int>& waitsFor = targets.waitsFor;

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

std::vector<int> flowDepths(int nodes, const FlowEdges& edges)
{
    STargets targets(nodes, edges);
    std::vector<int> depths(std::size_t(nodes), 0);
    std::vector<bool> isTaken(std::size_t(nodes), false);
    std::vector<bool> isReached(std::size_t(nodes), false);
    std::vector<int> open;
    for (int node = 0; node < nodes; ++node) {
        if (targets.waitsFor[std::size_t(node)] == 0)
            open.push_back(node);
    }
    for (int taken = 0; taken < nodes;) {
        if (open.empty())
            open = entriesOfLoops(isTaken, isReached);
        const std::vector<int> round = std::exchange(open, {});
        taken += int(round.size());
        for (const int node : round)
            isTaken[std::size_t(node)] = true;
        for (const int node : round) {
            for (const int target : targets.next[std::size_t(node)]) {
                const auto at = std::size_t(target);
                if (isTaken[at])
                    continue;
                isReached[at] = true;
                depths[at] = std::max(depths[at], depths[std::size_t(node)] + 1);
                if (--targets.waitsFor[at] == 0)
                    open.push_back(target);
            }
        }
    }
    return depths;
}

} // namespace Host
