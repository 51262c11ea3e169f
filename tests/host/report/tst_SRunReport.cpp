// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/SRunReport.h"

#include <QJsonArray>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;
using namespace std::chrono_literals;

class tst_SRunReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesPerSecondNeedTwoFrames();
    void sinkThatGotTooFew();
    void sinkThatWroteTooFew();
    void decouplerThatDoesNotAddUp();
    void filterThatIsNotDone();
    void connectionThatCarriedTooFew();
    void remarks();
    void failure();
    void table();
    void ratesOfDecouplers();
    void timesTooShortToShow();
    void json();
};

void tst_SRunReport::framesPerSecondNeedTwoFrames()
{
    SRunReport report;
    QVERIFY(!report.framesPerSecond());
    report.frames.complete = 1;
    report.span = 1s;
    QVERIFY(!report.framesPerSecond());
    report.frames.complete = 51;
    report.span = 2s;
    QCOMPARE(report.framesPerSecond().value_or(0), 25.0);
    report.span = 0s;
    QVERIFY(!report.framesPerSecond());
}

void tst_SRunReport::sinkThatGotTooFew()
{
    SRunReport report;
    QCOMPARE(report.mismatch(), QString());
    report.sinks = {{"a", 3, 3, {}}, {"b", 3, 3, {}}};
    QCOMPARE(report.mismatch(), QString());
    report.sinks[1].delivered = 2;
    QCOMPARE(report.mismatch(), QStringLiteral("the sink 'b' got 2 frames, not the 3 that went its way"));
    report.sinks[0].delivered = 4;
    QCOMPARE(report.mismatch(), QStringLiteral("the sink 'a' got 4 frames, not the 3 that went its way"));
}

