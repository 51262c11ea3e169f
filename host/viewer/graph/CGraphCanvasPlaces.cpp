// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The canvas as it decides where nodes are drawn.

#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/graph/CConnectionItem.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/GraphLayout.h"

#include <QGraphicsView>

namespace Host {

using namespace Plugin::Halvex;

void CGraphCanvas::arrange()
{
    sync();
    if (m_editor)
        m_editor->moveNodes(layoutOfAll());
}

void CGraphCanvas::placeAll()
{
    sync();
    if (m_editor)
        m_editor->setPositions(layoutOfAll());
}

NodePositions CGraphCanvas::layoutOfAll() const
{
    std::vector<CNodeItem*> all;
    for (const auto& entry : m_nodes)
        all.push_back(entry.second);
    const std::vector<QPointF> corners = layoutOf(all);
    NodePositions positions;
    for (std::size_t i = 0; i < all.size(); ++i)
        positions.insert(all[i]->id().toString(), corners[i]);
    return positions;
}

void CGraphCanvas::placeNewNodes()
{
    const NodePositions known = m_editor->positions();
    std::vector<CNodeItem*> placeless;
    std::vector<QRectF> taken;
    for (const auto& entry : m_nodes) {
        if (known.contains(entry.first.toString()))
            taken.emplace_back(entry.second->pos(), entry.second->size());
        else
            placeless.push_back(entry.second);
    }
    if (placeless.empty())
        return;
    if (taken.size() == 1) {
        arrangeAroundTheOnlyOne();
        return;
    }
    const std::vector<QPointF> corners = layoutOf(placeless);
    QRectF block;
    for (std::size_t i = 0; i < placeless.size(); ++i)
        block |= QRectF(corners[i], placeless[i]->size());
    const QPointF wanted = viewCentre() - QPointF(block.width(), block.height()) / 2;
    const QPointF corner = taken.empty() ? QPointF() : findFreePlace(block.size(), wanted, taken);
    NodePositions positions;
    for (std::size_t i = 0; i < placeless.size(); ++i)
        positions.insert(placeless[i]->id().toString(), corner + corners[i]);
    m_editor->setPositions(positions);
}

void CGraphCanvas::arrangeAroundTheOnlyOne()
{
    const NodePositions known = m_editor->positions();
    NodePositions positions = layoutOfAll();
    QPointF moved;
    for (const auto& entry : m_nodes) {
        const QString id = entry.first.toString();
        if (known.contains(id))
            moved = entry.second->pos() - positions.value(id);
    }
    for (QPointF& position : positions)
        position += moved;
    m_editor->setPositions(positions);
}

std::vector<QPointF> CGraphCanvas::layoutOf(const std::vector<CNodeItem*>& items) const
{
    // The same graph is to look the same, whatever its nodes' ids are, as far as captions tell them apart.
    std::vector<CNodeItem*> sorted = items;
    std::stable_sort(sorted.begin(), sorted.end(), [](const CNodeItem* one, const CNodeItem* other) {
        return one->look().caption < other->look().caption;
    });
    std::map<const CNodeItem*, int> numbers;
    std::vector<QSizeF> sizes;
    for (const CNodeItem* item : sorted) {
        numbers[item] = int(sizes.size());
        sizes.push_back(item->size());
    }
    FlowEdges edges;
    for (const auto& entry : m_connections) {
        const auto from = numbers.find(&entry.second->from());
        const auto to = numbers.find(&entry.second->to());
        if (from != numbers.end() && to != numbers.end())
            edges.emplace_back(from->second, to->second);
    }
    std::vector<QPointF> corners(sizes.size());
    if (sizes.size() < 2)
        return corners;
    std::sort(edges.begin(), edges.end());
    const std::vector<QPointF> places = layoutGraph(sizes, edges);
    std::transform(items.begin(), items.end(), corners.begin(),
                   [&](const CNodeItem* item) { return places[std::size_t(numbers[item])]; });
    return corners;
}

void CGraphCanvas::applyPositions()
{
    const NodePositions positions = m_editor->positions();
    for (const auto& entry : m_nodes) {
        const auto found = positions.find(entry.first.toString());
        if (found != positions.end())
            entry.second->setPos(found.value());
    }
    if (!m_syncTimer.isActive())
        m_syncTimer.start();
}

void CGraphCanvas::commitMoves()
{
    if (!m_editor)
        return;
    const NodePositions known = m_editor->positions();
    NodePositions moved;
    for (const auto& entry : m_nodes) {
        const QString id = entry.first.toString();
        if (entry.second->isSelected() && known.value(id) != entry.second->pos())
            moved.insert(id, entry.second->pos());
    }
    m_editor->moveNodes(moved);
}

QRectF CGraphCanvas::nodesRect() const
{
    QRectF all;
    for (const auto& entry : m_nodes)
        all |= QRectF(entry.second->pos(), entry.second->size());
    return all;
}

void CGraphCanvas::fitSceneRect()
{
    // Room to move the drawing about.
    constexpr double room = 2000;
    setSceneRect(nodesRect().adjusted(-room, -room, room, room));
}

QPointF CGraphCanvas::viewCentre() const
{
    const QList<QGraphicsView*> shown = views();
    return shown.isEmpty() ? QPointF() : shown.front()->mapToScene(shown.front()->viewport()->rect().center());
}

} // namespace Host
