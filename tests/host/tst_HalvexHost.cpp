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

#include <csignal>

/// The program as a user meets it: what it prints, what it leaves behind, how it ends.
class tst_HalvexHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableAddsUp();
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
    QVERIFY(program.run({"run", "--frames", "30", "--fps", "100", "--write-every", "10", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.completeFrames(), 30);
    QCOMPARE(program.incompleteFrames(), 0);
    QCOMPARE(program.sinks().size(), std::size_t(4));
    for (const auto& sink : program.sinks()) {
        QCOMPARE(sink.second.delivered, 30);
        QCOMPARE(sink.second.written, 3);
        QCOMPARE(pngFiles(QDir(folder.filePath(sink.first))),
                 QStringList({"frame-000000.png", "frame-000010.png", "frame-000020.png"}));
    }
    const QStringList lines = program.errorLines();
    QVERIFY(!lines.isEmpty());
    for (const QString& line : lines)
        QVERIFY2(line.contains(QStringLiteral("/30 frames, ")), qPrintable(line));
}

void tst_HalvexHost::filesHoldWhatTheGraphComputes()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "3", "--fps", "100", "--write-every", "2", "--output", folder.path()}));
    const auto read = [&](const QString& sink) {
        const QString file = folder.filePath(sink + "/frame-000002.png");
        return cv::imread(file.toStdString(), cv::IMREAD_UNCHANGED);
    };
    const cv::Mat frame = read("frames");
    QCOMPARE(frame.size(), cv::Size(512, 512));
    QCOMPARE(frame.type(), CV_8UC1);
    cv::Mat threshold;
    cv::GaussianBlur(frame, threshold, cv::Size(7, 7), 0);
    cv::threshold(threshold, threshold, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
    QCOMPARE(cv::norm(read("threshold"), threshold, cv::NORM_INF), 0.0);
    cv::Mat edges;
    cv::Canny(threshold, edges, 50, 150);
    QCOMPARE(cv::norm(read("edges"), edges, cv::NORM_INF), 0.0);
    QCOMPARE(read("histogram").size(), cv::Size(256, 128));
}

void tst_HalvexHost::graphIsWritten()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "1", "--output", folder.path()}));
    QFile text(folder.filePath("graph.txt"));
    QVERIFY(text.open(QIODevice::ReadOnly));
    const QString graph = QString::fromUtf8(text.readAll());
    QVERIFY(graph.contains(QStringLiteral("VGR to IMG -> [1] Blur")));
    QVERIFY(program.output().contains(graph));
    QFile dot(folder.filePath("graph.dot"));
    QVERIFY(dot.open(QIODevice::ReadOnly));
    QVERIFY(dot.readAll().startsWith("digraph Halvex {"));
}

void tst_HalvexHost::colorFrames()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "1", "--pixel-format", "RGB8", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 0);
    const QString file = folder.filePath("frames/frame-000000.png");
    QCOMPARE(cv::imread(file.toStdString(), cv::IMREAD_UNCHANGED).type(), CV_8UC3);
}

void tst_HalvexHost::refused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("beginning");
    QTest::newRow("missing camera") << QStringList{"--camera", "127.0.0.3"} << "cannot open camera '127.0.0.3': ";
    QTest::newRow("folder below a file") << QStringList{"--output", "%file%/x"} << "cannot make the folder '%file%/x/";
    QTest::newRow("folder is a file") << QStringList{"--output", "%file%"} << "cannot make the folder '%file%/";
    QTest::newRow("folder that takes nothing")
        << QStringList{"--output", "/proc/x"} << "cannot make the folder '/proc/";
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
    QVERIFY(QDir(folder.path()).mkdir("edges"));
    const QString file = folder.filePath("edges/frame-000005.png");
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
    QCOMPARE(program.sinks().size(), std::size_t(4));
    for (const auto& sink : program.sinks())
        QCOMPARE(sink.second.delivered, program.completeFrames());
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
    program.start({"run", "--frames", "100000", "--fps", "100", "--output", folder.path()});
    QTRY_VERIFY_WITH_TIMEOUT(program.errorsUpToNow().contains(QStringLiteral("/100000 frames, ")), 30000);
    QCOMPARE(kill(pid_t(program.process().processId()), number), 0);
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.exitCode(), exitCode);
    QVERIFY(program.completeFrames() > 0);
    QVERIFY(program.completeFrames() < 100000);
    QCOMPARE(program.sinks().size(), std::size_t(4));
    for (const auto& sink : program.sinks())
        QCOMPARE(sink.second.delivered, program.completeFrames());
    QVERIFY(program.output().contains(QStringLiteral("by signal %1").arg(number)));
}

QTEST_GUILESS_MAIN(tst_HalvexHost)
#include "tst_HalvexHost.moc"
