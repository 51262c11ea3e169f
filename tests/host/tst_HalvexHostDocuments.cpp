// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestFile.h"
#include "TestTable.h"

#include <QJsonDocument>
#include <QJsonObject>

/// Documents as a user handles them: draw, compare and convert.
class tst_HalvexHostDocuments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drawsAChain_data();
    void drawsAChain();
    void drawsARun();
    void drawsWhatIsInErrorButNotWhatIsUnclear();
    void cannotDraw();
    void compares();
    void cannotCompare();
    void convertsThereAndBack();
    void convertsForACamera();
    void cannotConvert();

private:
    QString m_chain = QStringLiteral(DEMO_CHAIN);
};

void tst_HalvexHostDocuments::drawsAChain_data()
{
    addColumns<QString, QByteArray, QByteArray>({"ending", "begin", "part"});
    addRow("svg", QString("svg"), QByteArray("<?xml"), QByteArray(">Decoupler for VGR<"));
    addRow("png", QString("png"), QByteArray("\x89PNG"), QByteArray("IHDR"));
    addRow("dot", QString("dot"), QByteArray("digraph"), QByteArray("[label=<&#160;&#160;VGR>]"));
}

void tst_HalvexHostDocuments::drawsAChain()
{
    QFETCH(QString, ending);
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, part);
    CHostProgram program;
    const QString picture = program.file("picture." + ending);
    QCOMPARE(program.exec({"draw", m_chain, "-o", picture}), 0);
    QCOMPARE(program.output(), QString());
    QVERIFY(program.errorLines().isEmpty());
    QVERIFY(content(picture).startsWith(begin));
    QVERIFY(content(picture).contains(part));

    program.process().setStandardInputFile(m_chain);
    program.process().setStandardOutputFile(program.file("again"));
    QCOMPARE(program.exec({"draw", "-", "--format", ending}), 0);
    QCOMPARE(content(program.file("again")), content(picture));
}

void tst_HalvexHostDocuments::drawsARun()
{
    CHostProgram program;
    const QString report = program.file("run.json");
    QCOMPARE(program.run({"--camera", "fake-1", "--camera", "fake-2", "--frames", "20", "--json", report}), 0);
    QCOMPARE(program.exec({"draw", "--from-run", report}), 0);
    for (const char* part : {">[0] Camera: fake&#45;1<", ">[0] Camera: fake&#45;2<", ">\u00a0\u00a020 frames<",
                             " per second<", " dropped<", ">\u00a0\u00a0IMG<"})
        QVERIFY2(program.output().contains(part), part);
    QCOMPARE(program.exec({"draw", "--from-run", m_chain}), 2);
    QCOMPARE(
        program.errorLines(),
        QStringList{
            QStringLiteral("halvex-host: cannot read '%1': it is no report of 'halvex-host run --json'").arg(m_chain)});
}

void tst_HalvexHostDocuments::drawsWhatIsInErrorButNotWhatIsUnclear()
{
    CHostProgram program;
    const QString file = program.file("chain.json");
    QVERIFY(write(file, R"([{"name": "a", "model": {"name": "Nobody"}, "connection": [["b"]]},
{"name": "b", "model": {"name": "Blur"}, "connection": [["a"]]}])"));
    QCOMPARE(program.exec({"draw", file}), 0);
    QVERIFY(program.output().contains(">Nobody<"));
    QVERIFY(write(file, R"([{"name": "a", "model": {"name": "Blur"}, "connection": [["b"]]}])"));
    QCOMPARE(program.exec({"draw", file}), 2);
    QCOMPARE(program.errorLines(),
             QStringList({QStringLiteral("halvex-host: cannot read '%1': it has 1 error:").arg(file),
                          file + ":1:59: error: $[0].connection[0][0]: no element is named 'b'; there is only 'a'"}));
}

void tst_HalvexHostDocuments::cannotDraw()
{
    CHostProgram program;
    QCOMPARE(program.exec({"draw", "/nowhere.json"}), 2);
    QCOMPARE(program.errorLines(), QStringList("halvex-host: cannot read '/nowhere.json': No such file or directory"));
    QCOMPARE(program.exec({"draw", m_chain, "-o", "/nowhere/a.svg"}), 1);
    QVERIFY(program.errorLines().value(0).startsWith("halvex-host: cannot write '/nowhere/a.svg': "));
    program.process().setStandardOutputFile("/dev/full");
    QCOMPARE(program.exec({"draw", m_chain}), 1);
    QCOMPARE(program.errorLines(),
             QStringList("halvex-host: cannot write to standard output: No space left on device"));
}

