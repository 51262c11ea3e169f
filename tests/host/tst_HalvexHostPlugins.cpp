// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "CPluginTestFolder.h"

#include <QDir>
#include <QTest>

/// The program's plugins as a user meets them: what it says about those that it leaves out, and what it does then.
class tst_HalvexHostPlugins : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runsInspiteOfBadPlugins();
    void withoutAServiceItEnds_data();
    void withoutAServiceItEnds();
    void withoutAFolderItEnds_data();
    void withoutTheModelsItEnds();
    void withoutAFolderItEnds();
    void withoutARequiredPluginItEnds();
    void fileNameOfSeveralLinesIsToldInOne();
    void copyOfTheLibrary();
};

void tst_HalvexHostPlugins::runsInspiteOfBadPlugins()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addHostPlugins());
    const QByteArray whole = CPluginTestFolder::content(CPluginTestFolder::testPlugin("base"));
    QVERIFY(folder.addFile("libText.so", "not a library\n"));
    QVERIFY(folder.addFile("libCut.so", whole.left(whole.size() / 2)));
    QVERIFY(folder.addTestPlugins(
        {"foreign", "for_newer_host", "lacking", "circle_one", "circle_two", "library", "unresolved", "no_instance"}));
    const QTemporaryDir output;
    CHostProgram program;
    QVERIFY(program.run({"run", "--plugins", folder.path(), "--frames", "5", "--output", output.path()}));
    QCOMPARE(program.exitCode(), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));

    const QStringList told = program.errorLines().filter(QStringLiteral("halvex-host: plugin "));
    QCOMPARE(told.size(), 10);
    const auto tells = [&told](const QString& file, const QString& reason) {
        const QStringList found = told.filter(QStringLiteral("halvex-host: plugin '%1': ").arg(file));
        return found.size() == 1 && found.constFirst().contains(reason);
    };
    const QDir here(QDir(folder.path()).canonicalPath());
    QVERIFY(tells(here.filePath("libText.so"), "no plugin"));
    QVERIFY(tells(here.filePath("libCut.so"), "no plugin"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("library"), "no plugin"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("foreign"), "a plugin for 'org.example.other'"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("for_newer_host"), "it needs 'AppCore' 1.4.0; there is 1.3.1"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("lacking"), "it needs 'nobody' 1.0.0, which is not there"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("circle_one"), "leads round in a circle"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("circle_two"), "leads round in a circle"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("unresolved"), "functionThatNobodyHas"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("no_instance"), "its instance is no plugin for this host"));
}

void tst_HalvexHostPlugins::withoutAServiceItEnds_data()
{
    QTest::addColumn<QStringList>("plugins");
    QTest::newRow("empty folder") << QStringList();
    QTest::newRow("others") << QStringList{"base", "above"};
}

void tst_HalvexHostPlugins::withoutAServiceItEnds()
{
    QFETCH(QStringList, plugins);
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins(plugins));
    const QTemporaryDir output;
    CHostProgram program;
    QVERIFY(program.run({"run", "--plugins", folder.path(), "--output", output.filePath("out")}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.output(), QString());
    QCOMPARE(program.errorLines(),
             QStringList{QStringLiteral("halvex-host: no plugin in '%1' publishes a node service").arg(folder.path())});
    QVERIFY(!QDir(output.filePath("out")).exists());
}

void tst_HalvexHostPlugins::withoutTheModelsItEnds()
{
    const CPluginTestFolder folder;
    QVERIFY(QFile::link(CPluginTestFolder::library(), folder.path() + "/libHalvex.so"));
    const QTemporaryDir output;
    CHostProgram program;
    QVERIFY(program.run({"run", "--plugins", folder.path(), "--output", output.filePath("out")}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.output(), QString());
    QCOMPARE(program.errorLines(),
             QStringList{QStringLiteral("halvex-host: no plugin in '%1' brings the host's models").arg(folder.path())});
    QVERIFY(!QDir(output.filePath("out")).exists());
}

void tst_HalvexHostPlugins::withoutAFolderItEnds_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("missing") << QStringLiteral(TEST_PLUGINS "/nowhere");
    QTest::newRow("a file") << CPluginTestFolder::testPlugin("base");
}

void tst_HalvexHostPlugins::withoutAFolderItEnds()
{
    QFETCH(QString, folder);
    CHostProgram program;
    QVERIFY(program.run({"run", "--plugins", folder}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.errorLines(),
             QStringList{QStringLiteral("halvex-host: cannot read the plugin folder '%1'").arg(folder)});
}

void tst_HalvexHostPlugins::withoutARequiredPluginItEnds()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addHostPlugins());
    QVERIFY(folder.addTestPlugins({"required_lacking"}));
    const QTemporaryDir output;
    CHostProgram program;
    QVERIFY(program.run({"run", "--plugins", folder.path(), "--output", output.filePath("out")}));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(program.output(), QString());
    const QString name = CPluginTestFolder::testPlugin("required_lacking");
    QCOMPARE(
        program.errorLines(),
        QStringList({QStringLiteral("halvex-host: plugin '%1': it needs 'nobody' 1.0.0, which is not there").arg(name),
                     QStringLiteral("halvex-host: the plugin '%1' is required").arg(name)}));
    QVERIFY(!QDir(output.filePath("out")).exists());
}

void tst_HalvexHostPlugins::fileNameOfSeveralLinesIsToldInOne()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addFile("two\nlines", "no plugin"));
    CHostProgram program;
    QVERIFY(program.run({"run", "--plugins", folder.path()}));
    QCOMPARE(program.errorLines().size(), 2);
    QVERIFY2(program.errorLines().at(0).endsWith("/two?lines': no plugin"), qPrintable(program.errorLines().at(0)));
}

void tst_HalvexHostPlugins::copyOfTheLibrary()
{
    // Its models need the library as a plugin, which is left out.
    CPluginTestFolder folder;
    QVERIFY(folder.addFile("libHalvex.so", CPluginTestFolder::content(CPluginTestFolder::library())));
    QVERIFY(
        QFile::link(QStringLiteral(HOST_PLUGINS "/libHalvexHostModels.so"), folder.path() + "/libHalvexHostModels.so"));
    const QTemporaryDir output;
    CHostProgram program;
    QVERIFY(program.run({"run", "--plugins", folder.path(), "--output", output.path()}));
    QCOMPARE(program.exitCode(), 2);
    const QStringList lines = program.errorLines();
    QCOMPARE(lines.size(), 3);
    QVERIFY2(lines.at(0).endsWith(QStringLiteral("a copy of '%1', which is in use").arg(CPluginTestFolder::library())),
             qPrintable(lines.at(0)));
    QVERIFY2(lines.at(1).endsWith("it needs 'Halvex', which is left out"), qPrintable(lines.at(1)));
    QVERIFY2(lines.at(2).endsWith("/libHalvex.so' is required"), qPrintable(lines.at(2)));
}

QTEST_GUILESS_MAIN(tst_HalvexHostPlugins)
#include "tst_HalvexHostPlugins.moc"
