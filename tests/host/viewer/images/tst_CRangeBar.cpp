// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CRangeBar.h"

#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

using namespace Host;

namespace {

QSpinBox& field(const CRangeBar& bar, const char* name)
{
    return *bar.findChild<QSpinBox*>(QLatin1String(name));
}

} // namespace

class tst_CRangeBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newBarHasAllValuesOfEightBits();
    void keysChangeTheRange();
    void whiteStaysAboveBlack();
};

void tst_CRangeBar::newBarHasAllValuesOfEightBits()
{
    const CRangeBar bar;
    QVERIFY(bar.range() == (SValueRange{0, 255}));
}

void tst_CRangeBar::keysChangeTheRange()
{
    CRangeBar bar;
    bar.setBits(12);
    bar.setRange({100, 3000});
    QSignalSpy changed(&bar, &CRangeBar::rangeChanged);
    QTest::keyClick(&field(bar, "black"), Qt::Key_Up);
    QVERIFY(bar.range() == (SValueRange{116, 3000}));
    QSpinBox& white = field(bar, "white");
    white.selectAll();
    QTest::keyClicks(&white, QStringLiteral("4095"));
    QTest::keyClick(&white, Qt::Key_Return);
    QVERIFY(bar.range() == (SValueRange{116, 4095}));
    QVERIFY(changed.count() >= 2);
}

void tst_CRangeBar::whiteStaysAboveBlack()
{
    CRangeBar bar;
    QSignalSpy changed(&bar, &CRangeBar::rangeChanged);
    bar.setRange({100, 200});
    field(bar, "black").setValue(230);
    QVERIFY(bar.range() == (SValueRange{230, 231}));
    field(bar, "white").setValue(50);
    QVERIFY(bar.range() == (SValueRange{49, 50}));
    QCOMPARE(changed.count(), 3);
    bar.setRange({49, 50});
    QCOMPARE(changed.count(), 3);
}

QTEST_MAIN(tst_CRangeBar)
#include "tst_CRangeBar.moc"
