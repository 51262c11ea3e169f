// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestFile.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

namespace {

// The document with each decoupler at that rate.
QByteArray withRate(const QByteArray& document, double rate)
{
    QJsonObject root = QJsonDocument::fromJson(document).object();
    QJsonArray nodes;
    const QJsonArray before = root["nodes"].toArray();
    for (const QJsonValue& value : before) {
        QJsonObject node = value.toObject();
        QJsonObject model = node["model"].toObject();
        if (model["name"] == QLatin1String("DecouplerVGR"))
            model["property"] = QJsonObject{{"frames_per_second", rate}};
        node["model"] = model;
        nodes.append(node);
    }
    root["nodes"] = nodes;
    return QJsonDocument(root).toJson();
}

// A program of which no file grows beyond 512 or 1024 bytes, as the shell counts, but the document is larger.
QStringList onAFullDisk(const QString& shellSettings, const QStringList& arguments)
{
    const QString script = QStringLiteral("ulimit -c 0; ulimit -f 1; %1 exec \"$0\" \"$@\"").arg(shellSettings);
    return QStringList({"-c", script, HOST_PROGRAM}) + arguments;
}

} // namespace

/// Scene documents as a user meets them: what --save leaves, what --load takes, refuses and makes of it.
class tst_HalvexHostScenes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void savedSceneIsTheSameInTheNextProcess();
    void anotherCameraTakesThePlaceOfTheSavedOne();
    void loadedAndSavedUnderTheSameName();
    void restoredRateCounts();
    void interruptedRunOfALoadedScene();
    void cameraAlone();
    void connectionWithAConverter();
    void refusedBeforeAnyCamera_data();
    void refusedBeforeAnyCamera();
    void refusedSave_data();
    void refusedSave();
    void fullDiskLeavesTheOldDocument();
    void killWhileSavingLeavesTheOldDocument();
    void compare_data();
    void compare();

private:
    QTemporaryDir m_folder;
    QString m_saved; // the default chain's scene
};

void tst_HalvexHostScenes::initTestCase()
{
    m_saved = m_folder.filePath("saved.json");
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "1", "--output", m_folder.filePath("out"), "--save", m_saved}));
    QCOMPARE(program.exitCode(), 0);
}

void tst_HalvexHostScenes::savedSceneIsTheSameInTheNextProcess()
{
    const QTemporaryDir folder;
    const QString again = folder.filePath("again.json");
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "20", "--write-every", "20", "--output", folder.filePath("out"), "--load",
                         m_saved, "--save", again}));
    QCOMPARE(program.exitCode(), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QCOMPARE(program.completeFrames(), 20);
    for (const char* sink : {"frames", "threshold", "edges", "histogram"})
        QVERIFY2(QFile::exists(folder.filePath(QStringLiteral("out/fake/%1/frame-000000.png").arg(sink))), sink);
    CHostProgram comparison;
    QVERIFY(comparison.run({"compare", m_saved, again}));
    QCOMPARE(comparison.exitCode(), 0);
    QCOMPARE(comparison.output(),
             QStringLiteral("'%1' and '%2' are the same scene: 12 nodes, 11 connections\n").arg(m_saved, again));
    // Nothing but the document is left where it was written.
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"again.json"});
}

void tst_HalvexHostScenes::anotherCameraTakesThePlaceOfTheSavedOne()
{
    const QTemporaryDir folder;
    const QString again = folder.filePath("again.json");
    CHostProgram program;
    QVERIFY(program.run(
        {"run", "--camera", "fake-2", "--frames", "5", "--output", folder.path(), "--load", m_saved, "--save", again}));
    QCOMPARE(program.exitCode(), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QVERIFY(QFile::exists(folder.filePath("fake-2/frames/frame-000000.png")));
    // The same graph, but of another camera.
    CHostProgram comparison;
    QVERIFY(comparison.run({"compare", m_saved, again}));
    QCOMPARE(comparison.exitCode(), 1);
    QVERIFY2(comparison.output().contains(QStringLiteral("\"unique_name\":\"fake\"")), qPrintable(comparison.output()));
}

void tst_HalvexHostScenes::loadedAndSavedUnderTheSameName()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("scene.json");
    QVERIFY(QFile::copy(m_saved, file));
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "1", "--output", folder.filePath("o"), "--load", file, "--save", file}));
    QCOMPARE(program.exitCode(), 0);
    CHostProgram comparison;
    QVERIFY(comparison.run({"compare", m_saved, file}));
    QCOMPARE(comparison.exitCode(), 0);
}

