// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The canvas as the mouse has it: connections are drawn, nodes are moved, models are dropped.

#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/edit/CModelTree.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/CPortDrag.h"

#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMimeData>

namespace Host {

using namespace Plugin::Halvex;

void CGraphCanvas::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    const SPort port = event->button() == Qt::LeftButton ? portAt(event->scenePos()) : SPort();
    if (port.side == ENodePortType::None) {
        cancelConnection();
        changeSelection([this, event] { QGraphicsScene::mousePressEvent(event); });
        return;
    }
    startConnection(port);
    if (m_drag)
        m_drag->moveTo(event->scenePos());
    event->accept();
}

void CGraphCanvas::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    changeSelection([this, event] { QGraphicsScene::mouseDoubleClickEvent(event); });
}

void CGraphCanvas::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (m_drag)
        m_drag->moveTo(event->scenePos());
    else
        QGraphicsScene::mouseMoveEvent(event);
}

void CGraphCanvas::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    if (m_drag) {
        m_drag->moveTo(event->scenePos());
        finishConnection();
        return;
    }
    changeSelection([this, event] { QGraphicsScene::mouseReleaseEvent(event); });
    commitMoves();
}

void CGraphCanvas::dragEnterEvent(QGraphicsSceneDragDropEvent* event)
{
    event->setAccepted(event->mimeData()->hasFormat(CModelTree::mimeType()));
}

void CGraphCanvas::dragMoveEvent(QGraphicsSceneDragDropEvent* event)
{
    event->setAccepted(event->mimeData()->hasFormat(CModelTree::mimeType()));
}

void CGraphCanvas::dropEvent(QGraphicsSceneDragDropEvent* event)
{
    const QString model = QString::fromUtf8(event->mimeData()->data(CModelTree::mimeType()));
    if (model.isEmpty() || !m_editor)
        return;
    const Core::CId added = m_editor->addNode(model, event->scenePos());
    select({added});
    event->acceptProposedAction();
}

} // namespace Host
