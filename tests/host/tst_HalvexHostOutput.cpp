// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestFile.h"
#include "TestTrace.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <sys/stat.h>

/// The folder of a run and its trace, through the program.
class tst_HalvexHostOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manifest();
    void runReplacesTheOneBefore();
    void whatIsInUseStays();
    void whatNoRunWroteStays();
    void refusedRunRemovesNothing();
    void refusedRunSavesNothing_data();
    void refusedRunSavesNothing();
    void reportInAFolderOfTheRunBefore();
    void keptRuns();
    void twoAtOnce();
    void failureIsInTheManifest();
    void trace();
    void traceThatCannotBeWritten();
    void documentsOnStandardOutput_data();
    void documentsOnStandardOutput();
    void reportIntoAPipe();

private:
    static QJsonObject manifestIn(const QString& folder)
    {
        return QJsonDocument::fromJson(content(folder + "/manifest.json")).object();
    }
};

void tst_HalvexHostOutput::manifest()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "3", "--camera", "fake-1"}), 0);
    const QJsonObject manifest = manifestIn(program.outputFolder());
    QCOMPARE(manifest["command"][1].toString(), QStringLiteral("run"));
    QCOMPARE(manifest["command"].toArray().size(), 8);
    for (const char* part : {"program", "library", "qt", "aravis", "opencv"})
        QVERIFY2(manifest["versions"][part].toString().contains('.'), part);
    QCOMPARE(manifest["cameras"][0]["frames"]["complete"].toInt(), 3);
    QCOMPARE(manifest["cameras"][0]["sinks"].toArray().size(), 4);
    QCOMPARE(manifest["ending"].toString(), QStringLiteral("after 3 frames, as asked"));
    QVERIFY(manifest["error"].isNull());
    QCOMPARE(manifest["chains"][0].toString(), QStringLiteral("the default one"));
    QStringList names;
    const QJsonArray files = manifest["files"].toArray();
    for (const QJsonValue& file : files) {
        names << file["name"].toString();
        QCOMPARE(file["bytes"].toDouble(), double(QFileInfo(program.written(names.last())).size()));
    }
    for (const char* name : {"chain.json", "fake-1/graph.dot", "fake-1/frames/frame-000000.png",
                             "fake-1/frames/frames.csv", "fake-1/edges/frame-000000.png"})
        QVERIFY2(names.contains(QLatin1String(name)), name);
}

void tst_HalvexHostOutput::runReplacesTheOneBefore()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "3", "--write-every", "1", "--camera", "fake-1", "--camera", "fake-2"}), 0);
    QVERIFY(write(program.written("fake-1/notes.txt"), "mine"));
    for (const char* name : {"my-notes.txt", "golden.png"})
        QVERIFY(write(program.written("fake-1/frames/") + name, "mine"));
    QCOMPARE(program.run({"--frames", "1", "--camera", "fake-1"}), 0);
    QCOMPARE(pngFiles(program.written("fake-1/frames")), QStringList({"frame-000000.png", "golden.png"}));
    QCOMPARE(content(program.written("fake-1/frames/my-notes.txt")), QByteArray("mine"));
    QVERIFY(!QFile::exists(program.written("fake-2")));
    QCOMPARE(content(program.written("fake-1/notes.txt")), QByteArray("mine"));
    // A chain of the run before may be run again.
    QCOMPARE(program.run({program.written("chain.json"), "--frames", "1"}), 0);
    QVERIFY(QFile::exists(program.written("fake/frames/frame-000000.png")));
    // A run that cannot begin leaves what is there.
    QCOMPARE(program.run({"--camera", "127.0.0.3"}), 2);
    QVERIFY(QFile::exists(program.written("fake/frames/frame-000000.png")));
}

