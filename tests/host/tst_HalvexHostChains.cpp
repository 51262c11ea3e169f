// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestFile.h"

#include <QTest>

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
    void sinkThatCannotWriteEndsAll();
    void refusedBeforeAnyCamera();
    void refusedWithTheWordsOfCheck();
    void severalChainsSideBySide();
    void everyBrokenChainIsTold();
    void chainFromStandardInput();
};

void tst_HalvexHostChains::twoCamerasInTwoScenes()
{
    CHostProgram program;
    QCOMPARE(
        program.run({DEMO_CHAIN, "--camera", "fake-1", "--camera", "fake-2", "--frames", "40", "--write-every", "10"}),
        0);
    for (const QString& camera : {QString("fake-1"), QString("fake-2")}) {
        QVERIFY2(program.choose(camera), qPrintable(program.output()));
        QCOMPARE(program.completeFrames(), 40);
        QVERIFY2(program.addsUp(), qPrintable(program.output()));
        QCOMPARE(program.sinks()["frames"].written, 4);
        for (const auto& sink : program.sinks())
            QCOMPARE(pngFiles(program.written(camera + '/' + sink.first)).size(), sink.second.written);
        const QByteArray graph = content(program.written(camera + "/graph.txt"));
        QVERIFY(graph.startsWith("  [0] Camera: " + camera.toUtf8()));
        QVERIFY(program.output().contains("Graph\n" + graph));
        QVERIFY(content(program.written(camera + "/graph.dot")).startsWith("digraph Halvex {"));
    }
    QCOMPARE(content(program.written("chain.json")), content(DEMO_CHAIN));
    QVERIFY(!program.errorLines().isEmpty());
    QCOMPARE(program.errorLines().filter("/80 frames, "), program.errorLines());
}

void tst_HalvexHostChains::defaultChainServesEveryCamera()
{
    CHostProgram program;
    QCOMPARE(program.run({"--camera", "fake-7", "--camera", "fake", "--frames", "5"}), 0);
    for (const char* camera : {"fake-7", "fake"}) {
        QVERIFY2(program.choose(camera), qPrintable(program.output()));
        QCOMPARE(program.completeFrames(), 5);
        QVERIFY2(program.addsUp(), qPrintable(program.output()));
    }
    // What was used can be used again.
    CHostProgram again;
    QCOMPARE(again.run({program.written("chain.json"), "--camera", "fake-7", "--frames", "2"}), 0);
    QVERIFY2(again.addsUp(), qPrintable(again.output()));
}

void tst_HalvexHostChains::chainOfTheOutputFolderIsNotWrittenInPlace()
{
    CHostProgram program;
    const QString chain = program.written("chain.json");
    QVERIFY(QDir().mkpath(program.outputFolder()) && QFile::copy(DEMO_CHAIN, chain));
    // Under another name the file stays the one that it was.
    const std::string kept = program.file("kept.json").toStdString();
    std::filesystem::create_hard_link(chain.toStdString(), kept);
    QCOMPARE(program.run({chain, "--camera", "fake-1", "--frames", "1"}), 0);
    QCOMPARE(content(chain), content(DEMO_CHAIN));
    QVERIFY(!std::filesystem::equivalent(chain.toStdString(), kept));
}

void tst_HalvexHostChains::camerasWithChainsOfTheirOwn()
{
    CHostProgram program;
    const QString chain = program.file("chain.json");
    QVERIFY(write(chain, R"([
        {"name": "left", "model": {"name": "To Image"}, "unique_sources": [["fake-1"]], "connection": [["l"]]},
        {"name": "right", "model": {"name": "To Image"}, "unique_sources": [["fake-2"]], "connection": [["r", "r"]]},
        {"name": "l", "model": {"name": "PNG Sink", "property": {"sink_name": "l"}}},
        {"name": "r", "model": {"name": "PNG Sink", "property": {"sink_name": "r"}}}])"));
    QCOMPARE(program.run({chain, "--camera", "fake-1", "--camera", "fake-2", "--frames", "7"}), 0);
    QVERIFY(program.choose("fake-1"));
    QCOMPARE(program.sinks()["l"].delivered, 7);
    QCOMPARE(program.sinks()["r"].delivered, 0);
    QVERIFY(program.choose("fake-2"));
    QCOMPARE(program.sinks()["l"].delivered, 0);
    QCOMPARE(program.sinks()["r"].delivered, 14);
}

void tst_HalvexHostChains::sinkThatCannotWriteEndsAll()
{
    CHostProgram program;
    QVERIFY(QDir().mkpath(program.written("fake-2/edges")));
    const QString file = program.written("fake-2/edges/frame-000005.png");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), file + ".part"));
    QCOMPARE(program.run({"--camera", "fake-1", "--camera", "fake-2", "--frames", "100000", "--fps", "50",
                          "--write-every", "5"}),
             1);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: cannot write '%1': No space left on device").arg(file));
    // What was done is told all the same, and nothing that was grabbed is missing.
    for (const char* camera : {"fake-1", "fake-2"}) {
        QVERIFY(program.choose(camera));
        QVERIFY(program.completeFrames() > 0);
        QVERIFY(program.completeFrames() < 100000);
        QVERIFY2(program.addsUp(), qPrintable(program.output()));
    }
    QCOMPARE(program.sinks()["edges"].written, 1);
}

