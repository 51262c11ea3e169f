// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/SettingProperty.h"

#include "TestTable.h"
#include "host/check/CJsonTree.h"
#include "host/models/CEdgesModel.h"

using namespace Host;

namespace {

class CCountedObject : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int few MEMBER m_few)
    Q_PROPERTY(qlonglong many MEMBER m_many)
    Q_CLASSINFO("few.range", "1..5")
    Q_CLASSINFO("many.range", "1..5")

private:
    int m_few = 1;
    qlonglong m_many = 1;
};

} // namespace

class tst_SettingProperty : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesOfDocuments();
    void values();
    void expected_data();
    void expected();
    void taken();
    void textOfAValue();

private:
    CEdgesModel m_model;
};

void tst_SettingProperty::namesOfDocuments()
{
    const QStringList names = settingProperties(m_model);
    QVERIFY2(names.contains("most_waiting"), qPrintable(names.join(' ')));
    QVERIFY(!names.contains("mostWaiting") && !names.contains("objectName"));
}

void tst_SettingProperty::values()
{
    QCOMPARE(settingProperty(m_model, "method"), QJsonValue("Canny"));
    QCOMPARE(settingProperty(m_model, "level"), QJsonValue(150));
    QVERIFY(settingProperty(m_model, "no such setting").isUndefined());
    QVERIFY(settingChoices(m_model, "method").contains("Canny"));
    QCOMPARE(settingChoices(m_model, "level"), QStringList());
}

void tst_SettingProperty::expected_data()
{
    addColumns<QString, QJsonValue, QString>({"key", "value", "expected"});
    addRow("whole number", "level", QJsonValue(3), "");
    addRow("number with a fraction", "level", QJsonValue(1.5), "a whole number");
    addRow("text for a number", "level", QJsonValue("3"), "a whole number");
    addRow("one of the choices", "method", QJsonValue("Canny"), "");
    addRow("number for a choice", "method", QJsonValue(1), "one of 'Canny' or 'Sobel'");
    addRow("no choice", "method", QJsonValue("canny"), "one of 'Canny' or 'Sobel'");
    addRow("unknown", "no such setting", QJsonValue(1), "");
}

void tst_SettingProperty::expected()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    SJsonNode setting;
    setting.key = key;
    setting.type = value.type();
    setting.scalar = value;
    QTEST(expectedBySetting(m_model, setting), "expected");
}

void tst_SettingProperty::taken()
{
    const CCountedObject object;
    QCOMPARE(takenBySetting(object, "few"), QStringLiteral("a whole number, 1 to 5"));
    // A type that has no words here.
    QCOMPARE(takenBySetting(object, "many"), QStringLiteral("1 to 5"));
    QCOMPARE(takenBySetting(object, "no such setting"), QString());
    QCOMPARE(takenBySetting(m_model, "method"), QString());
}

void tst_SettingProperty::textOfAValue()
{
    QCOMPARE(jsonText("left"), QStringLiteral("\"left\""));
    QCOMPARE(jsonText(7), QStringLiteral("7"));
    QCOMPARE(jsonText(QJsonValue::Null), QStringLiteral("null"));
}

QTEST_GUILESS_MAIN(tst_SettingProperty)
#include "tst_SettingProperty.moc"
