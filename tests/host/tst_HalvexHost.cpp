// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestFile.h"
#include "TestTable.h"

#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include <QTemporaryFile>

#include <algorithm>

#include <csignal>

namespace {

cv::Mat readImage(const QString& file)
{
    return cv::imread(file.toStdString(), cv::IMREAD_UNCHANGED);
}

bool isSame(const cv::Mat& left, const cv::Mat& right)
{
    return left.size() == right.size() && cv::norm(left, right, cv::NORM_INF) == 0.0;
}

} // namespace

/// The program as a user meets it: what it prints, what it leaves behind, how it ends.
class tst_HalvexHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableAddsUp();
    void previewIsThrottled();
    void fakeCameraDoes200FramesPerSecond();
    void filesHoldWhatTheGraphComputes();
    void colorFrames();
    void refused_data();
    void refused();
    void fullStandardOutput();
    void signalEndsCleanly_data();
    void signalEndsCleanly();
};

void tst_HalvexHost::tableAddsUp()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "30", "--write-every", "10"}), 0);
    QCOMPARE(program.completeFrames(), 30);
    QCOMPARE(program.incompleteFrames(), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QCOMPARE(program.sinks()["frames"].written, 3);
    QCOMPARE(pngFiles(program.written("fake/frames")),
             QStringList({"frame-000000.png", "frame-000010.png", "frame-000020.png"}));
    for (const auto& sink : program.sinks())
        QCOMPARE(pngFiles(program.written("fake/" + sink.first)).size(), sink.second.written);
    QVERIFY(!program.errorLines().isEmpty());
    QCOMPARE(program.errorLines().filter("/30 frames, "), program.errorLines());
}

void tst_HalvexHost::previewIsThrottled()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "200"}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    // At the very least the first and the last; at most one per tick, with some ticks before and after the frames.
    const CHostProgram::SDecoupler preview = program.decouplers().front();
    const double seconds = 199.0 / program.framesPerSecond();
    QVERIFY2(preview.emitted >= 2, qPrintable(program.output()));
    QVERIFY2(preview.emitted <= 25.0 * 1.1 * seconds + 5.0, qPrintable(program.output()));
    QCOMPARE(preview.received, 200);
}

void tst_HalvexHost::fakeCameraDoes200FramesPerSecond()
{
    // A busy machine slows the camera down, but hardly every time.
    double best = 0.0;
    for (int attempt = 0; attempt < 20 && best < 180.0; ++attempt) {
        CHostProgram program;
        QCOMPARE(program.run({"--frames", "60"}), 0);
        best = std::max(best, program.framesPerSecond());
    }
    QVERIFY2(best >= 180.0, qPrintable(QString::number(best)));
}

void tst_HalvexHost::filesHoldWhatTheGraphComputes()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "12", "--fps", "50", "--write-every", "1"}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    const auto read = [&](const char* sink, int number) {
        return readImage(program.written(QString::asprintf("fake/%s/frame-%06d.png", sink, number)));
    };
    // The preview shows some of the frames, the last one among them.
    const int last = program.sinks()["threshold"].delivered - 1;
    QVERIFY(last >= 0);
    const cv::Mat frame = read("frames", 11);
    QCOMPARE(frame.size(), cv::Size(512, 512));
    QCOMPARE(frame.type(), CV_8UC1);
    cv::Mat threshold;
    cv::GaussianBlur(frame, threshold, cv::Size(7, 7), 0);
    cv::threshold(threshold, threshold, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
    QVERIFY(isSame(read("threshold", last), threshold));
    cv::Mat edges;
    cv::Canny(threshold, edges, 50, 150);
    QVERIFY(isSame(read("edges", last), edges));
    QCOMPARE(read("histogram", last).size(), cv::Size(640, 400));
}

void tst_HalvexHost::colorFrames()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "1", "--pixel-format", "RGB8"}), 0);
    QCOMPARE(readImage(program.written("fake/frames/frame-000000.png")).type(), CV_8UC3);
}

void tst_HalvexHost::refused_data()
{
    addColumns<QStringList, QString>({"arguments", "beginning"});
    const QStringList secondIsMissing{"--camera", "fake", "--camera", "127.0.0.3"};
    addRow("missing camera", secondIsMissing, "cannot open camera '127.0.0.3': ");
    addRow("folder below a file", QStringList{"--output", "%file%/x"}, "cannot make the folder '%file%/x': ");
    addRow("folder is a file", QStringList{"--output", "%file%"}, "cannot make the folder '%file%': ");
    addRow("folder that takes nothing", QStringList{"--output", "/proc/x"}, "cannot make the folder '/proc/x': ");
    addRow("unknown option", QStringList{"--speed", "3"}, "Unknown option '--speed'. See 'halvex-host run --help'.");
    addRow("document nowhere", QStringList{"--save", "/nowhere/a"}, "cannot write '/nowhere/a': No such file");
}

void tst_HalvexHost::refused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, beginning);
    QTemporaryFile file;
    QVERIFY(file.open());
    const QString text = CHostProgram().refusal(arguments.replaceInStrings("%file%", file.fileName()));
    QVERIFY2(text.startsWith(beginning.replace("%file%", file.fileName())), qPrintable(text));
    QVERIFY2(!text.contains('\n'), qPrintable(text));
}

void tst_HalvexHost::fullStandardOutput()
{
    CHostProgram program;
    program.process().setStandardOutputFile(QStringLiteral("/dev/full"));
    QCOMPARE(program.run({"--frames", "1"}), 1);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: cannot write to standard output: No space left on device"));
}

void tst_HalvexHost::signalEndsCleanly_data()
{
    addColumns<QStringList, int>({"cameras", "number"});
    addRow("SIGINT", QStringList{"fake"}, SIGINT);
    addRow("SIGTERM", QStringList{"fake"}, SIGTERM);
    addRow("SIGHUP", QStringList{"fake"}, SIGHUP);
    addRow("two cameras", QStringList{"fake-1", "fake-2"}, SIGINT);
}

void tst_HalvexHost::signalEndsCleanly()
{
    QFETCH(QStringList, cameras);
    QFETCH(int, number);
    QStringList arguments;
    for (const QString& camera : qAsConst(cameras))
        arguments << "--camera" << camera;
    CHostProgram program;
    QCOMPARE(program.interrupt(arguments, number), 128 + number);
    QVERIFY(program.output().contains(QStringLiteral("by signal %1").arg(number)));
    for (const QString& camera : qAsConst(cameras)) {
        QVERIFY(cameras.size() == 1 || program.choose(camera));
        QVERIFY(program.completeFrames() > 0);
        QVERIFY(program.completeFrames() < 100000);
        QVERIFY2(program.addsUp(), qPrintable(program.output()));
    }
}

QTEST_GUILESS_MAIN(tst_HalvexHost)
#include "tst_HalvexHost.moc"
