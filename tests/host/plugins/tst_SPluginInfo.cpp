// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/SPluginInfo.h"

#include "CPluginTestFolder.h"
#include "TestTable.h"

using namespace Host;

class tst_SPluginInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void provides_data();
    void provides();
    void readsAFile();
    void noPlugin();
};

void tst_SPluginInfo::provides_data()
{
    addColumns<QString, bool>({"wanted", "isProvided"});
    const auto row = [](const char* wanted, bool isProvided) { addRow(wanted, QString(wanted), isProvided); };
    row("1.1.9", false);
    row("1.2", true);
    row("1.2.0", true);
    row("1.3.7", true);
    row("1.4.0", true);
    row("1.4.1", false);
    row("2.0.0", false);
}

void tst_SPluginInfo::provides()
{
    QFETCH(QString, wanted);
    SPluginInfo info;
    info.version = QVersionNumber(1, 4, 0);
    info.compatVersion = QVersionNumber(1, 2, 0);
    QTEST(info.provides(QVersionNumber::fromString(wanted)), "isProvided");
}

void tst_SPluginInfo::readsAFile()
{
    QString error;
    const SPluginInfo info = SPluginInfo::read(CPluginTestFolder::testPlugin("base"), &error);
    QCOMPARE(error, QString());
    QCOMPARE(info.name, QStringLiteral("base"));
    QCOMPARE(info.version, QVersionNumber(1, 4, 0));
    QCOMPARE(info.compatVersion, QVersionNumber(1, 2, 0));
    QVERIFY(!info.isRequired);
    QCOMPARE(info.dependencies.size(), std::size_t(1));
    QCOMPARE(info.dependencies[0].name, QStringLiteral("AppCore"));
}

void tst_SPluginInfo::noPlugin()
{
    CPluginTestFolder folder;
    QVERIFY(folder.addFile("text.so", "text"));
    QString error;
    SPluginInfo::read(folder.path() + "/text.so", &error);
    QVERIFY(!error.isEmpty());
    QVERIFY(!error.contains('\n'));
}

QTEST_GUILESS_MAIN(tst_SPluginInfo)
#include "tst_SPluginInfo.moc"
