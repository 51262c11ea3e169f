// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "CPluginTestFolder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <csignal>

namespace {

QJsonObject nodeOf(const QJsonObject& report, const QString& name)
{
    const QJsonArray nodes = report["cameras"][0]["nodes"].toArray();
    for (const QJsonValue& node : nodes) {
        if (node["name"].toString().endsWith(name))
            return node.toObject();
    }
    return {};
}

} // namespace

/// What a run does with its settings, and how it accounts for what came.
class tst_HalvexHostRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filtersDoWithFramesWhatTheyLike();
    void loopThroughDecouplers();
    void loopThroughAFilter();
    void endsAfterATime();
    void settingsOfModels();
    void rateOfADecouplerIsWhatItDoes_data();
    void rateOfADecouplerIsWhatItDoes();
    void settingsWhileItRuns();
    void settingsWhileItRunsAreRecorded();
    void featuresOfTheCamera();
    void refused_data();
    void refused();
    void reportAsJson();
    void silentCameraIsGivenUp();
    void lastProgressLineTellsHowItEnded();

private:
    // Reads the standard output of a run with --json -.
    static QJsonObject json(const CHostProgram& program)
    {
        return QJsonDocument::fromJson(program.output().toUtf8()).object();
    }
};

void tst_HalvexHostRuns::filtersDoWithFramesWhatTheyLike()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addHostPlugins() && folder.addTestPlugins({"models"}));
    CHostProgram program;
    const QString chain = program.file("chain.json");
    QVERIFY(write(chain, R"([
        {"name": "half", "model": {"name": "Every Second"}, "unique_sources": [["fake"]],
         "connection": [["half image", {"name": "join", "index_in": 1, "index _out": 0}]]},
        {"name": "all", "model": {"name": "Join", "property": {"policy": "DropOldest", "most_waiting": 1000}},
         "unique_sources": [["fake"]], "connection": []},
        {"name": "join", "model": {"name": "Join", "property": {"policy": "DropOldest", "most_waiting": 1000}},
         "unique_sources": [["fake"]], "connection": [["joined image"]]},
        {"name": "half image", "model": {"name": "To Image"}, "connection": [["half files"]]},
        {"name": "joined image", "model": {"name": "To Image"}, "connection": [["joined files"]]},
        {"name": "half files", "model": {"name": "PNG Sink", "property": {"sink_name": "half"}}},
        {"name": "joined files", "model": {"name": "PNG Sink", "property": {"sink_name": "joined"}}}])"));
    QCOMPARE(program.run({chain, "--plugins", folder.path(), "--frames", "20"}), 0);
    QCOMPARE(program.sinks()["half"].delivered, 10);
    QVERIFY2(program.sinks()["joined"].delivered >= 20, qPrintable(program.output()));
}

void tst_HalvexHostRuns::loopThroughDecouplers()
{
    CHostProgram program;
    const QString chain = program.file("chain.json");
    QVERIFY(write(chain, R"([
        {"name": "first", "model": {"name": "DecouplerVGR", "property": {"frames_per_second": 100}},
         "unique_sources": [["*"]], "connection": [["second", "image"]]},
        {"name": "second", "model": {"name": "DecouplerVGR", "property": {"frames_per_second": 50}},
         "connection": [["first", "other image"]]},
        {"name": "image", "model": {"name": "To Image"}, "connection": [["files"]]},
        {"name": "other image", "model": {"name": "To Image"}, "connection": [["other files"]]},
        {"name": "files", "model": {"name": "PNG Sink", "property": {"sink_name": "one"}}},
        {"name": "other files", "model": {"name": "PNG Sink", "property": {"sink_name": "other"}}}])"));
    QCOMPARE(program.exec({"check", "--camera", "fake", chain}), 0);
    QCOMPARE(program.run({chain, "--frames", "20"}), 0);
    QVERIFY2(program.output().contains("after 20 frames, as asked"), qPrintable(program.output()));
    QVERIFY(program.sinks()["one"].delivered > 0);
    QVERIFY(program.sinks()["other"].delivered > 0);
    // A single frame goes through all of it, too.
    QCOMPARE(program.run({chain, "--frames", "1"}), 0);
    QVERIFY(program.sinks()["one"].delivered > 0);
    QVERIFY(program.sinks()["other"].delivered > 0);
    QCOMPARE(program.interrupt({chain}, SIGINT), 130);
}

void tst_HalvexHostRuns::loopThroughAFilter()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addHostPlugins() && folder.addTestPlugins({"models"}));
    CHostProgram program;
    const QString chain = program.file("chain.json");
    // What comes out of the filter goes into it again, beside the camera's frames.
    QVERIFY(write(chain, R"([
        {"name": "half", "model": {"name": "Every Second"}, "unique_sources": [["*"]],
         "connection": [[{"name": "join", "index_in": 1, "index _out": 0}]]},
        {"name": "join", "model": {"name": "Join", "property": {"policy": "DropOldest", "most_waiting": 1000}},
         "unique_sources": [["*"]], "connection": [["delay", "image"]]},
        {"name": "delay", "model": {"name": "DecouplerVGR", "property": {"frames_per_second": 100}},
         "connection": [[{"name": "join", "index_in": 1, "index _out": 0}]]},
        {"name": "image", "model": {"name": "To Image"}, "connection": [["files"]]},
        {"name": "files", "model": {"name": "PNG Sink", "property": {"sink_name": "one"}}}])"));
    QCOMPARE(program.run({chain, "--plugins", folder.path(), "--frames", "30"}), 0);
    QVERIFY2(program.sinks()["one"].delivered >= 30, qPrintable(program.output()));
}

