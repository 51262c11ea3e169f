// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CWordFinder.h"

#include "TestTable.h"

using namespace Host;

class tst_CWordFinder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void closest_data();
    void closest();
    void hint();
    void lists();
    void givesUp();
};

void tst_CWordFinder::closest_data()
{
    addColumns<QString, QString>({"word", "closest"});
    const auto row = [](const char* word, const char* closest) { addRow(word, QString(word), QString(closest)); };
    row("Blurr", "Blur");
    row("edges", "Edges");
    row("Edgse", "Edges");
    row("x", "X");
    row("y", "");
    row("Sharpen", "");
    row("", "");
}

void tst_CWordFinder::closest()
{
    QFETCH(QString, word);
    QTEST(CWordFinder().closest(word, {"Blur", "Edges", "Threshold", "X"}), "closest");
}

void tst_CWordFinder::hint()
{
    CWordFinder words;
    QCOMPARE(words.hint("blurr", {"blur", "edges"}), QString("did you mean 'blur'?"));
    QCOMPARE(words.hint("sharpen", {"blur", "edges", "gain"}), QString("there are 'blur', 'edges' and 'gain'"));
    QCOMPARE(words.hint("sharpen", {"blur"}), QString("there is only 'blur'"));
    QCOMPARE(words.hint("sharpen", {}), QString());
    QStringList many;
    for (int i = 0; i < 11; ++i)
        many << QString::number(i);
    QCOMPARE(words.hint("sharpen", many), QString());
}

void tst_CWordFinder::lists()
{
    QCOMPARE(listAll({}), QString());
    QCOMPARE(listAll({"a"}), QString("'a'"));
    QCOMPARE(listAll({"a", "b", "c"}), QString("'a', 'b' and 'c'"));
    QCOMPARE(listChoices({"a"}), QString("'a'"));
    QCOMPARE(listChoices({"a", "b", "c", "d"}), QString("'a', 'b', 'c' or 'd'"));
}

// Thousands of wrong words among thousands of right ones.
void tst_CWordFinder::givesUp()
{
    QStringList labels;
    for (int i = 10000; i < 20000; ++i)
        labels << QStringLiteral("blur %1").arg(i);
    CWordFinder words;
    QCOMPARE(words.closest("blur 1O003", labels), QString("blur 10003"));
    QVERIFY(!words.hasGivenUp());
    for (int i = 0; i < 1000; ++i)
        words.closest("edges 1000", labels);
    QCOMPARE(words.closest("blur 1O003", labels), QString());
    QVERIFY(words.hasGivenUp());
}

QTEST_GUILESS_MAIN(tst_CWordFinder)
#include "tst_CWordFinder.moc"
