// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CPluginFolder.h"

#include "CPluginTestFolder.h"
#include "RefusalReasons.h"
#include "TestTable.h"

#include <Halvex/platform/IPlugin.h>

#include <QDir>

#include <sys/stat.h>

using namespace Host;

namespace {

SPluginInfo host(const char* name = "AppCore")
{
    SPluginInfo info;
    info.name = QString::fromLatin1(name);
    info.version = QVersionNumber(1, 3, 1);
    info.compatVersion = QVersionNumber(1, 3, 1);
    return info;
}

QStringList names(const CPluginFolder& folder)
{
    QStringList names;
    for (const SPluginInfo& plugin : folder.plugins())
        names << plugin.name;
    return names;
}

QByteArray contentOf(const char* plugin)
{
    return content(CPluginTestFolder::testPlugin(QString::fromLatin1(plugin)));
}

} // namespace

class tst_CPluginFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsMetadata();
    void emptyFolder();
    void linksLeadToOneFile();
    void whatIsNeededComesFirst();
    void versions();
    void refusedFile_data();
    void refusedFile();
    void whatIsNoFile();
    void unreadableFile();
    void required();
    void refusedByNeed_data();
    void refusedByNeed();
    void nameThatIsTaken();
};

void tst_CPluginFolder::readsMetadata()
{
    QString error;
    const SPluginInfo info = SPluginInfo::read(CPluginTestFolder::testPlugin("above"), &error);
    QCOMPARE(error, QString());
    QCOMPARE(info.file, CPluginTestFolder::testPlugin("above"));
    QCOMPARE(info.name, QStringLiteral("above"));
    QCOMPARE(info.version, QVersionNumber(1, 0, 0));
    QCOMPARE(info.compatVersion, QVersionNumber(1, 0, 0));
    QCOMPARE(info.dependencies.size(), std::size_t(2));
    QCOMPARE(info.dependencies[1].name, QStringLiteral("base"));
    QCOMPARE(info.dependencies[1].version, QVersionNumber(1, 3, 0));
}

void tst_CPluginFolder::emptyFolder()
{
    const CPluginTestFolder folder;
    for (const QString& path : {folder.path(), folder.path() + "/nowhere"}) {
        const CPluginFolder none(path, host());
        QVERIFY(none.plugins().empty());
        QVERIFY(none.refusals().empty());
    }
}

void tst_CPluginFolder::linksLeadToOneFile()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"base"}));
    QVERIFY(QFile::link(folder.path() + "/base.so", folder.path() + "/base.so.1"));
    QVERIFY(QDir(folder.path()).mkdir("sub"));
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(names(found), QStringList{"base"});
    QCOMPARE(found.plugins()[0].file, CPluginTestFolder::testPlugin("base"));
    QVERIFY(found.refusals().empty());
}

void tst_CPluginFolder::whatIsNeededComesFirst()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"above", "above_old", "base"}));
    const CPluginFolder found(folder.path(), host());
    QVERIFY(found.refusals().empty());
    QCOMPARE(names(found), QStringList({"base", "above", "above_old"}));
}

void tst_CPluginFolder::versions()
{
    SPluginInfo info;
    info.version = QVersionNumber(1, 4, 0);
    info.compatVersion = QVersionNumber(1, 2, 0);
    for (const char* version : {"1.2.0", "1.2", "1.3.7", "1.4.0"})
        QVERIFY2(info.provides(QVersionNumber::fromString(QLatin1String(version))), version);
    for (const char* version : {"1.1.9", "1.4.1", "2"})
        QVERIFY2(!info.provides(QVersionNumber::fromString(QLatin1String(version))), version);
}

void tst_CPluginFolder::refusedFile_data()
{
    addColumns<QByteArray, QString>({"bytes", "reason"});
    const QByteArray whole = contentOf("base");
    addRow("text", QByteArray("no library at all\n"), "no plugin");
    addRow("empty", QByteArray(), "no plugin");
    addRow("cut off", whole.left(whole.size() / 2), "no plugin");
    addRow("cut off within its head", whole.left(40), "no plugin");
    const auto row = [](const char* plugin, const char* reason) { addRow(plugin, contentOf(plugin), reason); };
    row("library", "no plugin");
    row("foreign", "a plugin for 'org.example.other', not for '" HALVEX_PLUGIN_IID "'");
    row("bare", "its metadata has no text for 'Name'");
    row("nameless", "its metadata has no text for 'Name'");
    row("versionless", "its metadata has 'new' for 'Version', which is no version");
    row("no_compat", "its metadata has no text for 'CompatVersion'");
    row("odd_compat", "its metadata has '1.0-beta' for 'CompatVersion', which is no version");
    row("odd_required", "its metadata has neither true nor false for 'Required'");
    row("odd_needs", "its metadata has no array for 'Dependencies'");
    row("nameless_need", "its metadata has in Dependencies[1] no text for 'Name'");
    row("versionless_need", "its metadata has in Dependencies[0] no text for 'Version'");
    row("several_lines", "it needs 'no?body' 1.0.0, which is not there");
}