void tst_HalvexHostDocuments::compares()
{
    CHostProgram program;
    const QString other = program.file("other.json");
    const auto compareWith = [&](const QByteArray& text) {
        return write(other, text) ? program.exec({"compare", m_chain, other}) : -1;
    };
    const QString files = QStringLiteral("'%1' and '%2'").arg(m_chain, other);
    QCOMPARE(compareWith(content(m_chain).replace("\"blur\"", "\"soft\"").replace("\n", "")), 0);
    QCOMPARE(program.output(), files + " are the same: 12 nodes, 11 connections\n");
    QCOMPARE(compareWith(content(m_chain).replace("[\"edges files\"]", "").replace(": 25", ": 24")), 1);
    QCOMPARE(program.output(), "nodes[\"preview\"].model.property.frames_per_second: 25 here, 24 there\n"
                               "connections[\"edges\" -> \"edges files\"]: only here\n" +
                                   files + " differ: 2 differences\n");
    QVERIFY(program.errorLines().isEmpty());

    program.process().setStandardInputFile(other);
    QCOMPARE(program.exec({"compare", "--json", m_chain, "-"}), 1);
    const QJsonObject json = QJsonDocument::fromJson(program.output().toUtf8()).object();
    QCOMPARE(json["b"].toString(), QString("<stdin>"));
    QCOMPARE(json["differences"][0]["there"].toInt(), 24);
}

void tst_HalvexHostDocuments::cannotCompare()
{
    CHostProgram program;
    const QString file = program.file("other.json");
    QVERIFY(write(file, "{"));
    QCOMPARE(program.exec({"compare", m_chain, file}), 2);
    QCOMPARE(program.output(), QString());
    QVERIFY(program.errorLines().value(1).startsWith(file + ":1:2: error: "));
    QCOMPARE(program.exec({"compare", "/nowhere.json", file}), 2);
    QCOMPARE(program.errorLines(), QStringList("halvex-host: cannot read '/nowhere.json': No such file or directory"));
}

void tst_HalvexHostDocuments::convertsThereAndBack()
{
    CHostProgram program;
    const QString scene = program.file("scene.json");
    const QString chain = program.file("chain.json");
    QCOMPARE(program.exec({"convert", m_chain, "-o", scene}), 0);
    QCOMPARE(program.exec({"convert", scene, "-o", chain}), 0);
    QCOMPARE(program.exec({"compare", m_chain, chain}), 0);
    QCOMPARE(program.exec({"compare", scene, chain}), 0);
    for (const QString& document : {scene, chain}) {
        QCOMPARE(program.exec({"check", "--strict", document}), 0);
        QVERIFY(program.output().endsWith(": no faults\n"));
    }
    QCOMPARE(program.run({"--frames", "5", "--load", scene}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QCOMPARE(program.run({"--frames", "5", chain}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));

    program.process().setStandardInputFile(scene);
    QCOMPARE(program.exec({"convert", "-"}), 0);
    QCOMPARE(program.output().toUtf8(), content(chain));
}

void tst_HalvexHostDocuments::convertsForACamera()
{
    CHostProgram program;
    const QString two = program.file("two.json");
    QVERIFY(write(two, R"([{"name": "a", "model": {"name": "To Image"},
"unique_sources": [["left", "right"]]}])"));
    QCOMPARE(program.exec({"convert", two}), 2);
    QCOMPARE(
        program.errorLines(),
        QStringList({QStringLiteral("halvex-host: cannot convert '%1': it has 1 error:").arg(two),
                     two + ":2:29: error: $[0].unique_sources[0][1]: the camera 'right' beside another one; a scene "
                           "has one camera, --camera says which"}));
    QCOMPARE(program.exec({"convert", "--camera", "right", two}), 0);
    QVERIFY(program.output().contains("\"unique_name\": \"right\""));
    QVERIFY(!program.output().contains("left"));
}

void tst_HalvexHostDocuments::cannotConvert()
{
    CHostProgram program;
    const QString file = program.file("scene.json");
    QVERIFY(write(file, R"({"nodes": [
{"id": "00000000-0000-0000-0000-000000000001", "model": {"name": "Camera Source", "is_unique": true}},
{"id": "00000000-0000-0000-0000-000000000002", "model": {"name": "Blur"}}], "connections": [
{"out_id": "00000000-0000-0000-0000-000000000001", "out_index": 0,
"in_id": "00000000-0000-0000-0000-000000000002", "in_index": 0,
"converter": {"out": {"id": "Veltra Grab Result", "name": "VGR"}, "in": {"id": "Host Image", "name": "IMG"}}}]})"));
    QCOMPARE(program.exec({"check", file}), 0);
    QCOMPARE(program.exec({"convert", file}), 2);
    QCOMPARE(program.errorLines(),
             QStringList({QStringLiteral("halvex-host: cannot convert '%1': it has 1 error:").arg(file),
                          file + ":6:14: error: $.connections[0].converter: a chain's connections have no converter; "
                                 "put a 'To Image' between"}));
    // What `check` calls an error, with its words.
    QVERIFY(write(file, "[]"));
    QCOMPARE(program.exec({"convert", file}), 2);
    QCOMPARE(program.errorLines().value(1), file + ":1:1: error: $: no element has a camera as its source");
    QCOMPARE(program.output(), QString());
}

QTEST_GUILESS_MAIN(tst_HalvexHostDocuments)
#include "tst_HalvexHostDocuments.moc"
