// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestFile.h"
#include "TestImages.h"
#include "TestTable.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

/// Images and videos in place of a camera, as a user meets them.
class tst_HalvexHostFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void imagesOnce();
    void everyImageComesThroughASlowGraph();
    void videoOnce();
    void loopedUntilTheFramesAskedFor();
    void loopedUntilASignal();
    void rateThatIsMissed();
    void fewerImagesThanAskedFor();
    void besideACamera();
    void sceneOfImages();
    void imageThatBreaksOff();
    void videoThatBreaksOff();
    void refused_data();
    void refused();
};

void tst_HalvexHostFiles::imagesOnce()
{
    CHostProgram program;
    const QString shots = program.file("shots");
    QVERIFY(writeImages(shots, 40));
    QCOMPARE(program.run({"--images", shots, "--write-every", "1"}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QCOMPARE(program.completeFrames(), 40);
    QVERIFY2(program.output().contains("Ended              at the end of the images\n"), qPrintable(program.output()));
    QVERIFY(program.errorLines().constLast().endsWith(", ended at the end of the images"));
    for (int i = 0; i < 40; ++i) {
        const QString file = program.written(QString::asprintf("images/frames/frame-%06d.png", i));
        const cv::Mat image = cv::imread(file.toStdString(), cv::IMREAD_UNCHANGED);
        QCOMPARE(cv::norm(image, plainImage(CV_8UC1, i), cv::NORM_INF), 0.0);
    }
    const QList<QByteArray> rows = content(program.written("images/frames/frames.csv")).split('\n');
    for (int i = 0; i < 40; ++i)
        QCOMPARE(QString(rows.value(i + 1)).section(',', -1), QStringLiteral("%1/shot-%2.png").arg(shots).arg(i));
}

void tst_HalvexHostFiles::everyImageComesThroughASlowGraph()
{
    CHostProgram program;
    const QString shots = program.file("shots");
    QVERIFY(writeImages(shots, 150));
    // Colour of 16 bits is copied on its way: it is not the pixels that hold the next image up.
    for (int i = 0; i < 150; i += 2)
        QVERIFY(writeImage(QStringLiteral("%1/shot-%2.png").arg(shots).arg(i), cv::Mat(480, 640, CV_16UC3)));
    const QString chain = program.file("chain.json");
    QVERIFY(write(chain, R"([
        {"name": "image", "model": {"name": "To Image"}, "unique_sources": [["*"]], "connection": [["blur"]]},
        {"name": "blur", "model": {"name": "Blur", "property": {"size": 21}}, "connection": [["blurred", "edges"]]},
        {"name": "edges", "model": {"name": "Edges"}, "connection": [["edge files"]]},
        {"name": "blurred", "model": {"name": "PNG Sink", "property": {"sink_name": "blurred"}}},
        {"name": "edge files", "model": {"name": "PNG Sink", "property": {"sink_name": "edges"}}}])"));
    QCOMPARE(program.run({chain, "--images", shots, "--write-every", "1"}), 0);
    QCOMPARE(pngFiles(program.written("images/blurred")).size(), 150);
    QCOMPARE(pngFiles(program.written("images/edges")).size(), 150);
}

void tst_HalvexHostFiles::videoOnce()
{
    CHostProgram program;
    const QString video = program.file("a.avi");
    QVERIFY(writeVideo(video, 30));
    QCOMPARE(program.run({"--video", video, "--write-every", "10"}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QCOMPARE(program.completeFrames(), 30);
    QVERIFY2(program.output().contains(QStringLiteral("video '%1' (video), 320 x 240 BGR8\n").arg(video)),
             qPrintable(program.output()));
    QVERIFY(program.output().contains("Ended              at the end of the video\n"));
    QCOMPARE(pngFiles(program.written("video/frames")).size(), 3);
}

void tst_HalvexHostFiles::loopedUntilTheFramesAskedFor()
{
    CHostProgram program;
    const QString shots = program.file("shots");
    QVERIFY(writeImages(shots, 7));
    QCOMPARE(program.run({"--images", shots, "--loop", "--frames", "30"}), 0);
    QCOMPARE(program.completeFrames(), 30);
    QVERIFY(program.output().contains("Ended              after 30 frames, as asked\n"));
    QVERIFY(program.errorLines().constLast().startsWith("30/30 frames, 100 %, "));
}

void tst_HalvexHostFiles::loopedUntilASignal()
{
    CHostProgram program;
    const QString video = program.file("a.avi");
    QVERIFY(writeVideo(video, 10));
    QCOMPARE(program.interrupt({"--video", video, "--loop", "--fps", "50"}, SIGINT), 130);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
}

void tst_HalvexHostFiles::rateThatIsMissed()
{
    CHostProgram program;
    const QString shots = program.file("shots");
    QVERIFY(writeImages(shots, 5));
    // Nothing reads a thousand images of this size in a second.
    QVERIFY(writeImage(shots + "/shot-0.png", cv::Mat(4000, 4000, CV_16UC3, cv::Scalar::all(0))));
    QCOMPARE(program.run({"--images", shots, "--loop", "--frames", "12", "--fps", "1000", "--strict"}), 1);
    QVERIFY2(program.errorLines().constLast().contains("1000 frames per second were asked for, "),
             qPrintable(program.errorLines().constLast()));
    QCOMPARE(program.completeFrames(), 12);
    // It ended as it should have; it is judged afterwards.
    QVERIFY2(
        program.output().contains("Ended              after 12 frames, as asked\nFailed             --strict: 1000 "),
        qPrintable(program.output()));
    const QJsonObject manifest = QJsonDocument::fromJson(content(program.written("manifest.json"))).object();
    QCOMPARE(manifest["ending"].toString(), QStringLiteral("after 12 frames, as asked"));
    QVERIFY(manifest["cameras"][0]["failed"].toString().startsWith("--strict: 1000 frames per second"));
}

void tst_HalvexHostFiles::fewerImagesThanAskedFor()
{
    CHostProgram program;
    const QString shots = program.file("shots");
    QVERIFY(writeImages(shots, 4));
    QCOMPARE(program.run({"--images", shots, "--frames", "10"}), 0);
    QVERIFY2(program.output().contains("Remark             10 frames were asked for, 4 came\n"),
             qPrintable(program.output()));
    QCOMPARE(program.run({"--images", shots, "--frames", "10", "--strict"}), 1);
    QVERIFY(program.errorLines().constLast().endsWith("camera 'images': --strict: 10 frames were asked for, 4 came"));
}

void tst_HalvexHostFiles::besideACamera()
{
    CHostProgram program;
    const QString shots = program.file("shots");
    QVERIFY(writeImages(shots, 5));
    QVERIFY(writeImages(program.file("more"), 3));
    QCOMPARE(program.run({"--camera", "fake-1", "--images", shots, "--images", program.file("more"), "--frames", "20"}),
             0);
    const std::map<QString, int> expected{{"fake-1", 20}, {"images", 5}, {"images-2", 3}};
    for (const auto& source : expected) {
        QVERIFY2(program.choose(source.first), qPrintable(program.output()));
        QCOMPARE(program.completeFrames(), source.second);
        QVERIFY2(program.addsUp(), qPrintable(program.output()));
    }
}

void tst_HalvexHostFiles::sceneOfImages()
{
    CHostProgram program;
    const QString shots = program.file("shots");
    QVERIFY(writeImages(shots, 5));
    QCOMPARE(program.run({"--images", shots, "--save", program.file("scene.json")}), 0);
    QCOMPARE(program.exec({"check", "--camera", "images", program.written("chain.json")}), 0);
    QCOMPARE(program.run({"--images", shots, "--load", program.file("scene.json")}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
}

void tst_HalvexHostFiles::imageThatBreaksOff()
{
    CHostProgram program;
    const QString shots = program.file("shots");
    QVERIFY(writeImages(shots, 5) && cutFile(shots + "/shot-3.png", 0.5));
    QCOMPARE(program.run({"--images", shots}), 1);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: cannot read '%1/shot-3.png': no image, or a broken one").arg(shots));
    QCOMPARE(program.completeFrames(), 3);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
}

void tst_HalvexHostFiles::videoThatBreaksOff()
{
    CHostProgram program;
    const QString video = program.file("a.avi");
    QVERIFY(writeVideo(video, 20) && cutFile(video, 0.6));
    QCOMPARE(program.run({"--video", video}), 1);
    QVERIFY(program.completeFrames() > 0);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: the video '%1' ends after %2 of 20 frames: a part of it is missing or broken")
                 .arg(video)
                 .arg(program.completeFrames()));
}

void tst_HalvexHostFiles::refused_data()
{
    addColumns<QStringList, QString>({"arguments", "reason"});
    addRow("no image in a folder", QStringList{"--images", "%"}, "no image in the folder '%'; it takes ");
    addRow("nothing matches", QStringList{"--images", "%/*.png"}, "no file matches '%/*.png'");
    addRow("no such video", QStringList{"--video", "%/a.avi"}, "cannot read the video '%/a.avi': No such file");
    addRow("no camera for it", QStringList{"--images", "%", "--camera-set", "Gain=1"},
           "--camera-set is for cameras, and this run has none. See ");
    addRow("nothing to loop", QStringList{"--loop"}, "--loop is for --images and --video. See ");
    addRow("one graph for two", QStringList{"--images", "%", "--video", "%", "--save", "%/a"},
           "--load and --save take one camera. See ");
    addRow("a camera of that name", QStringList{"--images", "%", "--camera", "images"},
           "--camera 'images' is called as --images is. See ");
}

void tst_HalvexHostFiles::refused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    const QString text = CHostProgram().refusal(arguments.replaceInStrings("%", folder.path()));
    QVERIFY2(text.startsWith(reason.replace("%", folder.path())), qPrintable(text));
    QVERIFY2(!text.contains('\n'), qPrintable(text));
}

QTEST_GUILESS_MAIN(tst_HalvexHostFiles)
#include "tst_HalvexHostFiles.moc"
