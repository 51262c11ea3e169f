// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestFile.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <filesystem>

/// Chains and several cameras as a user meets them.
class tst_HalvexHostChains : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoCamerasInTwoScenes();
    void defaultChainServesEveryCamera();
    void chainOfTheOutputFolderIsNotWrittenInPlace();
    void camerasWithChainsOfTheirOwn();
    void cameraThatIsMissingEndsAll();
    void sinkThatCannotWriteEndsAll();
    void signalEndsAll();
    void refusedBeforeAnyCamera_data();
    void refusedBeforeAnyCamera();
};

void tst_HalvexHostChains::twoCamerasInTwoScenes()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", DEMO_CHAIN, "--camera", "fake-1", "--camera", "fake-2", "--frames", "40",
                         "--write-every", "10", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 0);
    for (const char* camera : {"fake-1", "fake-2"}) {
        QVERIFY2(program.choose(camera), qPrintable(program.output()));
        QCOMPARE(program.completeFrames(), 40);
        QVERIFY2(program.addsUp(), qPrintable(program.output()));
        QCOMPARE(program.sinks()["frames"].written, 4);
        const QDir files(folder.filePath(camera));
        for (const auto& sink : program.sinks())
            QCOMPARE(QDir(files.filePath(sink.first)).entryList({"*.png"}).size(), sink.second.written);
        QVERIFY(content(files.filePath("graph.txt")).contains(camera));
        QVERIFY(content(files.filePath("graph.dot")).startsWith("digraph Halvex {"));
    }
    QCOMPARE(content(folder.filePath("chain.json")), content(DEMO_CHAIN));
    const QStringList lines = program.errorLines();
    QVERIFY(!lines.isEmpty());
    for (const QString& line : lines)
        QVERIFY2(line.contains(QStringLiteral("/80 frames, ")), qPrintable(line));
}

void tst_HalvexHostChains::defaultChainServesEveryCamera()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--camera", "fake-7", "--camera", "fake", "--frames", "5", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 0);
    for (const char* camera : {"fake-7", "fake"}) {
        QVERIFY2(program.choose(camera), qPrintable(program.output()));
        QCOMPARE(program.completeFrames(), 5);
        QVERIFY2(program.addsUp(), qPrintable(program.output()));
    }
    // What was used can be used again.
    CHostProgram again;
    QVERIFY(again.run({"run", folder.filePath("chain.json"), "--camera", "fake-7", "--frames", "2", "--output",
                       folder.filePath("again")}));
    QCOMPARE(again.exitCode(), 0);
    QVERIFY2(again.addsUp(), qPrintable(again.output()));
}

