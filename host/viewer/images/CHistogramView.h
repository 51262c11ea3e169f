// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/images/RenderImage.h"

#include <qwt_plot.h>

#include <vector>

class QwtPlotCurve;
class QwtPlotMarker;

namespace Host {

/**
 * The histogram of a rendered image: a curve for each channel, with lines at the values that are shown as black and as
 * white. Values are in the camera's own depth. On a linear scale a peak at black or white that is much higher than the
 * rest is cut off; see SHistogramScale.
 *
 * \code
 * connect(&view, &CImageView::renderedChanged, &histogram, [&] { histogram.showImage(view.rendered()); });
 * \endcode
 *
 * Threads: the window's.
 */
class CHistogramView : public QwtPlot
{
    Q_OBJECT

public:
    explicit CHistogramView(QWidget* parent = nullptr);

    /// An image without a histogram shows none.
    void showImage(const SRenderedImage& image);

    bool isLogarithmic() const { return m_isLogarithmic; }
    void setLogarithmic(bool isLogarithmic);

    QSize sizeHint() const override { return {360, 112}; }
    QSize minimumSizeHint() const override { return {96, 88}; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    void takeColors();
    void setHeight(const std::vector<SHistogramScale::Counts>& channels);
    void setCounts(QwtPlotCurve& curve, const SHistogramScale::Counts& counts, double end) const;

    // They belong to the plot.
    std::vector<QwtPlotCurve*> m_curves;
    QwtPlotMarker* m_black;
    QwtPlotMarker* m_white;
    SRenderedImage m_image; // without the picture and the data: what is drawn again for another scale
    double m_end = 256.0;   // of the values
    bool m_isLogarithmic = false;
};

} // namespace Host
