// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CFrameTable.h"

#include "TestFile.h"
#include "TestFrame.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;

namespace {

const char header[] = "file,frame,timestamp_ns,grabbed_utc,source";

} // namespace

class tst_CFrameTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineForEachFrame();
    void sourceOfAFrame();
    void eachFolderHasItsOwn();
    void failureNamesTheTable();
};

void tst_CFrameTable::lineForEachFrame()
{
    const QTemporaryDir folder;
    CFrameTable table;
    QCOMPARE(table.add(folder.filePath("a.png"), *frameData()), QString());
    QCOMPARE(table.add(folder.filePath("b.png"), *frameData()), QString());
    const QStringList lines = QString(content(folder.filePath(CFrameTable::fileName()))).split('\n');
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines[0], QString(header));
    static const QRegularExpression row(
        QRegularExpression::anchoredPattern(R"(b\.png,5,0,\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{6}Z,)"));
    QVERIFY2(row.match(lines[2]).hasMatch(), qPrintable(lines[2]));
    QCOMPARE(lines[3], QString());
}

void tst_CFrameTable::sourceOfAFrame()
{
    const QTemporaryDir folder;
    CFrameTable table;
    int rows = 0;
    const auto row = [&](const QString& source) {
        SFrameInfo info;
        info.source = source;
        const CGrabResultData data(Veltra::CGrabResultPtr(), info);
        if (!table.add(folder.filePath("a.png"), data).isEmpty())
            return QString();
        return QString(content(folder.filePath(CFrameTable::fileName()))).split('\n').value(++rows);
    };
    QVERIFY(row("shots/a.png").endsWith("Z,shots/a.png"));
    QVERIFY(row("a.avi#12").endsWith("Z,a.avi#12"));
    QVERIFY(row("a, \"b\".png").endsWith(R"(Z,"a, ""b"".png")"));
}

void tst_CFrameTable::eachFolderHasItsOwn()
{
    const QTemporaryDir first;
    const QTemporaryDir second;
    const QString old = second.filePath(CFrameTable::fileName());
    QVERIFY(write(old, "of an older run"));
    CFrameTable table;
    QCOMPARE(table.add(first.filePath("a.png"), *frameData()), QString());
    QCOMPARE(table.add(second.filePath("b.png"), *frameData()), QString());
    QVERIFY(content(old).startsWith(QByteArray(header) + "\nb.png,"));
}

void tst_CFrameTable::failureNamesTheTable()
{
    CFrameTable table;
    QCOMPARE(table.add("/nowhere/a.png", *frameData()),
             QStringLiteral("cannot write '/nowhere/frames.csv': No such file or directory"));
}

QTEST_GUILESS_MAIN(tst_CFrameTable)
#include "tst_CFrameTable.moc"
