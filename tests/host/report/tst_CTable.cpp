// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CTable.h"

#include <QTest>

using namespace Host;

class tst_CTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsAreAligned();
    void firstColumnIsCut();
    void wideTableComesInParts();
    void lastWordsGoOnInTheNextLine();
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
    QCOMPARE(table.text(24), QStringLiteral("Node                  in\na name of…haracters.   1\n"));
    QCOMPARE(table.text(5), QStringLiteral("Node              in\na name …racters.   1\n"));
}

void tst_CTable::wideTableComesInParts()
{
    CTable table({"Node", ">received", ">sent"});
    table.addRow({"a", "1", "2"});
    QCOMPARE(table.text(21), QStringLiteral("Node  received  sent\na            1     2\n"));
    QCOMPARE(table.text(19), QStringLiteral("Node  received\na            1\n\nNode  sent\na        2\n"));

    CTable keyed({"Kind", "Name", "In", ">Out"}, 2);
    keyed.addRow({"x", "y", "z", "1"});
    QCOMPARE(keyed.text(18), QStringLiteral("Kind  Name  In\nx     y     z\n\nKind  Name  Out\nx     y       1\n"));
}

void tst_CTable::lastWordsGoOnInTheNextLine()
{
    CTable table({"Sink", ">written", "Files"});
    table.addRow({"a", "2", "folder/frame-000000.png to frame-000001.png"});
    QCOMPARE(table.text(31), QStringLiteral("Sink  written  Files\n"
                                            "a           2  folder/frame-000000.png\n"
                                            "               to\n"
                                            "               frame-000001.png\n"));
}

QTEST_GUILESS_MAIN(tst_CTable)
#include "tst_CTable.moc"
