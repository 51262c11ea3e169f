// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CPluginFolder.h"

#include "CPluginTestFolder.h"

#include <Halvex/platform/IPlugin.h>

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

using namespace Host;

namespace {

SPluginInfo host()
{
    SPluginInfo info;
    info.name = QStringLiteral("AppCore");
    info.version = info.compatVersion = QVersionNumber(1, 3, 1);
    return info;
}

QStringList names(const CPluginFolder& folder)
{
    QStringList names;
    for (const SPluginInfo& plugin : folder.plugins())
        names << plugin.name;
    return names;
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
    void versions_data();
    void versions();
    void refusedFile_data();
    void refusedFile();
    void deadLinkAndPipe();
    void deadLinkStandsForNoOther();
    void unreadableFile();
    void required_data();
    void required();
    void secondOfARequiredOneIsNotRequired();
    void refusedByNeed_data();
    void refusedByNeed();
    void circle();
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
    const CPluginFolder none(folder.path(), host());
    QVERIFY(none.plugins().empty());
    QVERIFY(none.refusals().empty());
    const CPluginFolder missing(folder.path() + "/nowhere", host());
    QVERIFY(missing.plugins().empty());
    QVERIFY(missing.refusals().empty());
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

void tst_CPluginFolder::versions_data()
{
    QTest::addColumn<QVersionNumber>("wanted");
    QTest::addColumn<bool>("isProvided");
    QTest::newRow("oldest") << QVersionNumber(1, 2, 0) << true;
    QTest::newRow("oldest, shorter") << QVersionNumber(1, 2) << true;
    QTest::newRow("between") << QVersionNumber(1, 3, 7) << true;
    QTest::newRow("newest") << QVersionNumber(1, 4, 0) << true;
    QTest::newRow("too old") << QVersionNumber(1, 1, 9) << false;
    QTest::newRow("too new") << QVersionNumber(1, 4, 1) << false;
    QTest::newRow("next") << QVersionNumber(2) << false;
}

void tst_CPluginFolder::versions()
{
    QFETCH(QVersionNumber, wanted);
    QFETCH(bool, isProvided);
    SPluginInfo info;
    info.version = QVersionNumber(1, 4, 0);
    info.compatVersion = QVersionNumber(1, 2, 0);
    QCOMPARE(info.provides(wanted), isProvided);
}

void tst_CPluginFolder::refusedFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto content = [](const char* name) {
        return CPluginTestFolder::content(CPluginTestFolder::testPlugin(QString::fromLatin1(name)));
    };
    const QByteArray whole = content("base");
    QTest::newRow("text") << QByteArray("no library at all\n") << "no plugin";
    QTest::newRow("empty") << QByteArray() << "no plugin";
    QTest::newRow("cut off") << whole.left(whole.size() / 2) << "no plugin";
    QTest::newRow("cut off within its head") << whole.left(40) << "no plugin";
    QTest::newRow("library that is no plugin") << content("library") << "no plugin";
    QTest::newRow("plugin for another interface")
        << content("foreign") << "a plugin for 'org.example.other', not for '" HALVEX_PLUGIN_IID "'";
    QTest::newRow("no metadata of its own") << content("bare") << "its metadata has no text for 'Name'";
    QTest::newRow("no name") << content("nameless") << "its metadata has no text for 'Name'";
    QTest::newRow("no version") << content("versionless")
                                << "its metadata has 'new' for 'Version', which is no version";
    QTest::newRow("no oldest version") << content("no_compat") << "its metadata has no text for 'CompatVersion'";
    QTest::newRow("odd oldest version") << content("odd_compat")
                                        << "its metadata has '1.0-beta' for 'CompatVersion', which is no version";
    QTest::newRow("required in other words")
        << content("odd_required") << "its metadata has neither true nor false for 'Required'";
    QTest::newRow("no array of what it needs")
        << content("odd_needs") << "its metadata has no array for 'Dependencies'";
    QTest::newRow("needs what has no name")
        << content("nameless_need") << "its metadata has in Dependencies[1] no text for 'Name'";
    QTest::newRow("needs no version") << content("versionless_need")
                                      << "its metadata has in Dependencies[0] no text for 'Version'";
    QTest::newRow("several lines") << content("several_lines") << "it needs 'no?body' 1.0.0, which is not there";
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
    QCOMPARE(found.refusals().size(), std::size_t(1));
    QCOMPARE(found.refusals()[0].file, QDir(folder.path()).canonicalPath() + "/libBroken.so");
    QCOMPARE(found.refusals()[0].reason, reason);
}

void tst_CPluginFolder::deadLinkAndPipe()
{
    CPluginTestFolder folder;
    QVERIFY(QFile::link(folder.path() + "/nowhere", folder.path() + "/dead.so"));
    QVERIFY(QFile::link("/dev/zero", folder.path() + "/endless.so"));
    const QByteArray pipe = QFile::encodeName(QDir(folder.path()).canonicalPath() + "/pipe.so");
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    const CPluginFolder found(folder.path(), host());
    QVERIFY(found.plugins().empty());
    QCOMPARE(found.refusals().size(), std::size_t(3));
    QCOMPARE(found.refusals()[0].file, folder.path() + "/dead.so");
    QCOMPARE(found.refusals()[1].file, QStringLiteral("/dev/zero"));
    QCOMPARE(found.refusals()[2].file, QFile::decodeName(pipe));
    for (const SPluginRefusal& refusal : found.refusals())
        QCOMPARE(refusal.reason, QStringLiteral("no file"));
}

void tst_CPluginFolder::deadLinkStandsForNoOther()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"base"}));
    QVERIFY(QFile::link(folder.path() + "/nowhere", folder.path() + "/base"));
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(names(found), QStringList{"base"});
    QCOMPARE(found.plugins()[0].file, CPluginTestFolder::testPlugin("base"));
    QCOMPARE(found.refusals().size(), std::size_t(1));
    QCOMPARE(found.refusals()[0].file, folder.path() + "/base");
    QCOMPARE(found.refusals()[0].reason, QStringLiteral("no file"));
}