void tst_HalvexHostScenes::restoredRateCounts()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("scene.json");
    QVERIFY(write(file, withRate(content(m_saved), 2.0)));
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "40", "--output", folder.path(), "--load", file}));
    QCOMPARE(program.exitCode(), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    // Two per second, and a run of a fifth of a second: the last frame came out, which took longer than the run.
    QVERIFY(program.decouplers().front().emitted >= 1);
    QVERIFY(program.decouplers().front().emitted < 20);
}

void tst_HalvexHostScenes::interruptedRunOfALoadedScene()
{
    const QTemporaryDir folder;
    CHostProgram program;
    program.start({"run", "--frames", "100000", "--output", folder.path(), "--load", m_saved});
    QTRY_VERIFY_WITH_TIMEOUT(program.errorsUpToNow().contains(QStringLiteral("/100000 frames, ")), 30000);
    QCOMPARE(kill(pid_t(program.process().processId()), SIGINT), 0);
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.exitCode(), 130);
    QVERIFY(program.completeFrames() > 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
}

void tst_HalvexHostScenes::cameraAlone()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("scene.json");
    QVERIFY(write(file, "{\"nodes\": [{\"id\": \"00000000-0000-0000-0000-000000000001\", "
                        "\"model\": {\"name\": \"Camera Source\"}}], \"connections\": []}"));
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "3", "--output", folder.filePath("out"), "--load", file}));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.completeFrames(), 3);
    QVERIFY(program.sinks().empty());
    QVERIFY(program.decouplers().empty());
    QVERIFY(QFile::exists(folder.filePath("out/fake/graph.txt")));
}

void tst_HalvexHostScenes::connectionWithAConverter()
{
    const QJsonObject toImage{{"out", QJsonObject{{"id", "Veltra Grab Result"}}},
                              {"in", QJsonObject{{"id", "Host Image"}}}};
    const QString camera = QStringLiteral("00000000-0000-0000-0000-000000000001");
    const QString sink = QStringLiteral("00000000-0000-0000-0000-000000000002");
    const QJsonObject sinkModel{{"name", "PNG Sink"}, {"property", QJsonObject{{"sink_name", "frames"}}}};
    const QJsonObject document{
        {"nodes", QJsonArray{QJsonObject{{"id", camera}, {"model", QJsonObject{{"name", "Camera Source"}}}},
                             QJsonObject{{"id", sink}, {"model", sinkModel}}}},
        {"connections",
         QJsonArray{QJsonObject{
             {"in_id", sink}, {"in_index", 0}, {"out_id", camera}, {"out_index", 0}, {"converter", toImage}}}}};
    const QTemporaryDir folder;
    const QString file = folder.filePath("converting.json");
    QVERIFY(write(file, QJsonDocument(document).toJson()));
    CHostProgram program;
    QVERIFY(program.run({"run", "--frames", "10", "--output", folder.path(), "--load", file}));
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.completeFrames(), 10);
    QCOMPARE(program.sinks()["frames"].delivered, 10);
    QVERIFY(QFile::exists(folder.filePath("fake/frames/frame-000000.png")));
}

void tst_HalvexHostScenes::refusedBeforeAnyCamera_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QString>("reason"); // a regular expression
    QTest::newRow("no JSON") << QByteArray("{\n") << QByteArray("{,\n")
                             << "cannot load '%1': no JSON: line 1, column \\d+ \\(offset \\d+\\): .+";
    QTest::newRow("no object") << QByteArray() << QByteArray("[]") << "cannot load '%1': the top level is no object";
    QTest::newRow("unregistered model") << QByteArray("\"Threshold\"") << QByteArray("\"Sharpen\"")
                                        << "cannot load '%1': nodes\\[\\d+\\]: no model 'Sharpen' is registered";
    QTest::newRow("unique, but no camera")
        << QByteArray("\"Camera Source\"") << QByteArray("\"Blur\"")
        << "cannot load '%1': nodes\\[\\d+\\]: a unique 'Blur' is not made anew, and there is none to refer to";
    QTest::newRow("no camera") << QByteArray() << QByteArray("{\"nodes\": [], \"connections\": []}")
                               << "cannot load '%1': nodes: no 'Camera Source' among them";
    QTest::newRow("two cameras")
        << QByteArray("\"Blur\"") << QByteArray("\"Camera Source\"")
        << "cannot load '%1': nodes\\[\\d+\\]: a second 'Camera Source', after nodes\\[\\d+\\]";
    QTest::newRow("connection") << QByteArray("\"out_index\": 0") << QByteArray("\"out_index\": 4")
                                << "cannot load '%1': connections\\[0\\]: nodes\\[\\d+\\] has no output port 4";
    QTest::newRow("same sink twice") << QByteArray("\"edges\"") << QByteArray("\"frames\"")
                                     << "cannot load '%1': nodes\\[\\d+\\]: a second sink 'frames'";
}

