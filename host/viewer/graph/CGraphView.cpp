// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CGraphView.h"

#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/graph/CGraphActions.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphOverview.h"
#include "host/viewer/graph/CGraphSearch.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/CPortDrag.h"
#include "host/viewer/graph/GraphColors.h"
#include "host/viewer/graph/GraphLayout.h"
#include "host/viewer/graph/NodeWalk.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr double leastZoom = 0.04;
constexpr double mostZoom = 4;
constexpr double gridStep = 24;
constexpr double moveStep = 8;
constexpr int overlayMargin = 12;

} // namespace

CGraphView::CGraphView(CGraphEditor& editor, QWidget* parent)
    : QGraphicsView(parent)
    , m_editor(&editor)
    , m_canvas(new CGraphCanvas(editor, this))
    , m_actions(new CGraphActions(*this))
    , m_overview(new CGraphOverview(*this))
    , m_search(new CGraphSearch(*this))
{
    setScene(m_canvas);
    setDragMode(RubberBandDrag);
    setTransformationAnchor(AnchorUnderMouse);
    setViewportUpdateMode(MinimalViewportUpdate);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    addActions(m_actions->actions());
    m_search->hide();
    connect(m_canvas, &QGraphicsScene::selectionChanged, this, &CGraphView::onSelectionChanged);
    connect(m_canvas, &CGraphCanvas::drawn, m_overview, QOverload<>::of(&QWidget::update));
    for (const QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, m_overview, QOverload<>::of(&QWidget::update));
    retranslate();
}

CGraphView::~CGraphView()
{
    // The canvas tells of its selection when it goes; by then this is no view any more.
    disconnect(m_canvas, nullptr, this, nullptr);
}

CGraphEditor* CGraphView::editor() const
{
    return m_editor;
}

QList<QAction*> CGraphView::graphActions() const
{
    return m_actions->actions();
}

void CGraphView::fit()
{
    m_canvas->sync();
    QRectF all;
    for (const auto& entry : m_canvas->nodeItems())
        all |= entry.second->sceneBoundingRect();
    if (all.isEmpty())
        return;
    fitInView(all.adjusted(-24, -24, 24, 24), Qt::KeepAspectRatio);
    if (transform().m11() > 1)
        setTransform(QTransform());
    centerOn(all.center());
    m_overview->update();
}

void CGraphView::zoom(double factor)
{
    const double now = transform().m11();
    const double wanted = std::clamp(now * factor, leastZoom, mostZoom);
    scale(wanted / now, wanted / now);
    m_overview->update();
}

void CGraphView::setActualSize()
{
    zoom(1 / transform().m11());
}

void CGraphView::goTo(const Core::CId& node)
{
    m_canvas->sync();
    const CNodeItem* const item = m_canvas->nodeItem(node);
    if (!item)
        return;
    m_canvas->select({node});
    // As little as needed, so that a person keeps the overview.
    ensureVisible(item->sceneBoundingRect(), 48, 48);
}

void CGraphView::search()
{
    m_search->open();
    placeOverlays();
}

void CGraphView::place(const QString& modelName)
{
    if (!m_editor)
        return;
    m_canvas->sync();
    std::vector<QRectF> taken;
    for (const auto& entry : m_canvas->nodeItems())
        taken.emplace_back(entry.second->pos(), entry.second->size());
    const QSizeF usual(208, 128);
    const QPointF middle = mapToScene(viewport()->rect().center()) - QPointF(usual.width(), usual.height()) / 2;
    const Core::CId added = m_editor->addNode(modelName, findFreePlace(usual, middle, taken));
    if (added != Core::CId())
        goTo(added);
}

void CGraphView::setOverviewVisible(bool visible)
{
    m_overview->setVisible(visible);
}

bool CGraphView::isOverviewVisible() const
{
    return !m_overview->isHidden();
}

void CGraphView::connectSelected()
{
    const std::vector<Core::CId> chosen = m_canvas->selectedNodes();
    const CNodeItem* const item = chosen.size() == 1 ? m_canvas->nodeItem(chosen.front()) : nullptr;
    if (!item)
        return;
    const int outputs = int(item->look().outputs.size());
    const ENodePortType side = outputs > 0 ? ENodePortType::Out : ENodePortType::In;
    const int ports = outputs > 0 ? outputs : int(item->look().inputs.size());
    if (ports == 0)
        return;
    const bool isNext = m_canvas->connectionInProgress() && m_lastSource.node == item->id();
    m_lastSource = {item->id(), side, isNext ? (m_lastSource.index + 1) % ports : 0};
    m_canvas->startConnection(m_lastSource);
    if (CPortDrag* const drag = m_canvas->connectionInProgress())
        drag->step(1);
}

void CGraphView::wheelEvent(QWheelEvent* event)
{
    constexpr double perNotch = 1.2;
    constexpr double notch = 120;
    const int turned = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    zoom(std::pow(perNotch, turned / notch));
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

void CGraphView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    placeOverlays();
    if (!m_wasFitted && isVisible()) {
        m_wasFitted = true;
        fit();
    }
}

void CGraphView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        viewport()->update();
    QGraphicsView::changeEvent(event);
}

void CGraphView::drawBackground(QPainter* painter, const QRectF& area)
{
    const SGraphColors colors = graphColors(palette());
    painter->fillRect(area, colors.canvas);
    constexpr double leastForGrid = 0.5;
    if (transform().m11() < leastForGrid)
        return;
    QVector<QPointF> points;
    for (double x = std::floor(area.left() / gridStep) * gridStep; x < area.right(); x += gridStep) {
        for (double y = std::floor(area.top() / gridStep) * gridStep; y < area.bottom(); y += gridStep)
            points.append(QPointF(x, y));
    }
    QPen pen(colors.grid, 2);
    pen.setCosmetic(true);
    painter->setPen(pen);
    painter->drawPoints(points.constData(), points.size());
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
        moveSelected(direction * moveStep);
    else if (chosen.empty())
        goTo(nodeBeside(*m_canvas, Core::CId(), true));
    else
        goTo(nodeInDirection(*m_canvas, chosen.front(), direction));
    return true;
}

void CGraphView::moveSelected(QPointF by)
{
    NodePositions moved;
    for (const Core::CId& id : m_canvas->selectedNodes())
        moved.insert(id.toString(), m_canvas->nodeItem(id)->pos() + by);
    if (m_editor)
        m_editor->moveNodes(moved);
}

void CGraphView::onSelectionChanged()
{
    const std::vector<Core::CId> chosen = m_canvas->selectedNodes();
    const Core::CId only = chosen.size() == 1 ? chosen.front() : Core::CId();
    const CNodeItem* const item = m_canvas->nodeItem(only);
    setAccessibleDescription(item ? item->look().caption : QString());
    Q_EMIT nodeSelected(only);
}

void CGraphView::placeOverlays()
{
    const QSize size = m_overview->sizeHint();
    m_overview->setGeometry(width() - size.width() - overlayMargin, height() - size.height() - overlayMargin,
                            size.width(), size.height());
    m_search->adjustSize();
    m_search->move(width() - m_search->width() - overlayMargin, overlayMargin);
}

void CGraphView::retranslate()
{
    setAccessibleName(tr("Graph"));
}

} // namespace Host