void tst_CPluginFolder::unreadableFile()
{
    const CPluginTestFolder folder;
    QString error;
    SPluginInfo::read(folder.path() + "/nowhere.so", &error);
    QCOMPARE(error, QStringLiteral("it cannot be read: No such file or directory"));
}

void tst_CPluginFolder::required_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::addColumn<bool>("isRequired");
    QTest::newRow("required") << "required_lacking" << true;
    QTest::newRow("not required") << "lacking" << false;
    QTest::newRow("required, but else no sound metadata") << "nameless" << true;
    QTest::newRow("for another host") << "foreign" << false;
}

void tst_CPluginFolder::required()
{
    QFETCH(QString, plugin);
    QFETCH(bool, isRequired);
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({plugin}));
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(found.refusals().size(), std::size_t(1));
    QCOMPARE(found.refusals()[0].isRequired, isRequired);
}

void tst_CPluginFolder::secondOfARequiredOneIsNotRequired()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"required"}));
    QVERIFY(folder.addFile("second.so", CPluginTestFolder::content(CPluginTestFolder::testPlugin("required"))));
    const CPluginFolder found(folder.path(), host());
    QVERIFY(found.plugins()[0].isRequired);
    QCOMPARE(found.refusals().size(), std::size_t(1));
    QVERIFY(!found.refusals()[0].isRequired);
}

void tst_CPluginFolder::refusedByNeed_data()
{
    QTest::addColumn<QStringList>("plugins");
    QTest::addColumn<QStringList>("reasons"); // of all but "base", by name
    QTest::newRow("for a newer host")
        << QStringList{"for_newer_host"}
        << QStringList{"it needs 'AppCore' 1.4.0; there is 1.3.1, which stands in for 1.3.1 and later"};
    QTest::newRow("for an older host")
        << QStringList{"for_older_host"}
        << QStringList{"it needs 'AppCore' 1.3.0; there is 1.3.1, which stands in for 1.3.1 and later"};
    QTest::newRow("for a newer plugin")
        << QStringList{"above_too_new"}
        << QStringList{"it needs 'base' 1.4.1; there is 1.4.0, which stands in for 1.2.0 and later"};
    QTest::newRow("for an older plugin")
        << QStringList{"above_too_old"}
        << QStringList{"it needs 'base' 1.1.9; there is 1.4.0, which stands in for 1.2.0 and later"};
    QTest::newRow("nobody") << QStringList{"lacking"} << QStringList{"it needs 'nobody' 1.0.0, which is not there"};
    QTest::newRow("one that is left out")
        << QStringList{"behind_lacking", "lacking"}
        << QStringList{"it needs 'nobody' 1.0.0, which is not there", "it needs 'lacking' 1.0.0, which is not there"};
}

void tst_CPluginFolder::refusedByNeed()
{
    QFETCH(QStringList, plugins);
    QFETCH(QStringList, reasons);
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins(plugins + QStringList{"base"}));
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(names(found), QStringList{"base"});
    QStringList told;
    for (const SPluginRefusal& refusal : found.refusals())
        told << refusal.reason;
    QCOMPARE(told, reasons);
}

void tst_CPluginFolder::circle()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"circle_one", "circle_two", "behind_circle", "self_needing", "base"}));
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(names(found), QStringList{"base"});
    QCOMPARE(found.refusals().size(), std::size_t(4));
    for (const SPluginRefusal& refusal : found.refusals())
        QCOMPARE(refusal.reason, QStringLiteral("what it needs leads round in a circle"));
}

void tst_CPluginFolder::nameThatIsTaken()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addTestPlugins({"base"}));
    const QByteArray bytes = CPluginTestFolder::content(CPluginTestFolder::testPlugin("base"));
    QVERIFY(folder.addFile("copy.so", bytes));
    const CPluginFolder found(folder.path(), host());
    QCOMPARE(names(found), QStringList{"base"});
    QCOMPARE(found.refusals().size(), std::size_t(1));
    QCOMPARE(found.refusals()[0].reason,
             QStringLiteral("a second 'base', after '%1'").arg(CPluginTestFolder::testPlugin("base")));

    SPluginInfo namesake = host();
    namesake.name = QStringLiteral("base");
    QCOMPARE(CPluginFolder(folder.path(), namesake).refusals()[0].reason, QStringLiteral("'base' is the host itself"));
}

QTEST_GUILESS_MAIN(tst_CPluginFolder)
#include "tst_CPluginFolder.moc"
