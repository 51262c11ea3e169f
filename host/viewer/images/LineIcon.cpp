// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/LineIcon.h"

#include "host/viewer/base/Theme.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace Host {

namespace {

// Shapes are drawn on a square of 16 by 16.

void drawFit(QPainter& painter)
{
    for (int quarter = 0; quarter < 4; ++quarter) {
        painter.drawPolyline(QPolygonF({{2.5, 6.0}, {2.5, 2.5}, {6.0, 2.5}}));
        painter.translate(16, 0);
        painter.rotate(90);
    }
}

void drawOneToOne(QPainter& painter)
{
    painter.drawPolyline(QPolygonF({{2.5, 4.5}, {4.5, 3.0}, {4.5, 13.0}}));
    painter.drawPolyline(QPolygonF({{10.5, 4.5}, {12.5, 3.0}, {12.5, 13.0}}));
    painter.drawPoint(QPointF(8, 6));
    painter.drawPoint(QPointF(8, 10.5));
}

void drawRectangle(QPainter& painter)
{
    QPen pen = painter.pen();
    pen.setDashPattern({2.0, 1.5});
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    painter.drawRect(QRectF(2.5, 3.5, 11, 9));
}

void drawColors(QPainter& painter)
{
    const QColor colors[] = {QColor(0x2b, 0x5f, 0xd9), QColor(0x1f, 0x9d, 0x55), QColor(0xe0, 0xa0, 0x10),
                             QColor(0xd6, 0x3a, 0x2f)};
    for (int i = 0; i < 4; ++i)
        painter.fillRect(QRectF(2.5 + 2.75 * i, 3.5, 2.75, 9), colors[i]);
    painter.drawRect(QRectF(2.5, 3.5, 11, 9));
}

void drawRange(QPainter& painter)
{
    QPainterPath half;
    half.moveTo(8, 2.5);
    half.arcTo(QRectF(2.5, 2.5, 11, 11), 90, -180);
    half.closeSubpath();
    painter.fillPath(half, painter.pen().color());
    painter.drawEllipse(QRectF(2.5, 2.5, 11, 11));
}

void drawHistogram(QPainter& painter)
{
    const double heights[] = {3.0, 8.0, 10.5, 5.5};
    for (int i = 0; i < 4; ++i)
        painter.fillRect(QRectF(2.5 + 2.9 * i, 13.0 - heights[i], 2.2, heights[i]), painter.pen().color());
    painter.drawLine(QPointF(1.5, 13.5), QPointF(14.5, 13.5));
}

void drawSave(QPainter& painter)
{
    painter.drawLine(QPointF(8, 2.5), QPointF(8, 9.5));
    painter.drawPolyline(QPolygonF({{5, 7}, {8, 10}, {11, 7}}));
    painter.drawPolyline(QPolygonF({{2.5, 10.5}, {2.5, 13.5}, {13.5, 13.5}, {13.5, 10.5}}));
}

void drawCopy(QPainter& painter)
{
    painter.drawRect(QRectF(5.5, 5.5, 8, 8));
    painter.drawPolyline(QPolygonF({{10.5, 2.5}, {2.5, 2.5}, {2.5, 10.5}}));
}

void drawRecord(QPainter& painter)
{
    painter.drawEllipse(QRectF(2.5, 2.5, 11, 11));
    painter.setPen(Qt::NoPen);
    painter.setBrush(recordColor(QGuiApplication::palette()));
    painter.drawEllipse(QRectF(5, 5, 6, 6));
}

void drawStop(QPainter& painter)
{
    painter.fillRect(QRectF(3.5, 3.5, 9, 9), recordColor(QGuiApplication::palette()));
    painter.drawRect(QRectF(3.5, 3.5, 9, 9));
}

void drawShape(ELineIcon shape, QPainter& painter)
{
    using Draw = void (*)(QPainter&);
    constexpr Draw draws[] = {drawFit,       drawOneToOne, drawRectangle, drawColors, drawRange,
                              drawHistogram, drawSave,     drawCopy,      drawRecord, drawStop};
    draws[int(shape)](painter);
}

class CLineIconEngine : public QIconEngine
{
public:
    explicit CLineIconEngine(ELineIcon shape)
        : m_shape(shape)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText), 1.3, Qt::SolidLine,
                             Qt::RoundCap, Qt::RoundJoin));
        drawShape(m_shape, *painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect({0, 0}, size), mode, state);
        return result;
    }

    QIconEngine* clone() const override { return new CLineIconEngine(m_shape); }

private:
    const ELineIcon m_shape;
};

} // namespace

QIcon lineIcon(ELineIcon shape)
{
    return QIcon(new CLineIconEngine(shape));
}

} // namespace Host
