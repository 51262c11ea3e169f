// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The view as mouse and keyboard have it.

#include "host/viewer/base/Wheel.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/CPortDrag.h"
#include "host/viewer/graph/NodeWalk.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Host {

using namespace Plugin::Halvex;

void CGraphView::wheelEvent(QWheelEvent* event)
{
    constexpr double perNotch = 1.2;
    constexpr double notch = 120;
    const int turned = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    const QPoint pointer = pointerOf(*event).toPoint();
    const QPointF anchor = mapToScene(pointer);
    zoom(std::pow(perNotch, turned / notch));
    // The base keeps what was below the pointer's last move, which may not have come here.
    const QPoint off = mapFromScene(anchor) - pointer;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + off.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + off.y());
    event->accept();
}

void CGraphView::mousePressEvent(QMouseEvent* event)
{
    m_isPanning = event->button() == Qt::MiddleButton;
    if (!m_isPanning) {
        QGraphicsView::mousePressEvent(event);
        return;
    }
    m_panFrom = event->pos();
    m_isFitted = false;
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void CGraphView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_isPanning) {
        QGraphicsView::mouseMoveEvent(event);
        return;
    }
    const QPoint moved = event->pos() - m_panFrom;
    m_panFrom = event->pos();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
}

void CGraphView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_isPanning) {
        QGraphicsView::mouseReleaseEvent(event);
        return;
    }
    m_isPanning = false;
    viewport()->unsetCursor();
}

void CGraphView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const auto* const item = qgraphicsitem_cast<CNodeItem*>(itemAt(event->pos()));
    const Core::CId id = item ? item->id() : Core::CId();
    QGraphicsView::mouseDoubleClickEvent(event);
    if (id != Core::CId())
        Q_EMIT nodeActivated(id);
}

void CGraphView::keyPressEvent(QKeyEvent* event)
{
    if (steerConnection(event->key()) || goInDirection(event->key(), event->modifiers()))
        return;
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const std::vector<Core::CId> chosen = m_canvas->selectedNodes();
    if (isEnter && chosen.size() == 1)
        Q_EMIT nodeActivated(chosen.front());
    else if (event->key() == Qt::Key_Escape)
        m_canvas->clearSelection();
    else
        QGraphicsView::keyPressEvent(event);
}

bool CGraphView::focusNextPrevChild(bool next)
{
    if (CPortDrag* const drag = m_canvas->connectionInProgress()) {
        drag->step(next ? 1 : -1);
        return true;
    }
    const std::vector<Core::CId> chosen = m_canvas->selectedNodes();
    const Core::CId node = nodeBeside(*m_canvas, chosen.empty() ? Core::CId() : chosen.front(), next);
    // Behind the last node the next widget follows.
    if (node == Core::CId())
        return QGraphicsView::focusNextPrevChild(next);
    goTo(node);
    return true;
}

bool CGraphView::steerConnection(int key)
{
    CPortDrag* const drag = m_canvas->connectionInProgress();
    if (!drag)
        return false;
    switch (key) {
    case Qt::Key_Escape:
        m_canvas->cancelConnection();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_canvas->finishConnection();
        return true;
    case Qt::Key_Right:
    case Qt::Key_Down:
        drag->step(1);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Up:
        drag->step(-1);
        return true;
    default:
        return false;
    }
}

bool CGraphView::goInDirection(int key, Qt::KeyboardModifiers modifiers)
{
    const QPointF direction = directionOf(key);
    if (direction.isNull())
        return false;
    const std::vector<Core::CId> chosen = m_canvas->selectedNodes();
    if (modifiers & Qt::ControlModifier)
        moveSelected(direction * positionGrid);
    else if ((modifiers & Qt::ShiftModifier) && !chosen.empty())
        chooseOneMore(direction);
    else if (chosen.empty())
        goTo(nodeBeside(*m_canvas, Core::CId(), true));
    else
        goTo(nodeInDirection(*m_canvas, chosen.front(), direction));
    return true;
}

// From the node that was chosen last, if it still is.
void CGraphView::chooseOneMore(QPointF direction)
{
    std::vector<Core::CId> chosen = m_canvas->selectedNodes();
    const bool isLastChosen = std::find(chosen.begin(), chosen.end(), m_lastChosen) != chosen.end();
    const Core::CId next = nodeInDirection(*m_canvas, isLastChosen ? m_lastChosen : chosen.front(), direction);
    if (next == Core::CId())
        return;
    m_lastChosen = next;
    chosen.push_back(next);
    m_canvas->select(chosen);
    if (const CNodeItem* const item = m_canvas->nodeItem(next))
        bringIntoView(*item);
}

void CGraphView::moveSelected(QPointF by)
{
    NodePositions moved;
    for (const Core::CId& id : m_canvas->selectedNodes())
        moved.insert(id.toString(), m_canvas->nodeItem(id)->pos() + by);
    if (m_editor)
        m_editor->moveNodes(moved);
}

} // namespace Host
