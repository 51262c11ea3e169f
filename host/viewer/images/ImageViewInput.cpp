// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// How CImageView answers to mouse and keyboard.

#include "host/viewer/base/Wheel.h"
#include "host/viewer/images/CImageView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

constexpr double zoomOfNotch = 1.25;
constexpr double unitsOfNotch = 120.0; // as Qt counts a wheel
constexpr int panStep = 48;            // of the widget

QPoint stepOf(int key)
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

QPoint limited(const QPoint& pixel, const QSize& image)
{
    return {std::max(0, std::min(pixel.x(), image.width() - 1)), std::max(0, std::min(pixel.y(), image.height() - 1))};
}

QRect between(const QPoint& a, const QPoint& b)
{
    return {QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
            QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y()))};
}

} // namespace

QPoint CImageView::pixelAt(const QPointF& widgetPoint) const
{
    const QPointF point = m_viewport.toImage(toDevice(widgetPoint));
    return {int(std::floor(point.x())), int(std::floor(point.y()))};
}

std::optional<QPoint> CImageView::probe() const
{
    if (!m_probe || !QRect({0, 0}, imageSize()).contains(*m_probe))
        return {};
    return m_probe;
}

void CImageView::setProbe(const std::optional<QPoint>& probe)
{
    if (probe == m_probe)
        return;
    m_probe = probe;
    Q_EMIT probeChanged();
}

// Another pixel may come to lie under a pointer that rests.
void CImageView::setPointer(const QPointF& widgetPoint)
{
    m_pointer = widgetPoint;
    setProbe(pixelAt(widgetPoint));
}

void CImageView::moveProbe(const QPoint& step)
{
    m_pointer.reset();
    const QPoint middle = m_viewport.visible(imageSize()).center();
    setProbe(limited(probe() ? *probe() + step : middle, imageSize()));
}

// Moves the rectangle by \a step and its lower right corner by \a growth; makes one if there is none.
void CImageView::moveSelection(const QPoint& step, const QPoint& growth)
{
    const QRect visible = m_viewport.visible(imageSize());
    if (m_look.selection.isEmpty()) {
        const QSize size(std::max(1, visible.width() / 2), std::max(1, visible.height() / 2));
        setSelection({visible.topLeft() + QPoint(visible.width() / 4, visible.height() / 4), size});
        return;
    }
    QRect moved = m_look.selection.translated(step);
    moved.setBottomRight(moved.bottomRight() + growth);
    if (!moved.isEmpty() && QRect({0, 0}, imageSize()).contains(moved))
        setSelection(moved);
}

void CImageView::dragSelection(const QPointF& widgetPoint)
{
    setSelection(between(m_corner, limited(pixelAt(widgetPoint), imageSize())));
}

void CImageView::keyPressEvent(QKeyEvent* event)
{
    const QPoint step = stepOf(event->key());
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (event->key() == Qt::Key_Escape && !m_look.selection.isEmpty()) {
        setSelection({});
    } else if (step.isNull() || !m_image) {
        QWidget::keyPressEvent(event);
    } else if (modifiers == Qt::AltModifier) {
        moveProbe(step);
    } else if (modifiers == Qt::ControlModifier) {
        moveSelection(step, {});
    } else if (modifiers == Qt::ShiftModifier) {
        moveSelection({}, step);
    } else {
        SViewport viewport = m_viewport;
        viewport.panBy(toDevice(-QPointF(panStep * step)), imageSize());
        setViewport(viewport, m_isFitted && viewport == m_viewport);
    }
}

void CImageView::wheelEvent(QWheelEvent* event)
{
    const int turned = event->angleDelta().y();
    if (!m_image || turned == 0) {
        event->ignore();
        return;
    }
    SViewport viewport = m_viewport;
    const double factor = std::pow(zoomOfNotch, turned / unitsOfNotch);
    const QPointF pointer = pointerOf(*event);
    viewport.zoomAt(viewport.zoom * factor, toDevice(pointer), imageSize());
    setViewport(viewport, false);
    setPointer(pointer);
}

void CImageView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_image)
        return;
    m_dragFrom = event->localPos();
    m_dragViewport = m_viewport;
    m_drag = m_isDrawing || event->modifiers() == Qt::ShiftModifier ? EDrag::Select : EDrag::Pan;
    if (m_drag == EDrag::Pan) {
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    m_corner = limited(pixelAt(event->localPos()), imageSize());
    setSelection({});
}

void CImageView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_drag == EDrag::Select)
        dragSelection(event->localPos());
    if (m_drag == EDrag::Pan) {
        SViewport viewport = m_dragViewport;
        viewport.panBy(toDevice(event->localPos() - m_dragFrom), imageSize());
        setViewport(viewport, m_isFitted && viewport == m_viewport);
    }
    setPointer(event->localPos());
}

void CImageView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_drag == EDrag::Select)
        setDrawing(false);
    if (m_drag == EDrag::Pan)
        unsetCursor();
    m_drag = EDrag::None;
    fitToSize();
}

void CImageView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        fit();
}

void CImageView::leaveEvent(QEvent*)
{
    if (m_pointer)
        setProbe({});
    m_pointer.reset();
}

} // namespace Host
