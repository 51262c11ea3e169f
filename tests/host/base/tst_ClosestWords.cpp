// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/ClosestWords.h"

#include "TestTable.h"

using namespace Host;

class tst_ClosestWords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void distance_data();
    void distance();
    void closestComesFirst();
    void sentence();
};

void tst_ClosestWords::distance_data()
{
    addColumns<QString, QString, int>({"left", "right", "distance"});
    const auto row = [](const char* left, const char* right, int distance) {
        addRow(QByteArray(left).append(" and ").append(right).constData(), QString(left), QString(right), distance);
    };
    row("", "", 0);
    row("", "abc", 3);
    row("blur", "blur", 0);
    row("blur", "Blur", 0);
    row("blur", "blurr", 1);
    row("blur", "bulr", 1);
    row("blur", "glue", 2);
    row("index_out", "index _out", 1);
    row("kitten", "sitting", 3);
}

void tst_ClosestWords::distance()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QTEST(editDistance(left, right), "distance");
    QTEST(editDistance(right, left), "distance");
}

void tst_ClosestWords::closestComesFirst()
{
    const QStringList known{"Gain", "GainAuto", "ExposureTimeAbs", "Width"};
    QCOMPARE(closestWords("Giann", known), QStringList());
    QCOMPARE(closestWords("widht", known), QStringList("Width"));
    QCOMPARE(closestWords("gain", known), QStringList("Gain"));
    QCOMPARE(closestWords("GainAto", known), QStringList("GainAuto"));
    QCOMPARE(closestWords("Exposure", known), QStringList());
    QCOMPARE(closestWords("y", {"X", "x"}), QStringList());
    QCOMPARE(closestWords("", known), QStringList());
    QCOMPARE(closestWords("aa1", {"aa2", "aa3", "aa4", "aa5"}), QStringList({"aa2", "aa3", "aa4"}));
}

void tst_ClosestWords::sentence()
{
    QCOMPARE(didYouMean("x", {"Gain"}), QString());
    QCOMPARE(didYouMean("Exposure", {"Gain", "ExposureTimeAbs"}), QStringLiteral("did you mean 'ExposureTimeAbs'?"));
    QCOMPARE(didYouMean("gain", {"Gain", "GainAuto"}), QStringLiteral("did you mean 'Gain' or 'GainAuto'?"));
    QCOMPARE(didYouMean({"a", "b", "c"}), QStringLiteral("did you mean 'a' or 'b' or 'c'?"));
    QCOMPARE(didYouMean(QStringList()), QString());
    QCOMPARE(withHint("%2 is wrong", "is it %1?"), QStringLiteral("%2 is wrong; is it %1?"));
    QCOMPARE(withHint("it is wrong", {}), QStringLiteral("it is wrong"));
}

QTEST_GUILESS_MAIN(tst_ClosestWords)
#include "tst_ClosestWords.moc"