void tst_HalvexHostRuns::endsAfterATime()
{
    CHostProgram program;
    QCOMPARE(program.run({"--duration", "300ms", "--fps", "100"}), 0);
    QVERIFY2(program.output().contains("Ended              after 0.3 s, as asked\n"), qPrintable(program.output()));
    QVERIFY(program.completeFrames() > 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
}

void tst_HalvexHostRuns::settingsOfModels()
{
    CHostProgram program;
    const QString scene = program.file("scene.json");
    QCOMPARE(program.run({"--frames", "1", "--set", "blur.size=3", "--set", "blur.size=9", "--set",
                          "blur.method=Median", "--set", "preview.framesPerSecond=50", "--save", scene}),
             0);
    const QByteArray saved = content(scene);
    for (const char* setting : {"\"size\": 9", "\"method\": \"Median\"", "\"frames_per_second\": 50"})
        QVERIFY2(saved.contains(setting), setting);
}

void tst_HalvexHostRuns::rateOfADecouplerIsWhatItDoes_data()
{
    QTest::addColumn<QString>("rate");
    for (const char* rate : {"0", "-2", "nan"})
        QTest::newRow(rate) << QString(rate);
}

void tst_HalvexHostRuns::rateOfADecouplerIsWhatItDoes()
{
    QFETCH(QString, rate);
    const QString line = QStringLiteral("\nRate of [1] Decoupler for VGR: at most 25 frames per second, although it is "
                                        "set to %1\n")
                             .arg(rate);
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "2", "--set", QStringLiteral("preview.framesPerSecond=%1").arg(rate)}), 0);
    QVERIFY2(program.output().contains(line), qPrintable(program.output()));

    // No scene is saved that could not be loaded again.
    const QString scene = program.file("scene.json");
    QCOMPARE(program.run(
                 {"--frames", "2", "--set", QStringLiteral("preview.framesPerSecond=%1").arg(rate), "--save", scene}),
             2);
    QVERIFY2(program.errorLines().join('\n').contains("cannot save"), qPrintable(program.errorLines().join('\n')));
    QVERIFY(!QFile::exists(scene));

    program.start({"run", "--frames", "0"});
    program.process().write(QStringLiteral("set preview.framesPerSecond=%1\nstop\n").arg(rate).toUtf8());
    QVERIFY(program.waitForError(QStringLiteral("'stop'")));
    QVERIFY(program.errorLines().contains(QStringLiteral("halvex-host: set preview.framesPerSecond: %1").arg(rate)));
    program.process().terminate();
    QVERIFY(program.waitForEnd());
    QVERIFY2(program.output().contains(line), qPrintable(program.output()));
}

void tst_HalvexHostRuns::settingsWhileItRunsAreRecorded()
{
    CHostProgram program;
    const QString json = program.file("run.json");
    program.start({"run", "--frames", "0", "--json", json});
    program.process().write("set blur.size=8\nset  blur.method = Box\nset preview.framesPerSecond=100\nstop\n");
    QVERIFY(program.waitForError(QStringLiteral("'stop'")));
    program.process().terminate();
    QVERIFY(program.waitForEnd());
    QVERIFY(program.errorLines().contains("halvex-host: set blur.method: Box"));
    QVERIFY(program.errorLines().contains("halvex-host: set preview.framesPerSecond: 100"));
    for (const QString& file : {json, program.written("manifest.json")}) {
        const QJsonArray taken = QJsonDocument::fromJson(content(file))["live_settings"].toArray();
        QCOMPARE(taken.size(), 2);
        const QJsonObject first = taken.at(0).toObject();
        QCOMPARE(first.value("node").toString(), QStringLiteral("blur"));
        QCOMPARE(first.value("key").toString(), QStringLiteral("method"));
        QCOMPARE(first.value("value").toString(), QStringLiteral("Box"));
        QVERIFY(first.value("seconds").toDouble(-1) >= 0);
        QVERIFY(taken.at(1).toObject().value("seconds").toDouble(-1) >= first.value("seconds").toDouble());
    }
}

void tst_HalvexHostRuns::settingsWhileItRuns()
{
    CHostProgram program;
    program.start({"run", "--frames", "0"});
    program.process().write("set blur.size=8\nset preview.framesPerSecond=100\nstop\n");
    QVERIFY(QTest::qWaitFor([&program] {
        return program.process().peek(1 << 20).isEmpty() && program.process().readAllStandardError().contains("stop");
    }));
    program.process().terminate();
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 143);
}