void tst_CPluginFolder::refusedFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"base"}));
    QVERIFY(folder.addFile("libBroken.so", bytes));
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(names(found), QStringList{"base"});
    QCOMPARE(reasons(found), QStringList{reason});
    QCOMPARE(found.refusals()[0].file, QDir(folder.path()).canonicalPath() + "/libBroken.so");
}

void tst_CPluginFolder::whatIsNoFile()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"base"}));
    // A dead link stands for no other file, whatever its name.
    QVERIFY(QFile::link(folder.path() + "/nowhere", folder.path() + "/base"));
    QVERIFY(QFile::link("/dev/zero", folder.path() + "/endless.so"));
    const QByteArray pipe = QFile::encodeName(QDir(folder.path()).canonicalPath() + "/pipe.so");
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(names(found), QStringList{"base"});
    QCOMPARE(found.plugins()[0].file, CPluginTestFolder::testPlugin("base"));
    QCOMPARE(reasons(found), QStringList({"no file", "no file", "no file"}));
    QCOMPARE(found.refusals()[0].file, folder.path() + "/base");
    QCOMPARE(found.refusals()[1].file, QStringLiteral("/dev/zero"));
    QCOMPARE(found.refusals()[2].file, QFile::decodeName(pipe));
}

void tst_CPluginFolder::unreadableFile()
{
    QString error;
    SPluginInfo::read("/nowhere.so", &error);
    QCOMPARE(error, QStringLiteral("it cannot be read: No such file or directory"));
}

void tst_CPluginFolder::required()
{
    const auto isRequired = [](const QString& plugin) {
        CPluginTestFolder folder;
        const bool isThere = folder.addTestPlugins({plugin});
        const CPluginFolder found(folder.path(), host());
        return isThere && found.refusals().at(0).isRequired;
    };
    QVERIFY(isRequired("required_lacking"));
    QVERIFY(!isRequired("lacking"));
    // Required, but else no sound metadata.
    QVERIFY(isRequired("nameless"));
    QVERIFY(!isRequired("foreign"));
}

void tst_CPluginFolder::refusedByNeed_data()
{
    addColumns<QStringList, QStringList>({"plugins", "reasons"}); // of all but "base", by name
    const auto row = [](const char* plugin, const char* reason) {
        addRow(plugin, QStringList{plugin}, QStringList{reason});
    };
    row("for_newer_host", "it needs 'AppCore' 1.4.0; there is 1.3.1, which stands in for 1.3.1 and later");
    row("for_older_host", "it needs 'AppCore' 1.3.0; there is 1.3.1, which stands in for 1.3.1 and later");
    row("above_too_new", "it needs 'base' 1.4.1; there is 1.4.0, which stands in for 1.2.0 and later");
    row("above_too_old", "it needs 'base' 1.1.9; there is 1.4.0, which stands in for 1.2.0 and later");
    const QString nobody = QStringLiteral("it needs 'nobody' 1.0.0, which is not there");
    addRow("nobody", QStringList{"lacking"}, QStringList{nobody});
    addRow("one that is left out", QStringList{"behind_lacking", "lacking"},
           QStringList{nobody, "it needs 'lacking' 1.0.0, which is not there"});
    const QString circle = QStringLiteral("what it needs leads round in a circle");
    addRow("circle", QStringList{"circle_one", "circle_two", "behind_circle", "self_needing"},
           QStringList{circle, circle, circle, circle});
}

void tst_CPluginFolder::refusedByNeed()
{
    QFETCH(QStringList, plugins);
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins(plugins + QStringList{"base"}));
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(names(found), QStringList{"base"});
    QTEST(reasons(found), "reasons");
}

void tst_CPluginFolder::nameThatIsTaken()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"required"}));
    QVERIFY(folder.addFile("copy.so", contentOf("required"))); // which is the same one
    QVERIFY(folder.addFile("second.so", contentOf("required") + "another"));
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(names(found), QStringList{"required"});
    QVERIFY(found.plugins()[0].isRequired);
    // The second is not, as there is one.
    const QString first = found.plugins()[0].file;
    QCOMPARE(reasons(found),
             QStringList{QStringLiteral("a second 'required', after '%1'; leave one of them out").arg(first)});
    QVERIFY(!found.refusals()[0].isRequired);
    QCOMPARE(found.copies().size(), std::size_t(1));
    const SPluginRefusal& copy = found.copies().front();
    QCOMPARE(first, QFileInfo(folder.path() + "/copy.so").canonicalFilePath()); // "copy" comes before "required"
    QCOMPARE(copy.file, CPluginTestFolder::testPlugin("required"));
    QCOMPARE(copy.reason, QStringLiteral("a copy of '%1', which stands for it; leave this file out").arg(first));
    const CPluginFolder ofNamesake(folder.path(), host("required"));
    QCOMPARE(reasons(ofNamesake).value(0), QStringLiteral("'required' is the host itself"));
}

QTEST_GUILESS_MAIN(tst_CPluginFolder)
#include "tst_CPluginFolder.moc"
