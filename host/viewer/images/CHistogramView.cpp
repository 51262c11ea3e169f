// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CHistogramView.h"

#include "host/viewer/base/Theme.h"
#include "host/viewer/images/OwnDepth.h"

#include <QEvent>
#include <QPen>

#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_engine.h>

#include <algorithm>

namespace Host {

namespace {

constexpr int mostChannels = 3;
constexpr double leastShown = 0.5; // on a logarithmic scale, which has no 0

QwtPlotMarker* addLine(QwtPlot& plot)
{
    auto* const line = new QwtPlotMarker;
    line->setLineStyle(QwtPlotMarker::VLine);
    line->attach(&plot);
    return line;
}

// Of blue, green and red.
QColor channelColor(int channel, bool isOnDark)
{
    const QColor onLight[] = {QColor(0x1f, 0x5f, 0xd0), QColor(0x1a, 0x80, 0x30), QColor(0xc6, 0x28, 0x28)};
    const QColor onDark[] = {QColor(0x6f, 0xa8, 0xff), QColor(0x6c, 0xd0, 0x7c), QColor(0xff, 0x7b, 0x72)};
    return isOnDark ? onDark[channel] : onLight[channel];
}

} // namespace

CHistogramView::CHistogramView(QWidget* parent)
    : QwtPlot(parent)
    , m_black(addLine(*this))
    , m_white(addLine(*this))
{
    for (int channel = 0; channel < mostChannels; ++channel) {
        auto* const curve = new QwtPlotCurve;
        curve->setStyle(QwtPlotCurve::Steps);
        curve->setCurveAttribute(QwtPlotCurve::Inverted); // a step reaches from its value to the next
        curve->attach(this);
        m_curves.push_back(curve);
    }
    auto* const frameless = qobject_cast<QwtPlotCanvas*>(canvas());
    frameless->setFrameStyle(QFrame::NoFrame);
    frameless->setFocusPolicy(Qt::NoFocus);
    enableAxis(QwtPlot::yLeft, false);
    plotLayout()->setAlignCanvasToScales(true);
    setAxisMaxMajor(QwtPlot::xBottom, 6);
    setAxisMaxMinor(QwtPlot::xBottom, 0);
    setContentsMargins(12, 4, 12, 0); // room for half of the first and the last number
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAutoReplot(false);
    takeColors();
    retranslate();
    showImage({});
}

void CHistogramView::retranslate()
{
    setAccessibleName(tr("Histogram"));
    setToolTip(tr("How often each value occurs in what is seen, or in the rectangle. The lines stand at the values "
                  "that are shown as black and as white."));
}

void CHistogramView::takeColors()
{
    const QColor text = palette().color(QPalette::WindowText);
    for (std::size_t channel = 0; channel < m_curves.size(); ++channel) {
        const bool isGray = m_image.histogram.size() < 2;
        const QColor color = isGray ? text : channelColor(int(channel), isDark(palette()));
        QColor below = color;
        below.setAlpha(isGray ? 90 : 50);
        m_curves[channel]->setPen(color, 1.0);
        m_curves[channel]->setBrush(below);
    }
    const QColor line = palette().color(QPalette::Highlight);
    m_black->setLinePen(line, 1.0);
    m_white->setLinePen(line, 1.0, Qt::DashLine);
    setCanvasBackground(palette().color(QPalette::Base));
}

void CHistogramView::showImage(const SRenderedImage& image)
{
    if (image.data)
        m_end = 1 << ownBits(*image.data);
    m_image = image;
    m_image.data.clear();
    m_image.picture = {};
    setAxisScale(QwtPlot::xBottom, 0.0, m_end, m_end / 4);
    for (std::size_t channel = 0; channel < m_curves.size(); ++channel) {
        const bool isShown = channel < image.histogram.size();
        m_curves[channel]->setVisible(isShown);
        if (isShown)
            setCounts(*m_curves[channel], image.histogram[channel], m_end);
    }
    m_black->setVisible(!image.histogram.empty());
    m_white->setVisible(!image.histogram.empty());
    m_black->setXValue(image.range.black);
    m_white->setXValue(image.range.white);
    setHeight(image.histogram);
    takeColors();
    replot();
}

void CHistogramView::setCounts(QwtPlotCurve& curve, const SHistogramScale::Counts& counts, double end) const
{
    const double step = end / double(counts.size());
    QVector<QPointF> points;
    points.reserve(int(counts.size()) + 1);
    for (const float count : counts) {
        const double height = m_isLogarithmic ? std::max(leastShown, double(count)) : double(count);
        points.append({double(points.size()) * step, height});
    }
    points.append({end, points.last().y()});
    curve.setBaseline(m_isLogarithmic ? leastShown : 0.0);
    curve.setSamples(points);
}

void CHistogramView::setHeight(const std::vector<SHistogramScale::Counts>& channels)
{
    if (channels.empty())
        return;
    const SHistogramScale scale(channels);
    const double all = std::max({scale.most, scale.black, scale.white});
    setAxisScale(QwtPlot::yLeft, m_isLogarithmic ? leastShown : 0.0, 1.05 * (m_isLogarithmic ? 1.5 * all : scale.most));
}

void CHistogramView::setLogarithmic(bool isLogarithmic)
{
    if (isLogarithmic == m_isLogarithmic)
        return;
    m_isLogarithmic = isLogarithmic;
    if (isLogarithmic)
        setAxisScaleEngine(QwtPlot::yLeft, new QwtLogScaleEngine);
    else
        setAxisScaleEngine(QwtPlot::yLeft, new QwtLinearScaleEngine);
    showImage(SRenderedImage(m_image));
}

void CHistogramView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange) {
        takeColors();
        replot();
    }
    QwtPlot::changeEvent(event);
}

} // namespace Host
