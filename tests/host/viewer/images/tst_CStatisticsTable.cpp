// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CStatisticsTable.h"

#include <QLabel>
#include <QTest>

using namespace Host;

class tst_CStatisticsTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hiddenWithoutARectangle();
    void rowForEachChannel();
};

void tst_CStatisticsTable::hiddenWithoutARectangle()
{
    CStatisticsTable table;
    QVERIFY(table.isHidden());
    QCOMPARE(table.text(), QString());
}

void tst_CStatisticsTable::rowForEachChannel()
{
    CStatisticsTable table;
    SRenderedImage image;
    image.selection = {5, 6, 100, 80};
    image.statistics = {{10.04, 1, 20, 2.5}};
    table.showImage(image);
    QVERIFY(!table.isHidden());
    QCOMPARE(table.text(), QStringLiteral("100 × 80 at 5, 6\nGrey 10.0 1 20 2.5"));
    image.statistics = {{1, 1, 1, 0}, {2, 2, 2, 0}, {3.5, 3.25, 4, 0}};
    table.showImage(image);
    QCOMPARE(table.text(), QStringLiteral("100 × 80 at 5, 6\nRed 3.5 3.3 4 0.0\nGreen 2.0 2 2 0.0\nBlue 1.0 1 1 0.0"));
    table.showImage({});
    QVERIFY(table.isHidden());
}

QTEST_MAIN(tst_CStatisticsTable)
#include "tst_CStatisticsTable.moc"