void tst_HalvexHostChains::refusedBeforeAnyCamera()
{
    CHostProgram program;
    const QString chain = program.file("chain.json");
    // There is no such camera: had it been asked for, the error would be another.
    const auto refusalOf = [&](const QByteArray& text) {
        return write(chain, text) ? program.refusal({chain, "--camera", "fake-1", "--camera", "127.0.0.3"}) : QString();
    };
    const auto said = [&](const char* count, const char* lines) {
        return QStringLiteral("cannot load '%1': it has %2:\n").arg(chain, count) + QString(lines).replace("%", chain);
    };
    QCOMPARE(refusalOf("{}"),
             said("1 error", "%:1:1: error: $: an object, where an array belongs: the elements of a chain"));
    QCOMPARE(refusalOf(content(DEMO_CHAIN).replace("Histogram", "Blr")),
             said("1 error", "%:34:28: error: $[7].model.name: no model 'Blr' is registered; did you mean 'Blur'?"));
    QVERIFY(!QFile::exists(program.outputFolder()));
}

void tst_HalvexHostChains::refusedWithTheWordsOfCheck()
{
    CHostProgram program;
    const QString chain = program.file("chain.json");
    QVERIFY(write(chain, content(DEMO_CHAIN).replace("\"Blur\"", "\"Blr\"").replace("sink_name", "sinkname")));
    QCOMPARE(program.exec({"check", "--camera", "fake", chain}), 1);
    const QStringList errors = program.output().split('\n').filter(": error: ");
    QVERIFY(errors.size() > 1);
    const QStringList refusal = program.refusal({chain}).split('\n');
    QCOMPARE(refusal.first(), QStringLiteral("cannot load '%1': it has %2 errors:").arg(chain).arg(errors.size()));
    QCOMPARE(refusal.mid(1), errors);
}

namespace {

QByteArray recording(const char* label, const char* sink)
{
    return QByteArray(R"([
        {"name": "%1", "model": {"name": "To Image"}, "unique_sources": [["*"]], "connection": [["blur"]]},
        {"name": "blur", "model": {"name": "Blur"}, "connection": [["files"]]},
        {"name": "files", "model": {"name": "PNG Sink", "property": {"sink_name": "%2"}}}])")
        .replace("%1", label)
        .replace("%2", sink);
}

} // namespace

void tst_HalvexHostChains::severalChainsSideBySide()
{
    CHostProgram program;
    const QString first = program.file("first.json");
    const QString second = program.file("second.json");
    QVERIFY(write(first, recording("a", "one")) && write(second, recording("a", "two")));
    const QString scene = program.file("scene.json");
    QCOMPARE(program.run({first, second, "--frames", "9", "--set", "blur.size=9", "--save", scene}), 0);
    QCOMPARE(program.sinks()["one"].delivered, 9);
    QCOMPARE(program.sinks()["two"].delivered, 9);
    QCOMPARE(content(scene).count("\"size\": 9"), 2); // what both call so
    QCOMPARE(content(program.written("chain.json")), content(first));
    QCOMPARE(content(program.written("chain-2.json")), content(second));

    QCOMPARE(program.run({first, second, "--camera", "fake-1", "--camera", "fake-2", "--frames", "4"}), 0);
    for (const char* camera : {"fake-1", "fake-2"}) {
        QVERIFY(program.choose(camera));
        QCOMPARE(program.sinks()["one"].delivered, 4);
        QCOMPARE(program.sinks()["two"].delivered, 4);
    }
    QVERIFY(write(second, recording("b", "one")));
    QCOMPARE(program.refusal({first, second}),
             QStringLiteral("the sink 'one' is in '%1' and in '%2': their files would mix").arg(first, second));
    QCOMPARE(program.refusal({first, first}),
             QStringLiteral("the sink 'one' is in '%1' and in '%1': their files would mix").arg(first));
}

void tst_HalvexHostChains::everyBrokenChainIsTold()
{
    CHostProgram program;
    const QString first = program.file("first.json");
    const QString sound = program.file("sound.json");
    const QString last = program.file("last.json");
    QVERIFY(write(first, "[]x") && write(sound, recording("a", "one")) && write(last, "{}"));
    const QStringList lines = program.refusal({first, sound, last}).split('\n');
    QCOMPARE(lines.filter(": error: ").size(), 2);
    QCOMPARE(lines.value(0), QStringLiteral("cannot load '%1': it has 1 error:").arg(first));
    QVERIFY(lines.contains(QStringLiteral("cannot load '%1': it has 1 error:").arg(last)));
    QVERIFY(lines.constLast().startsWith(last + ":1:1: error: $: an object, "));
}

void tst_HalvexHostChains::chainFromStandardInput()
{
    CHostProgram program;
    program.start({"run", "-", "--frames", "6"});
    program.process().write(recording("a", "one"));
    program.process().closeWriteChannel();
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 0);
    QCOMPARE(program.sinks()["one"].delivered, 6);

    program.start({"run", "-"});
    program.process().write("{}");
    program.process().closeWriteChannel();
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 2);
    QCOMPARE(program.errorLines().value(0), QStringLiteral("halvex-host: cannot load '<stdin>': it has 1 error:"));
}

QTEST_GUILESS_MAIN(tst_HalvexHostChains)
#include "tst_HalvexHostChains.moc"
