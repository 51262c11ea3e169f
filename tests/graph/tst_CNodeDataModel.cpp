// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeDataModel.h>

#include "support/CTestModel.h"

#include <QtTest>

#include <functional>
#include <memory>
#include <type_traits>

using namespace Plugin::Halvex;
using Core::AppCoreComponents::BaseInfoPtr;
using Core::AppCoreComponents::IBaseInfo;

Q_DECLARE_METATYPE(Core::AppCoreComponents::BaseInfoPtr)

namespace {

static_assert(std::is_abstract_v<CNodeDataModel> && std::has_virtual_destructor_v<CNodeDataModel>, "a base");
static_assert(!std::is_copy_constructible_v<CNodeDataModel> && !std::is_move_constructible_v<CNodeDataModel>,
              "a model has an identity");
static_assert(int(CNodeDataModel::EConnectionPolicy::One) == 0 && int(CNodeDataModel::EConnectionPolicy::Many) == 1,
              "numbers that hosts know");
static_assert(int(ENodeValidationState::Valid) == 0 && int(ENodeValidationState::Warning) == 1 &&
                  int(ENodeValidationState::Error) == 2,
              "hosts compare them, and colour by them");

/// An information object that runs the test's code when it goes.
class CTestInfo : public IBaseInfo
{
public:
    ~CTestInfo() override
    {
        if (onDestroyed)
            onDestroyed();
    }
    std::function<void()> onDestroyed;
};

BaseInfoPtr makeInfo(std::function<void()> onDestroyed = {})
{
    const auto info = QSharedPointer<CTestInfo>::create();
    info->onDestroyed = std::move(onDestroyed);
    return info;
}

/// Every infoInjected() of a model, in order.
class CInjections
{
public:
    explicit CInjections(CNodeDataModel& model)
    {
        QObject::connect(&model, &CNodeDataModel::infoInjected, &model,
                         [this](const BaseInfoPtr& info) { m_infos << info; });
    }
    const QList<BaseInfoPtr>& infos() const { return m_infos; }

private:
    QList<BaseInfoPtr> m_infos;
};

} // namespace

class tst_CNodeDataModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void infoIsHeldAndAnnounced();
    void infoHeldAlreadyIsNotAnnounced();
    void previousInfoIsReleasedBeforeTheSignal();
    void destructorReleasesTheInfo();
    void handlerMayReplaceTheInfo();
    void leavingInfoMayDestroyTheModel();
    void leavingInfoMayInjectAnother();
    void saveHoldsTheNameAlone();
    void restoreDoesNothing();
};

void tst_CNodeDataModel::defaults()
{
    CTestModel model;
    QVERIFY(!model.parent());
    QVERIFY(!model.getInfo());
    QVERIFY(model.captionVisible());
    for (const ENodePortType side : {ENodePortType::None, ENodePortType::In, ENodePortType::Out}) {
        for (const NodePortIndex index : {-1, 0, 7}) {
            QVERIFY(model.portCaption(side, index).isEmpty());
            QVERIFY(!model.portCaptionVisible(side, index));
            QCOMPARE(int(model.portOutConnectionPolicy(index)), 1);
        }
    }
    QCOMPARE(int(model.validationState()), 0);
    QVERIFY(model.validationMessage().isEmpty());
}

void tst_CNodeDataModel::infoIsHeldAndAnnounced()
{
    CTestModel model;
    const BaseInfoPtr info = makeInfo();
    BaseInfoPtr heldInHandler;
    connect(&model, &CNodeDataModel::infoInjected, [&] { heldInHandler = model.getInfo(); });
    const CInjections injections(model);

    model.setInfo(info);

    QCOMPARE(model.getInfo(), info);
    QCOMPARE(injections.infos(), QList<BaseInfoPtr>{info});
    QCOMPARE(heldInHandler, info);
}

void tst_CNodeDataModel::infoHeldAlreadyIsNotAnnounced()
{
    CTestModel model;
    const BaseInfoPtr info = makeInfo();
    const CInjections injections(model);

    model.setInfo(BaseInfoPtr());
    QVERIFY(injections.infos().isEmpty());

    model.setInfo(info);
    model.setInfo(info);
    model.setInfo(model.getInfo());
    QCOMPARE(injections.infos(), QList<BaseInfoPtr>{info});
}

void tst_CNodeDataModel::previousInfoIsReleasedBeforeTheSignal()
{
    for (const BaseInfoPtr& next : {makeInfo(), BaseInfoPtr()}) {
        CTestModel model;
        QStringList events;
        model.setInfo(makeInfo([&] { events << QStringLiteral("released"); }));
        connect(&model, &CNodeDataModel::infoInjected, [&] { events << QStringLiteral("injected"); });
        const CInjections injections(model);

        model.setInfo(next);

        QCOMPARE(events, QStringList({"released", "injected"}));
        QCOMPARE(injections.infos(), QList<BaseInfoPtr>{next});
        QCOMPARE(model.getInfo(), next);
    }
}

void tst_CNodeDataModel::destructorReleasesTheInfo()
{
    int released = 0;
    auto model = std::make_unique<CTestModel>();
    CNodeDataModel* const dying = model.get();
    model->setInfo(makeInfo([&] {
        ++released;
        QVERIFY(dying->getInfo().isNull());
        dying->setInfo(makeInfo([&] { ++released; }));
    }));
    QCOMPARE(released, 0);
    model.reset();
    QCOMPARE(released, 2);
}

void tst_CNodeDataModel::handlerMayReplaceTheInfo()
{
    for (const BaseInfoPtr& second : {makeInfo(), BaseInfoPtr()}) {
        CTestModel model;
        connect(&model, &CNodeDataModel::infoInjected, [&] { model.setInfo(second); });
        const CInjections injections(model);
        BaseInfoPtr first = makeInfo();
        const QWeakPointer<IBaseInfo> watched = first;

        model.setInfo(std::move(first));

        QCOMPARE(model.getInfo(), second);
        // The handlers behind the one that replaced it still read the first object.
        QCOMPARE(injections.infos(), QList<BaseInfoPtr>({second, watched.toStrongRef()}));
        QVERIFY(injections.infos().last());
    }
}

void tst_CNodeDataModel::leavingInfoMayDestroyTheModel()
{
    auto model = std::make_unique<CTestModel>();
    int injected = 0;
    model->setInfo(makeInfo([&] { model.reset(); }));
    connect(model.get(), &CNodeDataModel::infoInjected, [&] { ++injected; });
    model->setInfo(makeInfo());
    QVERIFY(!model);
    QCOMPARE(injected, 0);
}

void tst_CNodeDataModel::leavingInfoMayInjectAnother()
{
    CTestModel model;
    const BaseInfoPtr last = makeInfo();
    model.setInfo(makeInfo([&] { model.setInfo(last); }));
    const CInjections injections(model);
    model.setInfo(makeInfo());
    QCOMPARE(model.getInfo(), last);
    QCOMPARE(injections.infos(), QList<BaseInfoPtr>({last, last}));
}

void tst_CNodeDataModel::saveHoldsTheNameAlone()
{
    CTestModel model;
    model.setInfo(makeInfo());
    QCOMPARE(model.save(), QJsonObject({{"name", "Test"}}));
}

void tst_CNodeDataModel::restoreDoesNothing()
{
    CTestModel model;
    const CInjections injections(model);
    model.CNodeDataModel::restore({{"name", "Other"}});
    QCOMPARE(model.name(), QStringLiteral("Test"));
    QVERIFY(injections.infos().isEmpty());
}

QTEST_GUILESS_MAIN(tst_CNodeDataModel)

#include "tst_CNodeDataModel.moc"
