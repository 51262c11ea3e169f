// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CTable.h"

#include "host/report/Terminal.h"

#include <QTest>

using namespace Host;

class tst_CTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsAreAligned();
    void firstColumnIsCut();
    void tableIsSplit();
    void textIsWrapped();
};

void tst_CTable::columnsAreAligned()
{
    CTable table({"Node", ">in", "File"});
    QVERIFY(table.isEmpty());
    table.addRow({"a", "12345", "x.png"});
    table.addRow({"longer", "", ""});
    QCOMPARE(table.text(80), QStringLiteral("Node       in  File\na       12345  x.png\nlonger      -  -\n"));
    QVERIFY(table.text(80, true).startsWith(QStringLiteral("\x1b[1mNode       in  File\x1b[0m\n")));
}

void tst_CTable::firstColumnIsCut()
{
    CTable table({"Node", ">in"});
    table.addRow({"a name of 24 characters.", "1"});
    QCOMPARE(table.text(80), QStringLiteral("Node                      in\na name of 24 characters.   1\n"));
    QCOMPARE(table.text(24), QStringLiteral("Node                  in\na name of 24 charac…   1\n"));
    QCOMPARE(table.text(5), QStringLiteral("Node              in\na name of 24 ch…   1\n"));
}

void tst_CTable::tableIsSplit()
{
    CTable table({"Node", ">in", ">out", ">rate", "Files"});
    table.addRow({"a", "1234", "1234", "1000.0", "x.png to y.png"});
    QCOMPARE(table.text(17), QStringLiteral("Node    in   out\na     1234  1234\n\n"
                                            "Node    rate  Files\na     1000.0  x.png to y.png\n"));
    QCOMPARE(table.text(1), QStringLiteral("Node    in\na     1234\n\nNode   out\na     1234\n\n"
                                           "Node    rate  Files\na     1000.0  x.png to y.png\n"));
}

void tst_CTable::textIsWrapped()
{
    QCOMPARE(wrapped("one two  three", 9, 2), QStringLiteral("  one two\n  three\n"));
    QCOMPARE(wrapped("unbreakable", 4, 0), QStringLiteral("unbreakable\n"));
}

QTEST_GUILESS_MAIN(tst_CTable)
#include "tst_CTable.moc"
