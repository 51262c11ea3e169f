// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CConnectionItem.h"

#include "host/base/ConnectionText.h"
#include "host/viewer/graph/CNodeGeometry.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/CNodePainter.h"
#include "host/viewer/graph/GraphColors.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeConnection.h>

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPainterPathStroker>
#include <QStyleOptionGraphicsItem>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr double leastForRate = 0.3;
constexpr double rateHeight = 16; // pixels of the screen
constexpr double leastForCurve = 0.2;

// What goes by a converter changes its type on the way.
QString typeText(const CNodeConnection& connection)
{
    return connectionTypeText(connection.dataType(ENodePortType::Out), connection.dataType(ENodePortType::In));
}

} // namespace

QPainterPath connectionPath(QPointF from, QPointF to)
{
    // Leaves and comes in level; a way back makes a wide bow.
    const QPointF way = to - from;
    const double least = std::min(40.0, std::hypot(way.x(), way.y()) / 2);
    const double reach = std::clamp(std::abs(way.x()) / 2, least, 160.0);
    QPainterPath path(from);
    path.cubicTo(from + QPointF(reach, 0), to - QPointF(reach, 0), to);
    return path;
}

CConnectionItem::CConnectionItem(const CNodeConnection& connection, CNodeItem& from, CNodeItem& to)
    : m_id(connection.id())
    , m_from(from)
    , m_to(to)
    , m_outPort(connection.getPortIndex(ENodePortType::Out))
    , m_inPort(connection.getPortIndex(ENodePortType::In))
    , m_type(typeText(connection))
    , m_typeId(connection.dataType(ENodePortType::Out).id)
{
    setFlags(ItemIsSelectable);
    setZValue(-1);
    m_from.attach(this);
    m_to.attach(this);
    adjust();
}

CConnectionItem::~CConnectionItem()
{
    m_from.detach(this);
    m_to.detach(this);
}

QString CConnectionItem::label() const
{
    return m_rate.isEmpty() ? m_type : QStringLiteral("%1 · %2").arg(m_type, m_rate);
}

bool CConnectionItem::shows(const CNodeConnection& connection) const
{
    return connection.getNode(ENodePortType::Out) == m_from.node() &&
           connection.getNode(ENodePortType::In) == m_to.node() &&
           connection.getPortIndex(ENodePortType::Out) == m_outPort &&
           connection.getPortIndex(ENodePortType::In) == m_inPort && typeText(connection) == m_type;
}

double CConnectionItem::rate() const
{
    return m_from.rate(m_outPort);
}

void CConnectionItem::adjust()
{
    const QPainterPath path = connectionPath(m_from.mapToScene(m_from.portPosition(ENodePortType::Out, m_outPort)),
                                             m_to.mapToScene(m_to.portPosition(ENodePortType::In, m_inPort)));
    if (path == m_path)
        return;
    prepareGeometryChange();
    m_path = path;
}

void CConnectionItem::refresh()
{
    const QString rate = m_from.hasFlowed(m_outPort) ? rateText(1) : QString();
    if (rate == m_rate)
        return;
    prepareGeometryChange();
    m_rate = rate;
    update();
}

QString CConnectionItem::rateText(int decimals) const
{
    return QCoreApplication::translate("Host::CConnectionItem", "%1 fps")
        .arg(QLocale().toString(rate(), 'f', decimals));
}

QRectF CConnectionItem::boundingRect() const
{
    constexpr double highest = rateHeight / leastForRate / 2;
    const QPointF half(0, highest);
    return m_path.boundingRect().adjusted(-6, -6, 6, 6).united(labelRect()).united({middle() - half, middle() + half});
}

QPainterPath CConnectionItem::shape() const
{
    QPainterPathStroker stroker;
    stroker.setWidth(12);
    return stroker.createStroke(m_path);
}

void CConnectionItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    const QPalette palette = widget ? widget->palette() : option->palette;
    const SGraphColors colors = graphColors(palette);
    const double detail = QStyleOptionGraphicsItem::levelOfDetailFromTransform(painter->worldTransform());
    painter->setRenderHint(QPainter::Antialiasing, detail >= leastForCurve);
    const double width = isSelected() ? 4 : 2;
    painter->setPen(QPen(isSelected() ? colors.selection : typeColor(m_typeId, palette), std::max(width, 1 / detail)));
    painter->setBrush(Qt::NoBrush);
    if (detail < leastForCurve)
        painter->drawLine(m_path.elementAt(0), m_path.currentPosition());
    else
        painter->drawPath(m_path);
    painter->setFont(CNodeGeometry::smallFont());
    if (detail < leastForNodeDetails) {
        paintRate(*painter, colors, detail);
        return;
    }
    painter->setPen(QPen(isSelected() ? colors.selection : colors.grid, 1));
    painter->setBrush(colors.canvas);
    painter->drawRoundedRect(labelRect().adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
    painter->setPen(colors.dimText);
    painter->drawText(labelRect(), Qt::AlignCenter | Qt::TextSingleLine, label());
}

// In pixels of the screen, as far as there is room between the nodes.
void CConnectionItem::paintRate(QPainter& painter, const SGraphColors& colors, double detail) const
{
    if (detail < leastForRate || m_rate.isEmpty())
        return;
    const double room = std::abs(m_path.currentPosition().x() - m_path.elementAt(0).x) * detail;
    QString text = rateText(0);
    if (painter.fontMetrics().horizontalAdvance(text) > room)
        text = QLocale().toString(rate(), 'f', 0);
    const double width = painter.fontMetrics().horizontalAdvance(text);
    if (width > room)
        return;
    const QRectF place(-width / 2, -rateHeight / 2, width, rateHeight);
    painter.save();
    painter.translate(middle());
    painter.scale(1 / detail, 1 / detail);
    painter.fillRect(place, colors.canvas);
    painter.setPen(colors.dimText);
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, text);
    painter.restore();
}

// Both halves of the way are alike.
QPointF CConnectionItem::middle() const
{
    return (QPointF(m_path.elementAt(0)) + m_path.currentPosition()) / 2;
}

QRectF CConnectionItem::labelRect() const
{
    const double width = std::ceil(QFontMetricsF(CNodeGeometry::smallFont()).horizontalAdvance(label())) + 16;
    return {middle().x() - width / 2, middle().y() - 9, width, 18};
}

} // namespace Host
