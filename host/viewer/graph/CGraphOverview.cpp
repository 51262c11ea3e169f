// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CGraphOverview.h"

#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/GraphColors.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr double margin = 8;

QColor colorOf(const SNodeLook& look, const QPalette& palette)
{
    const SGraphColors colors = graphColors(palette);
    if (look.state == ENodeValidationState::Error)
        return colors.error;
    return look.state == ENodeValidationState::Warning ? colors.warning : kindColor(look.kind, palette);
}

} // namespace

CGraphOverview::CGraphOverview(CGraphView& view)
    : QWidget(&view)
    , m_view(view)
{
    setCursor(Qt::PointingHandCursor);
    retranslate();
}

void CGraphOverview::paintEvent(QPaintEvent*)
{
    const SGraphColors colors = graphColors(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colors.border);
    painter.setBrush(colors.node);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
    const QTransform transform = fromScene();
    painter.setPen(Qt::NoPen);
    for (const auto& entry : m_view.canvas().nodeItems()) {
        const QRectF node = transform.mapRect(QRectF(entry.second->pos(), entry.second->size()));
        painter.setBrush(entry.second->isSelected() ? colors.selection : colorOf(entry.second->look(), palette()));
        painter.drawRect(QRectF(node.topLeft(), node.size().expandedTo(QSizeF(2, 2))));
    }
    const QRectF shown = transform.mapRect(m_view.mapToScene(m_view.viewport()->rect()).boundingRect());
    painter.setPen(QPen(colors.selection, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(shown.intersected(QRectF(rect()).adjusted(2, 2, -2, -2)));
}

void CGraphOverview::mousePressEvent(QMouseEvent* event)
{
    goTo(event->pos());
}

void CGraphOverview::mouseMoveEvent(QMouseEvent* event)
{
    goTo(event->pos());
}

void CGraphOverview::wheelEvent(QWheelEvent* event)
{
    // The view would zoom at a place that the pointer is not at.
    event->accept();
}

void CGraphOverview::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

QTransform CGraphOverview::fromScene() const
{
    const QRectF all = m_view.canvas().nodesRect();
    if (all.isEmpty())
        return {};
    const double scale = std::min((width() - 2 * margin) / all.width(), (height() - 2 * margin) / all.height());
    const QPointF middle = QRectF(rect()).center();
    return QTransform(scale, 0, 0, scale, middle.x() - scale * all.center().x(), middle.y() - scale * all.center().y());
}

void CGraphOverview::goTo(QPoint point)
{
    m_view.lookAt(fromScene().inverted().map(QPointF(point)));
}

void CGraphOverview::retranslate()
{
    setAccessibleName(tr("Overview of the graph"));
    setToolTip(tr("Click to go there"));
}

} // namespace Host
