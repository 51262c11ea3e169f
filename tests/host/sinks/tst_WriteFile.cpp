// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/WriteFile.h"

#include "TestFile.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_WriteFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replacesAFile();
    void failureLeavesNoPart();

private:
    QTemporaryDir m_folder;
};

void tst_WriteFile::replacesAFile()
{
    const QString file = m_folder.filePath("a");
    QVERIFY(write(file, "something longer"));
    QCOMPARE(writeFile(file, "short", 5), QString());
    QCOMPARE(content(file), QByteArray("short"));
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files), QStringList("a"));
}

void tst_WriteFile::failureLeavesNoPart()
{
    const QString folder = m_folder.filePath("folder");
    QVERIFY(QDir().mkpath(folder + "/inner"));
    QCOMPARE(writeFile(folder, "x", 1), QStringLiteral("Is a directory"));
    QVERIFY(!QFile::exists(folder + ".part"));
    QCOMPARE(writeFile(m_folder.filePath("nowhere/a"), "x", 1), QStringLiteral("No such file or directory"));
}

QTEST_GUILESS_MAIN(tst_WriteFile)
#include "tst_WriteFile.moc"
