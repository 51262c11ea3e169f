// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/ModelSettings.h"

#include "TestTable.h"
#include "host/models/CBlurModel.h"
#include "host/models/CEdgesModel.h"
#include "host/models/CThresholdModel.h"
#include "host/models/CToImageModel.h"
#include "host/sinks/CPngSinkModel.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/service/CVeltraGrabResultData.h>

#include <QJsonObject>

using namespace Host;
using namespace Plugin::Halvex;

class tst_ModelSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settingsAreTold();
    void settingIsSet();
    void refused_data();
    void refused();
    void rateOfADecoupler_data();
    void rateOfADecoupler();
    void nameOfASink();
    void documentKeepsThem();
    void documentWithNonsenseChangesNothing();
};

void tst_ModelSettings::settingsAreTold()
{
    const std::vector<SModelSetting> settings = settingsOf(CBlurModel());
    QCOMPARE(settings.size(), std::size_t(6));
    QCOMPARE(settings[0].name, QStringLiteral("size"));
    QCOMPARE(settings[0].type, QStringLiteral("int"));
    QCOMPARE(settings[0].value, QStringLiteral("7"));
    QCOMPARE(settings[0].range, QStringLiteral("1 to 99, odd"));
    QVERIFY(!settings[0].help.isEmpty());
    QCOMPARE(settings[1].type, QStringLiteral("one of"));
    QCOMPARE(settings[1].value, QStringLiteral("Gaussian"));
    QCOMPARE(settings[1].range, QStringLiteral("Gaussian, Box, Median"));
    QVERIFY(settingsOf(CToImageModel()).empty());
}

void tst_ModelSettings::settingIsSet()
{
    CBlurModel blur;
    QCOMPARE(setSetting(blur, "size", "9"), QString());
    QCOMPARE(blur.size(), 9);
    QCOMPARE(setSetting(blur, "method", "Box"), QString());
    QVERIFY(blur.method() == CBlurModel::EMethod::Box);
    QCOMPARE(setSetting(blur, "most_waiting", "3"), QString());
    QCOMPARE(setSetting(blur, "mostWaiting", "4"), QString());
    QCOMPARE(blur.mostWaiting(), 4);
}

void tst_ModelSettings::refused_data()
{
    addColumns<QString, QString, QString>({"name", "value", "reason"});
    addRow("no number", "size", "wide", "'size' takes int, 1 to 99, odd, not 'wide'");
    addRow("out of range", "size", "101", "'size' takes int, 1 to 99, odd, not '101'");
    addRow("refused by the model", "size", "8", "'size' takes int, 1 to 99, odd, not '8'");
    addRow("too few", "mostWaiting", "0", "'mostWaiting' takes int, from 1, not '0'");
    addRow("too many", "parallelism", "100000000", "'parallelism' takes int, 1 to 1024, not '100000000'");
    addRow("no value of an enumeration", "method", "Bocks", "'method' takes one of Gaussian, Box, Median, not 'Bocks'");
    addRow("close to one", "method", "gausian",
           "'method' takes one of Gaussian, Box, Median, not 'gausian'; did you mean 'Gaussian'?");
    addRow("unknown", "sise", "3",
           "it has no setting 'sise'; did you mean 'size'? It has size, method, priority, policy, mostWaiting, "
           "parallelism");
}

void tst_ModelSettings::refused()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(QString, reason);
    CBlurModel blur;
    QCOMPARE(setSetting(blur, name, value), reason);
    QCOMPARE(blur.size(), 7);
    CToImageModel without;
    QCOMPARE(setSetting(without, name, value), QStringLiteral("it has no settings"));
}

void tst_ModelSettings::rateOfADecoupler_data()
{
    addColumns<QString>({"value"});
    for (const char* value : {"0", "-3", "nan", "inf"})
        addRow(value, QString(value));
}

// Whatever number it is: a run tells what the timer makes of it.
void tst_ModelSettings::rateOfADecoupler()
{
    QFETCH(QString, value);
    CGenericNodeDecouplerDataModel<CVeltraGrabResultData> decoupler;
    QCOMPARE(setSetting(decoupler, "framesPerSecond", value), QString());
    QCOMPARE(QString::number(decoupler.framesPerSecond()), value);
    QCOMPARE(setSetting(decoupler, "framesPerSecond", "fast"),
             QStringLiteral("'framesPerSecond' takes double, not 'fast'"));
    QCOMPARE(QString::number(decoupler.framesPerSecond()), value);
}

void tst_ModelSettings::nameOfASink()
{
    CPngSinkModel sink;
    QCOMPARE(setSetting(sink, "sinkName", "a/b"), QStringLiteral("the sink's name 'a/b' makes no folder"));
    QCOMPARE(setSetting(sink, "sinkName", "b"), QStringLiteral("'sinkName' cannot be set; a chain gives it"));
    sink.restore({{"property", QJsonObject{{"sink_name", "b"}}}});
    QCOMPARE(setSetting(sink, "sinkName", ""), QStringLiteral("the sink's name '' makes no folder"));
    QCOMPARE(setSetting(sink, "sinkName", "b"), QString());
}

void tst_ModelSettings::documentKeepsThem()
{
    CEdgesModel edges;
    edges.setLevel(40);
    edges.setSize(5);
    edges.setMethod(CEdgesModel::EMethod::Sobel);
    edges.setParallelism(2);
    CEdgesModel other;
    other.restore(edges.save());
    QCOMPARE(other.save(), edges.save());
    QCOMPARE(other.level(), 40);
    QCOMPARE(other.size(), 5);
    QVERIFY(other.method() == CEdgesModel::EMethod::Sobel);
    QCOMPARE(other.parallelism(), 2);
}

void tst_ModelSettings::documentWithNonsenseChangesNothing()
{
    CThresholdModel threshold;
    const QJsonObject before = threshold.save();
    threshold.restore({{"property", QJsonObject{{"level", 256}, {"method", "Best"}}}});
    threshold.restore({{"property", QJsonObject{{"level", "12"}, {"method", 1}}}});
    threshold.restore({{"property", 7}});
    QCOMPARE(threshold.save(), before);
}

QTEST_GUILESS_MAIN(tst_ModelSettings)
#include "tst_ModelSettings.moc"
