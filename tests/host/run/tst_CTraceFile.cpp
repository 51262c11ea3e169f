// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CTraceFile.h"

#include "TestFile.h"
#include "TestTrace.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Host;
using namespace std::chrono_literals;

class tst_CTraceFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void events();
    void nothing();
    void openSlicesEndWithTheFile();
    void fileThatCannotBeWritten();
};

void tst_CTraceFile::events()
{
    const QTemporaryDir folder;
    CTraceFile file(folder.filePath("t.json"));
    QCOMPARE(file.open(), QString());
    const auto now = std::chrono::steady_clock::now();
    file.addProcess(1, QStringLiteral("a \"name\" of \\"));
    file.addRow({1, 2}, QStringLiteral("row"));
    file.beginSlice({1, 2}, "outer", now);
    file.addSlice({1, 2}, "inner", now + 1us, now + 2us);
    file.addFlow(CTraceFile::EFlow::Start, {1, 2}, now + 1us, "c", CTraceFile::quoted(QStringLiteral("\"n\"")), 7);
    file.addFlow(CTraceFile::EFlow::End, {1, 2}, now + 1us, "c", CTraceFile::quoted(QStringLiteral("\"n\"")), 7);
    file.endSlice({1, 2}, now + 3us);
    QCOMPARE(file.close(), QString());
    const STestTrace trace = readTrace(content(folder.filePath("t.json")));
    QCOMPARE(trace.fault, QString());
    QCOMPARE(trace.rows, QStringList("row"));
    QCOMPARE(trace.slices, (std::map<QString, int>{{"inner", 1}, {"outer", 1}}));
    QCOMPARE(trace.flows, (std::map<QString, QString>{{"c|\"n\"|7", "sf"}}));
}

void tst_CTraceFile::nothing()
{
    const QTemporaryDir folder;
    CTraceFile file(folder.filePath("t.json"));
    file.addProcess(1, QStringLiteral("too early"));
    QCOMPARE(file.close(), QString());
    QCOMPARE(file.open(), QString());
    QCOMPARE(file.close(), QString());
    QCOMPARE(content(folder.filePath("t.json")), QByteArray("[]\n"));
}

void tst_CTraceFile::openSlicesEndWithTheFile()
{
    const QTemporaryDir folder;
    CTraceFile file(folder.filePath("t.json"));
    QCOMPARE(file.open(), QString());
    const auto now = std::chrono::steady_clock::now();
    file.beginSlice({1, 2}, "a", now);
    file.beginSlice({1, 2}, "b", now);
    QCOMPARE(file.close(), QString());
    QCOMPARE(readTrace(content(folder.filePath("t.json"))).fault, QString());
}

void tst_CTraceFile::fileThatCannotBeWritten()
{
    QVERIFY(CTraceFile(QStringLiteral("/nowhere/t")).open().startsWith("cannot write '/nowhere/t': "));
    CTraceFile file(QStringLiteral("/dev/full"));
    QCOMPARE(file.open(), QString());
    file.addProcess(1, QStringLiteral("p"));
    QCOMPARE(file.close(), QStringLiteral("cannot write '/dev/full': No space left on device"));
}

QTEST_GUILESS_MAIN(tst_CTraceFile)
#include "tst_CTraceFile.moc"
