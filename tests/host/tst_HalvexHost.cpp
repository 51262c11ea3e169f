// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"

#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>

#include <algorithm>
#include <vector>

#include <csignal>

/// The program as a user meets it: what it prints, what it leaves behind, how it ends.
class tst_HalvexHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableAddsUp();
    void previewIsThrottled();
    void fakeCameraDoes200FramesPerSecond();
    void filesHoldWhatTheGraphComputes();
    void graphIsWritten();
    void colorFrames();
    void refused_data();
    void refused();
    void fullDiskEndsTheRun();
    void fullStandardOutput();
    void signalEndsCleanly_data();
    void signalEndsCleanly();

private:
    static QStringList pngFiles(const QDir& folder);
};

QStringList tst_HalvexHost::pngFiles(const QDir& folder)
{
    return folder.entryList({"*.png"}, QDir::Files, QDir::Name);
}

void tst_HalvexHost::tableAddsUp()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "30", "--write-every", "10", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.completeFrames(), 30);
    QCOMPARE(program.incompleteFrames(), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QCOMPARE(program.sinks()["frames"].written, 3);
    QCOMPARE(pngFiles(QDir(folder.filePath("fake/frames"))),
             QStringList({"frame-000000.png", "frame-000010.png", "frame-000020.png"}));
    for (const auto& sink : program.sinks())
        QCOMPARE(pngFiles(QDir(folder.filePath("fake/" + sink.first))).size(), sink.second.written);
    const QStringList lines = program.errorLines();
    QVERIFY(!lines.isEmpty());
    for (const QString& line : lines)
        QVERIFY2(line.contains(QStringLiteral("/30 frames, ")), qPrintable(line));
}

void tst_HalvexHost::previewIsThrottled()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "200", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    // At the very least the first and the last; at most one per tick, with some ticks before and after the frames.
    const CHostProgram::SDecoupler preview = program.decouplers().front();
    const double seconds = 199.0 / program.framesPerSecond();
    QVERIFY2(preview.emitted >= 2, qPrintable(program.output()));
    QVERIFY2(preview.emitted <= 25.0 * 1.1 * seconds + 5.0, qPrintable(program.output()));
    QCOMPARE(preview.received, 200);
    QCOMPARE(preview.cancelled, 0);
}

void tst_HalvexHost::fakeCameraDoes200FramesPerSecond()
{
    // A busy machine slows the camera down, but hardly every time.
    double best = 0.0;
    for (int attempt = 0; attempt < 20 && best < 180.0; ++attempt) {
        const QTemporaryDir folder;
        CHostProgram program;
        QVERIFY(program.run({"run", "--frames", "60", "--output", folder.path()}));
        QCOMPARE(program.exitCode(), 0);
        best = std::max(best, program.framesPerSecond());
    }
    QVERIFY2(best >= 180.0, qPrintable(QString::number(best)));
}

void tst_HalvexHost::filesHoldWhatTheGraphComputes()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "12", "--fps", "50", "--write-every", "1", "--output", folder.path()}));
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    const auto read = [&](const QString& sink, int number) {
        const QString file =
            folder.filePath(QStringLiteral("fake/%1/frame-%2.png").arg(sink).arg(number, 6, 10, QChar('0')));
        return cv::imread(file.toStdString(), cv::IMREAD_UNCHANGED);
    };
    const auto isSame = [](const cv::Mat& left, const cv::Mat& right) {
        return left.size() == right.size() && cv::norm(left, right, cv::NORM_INF) == 0.0;
    };
    std::vector<cv::Mat> thresholds;
    for (int i = 0; i < 12; ++i) {
        const cv::Mat frame = read("frames", i);
        QCOMPARE(frame.size(), cv::Size(512, 512));
        QCOMPARE(frame.type(), CV_8UC1);
        cv::Mat threshold;
        cv::GaussianBlur(frame, threshold, cv::Size(7, 7), 0);
        cv::threshold(threshold, threshold, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
        thresholds.push_back(threshold);
    }

    // The preview shows some of the frames, in their order, the last one among them.
    const int previews = program.sinks()["threshold"].delivered;
    QVERIFY(previews >= 1);
    auto next = thresholds.begin();
    for (int i = 0; i < previews; ++i) {
        const cv::Mat threshold = read("threshold", i);
        next = std::find_if(next, thresholds.end(), [&](const cv::Mat& each) { return isSame(each, threshold); });
        QVERIFY2(next != thresholds.end(), qPrintable(QString::number(i)));
        ++next;
        cv::Mat edges;
        cv::Canny(threshold, edges, 50, 150);
        QVERIFY(isSame(read("edges", i), edges));
        QCOMPARE(read("histogram", i).size(), cv::Size(256, 128));
    }
    QVERIFY(isSame(read("threshold", previews - 1), thresholds.back()));
}

