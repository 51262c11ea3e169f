// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/FlowOrder.h"

#include <vector>

namespace Host {

/// The numbers from 0 to \a nodes - 1 that lie on a loop, those first that are fewer connections away from \a source.
std::vector<int> nodesOnLoops(int nodes, const FlowEdges& edges, int source);

} // namespace Host
