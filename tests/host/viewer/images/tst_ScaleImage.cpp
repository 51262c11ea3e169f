// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/ScaleImage.h"

#include "host/viewer/images/ImageColors.h"
#include "viewer/TestView.h"

#include <QTest>

using namespace Host;

namespace {

QImage scaled(const cv::Mat& image, const SViewport& viewport)
{
    return scaleImage(image, viewport, [](const cv::Mat& part) { return colorImage(part, {0, 255}, EPalette::Plain); });
}

} // namespace

class tst_ScaleImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneToOneIsTheImage();
    void pixelsAreSeenWhenEnlarged();
    void pixelsAreAveragedWhenMadeSmaller();
    void nothingToShow();
};

void tst_ScaleImage::oneToOneIsTheImage()
{
    SViewport viewport{QSize(50, 40)};
    viewport.panBy({-60, -20}, {200, 100});
    const QImage shown = scaled(rampImage(), viewport);
    QCOMPARE(shown.size(), QSize(50, 40));
    for (const int x : {0, 49})
        QCOMPARE(qRed(shown.pixel(x, 20)), 60 + x);
}

void tst_ScaleImage::pixelsAreSeenWhenEnlarged()
{
    // A zoom that is no whole number, too: each pixel of the screen shows the pixel that its middle is in.
    for (const double zoom : {2.0, 7.3, 128.0}) {
        SViewport viewport{QSize(300, 200)};
        viewport.zoomAt(zoom, {150, 100}, {200, 100});
        const QRect place = viewport.covered({200, 100});
        const QImage shown = scaled(rampImage(), viewport);
        QCOMPARE(shown.size(), place.size());
        for (int x = 0; x < place.width(); ++x) {
            const double pixel = viewport.toImage({place.x() + x + 0.5, 0.0}).x();
            QCOMPARE(qRed(shown.pixel(x, 3)), int(std::floor(pixel)));
        }
    }
}

void tst_ScaleImage::pixelsAreAveragedWhenMadeSmaller()
{
    cv::Mat stripes(100, 200, CV_8UC1, cv::Scalar(0));
    for (int x = 0; x < stripes.cols; x += 2)
        stripes.col(x).setTo(200);
    SViewport viewport{QSize(100, 50)};
    viewport.fit({200, 100});
    const QImage shown = scaled(stripes, viewport);
    QCOMPARE(shown.size(), QSize(100, 50));
    QCOMPARE(qRed(shown.pixel(50, 25)), 100);
}

void tst_ScaleImage::nothingToShow()
{
    QVERIFY(scaled(rampImage(), SViewport()).isNull());
}

QTEST_GUILESS_MAIN(tst_ScaleImage)
#include "tst_ScaleImage.moc"
