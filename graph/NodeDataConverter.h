// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

#include <functional>

namespace Plugin::Halvex {

/**
 * Turns data of one type into data of another on its way along a connection.
 *
 * It is called for everything that the connection carries, so it must accept a null pointer (empty data), for which
 * it usually returns a null pointer too. It runs in the graph's thread, inside the walk.
 */
using NodeDataConverter = std::function<CNodeDataPtr(CNodeDataPtr)>;

} // namespace Plugin::Halvex
