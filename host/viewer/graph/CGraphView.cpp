// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CGraphView.h"

#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/graph/CConnectionItem.h"
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
#include <QPixmapCache>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr double leastZoom = 0.04;
constexpr double mostZoom = 4;
constexpr double dotDistance = 24;
constexpr int overlayMargin = 12;
constexpr double roomForLabel = 128; // of a connection

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
    constexpr int cacheKilobytes = 64 * 1024; // the nodes that fill two large screens, twice as sharp
    QPixmapCache::setCacheLimit(std::max(QPixmapCache::cacheLimit(), cacheKilobytes));
    addActions(m_actions->actions());
    m_search->hide();
    connect(m_canvas, &QGraphicsScene::selectionChanged, this, &CGraphView::onSelectionChanged);
    connect(m_canvas, &CGraphCanvas::drawn, this, &CGraphView::updateOverview);
    for (const QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &CGraphView::updateOverview);
    retranslate();
}

CGraphView::~CGraphView()
{
    // The canvas tells of its selection when it goes; by then this is no CGraphView any more.
    m_canvas->disconnect();
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
    const QRectF all = m_canvas->nodesRect();
    if (all.isEmpty())
        return;
    fitInView(all.adjusted(-24, -24, 24, 24), Qt::KeepAspectRatio);
    if (transform().m11() > 1)
        setTransform(QTransform());
    centerOn(all.center());
    updateOverview();
    m_isFitted = true;
}

void CGraphView::lookAt(QPointF point)
{
    m_isFitted = false;
    centerOn(point);
}

void CGraphView::zoom(double factor)
{
    m_isFitted = false;
    const double now = transform().m11();
    const double wanted = std::clamp(now * factor, leastZoom, mostZoom);
    scale(wanted / now, wanted / now);
    updateOverview();
}

void CGraphView::setActualSize()
{
    zoom(1 / transform().m11());
}

void CGraphView::goTo(const Core::CId& node)
{
    m_canvas->sync();
    if (!m_canvas->nodeItem(node))
        return;
    m_lastChosen = node;
    m_canvas->select({node});
    // As little as needed, so that a person keeps the overview. Who hears of the selection may have removed the node.
    if (const CNodeItem* const item = m_canvas->nodeItem(node))
        bringIntoView(*item);
}

void CGraphView::bringIntoView(const QGraphicsItem& item)
{
    ensureVisible(item.sceneBoundingRect(), 48, 48);
}

void CGraphView::goToNextConnection()
{
    m_canvas->sync();
    const Core::CId next = nextConnection(*m_canvas);
    m_canvas->selectConnection(next);
    const auto found = m_canvas->connectionItems().find(next);
    if (found != m_canvas->connectionItems().end())
        bringIntoView(*found->second);
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
    const auto chosen = m_canvas->selectedNodes();
    const CNodeItem* const last = chosen.size() == 1 ? m_canvas->nodeItem(chosen.front()) : nullptr;
    // Behind the chosen node, which is most often to feed it.
    const QPointF wanted = last ? last->pos() + QPointF(last->size().width() + roomForLabel, 0)
                                : mapToScene(viewport()->rect().center()) - QPointF(usual.width(), usual.height()) / 2;
    const Core::CId added = m_editor->addNode(modelName, findFreePlace(usual, wanted, taken));
    if (added == Core::CId())
        return;
    goTo(added);
    if (m_isFitted)
        fit();
}

void CGraphView::setOverviewEnabled(bool enabled)
{
    m_isOverviewEnabled = enabled;
    updateOverview();
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

void CGraphView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    placeOverlays();
    // Until a person looks elsewhere, all stays to be seen.
    if (m_isFitted && isVisible())
        fit();
}

void CGraphView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange && m_canvas) {
        const auto allItems = m_canvas->items();
        for (QGraphicsItem* item : allItems)
            item->update(); // what they keep is in the old colours
    }
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
    const QPointF first(std::floor(area.left() / dotDistance) * dotDistance,
                        std::floor(area.top() / dotDistance) * dotDistance);
    const int columns = int((area.right() - first.x()) / dotDistance) + 1;
    const int rows = int((area.bottom() - first.y()) / dotDistance) + 1;
    for (int i = 0; i < columns * rows; ++i)
        points.append(first + QPoint(i % columns, i / columns) * dotDistance);
    QPen pen(colors.grid, 2);
    pen.setCosmetic(true);
    painter->setPen(pen);
    painter->drawPoints(points.constData(), points.size());
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
    updateOverview();
    const QSize size = m_overview->sizeHint();
    m_overview->setGeometry(width() - size.width() - overlayMargin, height() - size.height() - overlayMargin,
                            size.width(), size.height());
    m_search->adjustSize();
    m_search->move(width() - m_search->width() - overlayMargin, overlayMargin);
}

void CGraphView::updateOverview()
{
    const QRectF shown = mapToScene(viewport()->rect()).boundingRect();
    const QSize least = m_overview->sizeHint() * 2; // or it hides more than it shows
    const bool hasRoom = width() >= least.width() && height() >= least.height();
    m_overview->setVisible(m_isOverviewEnabled && hasRoom && !shown.contains(m_canvas->nodesRect()));
    m_overview->update();
}

void CGraphView::retranslate()
{
    setAccessibleName(tr("Graph"));
}

} // namespace Host
