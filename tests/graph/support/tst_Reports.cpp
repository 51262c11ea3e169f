// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "support/CMessageCatcher.h"
#include "support/STestNode.h"

#include <QtTest>

using namespace Plugin::Halvex;

// What else is said of mistakes is tested in tst_Mistakes: here, nothing was said before.
class tst_Reports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aThousandMistakesAreSaid();
};

void tst_Reports::aThousandMistakesAreSaid()
{
    const STestNode node;
    const CMessageCatcher messages;
    for (NodePortIndex missing = 1; missing <= 1100; ++missing)
        node.model->offer(CTestData::make(1), missing);
    QCOMPARE(messages.texts("halvex.usage").size(), 1000);
}

QTEST_GUILESS_MAIN(tst_Reports)
#include "tst_Reports.moc"
