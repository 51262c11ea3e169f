// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestFile.h"

#include <QTest>

#include <csignal>

/// Scene documents as a user meets them: what --save leaves, what --load takes, refuses and makes of it.
class tst_HalvexHostScenes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void savedSceneIsTheSameInTheNextProcess();
    void anotherCameraTakesThePlaceOfTheSavedOne();
    void neitherSinksNorDecouplers();
    void refusedBeforeAnyCamera();
    void killWhileSavingLeavesTheOldDocument();
    void standardStreams();

private:
    CHostProgram m_first;
    QString m_saved = m_first.file("saved.json"); // the default chain's scene
};

void tst_HalvexHostScenes::initTestCase()
{
    QCOMPARE(m_first.run({"--frames", "1", "--save", m_saved}), 0);
}

void tst_HalvexHostScenes::savedSceneIsTheSameInTheNextProcess()
{
    CHostProgram program;
    const QString again = program.file("again.json");
    QCOMPARE(program.run({"--frames", "20", "--write-every", "20", "--load", m_saved, "--save", again}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QCOMPARE(program.completeFrames(), 20);
    for (const char* sink : {"frames", "threshold", "edges", "histogram"})
        QCOMPARE(pngFiles(program.written(QStringLiteral("fake/%1").arg(sink))).value(0), QString("frame-000000.png"));
    // A file may take its own place.
    QCOMPARE(program.run({"--frames", "1", "--load", again, "--save", again}), 0);
    QCOMPARE(program.exec({"compare", m_saved, again}), 0);
    QCOMPARE(program.output(),
             QStringLiteral("'%1' and '%2' are the same: 12 nodes, 11 connections\n").arg(m_saved, again));
    // To the byte, whichever process saved it.
    QCOMPARE(content(again), content(m_saved));
    // Nothing but the document is left where it was written.
    QCOMPARE(QFileInfo(again).dir().entryList(QDir::Files), QStringList{"again.json"});
}

void tst_HalvexHostScenes::anotherCameraTakesThePlaceOfTheSavedOne()
{
    CHostProgram program;
    const QString again = program.file("again.json");
    QCOMPARE(program.run({"--camera", "fake-2", "--frames", "5", "--load", m_saved, "--save", again}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QVERIFY(QFile::exists(program.written("fake-2/frames/frame-000000.png")));
    // The same graph, but of another camera.
    QCOMPARE(program.exec({"compare", m_saved, again}), 1);
    QVERIFY(program.output().startsWith("nodes[\"camera\"].model.unique_name: \"fake\" here, \"fake-2\" there\n"));
}

void tst_HalvexHostScenes::neitherSinksNorDecouplers()
{
    CHostProgram program;
    const QString file = program.file("scene.json");
    QVERIFY(write(file, R"({"nodes": [
        {"id": "00000000-0000-0000-0000-000000000001", "model": {"name": "Camera Source"}},
        {"id": "00000000-0000-0000-0000-000000000002", "model": {"name": "To Image"}}], "connections": [
        {"out_id": "00000000-0000-0000-0000-000000000001", "out_index": 0,
         "in_id": "00000000-0000-0000-0000-000000000002", "in_index": 0}]})"));
    QCOMPARE(program.run({"--frames", "3", "--load", file}), 0);
    QCOMPARE(program.completeFrames(), 3);
    QVERIFY(program.sinks().empty());
    QVERIFY(program.decouplers().empty());
    QVERIFY(QFile::exists(program.written("fake/graph.txt")));
}

void tst_HalvexHostScenes::refusedBeforeAnyCamera()
{
    CHostProgram program;
    const QString file = program.file("scene.json");
    // There is no such camera: had it been asked for, the error would be another.
    const auto refusalOf = [&](const QByteArray& text) {
        return write(file, text) ? program.refusal({"--camera", "127.0.0.3", "--load", file}) : QString();
    };
    const auto said = [&](const char* line) {
        return QStringLiteral("cannot load '%1': it has 1 error:\n%1:%2").arg(file, line);
    };
    QCOMPARE(refusalOf("[]"), said("1:1: error: $: an array, where an object belongs: a scene"));
    QCOMPARE(refusalOf("{\"nodes\": [], \"connections\": []}"),
             said("1:11: error: $.nodes: none of the nodes is a 'Camera Source', the camera of the run"));
    QVERIFY(!QFile::exists(program.outputFolder()));
}

void tst_HalvexHostScenes::killWhileSavingLeavesTheOldDocument()
{
    CHostProgram program;
    const QString file = program.file("scene.json");
    QVERIFY(write(file, "old"));
    // No file grows beyond 512 or 1024 bytes, as the shell counts, but the document is larger: the program is killed
    // within its write.
    program.process().start("sh", {"-c", "ulimit -c 0; ulimit -f 1; exec \"$0\" \"$@\"", HOST_PROGRAM, "run",
                                   "--output", program.outputFolder(), "--save", file});
    QVERIFY(!program.waitForEnd());
    QCOMPARE(program.process().exitStatus(), QProcess::CrashExit);
    QCOMPARE(program.process().exitCode(), SIGXFSZ);
    QCOMPARE(content(file), QByteArray("old"));
    // It was killed there and not later: what is written next is missing.
    QVERIFY(QFile::exists(program.outputFolder()));
    QVERIFY(!QFile::exists(program.written("fake/graph.txt")));
}

void tst_HalvexHostScenes::standardStreams()
{
    CHostProgram program;
    program.process().setStandardInputFile(m_saved);
    QCOMPARE(program.run({"--frames", "1", "--load", "-", "--save", "-"}), 0);
    QCOMPARE(program.output().toUtf8(), content(m_saved));
    program.process().setStandardInputFile(QProcess::nullDevice());
    QCOMPARE(program.refusal({"--load", "-"}), QString("cannot load '<stdin>': it has 1 error:\n"
                                                       "<stdin>:1:1: error: the document is empty"));
    QCOMPARE(
        program.refusal({"--save", "-", "--json", "-"}),
        QString("One of --save, --json and --trace to standard output, not several. See 'halvex-host run --help'."));
}

QTEST_GUILESS_MAIN(tst_HalvexHostScenes)
#include "tst_HalvexHostScenes.moc"
