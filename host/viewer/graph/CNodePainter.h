// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/graph/CNodeGeometry.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/GraphColors.h"

#include <QPalette>

class QPainter;

namespace Host {

/// What a node shows beside its look. A plain value.
struct SNodeMood
{
    bool isSelected = false;
    bool isGlowing = false;
    const LitPorts* litPorts = nullptr; ///< Null while no connection is being drawn.
};

/// From this zoom on, in pixels of the screen per pixel of the unscaled drawing, all texts of a graph can be read.
/// Below it only what matters most is written, in a size of its own.
constexpr double leastForNodeDetails = 0.75;

/// Draws one node. What could not be read at the zoom is left out.
class CNodePainter
{
public:
    CNodePainter(const SNodeLook& look, const QPalette& palette);

    /// \a detail: pixels of the screen per pixel of the unscaled drawing.
    void paint(QPainter& painter, const SNodeMood& mood, double detail) const;

private:
    void paintGlow(QPainter& painter) const;
    void paintBox(QPainter& painter, const SNodeMood& mood, double detail) const;
    void paintHead(QPainter& painter) const;
    void paintBrief(QPainter& painter, double detail) const;
    void paintPorts(QPainter& painter, Plugin::Halvex::ENodePortType side, const SNodeMood& mood, double detail) const;
    void paintFigures(QPainter& painter) const;
    void paintMessage(QPainter& painter) const;
    QColor stateColor() const;

    const SNodeLook& m_look;
    const QPalette& m_palette;
    const CNodeGeometry m_geometry;
    const SGraphColors m_colors;
};

} // namespace Host