void tst_HalvexHost::graphIsWritten()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "1", "--output", folder.path()}));
    QFile text(folder.filePath("fake/graph.txt"));
    QVERIFY(text.open(QIODevice::ReadOnly));
    const QString graph = QString::fromUtf8(text.readAll());
    QVERIFY(graph.contains(QStringLiteral("VGR -> [1] Decoupler for VGR")));
    QVERIFY(program.output().contains(graph));
    QFile dot(folder.filePath("fake/graph.dot"));
    QVERIFY(dot.open(QIODevice::ReadOnly));
    QVERIFY(dot.readAll().startsWith("digraph Halvex {"));
}

void tst_HalvexHost::colorFrames()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "1", "--pixel-format", "RGB8", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 0);
    const QString file = folder.filePath("fake/frames/frame-000000.png");
    QCOMPARE(cv::imread(file.toStdString(), cv::IMREAD_UNCHANGED).type(), CV_8UC3);
}

void tst_HalvexHost::refused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("beginning");
    QTest::newRow("missing camera") << QStringList{"--camera", "127.0.0.3"} << "cannot open camera '127.0.0.3': ";
    QTest::newRow("folder below a file") << QStringList{"--output", "%file%/x"}
                                         << "cannot make the folder '%file%/x/fake/";
    QTest::newRow("folder is a file") << QStringList{"--output", "%file%"} << "cannot make the folder '%file%/fake/";
    QTest::newRow("folder that takes nothing")
        << QStringList{"--output", "/proc/x"} << "cannot make the folder '/proc/x/fake/";
    QTest::newRow("unknown option") << QStringList{"--speed", "3"} << "Unknown option 'speed'.";
    QTest::newRow("unknown format") << QStringList{"--pixel-format", "Mono9"} << "camera 'fake' refuses ";
}

void tst_HalvexHost::refused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, beginning);
    QTemporaryFile file;
    QVERIFY(file.open());
    const QTemporaryDir folder;
    if (!arguments.contains("--output"))
        arguments << "--output" << folder.path();
    CHostProgram program;
    QVERIFY(program.run(QStringList("run") + arguments.replaceInStrings("%file%", file.fileName())));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.output(), QString());
    QCOMPARE(program.errorLines().size(), 1);
    const QString expected = "halvex-host: " + beginning.replace("%file%", file.fileName());
    QVERIFY2(program.errorLines().constFirst().startsWith(expected), qPrintable(program.errorLines().constFirst()));
}

void tst_HalvexHost::fullDiskEndsTheRun()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("fake/edges"));
    const QString file = folder.filePath("fake/edges/frame-000005.png");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), file));
    CHostProgram program;
    QVERIFY(
        program.run({"run", "--frames", "100000", "--fps", "100", "--write-every", "5", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: cannot write '%1': No space left on device").arg(file));
    // What was done is told all the same, and nothing that was grabbed is missing.
    QVERIFY(program.completeFrames() >= 6);
    QVERIFY(program.completeFrames() < 100000);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QCOMPARE(program.sinks()["edges"].written, 1);
}

void tst_HalvexHost::fullStandardOutput()
{
    const QTemporaryDir folder;
    CHostProgram program;
    program.process().setStandardOutputFile(QStringLiteral("/dev/full"));
    QVERIFY(program.run({"run", "--frames", "1", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: cannot write to standard output: No space left on device"));
}

void tst_HalvexHost::signalEndsCleanly_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("SIGINT") << SIGINT << 130;
    QTest::newRow("SIGTERM") << SIGTERM << 143;
}

void tst_HalvexHost::signalEndsCleanly()
{
    QFETCH(int, number);
    QFETCH(int, exitCode);
    const QTemporaryDir folder;
    CHostProgram program;
    program.start({"run", "--frames", "100000", "--output", folder.path()});
    QTRY_VERIFY_WITH_TIMEOUT(program.errorsUpToNow().contains(QStringLiteral("/100000 frames, ")), 30000);
    QCOMPARE(kill(pid_t(program.process().processId()), number), 0);
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.exitCode(), exitCode);
    QVERIFY(program.completeFrames() > 0);
    QVERIFY(program.completeFrames() < 100000);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QVERIFY(program.output().contains(QStringLiteral("by signal %1").arg(number)));
}

QTEST_GUILESS_MAIN(tst_HalvexHost)
#include "tst_HalvexHost.moc"
