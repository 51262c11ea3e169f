// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Counted.h"

#include <QTest>

using namespace Host;

class tst_Counted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyOneIsSingular();
};

void tst_Counted::onlyOneIsSingular()
{
    QCOMPARE(counted(0, "frame"), QStringLiteral("0 frames"));
    QCOMPARE(counted(1, "frame"), QStringLiteral("1 frame"));
    QCOMPARE(counted(2, "frame"), QStringLiteral("2 frames"));
}

QTEST_GUILESS_MAIN(tst_Counted)
#include "tst_Counted.moc"