void tst_HalvexHostOutput::whatIsInUseStays()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "3", "--write-every", "1"}), 0);
    const QString image = program.written("fake/frames/frame-000000.png");
    const QString link = program.file("link");
    QVERIFY(QFile::link(program.written("fake/frames"), link));
    for (const QString& images : {program.written("fake/frames"), program.written("f[a]ke/fr*/*.png"), link}) {
        QVERIFY2(program.refusal({"--images", images}).contains(" and would replace it; --keep or another --output"),
                 qPrintable(images));
        QVERIFY(QFile::exists(image));
    }
    QVERIFY(program.refusal({"--save", program.written("chain.json")}).startsWith("this run uses "));
    QVERIFY(program.refusal({"--json", program.written("manifest.json")}).startsWith("this run uses "));
    QCOMPARE(program.run({"--images", link, "--keep"}), 0);
    QVERIFY(QFile::exists(image));
}

void tst_HalvexHostOutput::whatNoRunWroteStays()
{
    for (const char* name : {"chain.json", "manifest.json"}) {
        CHostProgram program;
        QVERIFY(QDir().mkpath(program.outputFolder()) && write(program.written(name), "[]"));
        QCOMPARE(program.refusal({"--frames", "1"}),
                 QStringLiteral("'%1' is there, and no run wrote it; --keep or another --output leaves it")
                     .arg(program.written(name)));
        QCOMPARE(content(program.written(name)), QByteArray("[]"));
    }
}

void tst_HalvexHostOutput::refusedRunRemovesNothing()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "1"}), 0);
    const QString chain = program.written("chain.json");
    QVERIFY(program.refusal({chain, "--trace", "/nowhere/t"}).startsWith("cannot write '/nowhere/t': "));
    QVERIFY(program.refusal({chain, "--save", "/nowhere/s"}).startsWith("cannot write '/nowhere/s': "));
    QCOMPARE(program.refusal({chain, "--json", "/nowhere/j"}), "cannot write '/nowhere/j': No such file or directory");
    QCOMPARE(program.refusal({chain, "--json", "/tmp"}), "cannot write '/tmp': Is a directory");
    QVERIFY(QFile::exists(chain) && QFile::exists(program.written("fake/frames/frame-000000.png")));
}

void tst_HalvexHostOutput::refusedRunSavesNothing_data()
{
    QTest::addColumn<QString>("option");
    for (const char* option : {"--json", "--trace"})
        QTest::newRow(option) << option;
}

void tst_HalvexHostOutput::refusedRunSavesNothing()
{
    QFETCH(QString, option);
    CHostProgram program;
    const QString scene = program.file("scene.json");
    QVERIFY(write(scene, "mine"));
    QCOMPARE(program.refusal({"--save", scene, option, "/nowhere/x"}),
             QStringLiteral("cannot write '/nowhere/x': No such file or directory"));
    QCOMPARE(content(scene), QByteArray("mine"));
}

void tst_HalvexHostOutput::reportInAFolderOfTheRunBefore()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "1", "--camera", "fake-1"}), 0);
    const QString report = program.written("fake-1/report.json");
    QCOMPARE(program.run({"--frames", "1", "--camera", "fake-2", "--json", report}), 0);
    QVERIFY(QJsonDocument::fromJson(content(report)).isObject());
}

void tst_HalvexHostOutput::keptRuns()
{
    CHostProgram program;
    for (int i = 0; i < 2; ++i)
        QCOMPARE(program.run({"--frames", "1", "--keep"}), 0);
    const QStringList runs = QDir(program.outputFolder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    QCOMPARE(runs.size(), 2);
    for (const QString& run : runs) {
        QVERIFY(QFile::exists(program.written(run + "/fake/frames/frame-000000.png")));
        QVERIFY(!manifestIn(program.written(run)).isEmpty());
    }
}

void tst_HalvexHostOutput::twoAtOnce()
{
    CHostProgram first;
    first.start({"run", "--frames", "0"});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(first.written("manifest.json")), 30000);
    CHostProgram second;
    QCOMPARE(
        second.refusal({"--output", first.outputFolder()}),
        QStringLiteral("another run writes into the folder '%1' (process %2); --keep or another --output keeps them "
                       "apart")
            .arg(first.outputFolder())
            .arg(first.process().processId()));
    first.process().terminate();
    QVERIFY(first.waitForEnd());
    QCOMPARE(second.run({"--frames", "1", "--output", first.outputFolder()}), 0);
}

