// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/FlowOrder.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <vector>

namespace Host {

/// Where to draw nodes of these \a sizes, so that the flow along \a edges goes from left to right: the top left corner
/// of each, the drawing's own being 0, 0. Threads: one at a time in the process.
std::vector<QPointF> layoutGraph(const std::vector<QSizeF>& sizes, const FlowEdges& edges);

/// The top left corner of a place of that \a size that keeps clear of all \a taken ones, as near to \a wanted as steps
/// of a grid allow.
QPointF findFreePlace(QSizeF size, QPointF wanted, const std::vector<QRectF>& taken);

} // namespace Host
