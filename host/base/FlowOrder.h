// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <utility>
#include <vector>

namespace Host {

/// Connections between numbered nodes: from, to.
using FlowEdges = std::vector<std::pair<int, int>>;

/// The numbers from 0 to \a nodes - 1, each behind all that lead to it. The nodes of a loop, and all that lie behind
/// one, are left out. Takes time in proportion to nodes and edges.
std::vector<int> flowOrder(int nodes, const FlowEdges& edges);

/// For each node the number of steps on the longest way to it. A loop is entered where an edge leads into it from
/// outside; one that is entered nowhere has 0 throughout. The order of nodes and edges does not matter.
std::vector<int> flowDepths(int nodes, const FlowEdges& edges);

} // namespace Host