void tst_HalvexHostOutput::failureIsInTheManifest()
{
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "3", "--fps", "1", "--timeout", "200ms"}), 1);
    const QJsonObject manifest = manifestIn(program.outputFolder());
    QCOMPARE(manifest["ending"].toString(), QStringLiteral("by an error"));
    QVERIFY(manifest["error"].toString().contains("no frame for 0.2 s"));
}

void tst_HalvexHostOutput::trace()
{
    CHostProgram program;
    const QString file = program.file("trace.json");
    QCOMPARE(
        program.run({"--frames", "20", "--fps", "50", "--camera", "fake-1", "--camera", "fake-2", "--trace", file}), 0);
    STestTrace trace = readTrace(content(file));
    QCOMPARE(trace.fault, QString());
    for (const char* row : {"thread that grabs", "thread of the graph", "[0] Camera: fake-1", "[5] Blur"})
        QVERIFY2(trace.rows.contains(QLatin1String(row)), row);
    for (const char* slice : {"work", "computing", "[5] Blur"})
        QVERIFY2(trace.slices[slice] > 0, slice);
    for (const char* camera : {"fake-1", "fake-2"}) {
        QVERIFY(program.choose(camera));
        // Each frame comes to the sink that gets all, by way of the node that makes its image.
        int whole = 0;
        int previewed = 0;
        for (const auto& flow : trace.flows) {
            whole += flow.first.startsWith(QLatin1String(camera) + "|[3] PNG files: frames|") && flow.second == "stf";
            previewed += flow.first.startsWith(QLatin1String(camera)) && flow.first.contains("PNG files: edges") &&
                         flow.second == "sttttttf";
        }
        QCOMPARE(whole, 20);
        QVERIFY(previewed <= program.decouplers().front().emitted);
    }
}

void tst_HalvexHostOutput::traceThatCannotBeWritten()
{
    QVERIFY(CHostProgram().refusal({"--trace", "/nowhere/t"}).startsWith("cannot write '/nowhere/t': "));
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "3", "--trace", "/dev/full"}), 1);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: cannot write '/dev/full': No space left on device"));
}

void tst_HalvexHostOutput::documentsOnStandardOutput_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("name");
    for (const char* option : {"--json", "--trace", "--save"}) {
        for (const char* name : {"-", "/dev/stdout", "/dev/fd/1"})
            QTest::addRow("%s %s", option, name) << option << name;
    }
}

void tst_HalvexHostOutput::documentsOnStandardOutput()
{
    QFETCH(QString, option);
    QFETCH(QString, name);
    CHostProgram program;
    QCOMPARE(program.run({"--frames", "2", option, name}), 0);
    // Nothing stands beside the document.
    const QJsonDocument document = QJsonDocument::fromJson(program.output().toUtf8());
    QCOMPARE(document.isArray(), option == "--trace");
    QCOMPARE(document.isObject(), option != "--trace");
    QVERIFY(program.refusal({option, name, option == "--json" ? "--trace" : "--json", "-"})
                .startsWith("One of --save, --json and --trace to standard output, not several."));
}

void tst_HalvexHostOutput::reportIntoAPipe()
{
    CHostProgram program;
    const QString pipe = program.file("pipe");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    program.start({"run", "--frames", "2", "--json", pipe});
    const QJsonObject report = QJsonDocument::fromJson(content(pipe)).object();
    QCOMPARE(report["cameras"][0]["frames"]["complete"].toInt(), 2);
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 0);
    QCOMPARE(program.completeFrames(), 2);
}

QTEST_GUILESS_MAIN(tst_HalvexHostOutput)
#include "tst_HalvexHostOutput.moc"
