// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CSinkNames.h"

#include "host/models/CBlurModel.h"
#include "host/models/CPngSinkModel.h"

#include <QTest>

using namespace Host;

class tst_CSinkNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachNameOnce();
    void unusable_data();
    void unusable();
    void otherModelsHaveNone();
};

void tst_CSinkNames::eachNameOnce()
{
    CSinkNames names;
    CPngSinkModel first(QStringLiteral("a"));
    CPngSinkModel second(QStringLiteral("b"));
    QCOMPARE(names.add(&first), QString());
    QCOMPARE(names.add(&second), QString());
    QCOMPARE(names.add(&first), QStringLiteral("a second sink 'a'"));
}

void tst_CSinkNames::unusable_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << "";
    QTest::newRow("above") << "..";
    QTest::newRow("hidden") << ".a";
    QTest::newRow("elsewhere") << "/etc";
    QTest::newRow("deeper") << "a/b";
    QTest::newRow("the graph's text") << "graph.txt";
    QTest::newRow("the graph for dot") << "graph.dot";
}

void tst_CSinkNames::unusable()
{
    QFETCH(QString, name);
    CPngSinkModel sink(name);
    QCOMPARE(CSinkNames().add(&sink), QStringLiteral("the sink's name '%1' makes no folder").arg(name));
}

void tst_CSinkNames::otherModelsHaveNone()
{
    CBlurModel blur;
    CSinkNames names;
    QCOMPARE(names.add(&blur), QString());
    QCOMPARE(names.add(&blur), QString());
}

QTEST_GUILESS_MAIN(tst_CSinkNames)
#include "tst_CSinkNames.moc"
