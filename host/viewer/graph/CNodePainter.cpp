// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CNodePainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr double radius = 8;
constexpr double portRadius = 5;
constexpr double leastPortRadius = 3; // pixels of the screen
constexpr double dimmedOpacity = 0.3;
constexpr double leastForText = 0.3;

void drawElided(QPainter& painter, const QRectF& place, int flags, const QString& text)
{
    painter.drawText(place, flags | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetricsF(painter.font()).elidedText(text, Qt::ElideRight, place.width()));
}

// With the corners of the box at its top.
QPainterPath headPath(const QRectF& head)
{
    QPainterPath path(head.bottomLeft());
    path.lineTo(head.left(), head.top() + radius);
    path.arcTo(QRectF(head.left(), head.top(), 2 * radius, 2 * radius), 180, -90);
    path.lineTo(head.right() - radius, head.top());
    path.arcTo(QRectF(head.right() - 2 * radius, head.top(), 2 * radius, 2 * radius), 90, -90);
    path.lineTo(head.bottomRight());
    path.closeSubpath();
    return path;
}

QString portText(const SPortLook& port)
{
    return port.caption.isEmpty() ? port.typeName : QStringLiteral("%1 · %2").arg(port.caption, port.typeName);
}

} // namespace

CNodePainter::CNodePainter(const SNodeLook& look, const QPalette& palette)
    : m_look(look)
    , m_palette(palette)
    , m_geometry(m_look)
    , m_colors(graphColors(palette))
{
}

void CNodePainter::paint(QPainter& painter, const SNodeMood& mood, double detail) const
{
    painter.setRenderHint(QPainter::Antialiasing, detail >= leastForText);
    if (mood.litPorts && mood.litPorts->empty()) {
        painter.fillRect(QRectF(QPointF(), m_geometry.size()), m_colors.canvas);
        painter.setOpacity(dimmedOpacity);
    }
    if (mood.isGlowing)
        paintGlow(painter);
    paintBox(painter, mood, detail);
    if (detail >= leastForNodeDetails)
        paintHead(painter);
    else if (detail >= leastForText)
        paintBrief(painter, detail);
    if (detail >= leastForText || mood.litPorts) {
        paintPorts(painter, ENodePortType::In, mood, detail);
        paintPorts(painter, ENodePortType::Out, mood, detail);
    }
    if (detail < leastForNodeDetails)
        return;
    paintFigures(painter);
    paintMessage(painter);
}

void CNodePainter::paintGlow(QPainter& painter) const
{
    const QRectF box(QPointF(), m_geometry.size());
    painter.setBrush(Qt::NoBrush);
    for (int ring = 1; ring <= 4; ++ring) {
        QColor color = m_colors.busy;
        color.setAlpha(150 - ring * 30);
        painter.setPen(QPen(color, 3));
        const double out = ring * 2.5;
        painter.drawRoundedRect(box.adjusted(-out, -out, out, out), radius + out, radius + out);
    }
}

void CNodePainter::paintBox(QPainter& painter, const SNodeMood& mood, double detail) const
{
    const QRectF box(QPointF(), m_geometry.size());
    const bool isMarked = mood.isSelected || m_look.state != ENodeValidationState::Valid;
    // At least a pixel of the screen, however small the node is.
    const double width = std::max(isMarked ? 2.0 : 1.0, (isMarked ? 2.0 : 1.0) / detail);
    const QPen border(mood.isSelected ? m_colors.selection : stateColor(), width);
    if (detail < leastForText) {
        painter.setPen(border);
        painter.setBrush(m_colors.node);
        painter.drawRect(box);
        painter.fillRect(m_geometry.head(), kindColor(m_look.kind, m_palette));
        return;
    }
    const QColor head = headColor(m_look.kind, m_palette);
    const bool isBrief = detail < leastForNodeDetails;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isBrief ? head : m_colors.node);
    painter.drawRoundedRect(box, radius, radius);
    if (!isBrief)
        painter.fillPath(headPath(m_geometry.head()), head);
    painter.setPen(border);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, radius, radius);
}

