// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/SPort.h"

#include <QPointF>

#include <memory>
#include <vector>

class QGraphicsPathItem;

namespace Host {

class CGraphCanvas;

/**
 * A connection that is being drawn: the ports that fit are lit, all others are dim, and a line leads from the source to
 * the mouse, or to the port that it is near. The keyboard goes from one port that fits to the next.
 *
 * Threads and ownership: the canvas's, which outlives it.
 */
class CPortDrag
{
public:
    CPortDrag(CGraphCanvas& canvas, const SPort& source);
    ~CPortDrag();
    Q_DISABLE_COPY(CPortDrag)

    const SPort& source() const { return m_source; }

    /// The port that it leads to; one of no side while there is none.
    const SPort& target() const { return m_target; }

    /// Every port that fits, from left to right and from top to bottom.
    const std::vector<SPort>& fitting() const { return m_fitting; }

    /// Leads the line to \a point of the drawing.
    void moveTo(QPointF point);

    /// Leads the line to the next port that fits, or with -1 to the one before.
    void step(int by);

    /// That node goes.
    void forget(const Core::CId& node);

private:
    QPointF positionOf(const SPort& port) const;
    void lead(const SPort& target, QPointF point);

    CGraphCanvas& m_canvas;
    const SPort m_source;
    SPort m_target;
    std::vector<SPort> m_fitting;
    std::unique_ptr<QGraphicsPathItem> m_line;
};

} // namespace Host