void tst_SRunReport::sinkThatWroteTooFew()
{
    const auto mismatch = [](const SWorkerStatistics& writing) {
        SRunReport report;
        report.sinks = {{"a", 9, 9, {}, writing}};
        return report.mismatch();
    };
    QCOMPARE(mismatch({9, 9}), QString());
    QCOMPARE(mismatch({9, 7, 2}), QStringLiteral("the sink 'a' was too slow: it did not write 2 files"));
    QCOMPARE(mismatch({9, 8, 0, 0, 0, 1}), QStringLiteral("the sink 'a' did not write its last 1 file in time"));
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

void tst_SRunReport::connectionThatCarriedTooFew()
{
    SRunReport report;
    report.flowMismatch = QStringLiteral("the connection");
    report.sinks = {{"a", 2, 3, {}}};
    QCOMPARE(report.mismatch(), QStringLiteral("the connection"));
    report.flowMismatch.clear();
    report.sinks = {{"a", 1, 3, {}}};
    QCOMPARE(report.mismatch(), QStringLiteral("the sink 'a' got 1 frame, not the 3 that went its way"));
}

void tst_SRunReport::remarks()
{
    SRunReport report;
    report.frames.complete = 4;
    report.askedForFrames = 4;
    QCOMPARE(report.remarks(), QStringList());
    report.askedForFrames = 10;
    QCOMPARE(report.remarks(), QStringList("10 frames were asked for, 4 came"));
    report.askedForFrames = 0;
    report.askedForPerSecond = 100.0;
    QCOMPARE(report.remarks(), QStringList());
    report.frames = {96, 96, 0, 0};
    report.span = 1s; // 95 per second
    QCOMPARE(report.remarks(), QStringList());
    report.absences = {2, 7340ms, false};
    report.frames = {95, 94, 1, 2, 3};
    QCOMPARE(report.remarks(),
             QStringList({"100 frames per second were asked for, 93.0 came", "1 frame came incomplete",
                          "2 frames found no free buffer", "3 frames never came, though the camera counted them",
                          "the camera had gone 2 times and came back, 7.3 s in all"}));
}

void tst_SRunReport::failure()
{
    SRunReport report;
    report.frames = {5, 3, 2, 0};
    QCOMPARE(report.failure(false), QString());
    QCOMPARE(report.failure(true), QStringLiteral("--strict: 2 frames came incomplete"));
    report.frames = {2, 0, 2, 0};
    QCOMPARE(report.failure(false), QStringLiteral("all of 2 frames came incomplete"));
}

namespace {

SRunReport sample()
{
    SRunReport report;
    report.address = QStringLiteral("fake");
    report.camera = QStringLiteral("Maker Model");
    report.graph = QStringLiteral("  [0] Camera\n");
    report.ending = QStringLiteral("after 3 frames, as asked");
    report.frames = {5, 3, 2, 0};
    report.span = 80ms;
    SNodeReport camera;
    camera.name = QStringLiteral("[0] Camera");
    camera.out = 3;
    camera.framesPerSecond = 25.0;
    SNodeReport blur;
    blur.name = QStringLiteral("[5] Blur");
    blur.in = 3;
    blur.out = 2;
    blur.computing = 1234567ns;
    blur.worked = 10ms;
    blur.grabToHere = 5us;
    blur.grabToHere99 = 2s;
    blur.dropped = 1;
    blur.pending = 0;
    blur.lastError = QStringLiteral("this is no image");
    report.nodes = {camera, blur};
    report.sinks = {{"none", 3, 3, {}},
                    {"one", 3, 3, {"o/one/frame-000000.png"}, {}, 1},
                    {"more", 3, 3, {"o/frame-000000.png", "o/frame-000001.png", "o/frame-000002.png"}, {}, 3}};
    return report;
}

} // namespace

void tst_SRunReport::table()
{
    QCOMPARE(sample().text(), QStringLiteral(R"(Graph
  [0] Camera

Camera             Maker Model
Ended              after 3 frames, as asked
Frames grabbed     5 = 3 complete + 2 incomplete
Underruns          0
Frames per second  25.0
Remark             2 frames came incomplete

Node        in  out   fps  work  core   p50      p99  drops  left
[0] Camera   -    3  25.0     -     -     -        -      -     -
[5] Blur     3    2     -  1.23  12.5  0.01  2000.00      1     0
work: median of a frame's own computing; p50, p99: from the grab to here; in ms
core: how much of one core that computing took, in %; left: pending at the end
Error of [5] Blur: this is no image

Sink  delivered  written  Files
none          3        0  -
one           3        1  o/one/frame-000000.png
more          3        3  o/frame-000000.png to frame-000002.png
)"));
}

void tst_SRunReport::ratesOfDecouplers()
{
    const auto rate = [](double set, std::optional<double> real) {
        SRunReport report;
        report.decouplers = {{"[1] D", set, {}, 0, 0, real}};
        const QString text = report.text(100);
        return text.mid(text.indexOf("Rate of")).section('\n', 0, 0);
    };
    QCOMPARE(rate(25.0, 25.0), QStringLiteral("Rate of [1] D: at most 25 frames per second"));
    QCOMPARE(rate(-3.0, 25.0), QStringLiteral("Rate of [1] D: at most 25 frames per second, although it is set to -3"));
    QCOMPARE(rate(600.0, 1000.0),
             QStringLiteral("Rate of [1] D: at most 1000 frames per second, although it is set to 600"));
    QCOMPARE(
        rate(5000.0, {}),
        QStringLiteral("Rate of [1] D: at most one frame in each pass of the event loop, although it is set to 5000"));
    QVERIFY(rate(qQNaN(), 25.0).endsWith("although it is set to nan"));
}

void tst_SRunReport::timesTooShortToShow()
{
    SRunReport report = sample();
    report.nodes[1].computing = 900ns;
    QVERIFY(report.text().contains("<0.01"));
    QVERIFY(!report.text().contains(" 0.00"));
}

void tst_SRunReport::json()
{
    const QJsonObject json = sample().json();
    QCOMPARE(json["address"].toString(), QStringLiteral("fake"));
    QCOMPARE(json["frames"]["incomplete"].toInt(), 2);
    QCOMPARE(json["frames_per_second"].toDouble(), 25.0);
    QVERIFY(json["mismatch"].isNull());
    QCOMPARE(json["nodes"][0]["out"].toInt(), 3);
    QVERIFY(json["nodes"][0]["in"].isNull());
    QCOMPARE(json["nodes"][1]["grab_to_here_p99"].toDouble(), 2.0);
    QCOMPARE(json["nodes"][1]["last_error"].toString(), QStringLiteral("this is no image"));
    QCOMPARE(json["sinks"][2]["files"].toArray().size(), 3);
}

QTEST_GUILESS_MAIN(tst_SRunReport)
#include "tst_SRunReport.moc"
