// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CPortDrag.h"

#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/edit/PortFit.h"
#include "host/viewer/graph/CConnectionItem.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/GraphColors.h"

#include <Halvex/scene/CNodeScene.h>

#include <QGraphicsPathItem>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr double reach = 24; // of a port for the mouse that brings a connection

} // namespace

CPortDrag::CPortDrag(CGraphCanvas& canvas, const SPort& source)
    : m_canvas(canvas)
    , m_source(source)
    , m_line(std::make_unique<QGraphicsPathItem>())
{
    for (const SPort& port : fittingPorts(*canvas.editor()->scene(), source)) {
        if (canvas.nodeItem(port.node))
            m_fitting.push_back(port);
    }
    std::sort(m_fitting.begin(), m_fitting.end(), [this](const SPort& left, const SPort& right) {
        const QPointF one = positionOf(left);
        const QPointF other = positionOf(right);
        return one.x() != other.x() ? one.x() < other.x() : one.y() < other.y();
    });
    for (const auto& entry : canvas.nodeItems()) {
        LitPorts lit;
        for (const SPort& port : m_fitting) {
            if (port.node == entry.first)
                lit.insert({port.side, port.index});
        }
        if (entry.first == source.node)
            lit.insert({source.side, source.index});
        entry.second->setLitPorts(&lit);
    }
    QPen pen(graphColors(canvas.palette()).selection, 2, Qt::DashLine);
    pen.setCosmetic(true);
    m_line->setPen(pen);
    m_line->setZValue(1);
    canvas.addItem(m_line.get());
    lead({}, positionOf(source));
}

CPortDrag::~CPortDrag()
{
    for (const auto& entry : m_canvas.nodeItems())
        entry.second->setLitPorts(nullptr);
}

void CPortDrag::moveTo(QPointF point)
{
    for (const SPort& port : m_fitting) {
        const QPointF distance = positionOf(port) - point;
        if (std::hypot(distance.x(), distance.y()) <= reach) {
            lead(port, positionOf(port));
            return;
        }
    }
    lead({}, point);
}

void CPortDrag::step(int by)
{
    if (m_fitting.empty())
        return;
    const auto found = std::find(m_fitting.begin(), m_fitting.end(), m_target);
    const int count = int(m_fitting.size());
    int next = by > 0 ? 0 : count - 1;
    if (found != m_fitting.end())
        next = (int(found - m_fitting.begin()) + by + count) % count;
    const SPort target = m_fitting[std::size_t(next)];
    lead(target, positionOf(target));
}

void CPortDrag::forget(const Core::CId& node)
{
    m_fitting.erase(
        std::remove_if(m_fitting.begin(), m_fitting.end(), [&node](const SPort& port) { return port.node == node; }),
        m_fitting.end());
    if (m_target.node == node)
        m_target = SPort();
}

QPointF CPortDrag::positionOf(const SPort& port) const
{
    const CNodeItem* const item = m_canvas.nodeItem(port.node);
    return item ? item->mapToScene(item->portPosition(port.side, port.index)) : QPointF();
}

void CPortDrag::lead(const SPort& target, QPointF point)
{
    m_target = target;
    const QPointF source = positionOf(m_source);
    m_line->setPath(m_source.side == ENodePortType::Out ? connectionPath(source, point)
                                                        : connectionPath(point, source));
}

} // namespace Host
