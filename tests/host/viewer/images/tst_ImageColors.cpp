// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/ImageColors.h"

#include "viewer/TestView.h"

#include <QTest>

using namespace Host;

namespace {

QRgb colorOf(const cv::Mat& image, const SValueRange& range, EPalette palette = EPalette::Plain)
{
    return colorImage(image, range, palette).pixel(0, 0);
}

} // namespace

class tst_ImageColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void grayStaysGray();
    void rangeIsBlackAndWhite();
    void colorsAreInOrder();
    void palettesTellValuesApart();
    void limitsMarkBlackAndWhite();
    void usedRangeLeavesOutFewValues();
    void whiteStaysAboveBlack();
};

void tst_ImageColors::grayStaysGray()
{
    const QImage shown = colorImage(rampImage(), {0, 255}, EPalette::Plain);
    QCOMPARE(shown.format(), QImage::Format_RGB32);
    QCOMPARE(shown.size(), QSize(200, 100));
    for (const int x : {0, 7, 199})
        QCOMPARE(shown.pixel(x, 99), qRgb(x, x, x));
}

void tst_ImageColors::rangeIsBlackAndWhite()
{
    const auto gray = [](double value) { return cv::Mat(1, 1, CV_16UC1, cv::Scalar::all(value)); };
    QCOMPARE(colorOf(gray(65535), {0, 65535}), qRgb(255, 255, 255));
    QCOMPARE(colorOf(gray(1000), {1000, 3000}), qRgb(0, 0, 0));
    QCOMPARE(colorOf(gray(0), {1000, 3000}), qRgb(0, 0, 0));
    QCOMPARE(colorOf(gray(1800), {1000, 3000}), qRgb(102, 102, 102));
    QCOMPARE(colorOf(gray(3000), {1000, 3000}), qRgb(255, 255, 255));
    QCOMPARE(colorOf(gray(9000), {1000, 3000}), qRgb(255, 255, 255));
}

void tst_ImageColors::colorsAreInOrder()
{
    const cv::Mat image(3, 5, CV_8UC3, cv::Scalar(10, 20, 30));
    QCOMPARE(colorOf(image, {0, 255}), qRgb(30, 20, 10));
    const cv::Mat deep(3, 5, CV_16UC3, cv::Scalar(10 * 257, 20 * 257, 30 * 257));
    QCOMPARE(colorOf(deep, {0, 65535}), qRgb(30, 20, 10));
}

void tst_ImageColors::palettesTellValuesApart()
{
    for (const EPalette palette : {EPalette::Heat, EPalette::Spectrum}) {
        const QImage shown = colorImage(rampImage(), {0, 199}, palette);
        QVERIFY(shown.pixel(0, 0) != shown.pixel(100, 0));
        QVERIFY(shown.pixel(100, 0) != shown.pixel(199, 0));
    }
}

void tst_ImageColors::limitsMarkBlackAndWhite()
{
    const QImage shown = colorImage(rampImage(), {10, 190}, EPalette::Limits);
    QVERIFY(qBlue(shown.pixel(10, 0)) > qRed(shown.pixel(10, 0)));
    QVERIFY(qRed(shown.pixel(190, 0)) > qBlue(shown.pixel(190, 0)));
    const QRgb inside = shown.pixel(100, 0);
    QCOMPARE(qRed(inside), qBlue(inside));
}

void tst_ImageColors::usedRangeLeavesOutFewValues()
{
    cv::Mat image(100, 100, CV_8UC1, cv::Scalar(50));
    image.rowRange(50, 100).setTo(90);
    image.at<uchar>(0, 0) = 0;
    image.at<uchar>(0, 1) = 255;
    const SValueRange range = usedRange(image);
    QCOMPARE(range.black, 50.0);
    QCOMPARE(range.white, 90.0);
}

void tst_ImageColors::whiteStaysAboveBlack()
{
    for (const int type : {CV_8UC1, CV_16UC1, CV_16UC3}) {
        for (const double value : {0.0, 77.0, 255.0}) {
            const SValueRange range = usedRange(cv::Mat(4, 4, type, cv::Scalar::all(value)));
            QVERIFY(range.white > range.black);
        }
    }
}

QTEST_GUILESS_MAIN(tst_ImageColors)
#include "tst_ImageColors.moc"
