// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/SHistogramScale.h"

#include <QTest>

using namespace Host;

class tst_SHistogramScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatFitsIsNotCut();
    void blackAndWhiteAreCut();
    void twoValuesAlone();
};

void tst_SHistogramScale::whatFitsIsNotCut()
{
    const SHistogramScale scale({{10, 20, 30, 5}, {40, 50, 0, 0}});
    QCOMPARE(scale.most, 50.0);
    QCOMPARE(scale.note(100), std::string());
}

void tst_SHistogramScale::blackAndWhiteAreCut()
{
    const SHistogramScale both({{500, 10, 0, 20}, {300, 0, 4, 200}});
    QCOMPARE(both.most, 15.0);
    QCOMPARE(both.note(1000), std::string("cut: 50 % black, 20 % white"));
    QCOMPARE(SHistogramScale({{2, 10, 0, 600}}).note(1000), std::string("cut: 60 % white"));
}

void tst_SHistogramScale::twoValuesAlone()
{
    const SHistogramScale scale({{900, 0, 0, 100}});
    QCOMPARE(scale.most, 900.0);
    QCOMPARE(SHistogramScale({{0, 0, 0, 0}}).most, 1.0);
}

QTEST_GUILESS_MAIN(tst_SHistogramScale)
#include "tst_SHistogramScale.moc"
