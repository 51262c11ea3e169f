// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/ANodeDataModel.h>

#include "support/CTestModel.h"
#include "support/MetaTypes.h"

#include <Halvex/graph/CNodeBase.h>

#include <QtTest>

#include <type_traits>

using namespace Plugin::Halvex;

static_assert(std::is_abstract_v<ANodeDataModel>, "isUnique() and the model's own operations are left to subclasses");
static_assert(std::is_base_of_v<CNodeDataModel, ANodeDataModel>, "a model");
static_assert(sizeof(ENodeDataModelType) == 4, "stored as a 32-bit value");
static_assert(int(ENodeDataModelType::Source) == 0 && int(ENodeDataModelType::Sink) == 1 &&
                  int(ENodeDataModelType::Decoupler) == 2,
              "the numbers are frozen");

namespace {

const QString Marker = QStringLiteral("Halvex.NoUniqueName");

class CNamedModel : public CNamedTestModel
{
public:
    CNamedModel() = default;
    explicit CNamedModel(const QString& uniqueName)
        : CNamedTestModel(1, 1, QStringLiteral("Plain"), uniqueName)
    {
    }
};

} // namespace

class tst_ANodeDataModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void defaultHasNoUniqueName();
    void uniqueNames_data();
    void uniqueNames();
    void everyModelHasItsOwnId();
    void kindIsSinkUnlessSet();
    void asksForUniquenessAtEachSave();
    void nameMayRemoveTheModelThatIsSaved();
    void restoreChangesNothing();
};

void tst_ANodeDataModel::initTestCase()
{
    // Before the first model the alias is unknown, so that the check behind it proves the constructor.
    QCOMPARE(MetaTypes::idOf("CNodeDataPtr"), int(QMetaType::UnknownType));
    const CNamedModel model;
    QCOMPARE(MetaTypes::idOf("CNodeDataPtr"), qMetaTypeId<CNodeDataPtr>());
    QCOMPARE(MetaTypes::idOf("Plugin::Halvex::CNodeDataPtr"), qMetaTypeId<CNodeDataPtr>());
}

void tst_ANodeDataModel::defaultHasNoUniqueName()
{
    QCOMPARE(ANodeDataModel::noUniqueName(), Marker);
    const CNamedModel model;
    QVERIFY(!model.hasUniqueName());
    QVERIFY(model.uniqueName().isNull());
    QCOMPARE(model.save().keys(), QStringList({"is_unique", "name"}));
}

void tst_ANodeDataModel::uniqueNames_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<bool>("isName");

    QTest::newRow("name") << QStringLiteral("Camera 1") << true;
    QTest::newRow("empty") << QString(QLatin1String("")) << true;
    QTest::newRow("null") << QString() << true;
    QTest::newRow("marker") << Marker << false;
    QTest::newRow("marker in lower case") << Marker.toLower() << true;
    QTest::newRow("marker and a blank") << Marker + ' ' << true;
}

void tst_ANodeDataModel::uniqueNames()
{
    QFETCH(const QString, given);
    QFETCH(const bool, isName);

    const CNamedModel model(given);
    QCOMPARE(model.hasUniqueName(), isName);
    QCOMPARE(model.uniqueName(), isName ? given : QString());

    QJsonObject expected{{"name", "Plain"}, {"is_unique", false}};
    if (isName)
        expected.insert("unique_name", QJsonValue(given));
    QCOMPARE(model.save(), expected);
}

void tst_ANodeDataModel::everyModelHasItsOwnId()
{
    const CNamedModel first(QStringLiteral("Camera"));
    const CNamedModel second(QStringLiteral("Camera"));
    QVERIFY(first.id() != Core::CId());
    QVERIFY(first.id() != second.id());
    QCOMPARE(first.id(), first.id());
}

void tst_ANodeDataModel::kindIsSinkUnlessSet()
{
    CNamedModel model;
    QCOMPARE(int(model.getType()), 1);
    model.setType(ENodeDataModelType::Decoupler);
    QCOMPARE(model.getType(), ENodeDataModelType::Decoupler);
}

void tst_ANodeDataModel::asksForUniquenessAtEachSave()
{
    CNamedModel model(QStringLiteral("Camera"));
    for (const bool unique : {false, true}) {
        model.unique = unique;
        QCOMPARE(model.save(), QJsonObject({{"name", "Plain"}, {"is_unique", unique}, {"unique_name", "Camera"}}));
    }
}

void tst_ANodeDataModel::nameMayRemoveTheModelThatIsSaved()
{
    auto owned = std::make_unique<CNamedModel>(QString());
    CNamedModel* const model = owned.get();
    auto node = std::make_unique<CNodeBase>(std::move(owned));
    model->onName = [&node] { node.reset(); };
    // Asked directly: the node's own save() would keep the model until it has ended.
    const QJsonObject json = model->ANodeDataModel::save();
    QVERIFY(!node);
    QCOMPARE(json, QJsonObject({{"name", "Plain"}}));
}

void tst_ANodeDataModel::restoreChangesNothing()
{
    CNamedModel model(QStringLiteral("Camera"));
    const Core::CId id = model.id();
    const QJsonObject saved = model.save();

    model.ANodeDataModel::restore({{"name", "Other"}, {"is_unique", true}, {"unique_name", "Other"}});

    QCOMPARE(model.id(), id);
    QCOMPARE(model.save(), saved);
}

QTEST_GUILESS_MAIN(tst_ANodeDataModel)

#include "tst_ANodeDataModel.moc"
