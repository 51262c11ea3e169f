// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/ANodeDataModel.h>

#include "TestModels.h"
#include "support/CContextTranslator.h"
#include "support/MetaMethods.h"

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

class CNamedModel : public CPlainModel<ANodeDataModel>
{
public:
    using CPlainModel::CPlainModel;
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    void setType(ENodeDataModelType type) { m_modelType = type; }
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
    void savesWhetherItIsUnique();
    void asksForUniquenessAtEachSave();
    void nodeSavesItsIdentity();
    void nameMayRemoveTheModelThatIsSaved() const;
    void restoreChangesNothing();
    void noInfoAtFirst();
    void metaObject();
    void textsAreTranslatedUnderTheClassName();
};

void tst_ANodeDataModel::initTestCase()
{
    // Before the first model the alias is unknown, so that the check behind it proves the constructor.
    QCOMPARE(QMetaType::type("CNodeDataPtr"), int(QMetaType::UnknownType));
    const CNamedModel model;
    QCOMPARE(QMetaType::type("CNodeDataPtr"), qMetaTypeId<CNodeDataPtr>());
    QCOMPARE(QMetaType::type("Plugin::Halvex::CNodeDataPtr"), qMetaTypeId<CNodeDataPtr>());
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

void tst_ANodeDataModel::savesWhetherItIsUnique()
{
    CNamedModel model(QStringLiteral("Camera"));
    model.unique = true;
    QCOMPARE(model.save(), (QJsonObject{{"name", "Plain"}, {"is_unique", true}, {"unique_name", "Camera"}}));
}

void tst_ANodeDataModel::asksForUniquenessAtEachSave()
{
    CNamedModel model;
    QCOMPARE(model.save().value("is_unique"), QJsonValue(false));
    model.unique = true;
    QCOMPARE(model.save().value("is_unique"), QJsonValue(true));
}

void tst_ANodeDataModel::nodeSavesItsIdentity()
{
    const CNodeBase node(std::make_unique<CNamedModel>(QStringLiteral("Camera")));
    QCOMPARE(node.save().value("model").toObject(), node.nodeDataModel()->save());
    QCOMPARE(node.save().value("model").toObject().value("unique_name"), QJsonValue("Camera"));
}

void tst_ANodeDataModel::nameMayRemoveTheModelThatIsSaved() const
{
    class CVanishingModel : public CNamedModel
    {
    public:
        QString name() override
        {
            if (owner)
                owner->reset();
            return QStringLiteral("Vanishing");
        }
        std::unique_ptr<CNodeBase>* owner = nullptr;
    };
    auto vanishing = std::make_unique<CVanishingModel>();
    CVanishingModel* const model = vanishing.get();
    auto node = std::make_unique<CNodeBase>(std::move(vanishing));
    model->owner = &node;
    // Asked directly: the node's own save() would keep the model until it has ended.
    const QJsonObject json = node->nodeDataModel()->save();
    QVERIFY(!node);
    QCOMPARE(json, QJsonObject({{"name", "Vanishing"}}));
}

void tst_ANodeDataModel::restoreChangesNothing()
{
    CNamedModel model(QStringLiteral("Camera"));
    const Core::CId id = model.id();
    const QJsonObject saved = model.save();

    model.restore({{"name", "Other"}, {"is_unique", true}, {"unique_name", "Other"}});

    QCOMPARE(model.id(), id);
    QCOMPARE(model.save(), saved);
}

void tst_ANodeDataModel::noInfoAtFirst()
{
    CNamedModel model;
    QVERIFY(!model.getInfo());
    QVERIFY(!model.parent());
}

void tst_ANodeDataModel::metaObject()
{
    const QMetaObject& metaObject = ANodeDataModel::staticMetaObject;
    QCOMPARE(metaObject.className(), "Plugin::Halvex::ANodeDataModel");
    QCOMPARE(metaObject.superClass(), &CNodeDataModel::staticMetaObject);
    QCOMPARE(methodsOf(metaObject), QStringList());
    QCOMPARE(otherMembersOf(metaObject), 0);
}

void tst_ANodeDataModel::textsAreTranslatedUnderTheClassName()
{
    const CContextTranslator translator;
    QCOMPARE(ANodeDataModel::tr("text"), QStringLiteral("Plugin::Halvex::ANodeDataModel"));
}

QTEST_GUILESS_MAIN(tst_ANodeDataModel)

#include "tst_ANodeDataModel.moc"
