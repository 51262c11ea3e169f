// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CSinkNames.h"

#include "host/models/CBlurModel.h"
#include "host/sinks/CPngSinkModel.h"

#include <QTest>

using namespace Host;

class tst_CSinkNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachNameOnce();
    void unusable();
};

void tst_CSinkNames::eachNameOnce()
{
    CSinkNames names;
    CPngSinkModel first(QStringLiteral("a"));
    CPngSinkModel second(QStringLiteral("b"));
    QCOMPARE(names.add(&first), QString());
    QCOMPARE(names.add(&second), QString());
    QCOMPARE(names.add(&first), QStringLiteral("a second sink 'a'"));
    // Other models have none.
    CBlurModel blur;
    QCOMPARE(names.add(&blur), QString());
    QCOMPARE(names.add(&blur), QString());
}

void tst_CSinkNames::unusable()
{
    for (const char* name : {"", "..", ".a", "/etc", "a/b", "graph.txt", "graph.dot"}) {
        CPngSinkModel sink(QString::fromLatin1(name));
        QCOMPARE(CSinkNames().add(&sink), QStringLiteral("the sink's name '%1' makes no folder").arg(name));
    }
}

QTEST_GUILESS_MAIN(tst_CSinkNames)
#include "tst_CSinkNames.moc"
