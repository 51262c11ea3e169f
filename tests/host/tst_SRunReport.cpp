// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SRunReport.h"

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(Plugin::Halvex::SDecouplerStatistics)

class tst_SRunReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void percentileIsTheNearestRank();
    void framesPerSecondNeedTwoFrames();
    void sinkThatGotTooFew();
    void decouplerThatDoesNotAddUp_data();
    void decouplerThatDoesNotAddUp();
    void table();
};

void tst_SRunReport::percentileIsTheNearestRank()
{
    using Times = std::vector<std::chrono::nanoseconds>;
    QCOMPARE(percentile({}, 0.5).count(), 0);
    QCOMPARE(percentile({7ns}, 0.0).count(), 7);
    QCOMPARE(percentile({7ns}, 1.0).count(), 7);
    QCOMPARE(percentile({40ns, 10ns, 30ns, 20ns}, 0.5).count(), 20);
    QCOMPARE(percentile({40ns, 10ns, 30ns, 20ns}, 0.51).count(), 30);
    Times times;
    for (int i = 200; i >= 1; --i)
        times.emplace_back(i);
    QCOMPARE(percentile(times, 0.99).count(), 198);
    QCOMPARE(percentile(times, 1.0).count(), 200);
}

void tst_SRunReport::framesPerSecondNeedTwoFrames()
{
    SRunReport report;
    QCOMPARE(report.framesPerSecond(), 0.0);
    report.frames.complete = 1;
    report.span = 1s;
    QCOMPARE(report.framesPerSecond(), 0.0);
    report.frames.complete = 51;
    report.span = 2s;
    QCOMPARE(report.framesPerSecond(), 25.0);
    report.span = 0s;
    QCOMPARE(report.framesPerSecond(), 0.0);
}

void tst_SRunReport::sinkThatGotTooFew()
{
    SRunReport report;
    QCOMPARE(report.mismatch(), QString());
    report.sinks = {{"a", 3, 3, {}, 0ns, 0ns}, {"b", 3, 3, {}, 0ns, 0ns}};
    QCOMPARE(report.mismatch(), QString());
    report.sinks[1].delivered = 2;
    QCOMPARE(report.mismatch(), QStringLiteral("the sink 'b' got 2 frames, not the 3 that went its way"));
    report.sinks[0].delivered = 4;
    QCOMPARE(report.mismatch(), QStringLiteral("the sink 'a' got 4 frames, not the 3 that went its way"));
}

void tst_SRunReport::decouplerThatDoesNotAddUp_data()
{
    using Counts = SDecouplerStatistics;
    QTest::addColumn<Counts>("counts");
    QTest::addColumn<quint64>("delivered");
    QTest::addColumn<QString>("error");
    QTest::newRow("sound") << Counts{9, 4, 3, 2, 0} << quint64(4) << "";
    QTest::newRow("frame not received") << Counts{8, 4, 3, 1, 0} << quint64(4)
                                        << "the decoupler 'd' received 8 frames, not the 9 that went its way";
    QTest::newRow("frame vanished") << Counts{9, 4, 3, 1, 0} << quint64(4)
                                    << "the counts of the decoupler 'd' do not add up";
    QTest::newRow("frame pending") << Counts{9, 4, 3, 1, 1} << quint64(4)
                                   << "the decoupler 'd' let its last frame not through in time";
    QTest::newRow("frame on its way") << Counts{9, 4, 3, 2, 0} << quint64(3)
                                      << "the decoupler 'd' let its last frame not through in time";
}

void tst_SRunReport::decouplerThatDoesNotAddUp()
{
    QFETCH(SDecouplerStatistics, counts);
    QFETCH(quint64, delivered);
    QFETCH(QString, error);
    SRunReport report;
    report.decouplers = {{"d", 25.0, counts, 9, delivered}};
    QCOMPARE(report.mismatch(), error);
}

void tst_SRunReport::table()
{
    SRunReport report;
    report.camera = QStringLiteral("Maker Model");
    report.graph = QStringLiteral("  [0] Camera\n");
    report.ending = QStringLiteral("after 3 frames, as asked");
    report.frames = {5, 3, 2, 7};
    report.span = 80ms;
    report.decouplers = {{"[1] Decoupler for VGR", 12.5, {300, 38, 260, 1, 1}, 300, 38}};
    report.sinks = {{"none", 3, 3, {}, 0ns, 0ns},
                    {"one", 3, 3, {"o/one/frame-000000.png"}, 1234567ns, 2s},
                    {"more", 3, 3, {"o/frame-000000.png", "o/frame-000001.png", "o/frame-000002.png"}, 5us, 15us}};
    QCOMPARE(
        report.text(),
        QStringLiteral("Graph\n"
                       "  [0] Camera\n"
                       "\n"
                       "Camera             Maker Model\n"
                       "Ended              after 3 frames, as asked\n"
                       "Frames grabbed     5 = 3 complete + 2 incomplete\n"
                       "Underruns          7\n"
                       "Frames per second  25.0\n"
                       "\n"
                       "Decoupler                  per second   received    emitted    dropped  cancelled    "
                       "pending\n"
                       "[1] Decoupler for VGR            12.5        300         38        260          1          "
                       "1\n"
                       "\n"
                       "Sink        delivered  grab to sink p50        p99  written  files\n"
                       "none                3           0.00 ms    0.00 ms        0  none\n"
                       "one                 3           1.23 ms 2000.00 ms        1  o/one/frame-000000.png\n"
                       "more                3           0.01 ms    0.01 ms        3  o/frame-000000.png to "
                       "frame-000002.png\n"));
}

QTEST_GUILESS_MAIN(tst_SRunReport)
#include "tst_SRunReport.moc"
