// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CNodeItem.h"

#include "host/viewer/base/ModelText.h"
#include "host/viewer/edit/GraphPart.h"
#include "host/viewer/graph/CConnectionItem.h"
#include "host/viewer/graph/CNodeGeometry.h"
#include "host/viewer/graph/CNodePainter.h"

#include <Halvex/graph/CNodeBase.h>

#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QWidget>

#include <cmath>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr double itemMargin = 14; // room for ports and the glow

} // namespace

CNodeItem::CNodeItem(CNodeBase& node, const CNodeDataModelRegistry* registry)
    : m_id(node.id())
    , m_node(&node)
    , m_registry(registry)
    , m_activity(*node.nodeDataModel())
    , m_look(lookOf(*node.nodeDataModel(), registry))
    , m_rates(m_look.outputs.size())
{
    setFlags(ItemIsSelectable | ItemIsMovable | ItemSendsGeometryChanges);
    // Moving the drawing about shows what was painted already.
    setCacheMode(DeviceCoordinateCache);
    layOut();
}

CNodeBase* CNodeItem::node() const
{
    return m_node;
}

void CNodeItem::refresh()
{
    if (!m_node || !m_node->nodeDataModel())
        return;
    SNodeLook look = lookOf(*m_node->nodeDataModel(), m_registry);
    if (look == m_look)
        return;
    m_look = std::move(look);
    layOut();
    update();
}

void CNodeItem::measure(CRateMeter::Clock::time_point now)
{
    for (std::size_t port = 0; port < m_rates.size(); ++port)
        m_rates[port].add(m_activity.updates(int(port)), now);
}

void CNodeItem::updateGlow(double framesPerSecond)
{
    const bool isLong = m_activity.takeLongest() > glowAfter;
    const bool isSlow = framesPerSecond > 0 && double(m_look.workTime) > 1e9 / framesPerSecond;
    setGlowing(isLong || isSlow);
}

QPointF CNodeItem::portPosition(ENodePortType side, int index) const
{
    return CNodeGeometry(m_look).port(side, index);
}

SPort CNodeItem::portAt(QPointF point) const
{
    constexpr double reach = 12;
    const CNodeGeometry geometry(m_look);
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        const int ports = int((side == ENodePortType::In ? m_look.inputs : m_look.outputs).size());
        for (int index = 0; index < ports; ++index) {
            const QPointF distance = geometry.port(side, index) - point;
            if (std::hypot(distance.x(), distance.y()) <= reach)
                return {m_id, side, index};
        }
    }
    return {};
}

void CNodeItem::setLitPorts(const LitPorts* ports)
{
    m_litPorts = ports ? std::make_unique<LitPorts>(*ports) : nullptr;
    update();
}

bool CNodeItem::isLit(ENodePortType side, int index) const
{
    return m_litPorts && m_litPorts->count({side, index}) > 0;
}

QRectF CNodeItem::boundingRect() const
{
    return QRectF(QPointF(), m_size).adjusted(-itemMargin, -itemMargin, itemMargin, itemMargin);
}

QPainterPath CNodeItem::shape() const
{
    QPainterPath path;
    path.addRect(QRectF(QPointF(), m_size));
    return path;
}

void CNodeItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    SNodeMood mood;
    mood.isSelected = isSelected();
    mood.isGlowing = m_isGlowing;
    mood.litPorts = m_litPorts.get();
    const double detail = QStyleOptionGraphicsItem::levelOfDetailFromTransform(painter->worldTransform());
    CNodePainter(m_look, widget ? widget->palette() : option->palette).paint(*painter, mood, detail);
}

QVariant CNodeItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemPositionChange)
        return onGrid(value.toPointF());
    if (change == ItemPositionHasChanged) {
        for (CConnectionItem* connection : m_connections)
            connection->adjust();
    }
    return QGraphicsItem::itemChange(change, value);
}

void CNodeItem::layOut()
{
    // In full what has no room in the drawing.
    const QString& message = m_look.message;
    setToolTip(asToolTip(message.isEmpty() ? m_look.caption : m_look.caption + QLatin1Char('\n') + message));
    const QSizeF size = CNodeGeometry(m_look).size();
    if (size == m_size)
        return;
    prepareGeometryChange();
    m_size = size;
    for (CConnectionItem* connection : m_connections)
        connection->adjust();
}

void CNodeItem::setGlowing(bool on)
{
    if (m_isGlowing == on)
        return;
    m_isGlowing = on;
    update();
}

} // namespace Host
