// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CTypedText.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

using namespace Host;

class tst_CTypedText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textOfALine();
    void textOfABox();
    void textThatWasTaken();
};

void tst_CTypedText::textOfALine()
{
    QLineEdit line;
    CTypedText typed;
    typed.watch(line);
    QSignalSpy ended(&typed, &CTypedText::ended);
    line.setText("shown");
    QTest::keyClick(&line, Qt::Key_Return);
    QVERIFY(!typed.isThere());
    QVERIFY(ended.isEmpty());
    QTest::keyClicks(&line, "x");
    QVERIFY(typed.isThere());
    QTest::keyClick(&line, Qt::Key_Return);
    QVERIFY(!typed.isThere());
    QCOMPARE(ended.count(), 1);
    QTest::keyClick(&line, Qt::Key_Return);
    QCOMPARE(ended.count(), 1);
}

void tst_CTypedText::textOfABox()
{
    QSpinBox box;
    CTypedText typed;
    typed.watch(box);
    QSignalSpy ended(&typed, &CTypedText::ended);
    box.setValue(7);
    QVERIFY(!typed.isThere());
    box.selectAll();
    QTest::keyClicks(&box, "5");
    QVERIFY(typed.isThere());
    QTest::keyClick(&box, Qt::Key_Return);
    QVERIFY(!typed.isThere());
    QCOMPARE(ended.count(), 1);
}

void tst_CTypedText::textThatWasTaken()
{
    QSpinBox box;
    CTypedText typed;
    typed.watch(box);
    QSignalSpy ended(&typed, &CTypedText::ended);
    connect(&box, QOverload<int>::of(&QSpinBox::valueChanged), &typed, &CTypedText::clear);
    box.selectAll();
    QTest::keyClicks(&box, "5");
    QVERIFY(!typed.isThere());
    QTest::keyClick(&box, Qt::Key_Return);
    QVERIFY(ended.isEmpty());
}

QTEST_MAIN(tst_CTypedText)
#include "tst_CTypedText.moc"
