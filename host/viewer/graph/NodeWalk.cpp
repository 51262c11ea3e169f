// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/NodeWalk.h"

#include "host/viewer/graph/CConnectionItem.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CNodeItem.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace Host {

namespace {

// From left to right and from top to bottom.
bool isBefore(QPointF one, QPointF other)
{
    return one.x() != other.x() ? one.x() < other.x() : one.y() < other.y();
}

QPointF middleOf(const CNodeItem& item)
{
    return item.pos() + QPointF(item.size().width(), item.size().height()) / 2;
}

} // namespace

QPointF directionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

Core::CId nodeBeside(const CGraphCanvas& canvas, const Core::CId& node, bool next)
{
    std::vector<const CNodeItem*> ordered;
    for (const auto& entry : canvas.nodeItems())
        ordered.push_back(entry.second);
    std::sort(ordered.begin(), ordered.end(),
              [](const CNodeItem* one, const CNodeItem* other) { return isBefore(one->pos(), other->pos()); });
    if (!next)
        std::reverse(ordered.begin(), ordered.end());
    const auto here =
        std::find_if(ordered.begin(), ordered.end(), [&node](const CNodeItem* each) { return each->id() == node; });
    const auto found = here == ordered.end() ? ordered.begin() : here + 1;
    return found == ordered.end() ? Core::CId() : (*found)->id();
}

Core::CId nodeInDirection(const CGraphCanvas& canvas, const Core::CId& node, QPointF direction)
{
    const CNodeItem* const here = canvas.nodeItem(node);
    Core::CId nearest;
    double least = std::numeric_limits<double>::infinity();
    for (const auto& entry : canvas.nodeItems()) {
        if (!here || entry.second == here)
            continue;
        const QPointF way = middleOf(*entry.second) - middleOf(*here);
        const double ahead = QPointF::dotProduct(way, direction);
        const double aside = std::abs(QPointF::dotProduct(way, QPointF(direction.y(), direction.x())));
        // What lies straight ahead comes before what is nearer but aside.
        const double cost = ahead + 2 * aside;
        if (ahead > 0 && aside <= 2 * ahead && cost < least) {
            least = cost;
            nearest = entry.first;
        }
    }
    return nearest;
}

Core::CId nextConnection(const CGraphCanvas& canvas)
{
    std::vector<const CConnectionItem*> ordered;
    for (const auto& entry : canvas.connectionItems())
        ordered.push_back(entry.second);
    if (ordered.empty())
        return {};
    std::sort(ordered.begin(), ordered.end(), [](const CConnectionItem* one, const CConnectionItem* other) {
        return isBefore(one->middle(), other->middle());
    });
    const auto chosen =
        std::find_if(ordered.begin(), ordered.end(), [](const auto* each) { return each->isSelected(); });
    if (chosen != ordered.end())
        return (chosen + 1 == ordered.end() ? ordered.front() : *(chosen + 1))->id();
    const auto ofNode = std::find_if(ordered.begin(), ordered.end(), [](const CConnectionItem* each) {
        return each->from().isSelected() || each->to().isSelected();
    });
    return (ofNode == ordered.end() ? ordered.front() : *ofNode)->id();
}

} // namespace Host
