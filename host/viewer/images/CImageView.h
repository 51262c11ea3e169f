// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/base/CTaskRunner.h"
#include "host/viewer/images/RenderImage.h"

#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <optional>

namespace Host {

/**
 * Shows one image, the newest that it was given, and lets a person look at it closely.
 *
 * \code
 * CImageView view;
 * connect(&model, &CViewModel::imageChanged, &view, [&] { view.setImage(model.image()); });
 * \endcode
 *
 * Mouse: the wheel zooms at the pointer, a drag moves the image, a drag with Shift (or after setDrawing()) draws a
 * rectangle, a double click fits the image into the view. Keys: the arrows move the view, with Alt the pixel whose
 * value is told, with Ctrl the rectangle, with Shift its lower right corner; Escape takes the rectangle away.
 *
 * A worker scales and colours. It is given work at most every 16 ms, by a timer that runs only while there is something
 * new, and does the newest. Until it is done the picture before is drawn where it belongs now.
 *
 * Sizes are in pixels of the screen, so that 1:1 is 1:1 on a screen of high resolution, too.
 *
 * Threads: the window's.
 */
class CImageView : public QWidget
{
    Q_OBJECT

public:
    explicit CImageView(QWidget* parent = nullptr);

    /// Null for none. The view shares it until another one is shown.
    void setImage(const QSharedPointer<const CImageData>& image);

    const SImageLook& look() const { return m_look; }
    void setColors(EPalette palette);
    void setRange(ERangeMode mode, const SValueRange& manualRange = {});
    void setHistogramWanted(bool isWanted);

    /// What the worker has made last; without data before the first.
    const SRenderedImage& rendered() const { return m_rendered; }

    /// How many images have been drawn.
    quint64 shown() const { return m_shown; }

    /// What is seen of the image, with the rectangle, in pixels of the screen; null without an image.
    QImage seen() const;

    const SViewport& viewport() const { return m_viewport; }
    void fit();
    void zoomTo(double zoom);   ///< About the middle.
    void zoomBy(double factor); ///< About the middle.

    /// The pixel whose value is told: that under the pointer, or one that the keyboard chose. None outside.
    std::optional<QPoint> probe() const;

    /// The rectangle, in pixels of the image; null without one.
    QRect selection() const { return m_look.selection; }
    void setSelection(const QRect& selection);

    /// Whether a drag draws a rectangle without Shift, too. It ends with the rectangle.
    bool isDrawing() const { return m_isDrawing; }
    void setDrawing(bool isDrawing);

    QSize sizeHint() const override { return {480, 360}; }
    QSize minimumSizeHint() const override { return {96, 72}; }

Q_SIGNALS:
    void renderedChanged();  ///< There is another rendered(): an image, a zoom or a look.
    void probeChanged();     ///< Another pixel's value is told; not for another image.
    void selectionChanged(); ///< Once for each change.
    void drawingChanged();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void retranslate();
    QSize imageSize() const;
    QPointF toDevice(const QPointF& widgetPoint) const { return widgetPoint * devicePixelRatioF(); }
    QPoint pixelAt(const QPointF& widgetPoint) const;
    void setViewport(const SViewport& viewport, bool isFitted);
    void fitToSize();
    void markChanged();
    void render();
    void onRendered(const SRenderedImage& rendered);
    void setPointer(const QPointF& widgetPoint);
    void setProbe(const std::optional<QPoint>& probe);
    void moveProbe(const QPoint& step);
    void moveSelection(const QPoint& step, const QPoint& growth);
    void dragSelection(const QPointF& widgetPoint);
    void paintImage(QPainter& painter) const;

    enum class EDrag
    {
        None,
        Pan,
        Select
    };

    QSharedPointer<const CImageData> m_image;
    SImageLook m_look;
    QSize m_imageSize; // of the newest image that there was
    SViewport m_viewport;
    SRenderedImage m_rendered;
    quint64 m_shown = 0; // drawn
    bool m_isFitted = true;
    bool m_isDrawing = false;
    bool m_hasChanged = false; // since the worker was given work
    bool m_isUnseen = false;   // another image is rendered and not drawn yet
    EDrag m_drag = EDrag::None;
    QPointF m_dragFrom;               // of the widget, where the button was pressed
    SViewport m_dragViewport;         // and how the image was seen then
    QPoint m_corner;                  // of the rectangle that is drawn
    std::optional<QPointF> m_pointer; // of the widget; none while the keyboard chooses the pixel
    std::optional<QPoint> m_probe;
    QTimer m_pace{this};
    CTaskRunner m_renderer{CTaskRunner::EPolicy::NewestWins}; // last: it goes first, and calls nobody then
};

} // namespace Host