void tst_HalvexHostChains::chainOfTheOutputFolderIsNotWrittenInPlace()
{
    const QTemporaryDir folder;
    const QString chain = folder.filePath("chain.json");
    QVERIFY(QFile::copy(DEMO_CHAIN, chain));
    // Under another name the file stays the one that it was.
    const std::string kept = folder.filePath("kept.json").toStdString();
    std::filesystem::create_hard_link(chain.toStdString(), kept);
    CHostProgram program;
    QVERIFY(program.run({"run", chain, "--camera", "fake-1", "--frames", "1", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(content(chain), content(DEMO_CHAIN));
    QVERIFY(!std::filesystem::equivalent(chain.toStdString(), kept));
}

void tst_HalvexHostChains::camerasWithChainsOfTheirOwn()
{
    const QTemporaryDir folder;
    const QString chain = folder.filePath("chain.json");
    QVERIFY(write(chain, R"([
        {"name": "left", "model": {"name": "To Image"}, "unique_sources": [["fake-1"]], "connection": [["l"]]},
        {"name": "right", "model": {"name": "To Image"}, "unique_sources": [["fake-2"]], "connection": [["r", "r"]]},
        {"name": "l", "model": {"name": "PNG Sink", "property": {"sink_name": "l"}}},
        {"name": "r", "model": {"name": "PNG Sink", "property": {"sink_name": "r"}}}])"));
    CHostProgram program;
    QVERIFY(program.run({"run", chain, "--camera", "fake-1", "--camera", "fake-2", "--frames", "7", "--output",
                         folder.filePath("out")}));
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(program.choose("fake-1"));
    QCOMPARE(program.sinks()["l"].delivered, 7);
    QCOMPARE(program.sinks()["r"].delivered, 0);
    QVERIFY(program.choose("fake-2"));
    QCOMPARE(program.sinks()["l"].delivered, 0);
    QCOMPARE(program.sinks()["r"].delivered, 14);
}

void tst_HalvexHostChains::cameraThatIsMissingEndsAll()
{
    const QTemporaryDir folder;
    CHostProgram program;
    QVERIFY(program.run({"run", "--camera", "fake", "--camera", "127.0.0.3", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.output(), QString());
    QCOMPARE(program.errorLines().size(), 1);
    QVERIFY(program.errorLines().constFirst().startsWith("halvex-host: cannot open camera '127.0.0.3': "));
}

void tst_HalvexHostChains::sinkThatCannotWriteEndsAll()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("fake-2/frames"));
    const QString file = folder.filePath("fake-2/frames/frame-000005.png");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), file));
    CHostProgram program;
    QVERIFY(program.run({"run", "--camera", "fake-1", "--camera", "fake-2", "--frames", "100000", "--fps", "50",
                         "--write-every", "5", "--output", folder.path()}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: cannot write '%1': No space left on device").arg(file));
    for (const char* camera : {"fake-1", "fake-2"}) {
        QVERIFY(program.choose(camera));
        QVERIFY(program.completeFrames() > 0);
        QVERIFY(program.completeFrames() < 100000);
        QVERIFY2(program.addsUp(), qPrintable(program.output()));
    }
}

void tst_HalvexHostChains::signalEndsAll()
{
    const QTemporaryDir folder;
    CHostProgram program;
    program.start({"run", "--camera", "fake-1", "--camera", "fake-2", "--frames", "100000", "--output", folder.path()});
    QTRY_VERIFY_WITH_TIMEOUT(program.errorsUpToNow().contains(QStringLiteral("/200000 frames, ")), 30000);
    QCOMPARE(kill(pid_t(program.process().processId()), SIGINT), 0);
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.exitCode(), 130);
    for (const char* camera : {"fake-1", "fake-2"}) {
        QVERIFY(program.choose(camera));
        QVERIFY(program.completeFrames() > 0);
        QVERIFY2(program.addsUp(), qPrintable(program.output()));
    }
}

void tst_HalvexHostChains::refusedBeforeAnyCamera_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no JSON") << QByteArray() << QByteArray("[nonsense]")
                             << "cannot load '%1': no JSON: line 1, column 4 (offset 3): illegal value";
    QTest::newRow("no array") << QByteArray() << QByteArray("{}") << "cannot load '%1': the top level is no array";
    QTest::newRow("unregistered model") << QByteArray("\"Histogram\"") << QByteArray("\"Sharpen\"")
                                        << "cannot load '%1': elements[7]: no model 'Sharpen' is registered";
    QTest::newRow("camera without a chain") << QByteArray(", \"127.0.0.3\"") << QByteArray()
                                            << "cannot load '%1': nothing is wired to the camera '127.0.0.3'";
    QTest::newRow("same sink twice") << QByteArray("\"sink_name\": \"edges\"")
                                     << QByteArray("\"sink_name\": \"frames\"")
                                     << "cannot load '%1': elements[9]: a second sink 'frames'";
    QTest::newRow("sink elsewhere") << QByteArray("\"sink_name\": \"edges\"") << QByteArray("\"sink_name\": \"/etc\"")
                                    << "cannot load '%1': elements[9]: the sink's name '/etc' makes no folder";
    QTest::newRow("types") << QByteArray("[[\"image\"]]") << QByteArray("[[\"blur\"]]")
                           << "cannot load '%1': elements[2]: connection[0][0]: 'Veltra Grab Result' to 'Host Image', "
                              "and a chain has no converters";
    QTest::newRow("loop") << QByteArray("[[\"edges files\"]]") << QByteArray("[[\"blur\"]]")
                          << "cannot load '%1': the connections lead from elements[6] back to it";
}

void tst_HalvexHostChains::refusedBeforeAnyCamera()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QString, reason);
    QByteArray chain = content(DEMO_CHAIN).replace("fake-2", "127.0.0.3");
    if (from.isEmpty())
        chain = to;
    else
        chain.replace(from, to);
    const QTemporaryDir folder;
    const QString file = folder.filePath("chain.json");
    QVERIFY(write(file, chain));
    CHostProgram program;
    // There is no such camera: had it been asked for, the error would be another.
    QVERIFY(
        program.run({"run", file, "--camera", "fake-1", "--camera", "127.0.0.3", "--output", folder.filePath("out")}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.output(), QString());
    QCOMPARE(program.errorLines(), QStringList{"halvex-host: " + reason.arg(file)});
    QVERIFY(!QFile::exists(folder.filePath("out")));
}

QTEST_GUILESS_MAIN(tst_HalvexHostChains)
#include "tst_HalvexHostChains.moc"
