// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/FeatureList.h"

#include <QJsonObject>
#include <QTest>

using namespace Host;

namespace {

std::vector<SFeature> features()
{
    return {{"Image", "Width", "integer", "512", "1 to 2048", true},
            {"Image", "Height", "integer", "", "", false},
            {"Trigger", "TriggerMode", "one of", "Off", "Off, On", true}};
}

} // namespace

class tst_FeatureList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsBelowTheirCategories();
    void withoutRoomWhatIsTakenGoesBelow();
    void longNameLosesItsIndent();
    void asJson();
};

void tst_FeatureList::columnsBelowTheirCategories()
{
    QCOMPARE(featureText(features(), 80), QStringLiteral("Image\n"
                                                         "  Width        512                  integer, 1 to 2048\n"
                                                         "  Height       -                    read only\n"
                                                         "\n"
                                                         "Trigger\n"
                                                         "  TriggerMode  Off                  Off, On\n"));
    QVERIFY(featureText(features(), 80, true).startsWith("\x1b[1mImage\x1b[0m\n"));
    SFeature locked = features()[1];
    locked.isLocked = true;
    QVERIFY(featureText({locked}, 80).contains("locked now"));
}

void tst_FeatureList::withoutRoomWhatIsTakenGoesBelow()
{
    QVERIFY2(featureText(features(), 40)
                 .startsWith("Image\n"
                             "  Width        512\n"
                             "      integer, 1 to 2048\n"),
             qPrintable(featureText(features(), 40)));
    SFeature longOne = features()[0];
    longOne.value = QString(20, 'x');
    QCOMPARE(featureText({longOne}, 80), QStringLiteral("Image\n  Width  xxxxxxxxxxxxxxxxxxxx\n"
                                                        "      integer, 1 to 2048\n"));
}

void tst_FeatureList::longNameLosesItsIndent()
{
    SFeature longOne = features()[0];
    for (const auto& [length, indent] : {std::pair(38, 2), std::pair(39, 1), std::pair(40, 0), std::pair(41, 0)}) {
        longOne.name = QString(length, 'N');
        QCOMPARE(featureText({longOne}, 40),
                 "Image\n" + QString(indent, ' ') + longOne.name + "\n      512 integer, 1 to 2048\n");
    }
}

void tst_FeatureList::asJson()
{
    const QJsonArray json = featureJson(features());
    QCOMPARE(json.size(), 3);
    QCOMPARE(json[0].toObject(), (QJsonObject{{"category", "Image"},
                                              {"name", "Width"},
                                              {"type", "integer"},
                                              {"value", "512"},
                                              {"range", "1 to 2048"},
                                              {"writable", true}}));
    QVERIFY(!json[1]["writable"].toBool(true));
}

QTEST_GUILESS_MAIN(tst_FeatureList)
#include "tst_FeatureList.moc"
