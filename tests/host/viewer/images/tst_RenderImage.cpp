// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/RenderImage.h"

#include "viewer/TestView.h"

#include <QTest>

using namespace Host;

namespace {

SViewport fitted(const QSize& size = {200, 100})
{
    SViewport viewport{QSize(200, 100)};
    viewport.fit(size);
    return viewport;
}

} // namespace

class tst_RenderImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainLookTellsNoMore();
    void rectangleIsMeasured();
    void rectangleIsCutToTheImage();
    void rangesAreInTheCamerasDepth();
    void histogramIsOfTheRectangleOrTheView();
};

void tst_RenderImage::plainLookTellsNoMore()
{
    const auto data = viewImage(rampImage());
    const SRenderedImage rendered = renderImage(data, fitted(), {});
    QCOMPARE(rendered.data, data.staticCast<const CImageData>());
    QCOMPARE(rendered.place, QRect(0, 0, 200, 100));
    QCOMPARE(qRed(rendered.picture.pixel(150, 50)), 150);
    QVERIFY(rendered.range == (SValueRange{0, 255}));
    QVERIFY(rendered.statistics.empty());
    QVERIFY(rendered.histogram.empty());
}

void tst_RenderImage::rectangleIsMeasured()
{
    SImageLook look;
    look.selection = {10, 20, 3, 4};
    const SRenderedImage rendered = renderImage(viewImage(rampImage()), fitted(), look);
    QCOMPARE(rendered.statistics.size(), std::size_t(1));
    QCOMPARE(rendered.statistics[0].mean, 11.0);
    QCOMPARE(rendered.statistics[0].most, 12.0);
}

void tst_RenderImage::rectangleIsCutToTheImage()
{
    SImageLook look;
    look.selection = {190, 90, 100, 100};
    QCOMPARE(renderImage(viewImage(rampImage()), fitted(), look).selection, QRect(190, 90, 10, 10));
    look.selection = {300, 0, 10, 10};
    const SRenderedImage outside = renderImage(viewImage(rampImage()), fitted(), look);
    QVERIFY(outside.statistics.empty());
    QVERIFY(!outside.picture.isNull());
}

void tst_RenderImage::rangesAreInTheCamerasDepth()
{
    cv::Mat deep(100, 200, CV_16UC1, cv::Scalar(100 * 16));
    deep.colRange(0, 100).setTo(300 * 16);
    const auto data = viewImage(deep, 12);
    SImageLook look;
    QCOMPARE(renderImage(data, fitted(), look).range.white, 65535 / 16.0);
    look.rangeMode = ERangeMode::Automatic;
    const SRenderedImage automatic = renderImage(data, fitted(), look);
    QVERIFY(automatic.range == (SValueRange{100, 300}));
    QCOMPARE(automatic.picture.pixel(0, 0), qRgb(255, 255, 255));
    QCOMPARE(automatic.picture.pixel(150, 0), qRgb(0, 0, 0));
    look.rangeMode = ERangeMode::Manual;
    look.manualRange = {200, 300};
    QVERIFY(renderImage(data, fitted(), look).range == look.manualRange);
}

void tst_RenderImage::histogramIsOfTheRectangleOrTheView()
{
    const auto sum = [](const SRenderedImage& rendered) {
        double pixels = 0.0;
        for (const float count : rendered.histogram.front())
            pixels += double(count);
        return pixels;
    };
    SImageLook look;
    look.hasHistogram = true;
    const auto data = viewImage(rampImage());
    QCOMPARE(sum(renderImage(data, fitted(), look)), 20000.0);
    SViewport part{QSize(50, 50)};
    QCOMPARE(sum(renderImage(data, part, look)), 2500.0);
    look.selection = {0, 0, 5, 5};
    QCOMPARE(sum(renderImage(data, part, look)), 25.0);
}

QTEST_GUILESS_MAIN(tst_RenderImage)
#include "tst_RenderImage.moc"
