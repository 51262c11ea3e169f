// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CDelays.h"

#include <QTest>

using namespace Host;
using namespace std::chrono_literals;

class tst_CDelays : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void percentileIsTheNearestRank();
    void nothingWasMeasured();
    void oldOnesAreForgotten();
};

void tst_CDelays::percentileIsTheNearestRank()
{
    CDelays few;
    for (const auto delay : {40ns, 10ns, 30ns, 20ns})
        few.add(delay);
    QCOMPARE(few.percentile(0.0)->count(), 10);
    QCOMPARE(few.percentile(0.5)->count(), 20);
    QCOMPARE(few.percentile(0.51)->count(), 30);
    QCOMPARE(few.percentile(1.0)->count(), 40);
    CDelays many;
    for (int i = 200; i >= 1; --i)
        many.add(std::chrono::nanoseconds(i));
    QCOMPARE(many.percentile(0.99)->count(), 198);
    many.add(few);
    QCOMPARE(many.percentile(0.0)->count(), 1);
}

void tst_CDelays::nothingWasMeasured()
{
    QVERIFY(!CDelays().percentile(0.5));
}

void tst_CDelays::oldOnesAreForgotten()
{
    CDelays delays;
    delays.add(1h);
    for (std::size_t i = 0; i < CDelays::most; ++i)
        delays.add(1ns);
    QCOMPARE(delays.percentile(1.0)->count(), 1);
}

QTEST_GUILESS_MAIN(tst_CDelays)
#include "tst_CDelays.moc"
