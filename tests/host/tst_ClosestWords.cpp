// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/ClosestWords.h"

#include <QTest>

using namespace Host;

class tst_ClosestWords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void closestComesFirst();
    void sentence();
};

void tst_ClosestWords::closestComesFirst()
{
    const QStringList known{"Gain", "GainAuto", "ExposureTimeAbs", "Width"};
    QCOMPARE(closestWords("Giann", known), QStringList());
    QCOMPARE(closestWords("widht", known), QStringList("Width"));
    QCOMPARE(closestWords("gain", known), QStringList({"Gain", "GainAuto"}));
    QCOMPARE(closestWords("GainAto", known), QStringList("GainAuto"));
    QCOMPARE(closestWords("Exposure", known), QStringList("ExposureTimeAbs"));
    QCOMPARE(closestWords("", known), QStringList());
    QCOMPARE(closestWords("aa1", {"aa2", "aa3", "aa4", "aa5"}), QStringList({"aa2", "aa3", "aa4"}));
}

void tst_ClosestWords::sentence()
{
    QCOMPARE(didYouMean("x", {"Gain"}), QString());
    QCOMPARE(didYouMean("gain", {"Gain", "GainAuto"}), QStringLiteral("; did you mean 'Gain' or 'GainAuto'?"));
}

QTEST_GUILESS_MAIN(tst_ClosestWords)
#include "tst_ClosestWords.moc"
