// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/InputFile.h"

#include "TestFile.h"

#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

using namespace Host;

class tst_InputFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names();
    void reads();
    void cannotRead();
    void standardInput();
};

void tst_InputFile::names()
{
    QVERIFY(isStandardStream("-"));
    QVERIFY(!isStandardStream("./-"));
    QCOMPARE(inputName("-"), QString("<stdin>"));
    QCOMPARE(inputName("a"), QString("a"));
}

void tst_InputFile::reads()
{
    const QTemporaryDir folder;
    QVERIFY(write(folder.filePath("a"), "text"));
    QString error;
    QCOMPARE(readInput(folder.filePath("a"), &error), QByteArray("text"));
    QCOMPARE(readDocument(folder.filePath("a"), &error), QByteArray("text"));
    QCOMPARE(error, QString());
}

void tst_InputFile::cannotRead()
{
    QString error;
    readInput("/nowhere", &error);
    QCOMPARE(error, QString("No such file or directory"));
    error.clear();
    readInput("/dev/zero", &error);
    QCOMPARE(error, QString("it is larger than 64 MiB"));
    error.clear();
    readDocument("/nowhere.json", &error);
    QCOMPARE(error, QString("cannot read '/nowhere.json': No such file or directory"));
    error.clear();
    readDocument("/dev/zero", &error);
    QCOMPARE(error, QString("cannot read '/dev/zero': it is larger than 64 MiB"));
}

void tst_InputFile::standardInput()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a");
    QVERIFY(write(file, "text"));
    QVERIFY(std::freopen(file.toLocal8Bit().constData(), "r", stdin));
    QString error;
    QCOMPARE(readInput("-", &error), QByteArray("text"));
    QCOMPARE(error, QString());
}

QTEST_GUILESS_MAIN(tst_InputFile)
#include "tst_InputFile.moc"
