// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CId.h>

#include <QPointF>

namespace Host {

class CGraphCanvas;

/// A step of 1 for an arrow key; none for other keys.
QPointF directionOf(int key);

/// The node before or behind \a node, from left to right and from top to bottom; the first or last one for no id. No id
/// at the end.
Core::CId nodeBeside(const CGraphCanvas& canvas, const Core::CId& node, bool next);

/// The nearest node that lies in \a direction of \a node; no id if there is none.
Core::CId nodeInDirection(const CGraphCanvas& canvas, const Core::CId& node, QPointF direction);

/// The connection behind the chosen one, from left to right and from top to bottom, and behind the last one the first;
/// where none is chosen, the first of the chosen node. No id if there is none.
Core::CId nextConnection(const CGraphCanvas& canvas);

} // namespace Host
