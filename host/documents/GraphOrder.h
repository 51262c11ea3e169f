// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/FlowOrder.h"
#include "host/check/SDocumentGraph.h"

#include <vector>

namespace Host {

FlowEdges edgesOf(const SDocumentGraph& graph);

/// The numbers of all nodes in the order of the flow, those of the same depth in the order of the document.
std::vector<int> flowOrderOf(const SDocumentGraph& graph);

} // namespace Host
