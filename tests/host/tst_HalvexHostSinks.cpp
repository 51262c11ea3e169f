// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CBlockedFile.h"
#include "CHostProgram.h"
#include "TestFile.h"
#include "TestImages.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace {

// Every kind of sink, each with its own idea of how many frames to write.
const char* const chain = R"([
    {"name": "raw", "model": {"name": "Raw Sink", "property": {"sink_name": "raw", "write_every": 5}},
     "unique_sources": [["*"]]},
    {"name": "image", "model": {"name": "To Image"}, "unique_sources": [["*"]], "connection": [["png", "video"]]},
    {"name": "png", "model": {"name": "PNG Sink", "property": {"sink_name": "png"}}},
    {"name": "video", "model": {"name": "Video Sink", "property": {"sink_name": "video", "frames_per_second": 10}}}])";

} // namespace

/// What sinks leave behind, through the program.
class tst_HalvexHostSinks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sixteenBitsStay();
    void everySinkWritesItsKind();
    void settingsOfSinks();
    void videoThatCannotBeWritten();
    void videoThatFailsOnTheWayIsInTheManifest();
    void runThatGotStuckIsReplaced();
};

void tst_HalvexHostSinks::sixteenBitsStay()
{
    CHostProgram program;
    QVERIFY(write(program.file("chain.json"), chain));
    QCOMPARE(program.run({program.file("chain.json"), "--frames", "1", "--pixel-format", "Mono16"}), 0);
    const cv::Mat image = cv::imread(program.written("fake/png/frame-000000.png").toStdString(), cv::IMREAD_UNCHANGED);
    QCOMPARE(image.type(), CV_16UC1);
    // The very values that the camera sent.
    const QByteArray raw = content(program.written("fake/raw/frame-000000.raw"));
    const QJsonObject format = QJsonDocument::fromJson(content(program.written("fake/raw/frame-000000.json"))).object();
    QCOMPARE(format["bits"].toInt(), 16);
    QCOMPARE(format["pixel_format"].toString(), QStringLiteral("Mono16"));
    QCOMPARE(raw.size(), format["stride"].toInt() * format["height"].toInt());
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(image.data), int(image.total() * image.elemSize())), raw);
}

void tst_HalvexHostSinks::everySinkWritesItsKind()
{
    CHostProgram program;
    QVERIFY(write(program.file("chain.json"), chain));
    QCOMPARE(program.run({program.file("chain.json"), "--frames", "20", "--fps", "100", "--write-every", "10"}), 0);
    QCOMPARE(program.sinks()["raw"].written, 4);
    QCOMPARE(program.sinks()["png"].written, 2);
    QCOMPARE(program.sinks()["video"].written, 20);
    QCOMPARE(QDir(program.written("fake/raw")).entryList({"*.raw"}).size(), 4);
    QCOMPARE(QDir(program.written("fake/video")).entryList(QDir::Files),
             QStringList({"frames.csv", "video-000000.avi"}));
    const cv::VideoCapture video(program.written("fake/video/video-000000.avi").toStdString(), cv::CAP_OPENCV_MJPEG);
    QCOMPARE(int(video.get(cv::CAP_PROP_FRAME_COUNT)), 20);
    QCOMPARE(int(video.get(cv::CAP_PROP_FPS)), 10);
    for (const auto& sink : program.sinks())
        QCOMPARE(content(program.written("fake/" + sink.first + "/frames.csv")).count('\n'), sink.second.written + 1);
}

void tst_HalvexHostSinks::settingsOfSinks()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "12", "--fps", "100", "--set", "frames.writeEvery=4"}), 0);
    QCOMPARE(program.sinks()["frames"].written, 3);
    QCOMPARE(program.sinks()["edges"].written, 1);
    QCOMPARE(program.refusal({"--set", "frames.write_every=-1"}),
             QStringLiteral("--set frames.write_every=-1: 'writeEvery' takes int, 0 to 1000000000, not '-1'"));
    QVERIFY(write(program.file("chain.json"), QByteArray(chain).replace("\"write_every\": 5", "\"write_every\": -5")));
    QVERIFY(program.refusal({program.file("chain.json")})
                .contains("'write_every' takes a whole number, 0 to 1000000000, not -5; it stays 0"));
}

void tst_HalvexHostSinks::videoThatCannotBeWritten()
{
    CHostProgram program;
    QVERIFY(write(program.file("chain.json"), chain));
    QVERIFY(QDir().mkpath(program.written("fake/video")));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), program.written("fake/video/video-000000.part.avi")));
    QCOMPARE(program.run({program.file("chain.json"), "--frames", "2"}), 1);
    QVERIFY2(
        program.errorLines().constLast().endsWith("video-000000.avi': it did not become complete; is the disk full?"),
        qPrintable(program.errorLines().constLast()));
}

void tst_HalvexHostSinks::videoThatFailsOnTheWayIsInTheManifest()
{
    CHostProgram program;
    QVERIFY(write(program.file("chain.json"), chain));
    QVERIFY(writeImages(program.file("shots"), 3));
    QVERIFY(writeImage(program.file("shots/shot-3.png"), cv::Mat(48, 64, CV_8UC1, cv::Scalar::all(9))));
    QCOMPARE(program.run({program.file("chain.json"), "--images", program.file("shots")}), 1);
    QVERIFY2(program.errorLines().constLast().endsWith("': an image is 64 x 48, the video 32 x 24"),
             qPrintable(program.errorLines().constLast()));
    const QJsonArray files =
        QJsonDocument::fromJson(content(program.written("manifest.json"))).object()["files"].toArray();
    QStringList videos;
    for (const QJsonValue& file : files)
        videos += QStringList(file["name"].toString()).filter(".avi");
    QCOMPARE(videos, QStringList("images/video/video-000000.avi"));
    const cv::VideoCapture video(program.written(videos.constFirst()).toStdString(), cv::CAP_OPENCV_MJPEG);
    QCOMPARE(int(video.get(cv::CAP_PROP_FRAME_COUNT)), 3);
}

void tst_HalvexHostSinks::runThatGotStuckIsReplaced()
{
    CHostProgram program;
    QVERIFY(write(program.file("chain.json"), chain));
    QVERIFY(writeImages(program.file("shots"), 3));
    QVERIFY(QDir().mkpath(program.written("images/png")));
    const QString video = program.written("images/video/video-000000.avi");
    const QStringList arguments{program.file("chain.json"), "--images", program.file("shots")};
    {
        CBlockedFile blocked(program.written("images/png/frame-000000.png"));
        program.start(QStringList("run") + arguments);
        QVERIFY(program.waitForError(QStringLiteral("the sink 'png' did not write its last 1 file in time")));
        blocked.release();
        QVERIFY(program.waitForEnd());
    }
    // It was open as the run ended, and completed afterwards.
    QVERIFY(QFile::exists(video));
    QCOMPARE(program.run(arguments), 0);
    QCOMPARE(QDir(program.written("images/video")).entryList(QDir::Files),
             QStringList({"frames.csv", "video-000000.avi"}));
}

QTEST_GUILESS_MAIN(tst_HalvexHostSinks)
#include "tst_HalvexHostSinks.moc"
