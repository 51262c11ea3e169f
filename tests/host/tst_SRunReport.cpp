// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/SRunReport.h"

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;
using namespace std::chrono_literals;

class tst_SRunReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void percentileIsTheNearestRank();
    void framesPerSecondNeedTwoFrames();
    void sinkThatGotTooFew();
    void decouplerThatDoesNotAddUp();
    void filterThatIsNotDone();
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

void tst_SRunReport::decouplerThatDoesNotAddUp()
{
    const auto mismatch = [](const SDecouplerStatistics& counts, quint64 delivered) {
        SRunReport report;
        report.decouplers = {{"d", 25.0, counts, 9, delivered}};
        return report.mismatch();
    };
    const QString notThrough = QStringLiteral("the decoupler 'd' let its last frame not through in time");
    QCOMPARE(mismatch({9, 4, 3, 2, 0}, 4), QString());
    QCOMPARE(mismatch({8, 4, 3, 1, 0}, 4),
             QStringLiteral("the decoupler 'd' received 8 frames, not the 9 that went its way"));
    QCOMPARE(mismatch({9, 4, 3, 1, 0}, 4), QStringLiteral("the counts of the decoupler 'd' do not add up"));
    QCOMPARE(mismatch({9, 4, 3, 1, 1}, 4), notThrough); // one is pending
    QCOMPARE(mismatch({9, 4, 3, 2, 0}, 3), notThrough); // one is on its way
}

void tst_SRunReport::filterThatIsNotDone()
{
    const auto mismatch = [](const SWorkerStatistics& counts) {
        SRunReport report;
        report.workers = {{"f", counts, 9}};
        return report.mismatch();
    };
    QCOMPARE(mismatch({9, 6, 2, 1, 0, 0}), QString());
    QCOMPARE(mismatch({8, 8}), QStringLiteral("the filter 'f' received 8 frames, not the 9 that went its way"));
    QCOMPARE(mismatch({9, 8, 0, 0, 0, 1}), QStringLiteral("the filter 'f' did not get done with its frames in time"));
    QCOMPARE(mismatch({9, 7, 0, 0, 2, 0}), QStringLiteral("the filter 'f' failed on 2 frames"));
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
    report.workers = {{"[5] Blur", {38, 30, 5, 1, 2, 0, 20000000, 1234567, 2000000}, 38}};
    report.sinks = {{"none", 3, 3, {}, 0ns, 0ns},
                    {"one", 3, 3, {"o/one/frame-000000.png"}, 1234567ns, 2s},
                    {"more", 3, 3, {"o/frame-000000.png", "o/frame-000001.png", "o/frame-000002.png"}, 5us, 15us}};
    QCOMPARE(report.text(), QStringLiteral(R"(Graph
  [0] Camera

Camera             Maker Model
Ended              after 3 frames, as asked
Frames grabbed     5 = 3 complete + 2 incomplete
Underruns          7
Frames per second  25.0

Decoupler                  per second   received    emitted    dropped  cancelled    pending
[1] Decoupler for VGR            12.5        300         38        260          1          1

Filter                      of a core        p50        p99   received    emitted    dropped     failed
[5] Blur                       25.0 %    1.23 ms    2.00 ms         38         30          6          2

Sink        delivered  grab to sink p50        p99  written  files
none                3           0.00 ms    0.00 ms        0  none
one                 3           1.23 ms 2000.00 ms        1  o/one/frame-000000.png
more                3           0.01 ms    0.01 ms        3  o/frame-000000.png to frame-000002.png
)"));
}

QTEST_GUILESS_MAIN(tst_SRunReport)
#include "tst_SRunReport.moc"