void tst_HalvexHostScenes::refusedBeforeAnyCamera()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QString, reason);
    QByteArray document = content(m_saved);
    if (from.isEmpty())
        document = to;
    else
        document.replace(from, to);
    QVERIFY(document != content(m_saved));
    const QTemporaryDir folder;
    const QString file = folder.filePath("scene.json");
    QVERIFY(write(file, document));
    CHostProgram program;
    // There is no such camera: had it been asked for, the error would be another.
    QVERIFY(program.run({"run", "--camera", "127.0.0.3", "--output", folder.filePath("out"), "--load", file}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.output(), QString());
    QCOMPARE(program.errorLines().size(), 1);
    const QRegularExpression expected(
        QRegularExpression::anchoredPattern("halvex-host: " + reason.arg(QRegularExpression::escape(file))));
    QVERIFY2(expected.match(program.errorLines().constFirst()).hasMatch(),
             qPrintable(program.errorLines().constFirst()));
    QVERIFY(!QFile::exists(folder.filePath("out")));
}

void tst_HalvexHostScenes::refusedSave_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing folder") << "nowhere/a.json"
                                    << "No such file or directory";
    QTest::newRow("folder") << "."
                            << "Not a regular file";
    QTest::newRow("device") << "/dev/full"
                            << "Not a regular file";
}

void tst_HalvexHostScenes::refusedSave()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    const QString name = QDir(folder.path()).filePath(file);
    CHostProgram program;
    QVERIFY(program.run({"run", "--output", folder.filePath("out"), "--save", name}));
    QCOMPARE(program.exitCode(), 2);
    // Nothing was streamed.
    QCOMPARE(program.output(), QString());
    QCOMPARE(program.errorLines(), QStringList{QStringLiteral("halvex-host: cannot write '%1': %2").arg(name, reason)});
}

void tst_HalvexHostScenes::fullDiskLeavesTheOldDocument()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("scene.json");
    QVERIFY(write(file, "old"));
    CHostProgram program;
    program.process().start("sh", onAFullDisk("trap '' XFSZ;", {"run", "--output", folder.filePath("out"), "--load",
                                                                m_saved, "--save", file}));
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.errorLines(),
             QStringList{QStringLiteral("halvex-host: cannot write '%1': File too large").arg(file)});
    QCOMPARE(content(file), QByteArray("old"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"scene.json"});
}

void tst_HalvexHostScenes::killWhileSavingLeavesTheOldDocument()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("scene.json");
    QVERIFY(write(file, "old"));
    CHostProgram program;
    // Without the trap the signal for a file that grows too large kills the program within its write.
    program.process().start("sh", onAFullDisk({}, {"run", "--output", folder.filePath("out"), "--save", file}));
    QVERIFY(!program.waitForEnd());
    QCOMPARE(program.process().exitStatus(), QProcess::CrashExit);
    QCOMPARE(program.process().exitCode(), SIGXFSZ);
    QCOMPARE(content(file), QByteArray("old"));
    // It was killed there and not later: what is written next is missing.
    QVERIFY(QFile::exists(folder.filePath("out")));
    QVERIFY(!QFile::exists(folder.filePath("out/fake/graph.txt")));
}

void tst_HalvexHostScenes::compare_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("beginning");
    QTest::newRow("same") << QByteArray("none") << QByteArray() << 0 << "'%1' and '%2' are the same scene: ";
    QTest::newRow("layout") << QByteArray("\n") << QByteArray() << 0 << "'%1' and '%2' are the same scene: ";
    QTest::newRow("setting") << QByteArray("\"frames_per_second\": 25") << QByteArray("\"frames_per_second\": 24") << 1
                             << "'%1' and '%2' differ: only the first has, in nodes: ";
    QTest::newRow("connection") << QByteArray("\"in_index\": 0") << QByteArray("\"in_index\": 1") << 1
                                << "'%1' and '%2' differ: only the first has, in connections: ";
    QTest::newRow("no JSON") << QByteArray("{") << QByteArray("[") << 2 << "";
}

void tst_HalvexHostScenes::compare()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(int, exitCode);
    QFETCH(QString, beginning);
    const QTemporaryDir folder;
    const QString file = folder.filePath("scene.json");
    QVERIFY(write(file, content(m_saved).replace(from, to)));
    CHostProgram program;
    QVERIFY(program.run({"compare", m_saved, file}));
    QCOMPARE(program.exitCode(), exitCode);
    QCOMPARE(program.output().isEmpty(), beginning.isEmpty());
    QCOMPARE(program.errorLines().size(), exitCode == 2 ? 1 : 0);
    if (!beginning.isEmpty())
        QVERIFY2(program.output().startsWith(beginning.arg(m_saved, file)), qPrintable(program.output()));
}

QTEST_GUILESS_MAIN(tst_HalvexHostScenes)
#include "tst_HalvexHostScenes.moc"
