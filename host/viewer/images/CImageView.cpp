// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageView.h"

#include <QEvent>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

// A little faster than most screens, so that a picture that is late by a millisecond is in time.
constexpr int paceMs = 15;

QSize deviceSize(const QWidget& widget)
{
    const QSizeF size = QSizeF(widget.size()) * widget.devicePixelRatioF();
    return {int(std::lround(size.width())), int(std::lround(size.height()))};
}

// A white line between two dark ones is seen on every image.
void drawOutline(QPainter& painter, const QRectF& rect)
{
    QPen pen(QColor(0, 0, 0, 150), 3);
    pen.setCosmetic(true);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawRect(rect);
    pen.setColor(Qt::white);
    pen.setWidth(1);
    painter.setPen(pen);
    painter.drawRect(rect);
}

} // namespace

CImageView::CImageView(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_pace.setInterval(paceMs);
    m_pace.setTimerType(Qt::PreciseTimer);
    connect(&m_pace, &QTimer::timeout, this, &CImageView::render);
    retranslate();
}

void CImageView::retranslate()
{
    setAccessibleName(tr("Image"));
    setAccessibleDescription(tr("Arrow keys move the view, with Alt the pixel whose value is told, with Ctrl the "
                                "rectangle, with Shift its corner."));
}

void CImageView::setImage(const QSharedPointer<const CImageData>& image)
{
    m_image = image;
    if (image && imageSize() != m_imageSize) {
        m_imageSize = imageSize();
        fitToSize();
    }
    markChanged();
}

QSize CImageView::imageSize() const
{
    return m_image ? QSize(m_image->image().cols, m_image->image().rows) : QSize();
}

void CImageView::setColors(EPalette palette)
{
    m_look.palette = palette;
    markChanged();
}

void CImageView::setRange(ERangeMode mode, const SValueRange& manualRange)
{
    m_look.rangeMode = mode;
    m_look.manualRange = manualRange;
    markChanged();
}

void CImageView::setHistogramWanted(bool isWanted)
{
    m_look.hasHistogram = isWanted;
    markChanged();
}

void CImageView::setSelection(const QRect& selection)
{
    if (selection == m_look.selection)
        return;
    m_look.selection = selection;
    markChanged();
    update();
    Q_EMIT selectionChanged();
}

void CImageView::setDrawing(bool isDrawing)
{
    if (isDrawing == m_isDrawing)
        return;
    m_isDrawing = isDrawing;
    if (isDrawing)
        setCursor(Qt::CrossCursor);
    else
        unsetCursor();
    Q_EMIT drawingChanged();
}

void CImageView::fit()
{
    SViewport viewport = m_viewport;
    viewport.fit(imageSize());
    setViewport(viewport, true);
}

void CImageView::zoomTo(double zoom)
{
    SViewport viewport = m_viewport;
    viewport.zoomAt(zoom, viewport.center(), imageSize());
    setViewport(viewport, false);
}

void CImageView::zoomBy(double factor)
{
    zoomTo(m_viewport.zoom * factor);
}

void CImageView::setViewport(const SViewport& viewport, bool isFitted)
{
    m_isFitted = isFitted;
    if (viewport == m_viewport)
        return;
    m_viewport = viewport;
    if (m_pointer)
        setPointer(*m_pointer);
    markChanged();
    update();
}

// The view or the image has another size.
void CImageView::fitToSize()
{
    SViewport viewport = m_viewport;
    viewport.size = deviceSize(*this);
    // The statistics of a rectangle take room while it is drawn: the image stays under the pointer until it is done.
    if (m_drag != EDrag::Select) {
        if (m_isFitted)
            viewport.fit(imageSize());
        else
            viewport.keepInView(imageSize());
    }
    setViewport(viewport, m_isFitted);
}

void CImageView::markChanged()
{
    m_hasChanged = true;
    if (m_pace.isActive())
        return;
    render();
    m_pace.start();
}

void CImageView::render()
{
    if (!m_hasChanged || !m_image) {
        m_pace.stop();
        if (m_hasChanged)
            onRendered({});
        return;
    }
    m_hasChanged = false;
    m_renderer.run([this, image = m_image, viewport = m_viewport, look = m_look]() -> CTaskRunner::Done {
        return [this, rendered = renderImage(image, viewport, look)] { onRendered(rendered); };
    });
}

void CImageView::onRendered(const SRenderedImage& rendered)
{
    if (rendered.data && !m_image)
        return; // it came too late
    m_hasChanged = m_hasChanged && m_image;
    m_isUnseen = m_isUnseen || (rendered.data && rendered.data != m_rendered.data);
    m_rendered = rendered;
    update();
    Q_EMIT renderedChanged();
}

QImage CImageView::seen() const
{
    if (m_rendered.picture.isNull())
        return {};
    QImage all(m_viewport.size, QImage::Format_RGB32);
    QPainter painter(&all);
    paintImage(painter);
    painter.end();
    return all.copy(m_viewport.covered(imageSize()));
}

// In device pixels.
void CImageView::paintImage(QPainter& painter) const
{
    const QRectF place(m_rendered.place);
    if (m_rendered.viewport == m_viewport) {
        painter.drawImage(place.topLeft(), m_rendered.picture);
    } else {
        const SViewport& before = m_rendered.viewport;
        painter.drawImage(QRectF(m_viewport.toDevice(before.toImage(place.topLeft())),
                                 m_viewport.toDevice(before.toImage(place.bottomRight()))),
                          m_rendered.picture);
    }
    if (m_look.selection.isEmpty())
        return;
    const QRectF selection(m_look.selection);
    const QPointF from = m_viewport.toDevice(selection.topLeft());
    const QPointF to = m_viewport.toDevice(selection.bottomRight());
    drawOutline(painter, QRectF(from + QPointF(0.5, 0.5), to - QPointF(0.5, 0.5)));
}

void CImageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    if (m_rendered.picture.isNull()) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, tr("No image"));
    } else {
        painter.save();
        painter.scale(1.0 / devicePixelRatioF(), 1.0 / devicePixelRatioF());
        paintImage(painter);
        painter.restore();
        m_shown += m_isUnseen ? 1 : 0;
        m_isUnseen = false;
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void CImageView::resizeEvent(QResizeEvent*)
{
    fitToSize();
}

void CImageView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace Host
