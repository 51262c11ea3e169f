// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/LabelledLine.h"

#include <QTest>

using namespace Host;

class tst_LabelledLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valueInItsColumn();
    void longValueStaysInItsColumn();
};

void tst_LabelledLine::valueInItsColumn()
{
    QCOMPARE(labelledLine("Camera", "fake", 80), QStringLiteral("Camera             fake\n"));
    QCOMPARE(labelledLine("Frames missed", QString(), 80), QStringLiteral("Frames missed      -\n"));
}

void tst_LabelledLine::longValueStaysInItsColumn()
{
    QCOMPARE(labelledLine("Ended", "after 20 frames", 30),
             QStringLiteral("Ended              after 20\n                   frames\n"));
}

QTEST_GUILESS_MAIN(tst_LabelledLine)
#include "tst_LabelledLine.moc"
