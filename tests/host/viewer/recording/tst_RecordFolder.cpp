// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/recording/RecordFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_RecordFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachRecordingHasAFolderOfItsOwn();
    void nameThatMakesNoFolderIsLeftOut();
    void whereThereCanBeNone();
};

void tst_RecordFolder::eachRecordingHasAFolderOfItsOwn()
{
    const QTemporaryDir parent;
    QSet<QString> folders;
    for (int i = 0; i < 5; ++i) {
        const QString folder = makeRecordFolder(parent.filePath("new"), QStringLiteral("Left"));
        QVERIFY(QDir(folder).exists());
        QVERIFY(QDir(folder).dirName().startsWith(QStringLiteral("Left 20")));
        folders.insert(folder);
    }
    QCOMPARE(folders.size(), 5);
}

void tst_RecordFolder::nameThatMakesNoFolderIsLeftOut()
{
    const QTemporaryDir parent;
    for (const char* const name : {"", "../x", ".hidden", "a/b"}) {
        const QString folder = makeRecordFolder(parent.path(), QLatin1String(name));
        QVERIFY(QDir(folder).dirName().startsWith(QStringLiteral("20")));
        QCOMPARE(QFileInfo(folder).absolutePath(), QDir(parent.path()).absolutePath());
    }
}

void tst_RecordFolder::whereThereCanBeNone()
{
    const QTemporaryDir parent;
    QFile file(parent.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(makeRecordFolder(parent.filePath("file/x"), {}), QString());
    QCOMPARE(makeRecordFolder({}, {}), QString());
}

QTEST_GUILESS_MAIN(tst_RecordFolder)
#include "tst_RecordFolder.moc"
