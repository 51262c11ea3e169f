// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/SFault.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Host;

class tst_SFault : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesTellRulesApart();
    void namesStay();
};

void tst_SFault::namesTellRulesApart()
{
    const QRegularExpression word(QRegularExpression::anchoredPattern(QStringLiteral("[a-z]+(-[a-z]+)*")));
    QSet<QString> names;
    QSet<QString> texts;
    for (int i = 0; i < faultRules; ++i) {
        const QString name = faultRuleName(EFaultRule(i));
        QVERIFY2(word.match(name).hasMatch(), qPrintable(name));
        names.insert(name);
        texts.insert(faultRuleText(EFaultRule(i)));
    }
    QCOMPARE(names.size(), faultRules);
    QCOMPARE(texts.size(), faultRules);
}

// Editors and scripts compare them.
void tst_SFault::namesStay()
{
    QCOMPARE(faultRuleName(EFaultRule::Unreadable), QStringLiteral("unreadable"));
    QCOMPARE(faultRuleName(EFaultRule::UnknownKey), QStringLiteral("unknown-key"));
    QCOMPARE(faultRuleName(EFaultRule::DataType), QStringLiteral("data-type"));
    QCOMPARE(faultRuleName(EFaultRule::Sink), QStringLiteral("sink"));
}

QTEST_GUILESS_MAIN(tst_SFault)
#include "tst_SFault.moc"