void CNodePainter::paintHead(QPainter& painter) const
{
    const QRectF head = m_geometry.head().adjusted(12, 6, -12, -6);
    painter.setPen(m_colors.text);
    painter.setFont(CNodeGeometry::captionFont());
    drawElided(painter, QRectF(head.left(), head.top(), head.width(), 20), Qt::AlignLeft, m_look.caption);
    painter.setPen(m_colors.dimText);
    painter.setFont(CNodeGeometry::smallFont());
    drawElided(painter, QRectF(head.left(), head.top() + 20, head.width(), 16), Qt::AlignLeft, m_look.category);
}

// Small text helps nobody: what a person looks for stands there in its own size, and the rest is left out.
void CNodePainter::paintBrief(QPainter& painter, double detail) const
{
    constexpr double inset = 6;
    painter.save();
    painter.scale(1 / detail, 1 / detail);
    QRectF room(QPointF(inset, 2), m_geometry.size() * detail - QSizeF(2 * inset, 4));
    painter.setFont(CNodeGeometry::smallFont());
    const double line = painter.fontMetrics().height();
    if (!m_look.figures.empty() && room.height() >= 3 * line) {
        const auto& last = m_look.figures.back(); // of a decoupler its rate, of a worker how long it works
        painter.setPen(m_colors.dimText);
        drawElided(painter, QRectF(room.left(), room.bottom() - line, room.width(), line), Qt::AlignLeft,
                   QStringLiteral("%1 %2").arg(last.first, last.second));
        room.setBottom(room.bottom() - line);
    }
    painter.setPen(m_colors.text);
    painter.setFont(CNodeGeometry::briefFont());
    constexpr int wrapped = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;
    const QRectF needed = painter.boundingRect(room, wrapped, m_look.caption);
    if (needed.width() <= room.width() && needed.height() <= room.height())
        painter.drawText(room, wrapped, m_look.caption);
    else
        drawElided(painter, room, Qt::AlignLeft, m_look.caption);
    painter.restore();
}

void CNodePainter::paintPorts(QPainter& painter, ENodePortType side, const SNodeMood& mood, double detail) const
{
    const bool isIn = side == ENodePortType::In;
    const auto& ports = isIn ? m_look.inputs : m_look.outputs;
    for (int index = 0; index < int(ports.size()); ++index) {
        const SPortLook& port = ports[std::size_t(index)];
        const bool isLit = mood.litPorts && mood.litPorts->count({side, index}) > 0;
        const double opacity = painter.opacity();
        if (mood.litPorts && !isLit)
            painter.setOpacity(dimmedOpacity);
        painter.setPen(QPen(isLit ? m_colors.selection : m_colors.node, isLit ? 3 : 2));
        painter.setBrush(typeColor(port.typeId, m_palette));
        const double size = std::max(isLit ? portRadius + 3 : portRadius, leastPortRadius / detail);
        painter.drawEllipse(m_geometry.port(side, index), size, size);
        if (detail >= leastForNodeDetails) {
            const QRectF row = m_geometry.portRow(index);
            const QRectF half(isIn ? row.left() : row.center().x() + 4, row.top(), row.width() / 2 - 4, row.height());
            painter.setPen(m_colors.text);
            painter.setFont(CNodeGeometry::smallFont());
            drawElided(painter, half, isIn ? Qt::AlignLeft : Qt::AlignRight, portText(port));
        }
        painter.setOpacity(opacity);
    }
}

void CNodePainter::paintFigures(QPainter& painter) const
{
    painter.setFont(CNodeGeometry::smallFont());
    for (int i = 0; i < int(m_look.figures.size()); ++i) {
        const auto& figure = m_look.figures[std::size_t(i)];
        const QRectF place = m_geometry.figure(i);
        painter.setPen(m_colors.dimText);
        drawElided(painter, place, Qt::AlignLeft, figure.first);
        painter.setPen(m_colors.text);
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, figure.second);
    }
}

void CNodePainter::paintMessage(QPainter& painter) const
{
    if (m_look.message.isEmpty())
        return;
    painter.setPen(stateColor());
    painter.setFont(CNodeGeometry::smallFont());
    drawElided(painter, m_geometry.message(), Qt::AlignLeft, m_look.message);
}

QColor CNodePainter::stateColor() const
{
    if (m_look.state == ENodeValidationState::Error)
        return m_colors.error;
    return m_look.state == ENodeValidationState::Warning ? m_colors.warning : m_colors.border;
}

} // namespace Host
