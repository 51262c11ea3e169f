// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/Terminal.h"

#include <QTest>

using namespace Host;

class tst_Terminal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsWrapped();
    void headingIsBoldWhereThatIsShown();
    void whatIsNoTerminal();
};

void tst_Terminal::textIsWrapped()
{
    QCOMPARE(wrapped("one two  three", 9, 2), QStringLiteral("  one two\n  three\n"));
    QCOMPARE(wrapped("unbreakable", 4, 0), QStringLiteral("unbreakable\n"));
    QCOMPARE(wrapped(QString("word ").repeated(21), 200, 0).indexOf('\n'), 99);
}

void tst_Terminal::headingIsBoldWhereThatIsShown()
{
    QCOMPARE(headingLine("100 %1", false), QStringLiteral("100 %1\n"));
    QCOMPARE(headingLine("100 %1", true), QStringLiteral("\x1b[1m100 %1\x1b[0m\n"));
}

void tst_Terminal::whatIsNoTerminal()
{
    std::FILE* const file = std::tmpfile();
    QVERIFY(file);
    qputenv("COLUMNS", "60");
    QCOMPARE(columnsOf(file), 60);
    for (const char* nonsense : {"", "wide", "0", "-5"}) {
        qputenv("COLUMNS", nonsense);
        QCOMPARE(columnsOf(file), 80);
    }
    qunsetenv("COLUMNS");
    QCOMPARE(columnsOf(file), 80);
    QVERIFY(!takesColors(file));
    std::fclose(file);
}

QTEST_GUILESS_MAIN(tst_Terminal)
#include "tst_Terminal.moc"
