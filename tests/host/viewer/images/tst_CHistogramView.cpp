// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CHistogramView.h"

#include "viewer/TestView.h"

#include <QTest>

#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_div.h>

using namespace Host;

namespace {

SRenderedImage withHistogram(const cv::Mat& pixels, int bits = 8)
{
    SViewport viewport{QSize(100, 100)};
    viewport.fit({pixels.cols, pixels.rows});
    SImageLook look;
    look.hasHistogram = true;
    return renderImage(viewImage(pixels, bits), viewport, look);
}

int visibleCurves(const CHistogramView& view)
{
    const QwtPlotItemList curves = view.itemList(QwtPlotItem::Rtti_PlotCurve);
    return int(
        std::count_if(curves.begin(), curves.end(), [](const QwtPlotItem* curve) { return curve->isVisible(); }));
}

double topOf(const CHistogramView& view)
{
    return view.axisScaleDiv(QwtPlot::yLeft).upperBound();
}

} // namespace

class tst_CHistogramView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newViewIsEmpty();
    void curveForEachChannel();
    void curveHoldsTheCounts();
    void axisIsInTheCamerasDepth();
    void logarithmicShowsAll();
};

void tst_CHistogramView::newViewIsEmpty()
{
    CHistogramView view;
    QCOMPARE(visibleCurves(view), 0);
    QVERIFY(!view.isLogarithmic());
    QVERIFY(!view.accessibleName().isEmpty());
    QVERIFY(!view.grab().isNull());
}

void tst_CHistogramView::curveForEachChannel()
{
    CHistogramView view;
    view.showImage(withHistogram(rampImage()));
    QCOMPARE(visibleCurves(view), 1);
    view.showImage(withHistogram(cv::Mat(9, 9, CV_8UC3, cv::Scalar(1, 2, 3))));
    QCOMPARE(visibleCurves(view), 3);
    view.showImage({});
    QCOMPARE(visibleCurves(view), 0);
}

void tst_CHistogramView::curveHoldsTheCounts()
{
    CHistogramView view;
    cv::Mat pixels(10, 10, CV_8UC1, cv::Scalar(70));
    pixels.row(0).setTo(90);
    view.showImage(withHistogram(pixels));
    const auto* const curve = static_cast<QwtPlotCurve*>(view.itemList(QwtPlotItem::Rtti_PlotCurve).constFirst());
    QCOMPARE(curve->sample(70), QPointF(70, 90));
    QCOMPARE(curve->sample(90), QPointF(90, 10));
    QCOMPARE(curve->sample(71), QPointF(71, 0));
    QVERIFY(topOf(view) >= 90.0);
}

void tst_CHistogramView::axisIsInTheCamerasDepth()
{
    CHistogramView view;
    view.showImage(withHistogram(cv::Mat(9, 9, CV_16UC1, cv::Scalar(1600)), 12));
    view.updateAxes();
    QCOMPARE(view.axisScaleDiv(QwtPlot::xBottom).upperBound(), 4096.0);
    const auto markers = view.itemList(QwtPlotItem::Rtti_PlotMarker);
    QCOMPARE(markers.size(), 2);
    QCOMPARE(static_cast<QwtPlotMarker*>(markers[0])->xValue(), 0.0);
    QCOMPARE(static_cast<QwtPlotMarker*>(markers[1])->xValue(), 65535.0 / 16);
}

void tst_CHistogramView::logarithmicShowsAll()
{
    CHistogramView view;
    cv::Mat pixels(100, 100, CV_8UC1, cv::Scalar(255)); // mostly white
    pixels.row(0).setTo(70);
    view.showImage(withHistogram(pixels));
    view.updateAxes();
    QVERIFY(topOf(view) < 9900.0);
    view.setLogarithmic(true);
    view.updateAxes();
    QVERIFY(view.isLogarithmic());
    QVERIFY(topOf(view) >= 9900.0);
    QCOMPARE(visibleCurves(view), 1);
}

QTEST_MAIN(tst_CHistogramView)
#include "tst_CHistogramView.moc"
