// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/OwnDepth.h"

#include "viewer/TestView.h"

#include <QTest>

using namespace Host;

class tst_OwnDepth : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valuesAreAsTheCameraGaveThem();
    void filterMayMakeEightBitsOfMore();
    void channelsAndOutside();
};

void tst_OwnDepth::valuesAreAsTheCameraGaveThem()
{
    const cv::Mat deep(2, 3, CV_16UC1, cv::Scalar(3071 * 16));
    const auto mono12 = viewImage(deep, 12);
    QCOMPARE(ownBits(*mono12), 12);
    QCOMPARE(ownScale(*mono12), 16.0);
    QCOMPARE(ownValues(*mono12, {2, 1}), std::vector<int>{3071});
    QCOMPARE(ownValues(*viewImage(deep, 0), {2, 1}), std::vector<int>{3071 * 16});
}

void tst_OwnDepth::filterMayMakeEightBitsOfMore()
{
    const auto edges = viewImage(cv::Mat(2, 3, CV_8UC1, cv::Scalar(200)), 12);
    QCOMPARE(ownBits(*edges), 8);
    QCOMPARE(ownValues(*edges, {0, 0}), std::vector<int>{200});
}

void tst_OwnDepth::channelsAndOutside()
{
    const auto color = viewImage(cv::Mat(2, 3, CV_8UC3, cv::Scalar(1, 2, 3)));
    QCOMPARE(ownValues(*color, {2, 1}), (std::vector<int>{1, 2, 3}));
    for (const QPoint& outside : {QPoint(-1, 0), QPoint(3, 0), QPoint(0, 2), QPoint(0, -1)})
        QVERIFY(ownValues(*color, outside).empty());
}

QTEST_GUILESS_MAIN(tst_OwnDepth)
#include "tst_OwnDepth.moc"
