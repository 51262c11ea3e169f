// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/FlowOrder.h"

#include <vector>

namespace Host {

/**
 * A shortest loop of each group of nodes that lead to each other, with its nodes in the order of the flow, the lowest
 * number first.
 *
 * Takes time in proportion to nodes and edges where there is no loop. In a large group that has thousands of loops the
 * search ends after some millions of steps, with the shortest loop found until then.
 */
std::vector<std::vector<int>> shortestLoops(int nodes, const FlowEdges& edges);

} // namespace Host
