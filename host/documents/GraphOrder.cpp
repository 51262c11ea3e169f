// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/GraphOrder.h"

#include <algorithm>
#include <numeric>

namespace Host {

FlowEdges edgesOf(const SDocumentGraph& graph)
{
    FlowEdges edges;
    for (const SDocumentConnection& connection : graph.connections)
        edges.emplace_back(connection.from, connection.to);
    return edges;
}

std::vector<int> flowOrderOf(const SDocumentGraph& graph)
{
    const std::vector<int> depths = flowDepths(int(graph.nodes.size()), edgesOf(graph));
    std::vector<int> order(graph.nodes.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&depths](int left, int right) { return depths[std::size_t(left)] < depths[std::size_t(right)]; });
    return order;
}

} // namespace Host
