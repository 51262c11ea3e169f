// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CRateMeter.h"

#include <QTest>

using namespace Host;

namespace {

CRateMeter::Clock::time_point at(int milliseconds)
{
    return CRateMeter::Clock::time_point(std::chrono::milliseconds(milliseconds));
}

} // namespace

class tst_CRateMeter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutTwoTimesThereIsNone();
    void steadyRate();
    void longAgoDoesNotCount();
};

void tst_CRateMeter::withoutTwoTimesThereIsNone()
{
    CRateMeter meter;
    QCOMPARE(meter.rate(), 0.0);
    meter.add(5, at(0));
    QCOMPARE(meter.rate(), 0.0);
    meter.add(6, at(0));
    QCOMPARE(meter.rate(), 0.0);
}

void tst_CRateMeter::steadyRate()
{
    CRateMeter meter;
    for (int i = 0; i <= 40; ++i)
        meter.add(quint64(50) * quint64(i), at(250 * i));
    QCOMPARE(meter.rate(), 200.0);
}

void tst_CRateMeter::longAgoDoesNotCount()
{
    CRateMeter meter;
    meter.add(0, at(0));
    meter.add(1000, at(100));
    meter.add(1000, at(1100));
    meter.add(1000, at(1350));
    QCOMPARE(meter.rate(), 0.0);
}

QTEST_GUILESS_MAIN(tst_CRateMeter)
#include "tst_CRateMeter.moc"