void tst_HalvexHostRuns::featuresOfTheCamera()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "1", "--camera-set", "Width=64", "--camera-set", "Width=128", "--camera-set",
                          "PixelFormat=RGB8"}),
             0);
    QVERIFY2(program.output().contains("(fake), 128 x 512 RGB8\n"), qPrintable(program.output()));
}

void tst_HalvexHostRuns::refused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    const auto row = [](const QStringList& arguments, const QByteArray& reason) {
        QTest::newRow(qPrintable(arguments.last())) << arguments << QString::fromUtf8(reason);
    };
    row({"--set", "blur.size=8"}, "--set blur.size=8: 'size' takes int, 1 to 99, odd, not '8'");
    row({"--set", "blur.mostWaiting=0"}, "--set blur.mostWaiting=0: 'mostWaiting' takes int, from 1, not '0'");
    row({"--set", "preview.framesPerSecond=fast"},
        "--set preview.framesPerSecond=fast: 'framesPerSecond' takes double, not 'fast'");
    row({"--set", "frames.sinkName=a/b"}, "--set frames.sinkName=a/b: the sink's name 'a/b' makes no folder");
    row({"--set", "blurr.size=9"}, "--set blurr.size=9: no node is called 'blurr'; did you mean 'blur'?");
    row({"--camera-set", "Widht=9"}, "camera 'fake': it has no feature 'Widht'; did you mean 'Width'?");
    row({"--camera-set", "Width=0"}, "camera 'fake': the feature 'Width' takes integer, 1 to 2048, not '0'");
    row({"--camera-set", "SensorWidth=9"}, "camera 'fake': the feature 'SensorWidth' is read only");
    row({"--camera-set", "TriggerMode=Of"},
        "camera 'fake': the feature 'TriggerMode' takes one of Off, On, not 'Of'; did you mean 'Off'?");
    // Each value that is wrong, once, though others are right and there are two cameras.
    row({"--camera", "fake-1", "--camera", "fake-2", "--set", "blur.size=x", "--set", "blur.size=3", "--set",
         "nix.size=3", "--set", "blur.size=8"},
        "--set blur.size=x: 'size' takes int, 1 to 99, odd, not 'x'\n"
        "--set nix.size=3: no node is called 'nix'\n"
        "--set blur.size=8: 'size' takes int, 1 to 99, odd, not '8'");
    row({"--camera-set", "Width=x", "--camera-set", "Width=64", "--camera-set", "Width=0"},
        "camera 'fake': the feature 'Width' takes integer, 1 to 2048, not 'x'\n"
        "camera 'fake': the feature 'Width' takes integer, 1 to 2048, not '0'");
}

void tst_HalvexHostRuns::refused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    QCOMPARE(CHostProgram().refusal(arguments), reason);
}

void tst_HalvexHostRuns::reportAsJson()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "20", "--json", "-"}), 0);
    const QJsonObject report = json(program);
    QVERIFY(report["error"].isNull());
    QCOMPARE(report["cameras"][0]["frames"]["complete"].toInt(), 20);
    const QJsonObject camera = nodeOf(report, "Camera: fake");
    QCOMPARE(camera["out"].toInt(), 20);
    QVERIFY(camera["in"].isNull() && camera["grab_to_here_p50"].isNull());
    const QJsonObject blur = nodeOf(report, "Blur");
    QVERIFY(blur["in"].toInt() > 0);
    QVERIFY(blur["computing_p50"].toDouble() > 0.0);
    QVERIFY(blur["computing_sum"].toDouble() >= blur["computing_p50"].toDouble());
    QVERIFY(blur["grab_to_here_p99"].toDouble() >= blur["grab_to_here_p50"].toDouble());
    const QString file = program.file("report.json");
    QCOMPARE(program.run({"--frames", "2", "--json", file}), 0);
    QVERIFY(QJsonDocument::fromJson(content(file)).isObject());
    QCOMPARE(program.completeFrames(), 2);
}

void tst_HalvexHostRuns::silentCameraIsGivenUp()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "3", "--fps", "1", "--timeout", "200ms"}), 1);
    QVERIFY2(program.errorLines().constLast().contains(": no frame for 0.2 s"),
             qPrintable(program.errorLines().constLast()));
    // Where none came at all there is nothing else to tell.
    QCOMPARE(program.errorLines().size() == 1, program.output().isEmpty());
}

void tst_HalvexHostRuns::lastProgressLineTellsHowItEnded()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "20"}), 0);
    QVERIFY(program.errorLines().constLast().startsWith("20/20 frames, 100 %, "));
    QCOMPARE(program.run({"--frames", "1000", "--duration", "200ms"}), 0);
    QVERIFY2(program.errorLines().constLast().endsWith(", ended after 0.2 s, as asked"),
             qPrintable(program.errorLines().constLast()));
    QCOMPARE(program.interrupt({}, SIGINT), 130);
    QVERIFY2(program.errorLines().constLast().endsWith(", ended by signal 2"),
             qPrintable(program.errorLines().constLast()));
}

QTEST_GUILESS_MAIN(tst_HalvexHostRuns)
#include "tst_HalvexHostRuns.moc"
