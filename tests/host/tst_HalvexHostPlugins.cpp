// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "CPluginTestFolder.h"

#include <Halvex/Halvex.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

/// The program's plugins as a user meets them: what it says about those that it leaves out, and what it does then.
class tst_HalvexHostPlugins : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runsInspiteOfBadPlugins();
    void runsWithCopiesOfThePlugins();
    void anotherVersionOfTheLibraryIsLeftOut();
    void withoutAServiceItEnds();
    void withoutARequiredPluginItEnds();
};

void tst_HalvexHostPlugins::runsInspiteOfBadPlugins()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addHostPlugins());
    QVERIFY(folder.addFile("two\nlines", "not a library\n"));
    // One that is left out by its metadata, one that cannot be loaded and one that makes no plugin.
    QVERIFY(folder.addTestPlugins({"lacking", "unresolved", "no_instance"}));
    CHostProgram program;
    QCOMPARE(program.run({"--plugins", folder.path(), "--frames", "5"}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));

    const QStringList told = program.errorLines().filter("halvex-host: plugin ");
    QCOMPARE(told.size(), 4);
    const auto tells = [&told](const QString& file, const char* reason) {
        const QStringList found = told.filter(QStringLiteral("halvex-host: plugin '%1': ").arg(file));
        return found.size() == 1 && found.constFirst().contains(reason);
    };
    QVERIFY(tells(QDir(folder.path()).canonicalPath() + "/two?lines", "no plugin"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("lacking"), "it needs 'nobody' 1.0.0, which is not there"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("unresolved"), "functionThatNobodyHas"));
    QVERIFY(tells(CPluginTestFolder::testPlugin("no_instance"), "its instance is no plugin for this host"));
}

void tst_HalvexHostPlugins::runsWithCopiesOfThePlugins()
{
    // Files instead of links: the library three times, as a copy of a folder has it.
    const QTemporaryDir folder;
    const QFileInfoList files = QDir(QStringLiteral(HOST_PLUGINS)).entryInfoList(QDir::Files);
    QVERIFY(files.size() > 2);
    for (const QFileInfo& file : files)
        QVERIFY(QFile::copy(file.filePath(), folder.filePath(file.fileName())));
    CHostProgram program;
    QCOMPARE(program.run({"--plugins", folder.path(), "--frames", "5"}), 0);
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
    QCOMPARE(program.errorLines().filter("plugin"), QStringList());
    QCOMPARE(program.exec({"plugins", "--plugins", folder.path()}), 0);
    QVERIFY2(!program.output().contains("Not loaded"), qPrintable(program.output()));
    // Each file that is no plugin of its own is named.
    QVERIFY2(program.output().contains("\nCopies, which were not loaded\n\n"), qPrintable(program.output()));
    // What stands for the copies is told with its own folder.
    const QString library = QFileInfo(QStringLiteral(HOST_PLUGINS "/libHalvex.so")).canonicalFilePath();
    QVERIFY2(program.output().section("\nCopies", 0, 0).contains(' ' + library + '\n'), qPrintable(program.output()));
    QCOMPARE(program.exec({"plugins", "--plugins", folder.path(), "--json"}), 0);
    const QJsonObject json = QJsonDocument::fromJson(program.output().toUtf8()).object();
    QCOMPARE(json["folder"].toString(), QDir(folder.path()).canonicalPath());
    QCOMPARE(json["refused"].toArray(), QJsonArray());
    QCOMPARE(json["copies"].toArray().size(), files.size() - 1); // all but the models, which are there once
    QVERIFY(json["copies"][0]["reason"].toString().startsWith("a copy of '"));
    QStringList names;
    const QJsonArray plugins = json["plugins"].toArray();
    for (const QJsonValue& plugin : plugins)
        names << plugin["name"].toString();
    QCOMPARE(names, QStringList({"Halvex", "HalvexHostModels"}));
}

void tst_HalvexHostPlugins::anotherVersionOfTheLibraryIsLeftOut()
{
    // The metadata in the file, in which the plugin's own version comes last, with another one of the same length.
    QByteArray library = content(CPluginTestFolder::library());
    const QByteArray version("Versione" HALVEX_VERSION_STR);
    const int place = library.lastIndexOf(version);
    QVERIFY(place >= 0);
    const int last = place + version.size() - 1;
    library[last] = library.at(last) == '9' ? '8' : '9';
    CPluginTestFolder folder;
    QVERIFY(folder.addFile("libHalvex.so", library));
    CHostProgram program;
    program.run({"--plugins", folder.path()});
    const QString told = program.errorLines().value(0);
    QVERIFY2(told.contains("libHalvex.so': version "), qPrintable(told));
    QVERIFY2(told.endsWith(QStringLiteral(" of the library, while '%1' is in use; leave this file out")
                               .arg(CPluginTestFolder::library())),
             qPrintable(told));
}

void tst_HalvexHostPlugins::withoutAServiceItEnds()
{
    CPluginTestFolder folder;
    CHostProgram program;
    const QString noService = QStringLiteral("no plugin in '%1' publishes a node service").arg(folder.path());
    QCOMPARE(program.refusal({"--plugins", folder.path()}), noService);
    QVERIFY(folder.addTestPlugins({"base", "above"}));
    QCOMPARE(program.refusal({"--plugins", folder.path()}), noService);
    QVERIFY(QFile::link(CPluginTestFolder::library(), folder.path() + "/libHalvex.so"));
    QCOMPARE(program.refusal({"--plugins", folder.path()}),
             QStringLiteral("no plugin in '%1' brings the host's models").arg(folder.path()));
    for (const QString& none : {QStringLiteral("/nowhere"), CPluginTestFolder::testPlugin("base")})
        QCOMPARE(program.refusal({"--plugins", none}), QStringLiteral("cannot read the plugin folder '%1'").arg(none));
    QVERIFY(!QDir(program.outputFolder()).exists());
}

void tst_HalvexHostPlugins::withoutARequiredPluginItEnds()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addHostPlugins());
    QVERIFY(folder.addTestPlugins({"required_lacking"}));
    CHostProgram program;
    QCOMPARE(program.refusal({"--plugins", folder.path()}),
             QStringLiteral("plugin '%1': it needs 'nobody' 1.0.0, which is not there\nthe plugin '%1' is required")
                 .arg(CPluginTestFolder::testPlugin("required_lacking")));
    QVERIFY(!QDir(program.outputFolder()).exists());
}

QTEST_GUILESS_MAIN(tst_HalvexHostPlugins)
#include "tst_HalvexHostPlugins.moc"
