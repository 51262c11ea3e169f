// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/SettingRange.h"

#include "TestTable.h"
#include "host/base/ModelProperties.h"
#include "host/models/CBlurModel.h"
#include "host/sinks/CVideoSinkModel.h"

#include <QTest>

#include <limits>

using namespace Host;

namespace {

QMetaProperty propertyNamed(const QObject& model, const char* name)
{
    return model.metaObject()->property(model.metaObject()->indexOfProperty(name));
}

} // namespace

class tst_SettingRange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filter_data();
    void filter();
    void fractions();
};

void tst_SettingRange::filter_data()
{
    addColumns<QString, QString, double, bool>({"name", "range", "value", "isIn"});
    addRow("least", "size", "1 to 99, odd", 1.0, true);
    addRow("even, which is up to the model", "size", "1 to 99, odd", 8.0, true);
    addRow("most", "size", "1 to 99, odd", 99.0, true);
    addRow("too large", "size", "1 to 99, odd", 101.0, false);
    addRow("no upper bound", "mostWaiting", "from 1", 1e9, true);
    addRow("below one", "mostWaiting", "from 1", 0.0, false);
    addRow("many threads", "parallelism", "1 to 1024", 1024.0, true);
    addRow("too many threads", "parallelism", "1 to 1024", 1e8, false);
    addRow("no range", "policy", "", -5.0, true);
}

void tst_SettingRange::filter()
{
    QFETCH(QString, name);
    QFETCH(double, value);
    const CBlurModel blur;
    const QMetaProperty property = propertyNamed(blur, qPrintable(name));
    QTEST(rangeOf(blur, property), "range");
    QTEST(isInRange(blur, property, value), "isIn");
}

void tst_SettingRange::fractions()
{
    const CVideoSinkModel sink;
    const QMetaProperty rate = propertyNamed(sink, "framesPerSecond");
    QCOMPARE(rangeOf(sink, rate), QStringLiteral("0.01 to 10000"));
    QVERIFY(isInRange(sink, rate, 0.01));
    QVERIFY(!isInRange(sink, rate, 0.001));
    // No bound above, but a number all the same.
    const QMetaProperty waiting = propertyNamed(CBlurModel(), "mostWaiting");
    QVERIFY(isInRange(CBlurModel(), waiting, 1e9));
    QVERIFY(!isInRange(CBlurModel(), waiting, std::numeric_limits<double>::infinity()));
    QVERIFY(!isInRange(CBlurModel(), waiting, std::numeric_limits<double>::quiet_NaN()));
    QVERIFY(!boundsOf(sink, rate)->areOdd);
    QVERIFY(boundsOf(CBlurModel(), propertyNamed(CBlurModel(), "size"))->areOdd);
    for (const double noRate : {qQNaN(), qInf(), -qInf()})
        QVERIFY(!isInRange(sink, rate, noRate));
}

QTEST_GUILESS_MAIN(tst_SettingRange)
#include "tst_SettingRange.moc"
