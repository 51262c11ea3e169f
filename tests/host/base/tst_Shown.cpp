// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Shown.h"

#include <QTest>

using namespace Host;

class tst_Shown : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void printableOnOneLine();
    void shownInQuotesAndCut();
    void cutBetweenLetters();
};

void tst_Shown::printableOnOneLine()
{
    QCOMPARE(printable(QStringLiteral("a\nb\x1b[31m")), QStringLiteral("a?b?[31m"));
    QCOMPARE(printable(QStringLiteral("größe 📷")), QStringLiteral("größe 📷"));
    QCOMPARE(printable(QStringLiteral("a\u2028b\u2029c\u0085d")), QStringLiteral("a?b?c?d"));
    const QString path(1000, QChar('x'));
    QCOMPARE(printable(path), path);
}

void tst_Shown::shownInQuotesAndCut()
{
    QCOMPARE(shown(QStringLiteral("Blur")), QStringLiteral("'Blur'"));
    QCOMPARE(shown(QStringLiteral("a\nb\x1b[31m")), QStringLiteral("'a?b?[31m'"));
    QCOMPARE(shown(QString(80, QChar('x'))), QStringLiteral("'%1'").arg(QString(80, QChar('x'))));
    QCOMPARE(shown(QString(81, QChar('x'))), QStringLiteral("'%1...'").arg(QString(80, QChar('x'))));
}

void tst_Shown::cutBetweenLetters()
{
    QCOMPARE(cut(QStringLiteral("abc"), 3), QStringLiteral("abc"));
    QCOMPARE(cut(QStringLiteral("abcd"), 3), QStringLiteral("abc..."));
    QCOMPARE(cut(QStringLiteral("ab📷"), 3), QStringLiteral("ab..."));
    QCOMPARE(cut(QStringLiteral("a📷b"), 3), QStringLiteral("a📷..."));
}

QTEST_GUILESS_MAIN(tst_Shown)
#include "tst_Shown.moc"
