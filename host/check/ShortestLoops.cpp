// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/ShortestLoops.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace Host {

namespace {

using Targets = std::vector<std::vector<int>>;
using Loop = std::vector<int>;

constexpr long maxSteps = 5000000;

// Numbers the groups of nodes that lead to each other: Tarjan's algorithm, without recursion.
class CGroups
{
public:
    explicit CGroups(const Targets& targets)
        : m_targets(targets)
        , m_numbers(targets.size(), -1)
        , m_lowest(targets.size())
        , m_nextTargets(targets.size())
        , m_groups(targets.size(), -1)
    {
        for (int node = 0; node < int(targets.size()); ++node) {
            if (m_numbers[std::size_t(node)] < 0)
                visitAll(node);
        }
    }

    const std::vector<int>& groups() const { return m_groups; }
    int count() const { return m_count; }

private:
    void visitAll(int first)
    {
        enter(first);
        while (!m_way.empty()) {
            const auto node = std::size_t(m_way.back());
            if (m_nextTargets[node] == m_targets[node].size()) {
                leave();
                continue;
            }
            const auto target = std::size_t(m_targets[node][m_nextTargets[node]++]);
            if (m_numbers[target] < 0)
                enter(int(target));
            else if (m_groups[target] < 0)
                m_lowest[node] = std::min(m_lowest[node], m_numbers[target]);
        }
    }

    void enter(int node)
    {
        m_numbers[std::size_t(node)] = m_lowest[std::size_t(node)] = m_entered++;
        m_way.push_back(node);
        m_open.push_back(node);
    }

    void leave()
    {
        const auto node = std::size_t(m_way.back());
        m_way.pop_back();
        if (!m_way.empty()) {
            int& before = m_lowest[std::size_t(m_way.back())];
            before = std::min(before, m_lowest[node]);
        }
        if (m_lowest[node] != m_numbers[node])
            return;
        for (int member = -1; member != int(node); m_open.pop_back()) {
            member = m_open.back();
            m_groups[std::size_t(member)] = m_count;
        }
        ++m_count;
    }

    const Targets& m_targets;
    std::vector<int> m_numbers; // in the order in which nodes are entered
    std::vector<int> m_lowest;
    std::vector<std::size_t> m_nextTargets;
    std::vector<int> m_groups;
    std::vector<int> m_way;
    std::vector<int> m_open;
    int m_entered = 0;
    int m_count = 0;
};

// The edges within a group: all that a loop can be made of.
Targets innerTargets(const Targets& targets, const std::vector<int>& groups)
{
    Targets inner(targets.size());
    for (std::size_t node = 0; node < targets.size(); ++node) {
        std::copy_if(targets[node].begin(), targets[node].end(), std::back_inserter(inner[node]),
                     [&](int target) { return groups[std::size_t(target)] == groups[node]; });
    }
    return inner;
}

// The shortest way from a node back to it.
class CLoopSearch
{
public:
    explicit CLoopSearch(const Targets& targets)
        : m_targets(targets)
        , m_before(targets.size(), -1)
        , m_distances(targets.size())
    {
    }

    // Edges that were looked at so far.
    long steps() const { return m_steps; }

    // Empty if no way is shorter than \a limit.
    Loop find(int start, std::size_t limit)
    {
        std::vector<int> reached{start};
        Loop loop;
        for (std::size_t i = 0; i < reached.size() && loop.empty(); ++i) {
            if (m_distances[std::size_t(reached[i])] + 1 >= limit)
                break;
            loop = step(start, reached[i], reached);
        }
        for (const int node : reached) {
            m_before[std::size_t(node)] = -1;
            m_distances[std::size_t(node)] = 0;
        }
        return loop;
    }

private:
    Loop step(int start, int node, std::vector<int>& reached)
    {
        for (const int target : m_targets[std::size_t(node)]) {
            ++m_steps;
            if (target == start)
                return wayTo(start, node);
            const auto at = std::size_t(target);
            if (m_before[at] >= 0)
                continue;
            m_before[at] = node;
            m_distances[at] = m_distances[std::size_t(node)] + 1;
            reached.push_back(target);
        }
        return {};
    }

    Loop wayTo(int start, int node) const
    {
        Loop loop;
        for (int at = node; at != start; at = m_before[std::size_t(at)])
            loop.push_back(at);
        loop.push_back(start);
        std::reverse(loop.begin(), loop.end());
        return loop;
    }

    const Targets& m_targets;
    std::vector<int> m_before;
    std::vector<std::size_t> m_distances;
    long m_steps = 0;
};

} // namespace

std::vector<Loop> shortestLoops(int nodes, const FlowEdges& edges)
{
    Targets all(static_cast<std::size_t>(nodes));
    for (const auto& edge : edges)
        all[std::size_t(edge.first)].push_back(edge.second);
    const CGroups groups(all);
    const Targets targets = innerTargets(all, groups.groups());

    // From any node of a group with edges a way leads back.
    CLoopSearch search(targets);
    std::vector<Loop> loops(std::size_t(groups.count()));
    for (int node = 0; node < nodes; ++node) {
        Loop& loop = loops[std::size_t(groups.groups()[std::size_t(node)])];
        if (loop.empty() && !targets[std::size_t(node)].empty())
            loop = search.find(node, targets.size() + 1);
    }
    // A shorter one goes through a node that leads to several others, or it would be all of its group.
    for (int node = 0; node < nodes && search.steps() < maxSteps; ++node) {
        Loop& loop = loops[std::size_t(groups.groups()[std::size_t(node)])];
        if (targets[std::size_t(node)].size() < 2)
            continue;
        Loop shorter = search.find(node, loop.size());
        if (!shorter.empty())
            loop = std::move(shorter);
    }

    loops.erase(std::remove_if(loops.begin(), loops.end(), [](const Loop& loop) { return loop.empty(); }), loops.end());
    for (Loop& loop : loops)
        std::rotate(loop.begin(), std::min_element(loop.begin(), loop.end()), loop.end());
    std::sort(loops.begin(), loops.end());
    return loops;
}

} // namespace Host
