// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/graph/CConnectionItem.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/graph/CNodeItem.h"

#include <Halvex/scene/CNodeScene.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

/// Mouse and keyboard on the view of a graph.
struct SGraphHand
{
    Host::CGraphView& view;

    /// Where a port is in the viewport.
    QPoint at(const Host::SPort& port) const
    {
        const Host::CNodeItem& node = *view.canvas().nodeItem(port.node);
        return view.mapFromScene(node.mapToScene(node.portPosition(port.side, port.index)));
    }

    /// The middle of a node's head in the viewport.
    QPoint at(const Core::CId& node) const
    {
        return view.mapFromScene(view.canvas().nodeItem(node)->pos() + QPointF(100, 20));
    }

    void press(QPoint place) const { QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, place); }
    void move(QPoint place) const
    {
        // QTest::mouseMove() tells of no pressed button.
        QMouseEvent event(QEvent::MouseMove, place, view.viewport()->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }
    void release(QPoint place) const { QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, place); }
    void drag(QPoint from, QPoint to) const
    {
        press(from);
        move((from + to) / 2);
        move(to);
        release(to);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(&view, key, modifiers);
    }
};

/// What is wrong with the drawing beside the scene; empty if nothing is.
inline QString mismatchOf(const Host::CGraphView& view)
{
    Host::CGraphCanvas& canvas = view.canvas();
    canvas.sync();
    const Host::CGraphEditor* const editor = view.editor();
    const Plugin::Halvex::CNodeScene* const scene = editor ? editor->scene() : nullptr;
    const std::size_t nodes = scene ? scene->nodes().size() : 0;
    if (canvas.nodeItems().size() != nodes)
        return QStringLiteral("%1 nodes are drawn of %2").arg(canvas.nodeItems().size()).arg(nodes);
    for (const auto& entry : canvas.nodeItems()) {
        if (entry.second->node() != editor->node(entry.first))
            return QStringLiteral("an item shows a node that is gone");
        if (entry.second->pos() != editor->positions().value(entry.first.toString()))
            return QStringLiteral("an item is not where the editor says");
    }
    const std::size_t connections = scene ? scene->connections().size() : 0;
    if (canvas.connectionItems().size() != connections)
        return QStringLiteral("%1 connections are drawn of %2").arg(canvas.connectionItems().size()).arg(connections);
    return QString();
}
