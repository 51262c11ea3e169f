// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStallWatch.h"

#include <QSignalSpy>
#include <QTest>

using namespace Host;
using namespace std::chrono_literals;

class tst_CStallWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void waitsAsLongAsSomethingGetsDone();
    void nothingGetsDone();
    void stopped();
};

void tst_CStallWatch::waitsAsLongAsSomethingGetsDone()
{
    quint64 done = 0;
    bool isStalled = false;
    QElapsedTimer sinceProgress;
    // Something gets done between two calls, so often that it takes far longer than it has patience for.
    CStallWatch watch([&] {
        if (done < 20) {
            ++done;
            sinceProgress.start();
        }
        return done;
    });
    connect(&watch, &CStallWatch::stalled, this, [&] { isStalled = true; });
    watch.start(500ms);
    QTRY_VERIFY_WITH_TIMEOUT(isStalled, 30000);
    QCOMPARE(done, quint64(20));
    // It is from the last progress on that it was patient.
    QVERIFY2(sinceProgress.elapsed() >= 500, qPrintable(QString::number(sinceProgress.elapsed())));
}

void tst_CStallWatch::nothingGetsDone()
{
    CStallWatch watch([] { return quint64(7); });
    const QSignalSpy stalled(&watch, &CStallWatch::stalled);
    for (int round = 1; round <= 2; ++round) {
        watch.start(1ms);
        QTRY_COMPARE(stalled.count(), round);
    }
}

void tst_CStallWatch::stopped()
{
    int asked = 0;
    CStallWatch watch([&asked] { return quint64(++asked); });
    const QSignalSpy stalled(&watch, &CStallWatch::stalled);
    watch.start(1h);
    QTRY_VERIFY(asked > 1);
    watch.stop();
    const int before = asked;
    CStallWatch other([] { return quint64(0); });
    const QSignalSpy otherStalled(&other, &CStallWatch::stalled);
    other.start(300ms);
    QTRY_COMPARE(otherStalled.count(), 1);
    QCOMPARE(asked, before);
    QCOMPARE(stalled.count(), 0);
}

QTEST_GUILESS_MAIN(tst_CStallWatch)
#include "tst_CStallWatch.moc"
