// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/ModelProperties.h"

#include "host/models/CBlurModel.h"

#include <QTest>

using namespace Host;

class tst_ModelProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mostDerivedClassFirst();
    void beyondABase();
    void choices();
    void values();
};

void tst_ModelProperties::mostDerivedClassFirst()
{
    QStringList names;
    const auto properties = propertiesOf(CBlurModel());
    for (const QMetaProperty& property : properties)
        names << documentName(property);
    QCOMPARE(names, QStringList({"size", "method", "priority", "policy", "most_waiting", "parallelism"}));
}

void tst_ModelProperties::beyondABase()
{
    QCOMPARE(propertiesOf(CBlurModel(), AImageFilterModel::staticMetaObject).size(), std::size_t(2));
    QVERIFY(propertiesOf(QObject()).empty());
}

void tst_ModelProperties::choices()
{
    const auto properties = propertiesOf(CBlurModel());
    QCOMPARE(choicesOf(properties[0]), QStringList());
    QCOMPARE(choicesOf(properties[1]), QStringList({"Gaussian", "Box", "Median"}));
    QCOMPARE(choicesOf(QMetaProperty()), QStringList());
}

void tst_ModelProperties::values()
{
    const CBlurModel blur;
    const auto properties = propertiesOf(blur);
    QCOMPARE(toJson(properties[0], properties[0].read(&blur)), QJsonValue(7));
    QCOMPARE(toJson(properties[1], properties[1].read(&blur)), QJsonValue("Gaussian"));
}

QTEST_GUILESS_MAIN(tst_ModelProperties)
#include "tst_ModelProperties.moc"
