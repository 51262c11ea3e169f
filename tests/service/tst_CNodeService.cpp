// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/service/CNodeService.h>

#include "CHostModel.h"
#include "CServiceLog.h"
#include "ImportDocument.h"
#include "support/CMessageCatcher.h"
#include "support/CTestModel.h"
#include "support/CTestScene.h"
#include "support/MetaMethods.h"
#include "support/ServiceConsistency.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <limits>
#include <stdexcept>
#include <type_traits>

using namespace Plugin::Halvex;
using Core::AppCoreComponents::BaseInfoPtr;
using Core::AppCoreComponents::IBaseInfo;

static_assert(std::is_abstract_v<INodeService> && std::is_base_of_v<Core::Service::IService, INodeService>,
              "a service of the host");
static_assert(!std::is_copy_constructible_v<CNodeService>, "an object");

namespace {

class CInfo : public IBaseInfo
{
};

BaseInfoPtr makeInfo()
{
    return QSharedPointer<CInfo>::create();
}

/// A model with its node.
struct SPlaced
{
    CHostModel* model;
    Core::CId id;
};

/// A service whose registry knows "Filter" (a decoupler), "View" (a sink) and "Plain" (without an identity), what it
/// and its scenes said, and what it reported.
class CFixture
{
public:
    CFixture()
    {
        registerModel(QStringLiteral("Filter"), ENodeDataModelType::Decoupler);
        registerModel(QStringLiteral("View"), ENodeDataModelType::Sink);
        service->registry()->registerModel([] { return std::make_unique<CTestModel>(1, 1, QStringLiteral("Plain")); },
                                           QStringLiteral("Test"));
    }
    ~CFixture()
    {
        if (service)
            QCOMPARE(inconsistency(), QString());
    }

    void registerModel(const QString& name, ENodeDataModelType type) const
    {
        service->registry()->registerModel([name, type] { return std::make_unique<CHostModel>(type, name); },
                                           QStringLiteral("Test"));
    }

    SPlaced add(std::unique_ptr<CHostModel> model, const BaseInfoPtr& info = {}) const
    {
        CHostModel* const placed = model.get();
        return {placed, service->addNode(std::move(model), info)};
    }
    SPlaced addSource(const QString& name = QStringLiteral("cam"), const BaseInfoPtr& info = {}) const
    {
        return add(makeSource(name), info);
    }
    SPlaced add(ENodeDataModelType type, const QString& name) const
    {
        return add(std::make_unique<CHostModel>(type, name));
    }
    SPlaced addView(const QString& name = QStringLiteral("view")) const { return add(ENodeDataModelType::Sink, name); }

    /// Hands in a model that a node owns already.
    Core::CId addAgain(CHostModel* model, const BaseInfoPtr& info = {}) const
    {
        return service->addNode(std::unique_ptr<ANodeDataModel>(model), info);
    }

    CNodeScene* active() const { return service->getActiveScene(); }

    /// A part of the scenes' state that every test leaves sound.
    QString inconsistency() const { return inconsistencyOfScenes(*service); }

    std::unique_ptr<CNodeService> service = std::make_unique<CNodeService>(nullptr);
    CServiceLog log{*service};
    CMessageCatcher messages;
};

/// "Filter" fed by the unique source "cam" and feeding "View".
QString chain()
{
    return document({element("a", "Filter",
                             {{"unique_sources", QJsonArray{QJsonValue(QJsonArray{"cam"})}},
                              {"connection", QJsonArray{QJsonValue(QJsonArray{"b"})}}}),
                     element("b", "View")});
}

using Step = std::function<void(CFixture&)>;
using Removal = std::function<void(CFixture&, const SPlaced&)>;

/// A scene document with one "View" under \a id.
QByteArray sceneDocument(const Core::CId& id, const QString& model = QStringLiteral("View"))
{
    const QJsonObject node{{"id", id.toString()}, {"model", QJsonObject{{"name", model}}}};
    return QJsonDocument(QJsonObject{{"nodes", QJsonArray{node}}}).toJson();
}

} // namespace

Q_DECLARE_METATYPE(ENodeDataModelType)
Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(Removal)

class tst_CNodeService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void signalsAndSlots();
    void startsEmpty();

    void uniqueSourceGetsASceneOfItsOwn();
    void sceneIsAddedThenActivatedThenFilled();
    void sceneSharesTheRegistry();
    void sameSourceAgainActivatesItsScene();
    void sameSourceAgainIgnoresTheInfo();
    void otherSourceOfTheSameNameIsAnotherSource();
    void uniqueModelOfAnotherKindIsNeverPlaced_data();
    void uniqueModelOfAnotherKindIsNeverPlaced();
    void uniqueModelOfAnotherKindThatHasANodeActivatesItsScene();
    void modelWithoutAnActiveSceneIsDropped();
    void modelGoesToTheActiveScene();
    void sameModelAgainStaysWhereItIs();
    void modelOfADocumentNodeStaysWhereItIs();
    void modelOfALeavingNodeStaysWhereItIs_data();
    void modelOfALeavingNodeStaysWhereItIs();
    void uniqueSourceThatTheHostPlacedStaysWhereItIs();
    void nullModelIsNoNode();
    void activeSceneThatIsGoneTakesNoModel();

    void findNodeLooksIntoEveryScene();
    void findNodeTakesTheFirstOfTwoScenes();
    void findNodeByModelKnowsAddedModelsOnly();
    void noDestroyedNodeIsFound_data();
    void noDestroyedNodeIsFound();

    void connectModelsTakesTheConsumerFirst();
    void connectModelsUsesTheRightPorts();
    void connectModelsUsesNoConverter();
    void connectModelsRefuses_data();
    void connectModelsRefuses();
    void connectModelsRefusesUnknownModels();
    void connectionThatAHandlerTakesBackHasNoId_data();
    void connectionThatAHandlerTakesBackHasNoId();
    void connectionOfTwoScenesBelongsToTheConsumers();
    void twoConnectedScenesGoInAnyOrder_data();
    void twoConnectedScenesGoInAnyOrder();

    void removeNodeTellsTheSceneAlone();
    void removeNodeOfAnUnknownIdDoesNothing();
    void removeNodeByModelLeavesThePointer();
    void loneNode_data();
    void loneNode();
    void loneSinkFromADocumentGoesToo();
    void loneNodeSceneOfSeveral();

    void removeSceneOfNodeTellsInOrder();
    void removeSceneOfNodeByIdCallsTheOther();
    void removeSceneOfUnknownNodesDoesNothing();
    void lastSceneRemoved();
    void firstSceneBecomesActive_data();
    void firstSceneBecomesActive();
    void sceneIsWholeWhileRemovingAndGoneWhenRemoved();
    void sceneThatTheHostDestroys();
    void sceneThatTheHostDestroysIsInNoTable();
    void lastSceneThatTheHostDestroys();

    void setActiveSceneTellsEvenTheSame();
    void setActiveSceneIgnoresOthers();
    void findSceneByInfoComparesPointers();
    void findSceneByInfoWithoutInfo();

    void createModelMakesModelsWithAnIdentity();
    void registerTypeConverterReachesEveryScene();

    void documentNodesAreThoseNotAdded();
    void documentNodesForgetWhatGoes();
    void documentNodesHoldNothingReplaced();

    void importNeedsAnActiveScene();
    void importWiresAChain();
    void importGoesToTheActiveScene();
    void importOfNonsenseIsTrue_data();
    void importOfNonsenseIsTrue();
    void importOfAnUnregisteredModelEnds();
    void importOfAnUnregisteredModelInAStoredDocumentEnds();
    void modelThatThrowsWhileRestoredEndsTheImport();
    void importThatLosesItsSceneIsFalse_data();
    void importThatLosesItsSceneIsFalse();
    void storedDocumentsAreOneImport();
    void storedDocumentsAreKept();
    void separateImportsShareNoLabels();
    void importReplacesNodeOfANonUniqueSource();

    void nothingThrows_data();
    void nothingThrows();
    void throwingHandlerLeavesTheServiceUsable_data();
    void throwingHandlerLeavesTheServiceUsable();
    void modelWhoseAnnouncementThrewIsNotTakenTwice();
    void throwingModelsAreReported();

    void destructionInTheOrderOfCreation();
    void destructionReleasesTheRegistry();
    void handlersMayCallADyingService();
    void modelsMayCallADyingService();
    void scenesMayOutliveNothing();

    void lookUpsWalkOverNoNodes();
};

void tst_CNodeService::cleanup()
{
    QCOMPARE(CHostModel::alive(), 0);
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeService::signalsAndSlots()
{
    const QStringList signalsInOrder{"public signal activeSceneChanged(CNodeScene* scene)",
                                     "public signal sceneAdded(CNodeScene* scene)",
                                     "public signal sceneRemoving(CNodeScene* scene)", "public signal sceneRemoved()"};
    QCOMPARE(methodsOf(INodeService::staticMetaObject), signalsInOrder);
    QCOMPARE(methodsOf(CNodeService::staticMetaObject), QStringList({"private slot onNodeCreated(CNodeBase& node)",
                                                                     "private slot onNodeDeleted(CNodeBase& node)"}));
    QCOMPARE(otherMembersOf(INodeService::staticMetaObject), 0);
    QCOMPARE(otherMembersOf(CNodeService::staticMetaObject), 0);
    QCOMPARE(QString(CNodeService::staticMetaObject.className()), QString("Plugin::Halvex::CNodeService"));
}

void tst_CNodeService::startsEmpty()
{
    QObject parent;
    auto* const service = new CNodeService(&parent);
    QCOMPARE(service->parent(), &parent);
    QVERIFY(service->getActiveScene().isNull());
    QVERIFY(service->scenes().isEmpty());
    QVERIFY(service->documentNodes().isEmpty());
    QVERIFY(service->registry());
    QVERIFY(service->registry()->registeredModelCreators().empty());
    QVERIFY(!service->findNode(Core::CId()));
    QVERIFY(!service->findSceneByInfo(nullptr));
    QVERIFY(!service->importStoredDocuments());

    const CNodeService other(nullptr);
    QVERIFY(service->registry() != other.registry());
}

void tst_CNodeService::uniqueSourceGetsASceneOfItsOwn()
{
    CFixture f;
    const BaseInfoPtr info = makeInfo();
    const SPlaced cam = f.addSource("cam", info);

    QCOMPARE(f.log.take(), QStringList({"added 1", "active 1", "1 created cam"}));
    CNodeBase* const node = f.service->findNode(cam.id);
    QVERIFY(node);
    QVERIFY(cam.id != Core::CId());
    QCOMPARE(node->id(), cam.id);
    QCOMPARE(node->nodeDataModel(), cam.model);
    QCOMPARE(f.service->findNodeByModel(cam.model), node);
    QCOMPARE(f.service->scenes(), QList<CNodeScene*>({f.active()}));
    QCOMPARE(f.active()->nodes().size(), std::size_t(1));
    QCOMPARE(f.active()->getSceneInfo(), info);
    QCOMPARE(cam.model->getInfo(), info);
    QVERIFY(f.service->documentNodes().isEmpty());

    f.addSource("cam-2");
    QCOMPARE(f.log.take(), QStringList({"added 2", "active 2", "2 created cam-2"}));
    QCOMPARE(f.service->scenes().size(), 2);
    QCOMPARE(f.service->scenes().last(), f.active());
}

void tst_CNodeService::sceneIsAddedThenActivatedThenFilled()
{
    CFixture f;
    const BaseInfoPtr info = makeInfo();
    int heard = 0;
    connect(f.service.get(), &INodeService::sceneAdded, this, [&](CNodeScene* scene) {
        ++heard;
        QVERIFY(f.service->getActiveScene().isNull());
        QCOMPARE(f.service->scenes(), QList<CNodeScene*>({scene}));
        QCOMPARE(scene->getSceneInfo(), info);
        QCOMPARE(f.service->findSceneByInfo(info), scene);
        QVERIFY(scene->isRegistyValid());
        QVERIFY(scene->nodes().empty());
    });
    connect(f.service.get(), &INodeService::activeSceneChanged, this, [&](CNodeScene* scene) {
        ++heard;
        QCOMPARE(f.active(), scene);
        QVERIFY(scene->nodes().empty());
    });
    f.addSource("cam", info);
    QCOMPARE(heard, 2);
}

void tst_CNodeService::sceneSharesTheRegistry()
{
    CFixture f;
    f.addSource("cam");
    f.addSource("cam-2");
    const auto scenes = f.service->scenes();
    for (const CNodeScene* scene : scenes) {
        QVERIFY(scene->isRegistyValid());
        QCOMPARE(&scene->registry(), f.service->registry().get());
        QVERIFY(!scene->parent());
    }
}

void tst_CNodeService::sameSourceAgainActivatesItsScene()
{
    CFixture f;
    const SPlaced cam = f.addSource("cam");
    f.addSource("cam-2");
    f.log.take();

    QVERIFY(f.addAgain(cam.model) == cam.id);
    QCOMPARE(f.log.take(), QStringList({"active 1"}));
    QCOMPARE(CHostModel::alive(), 2);
    QCOMPARE(f.service->scenes().size(), 2);
    QCOMPARE(f.active(), f.service->scenes().first());
    QCOMPARE(f.active()->nodes().size(), std::size_t(1));

    // The node still owns it, and a third time is as the second.
    const SPlaced view = f.addView();
    QVERIFY(f.service->connectModels(view.model, 0, cam.model, 0) != Core::CId());
    cam.model->offer(CTestData::make(5));
    QCOMPARE(view.model->received.back().first, 5);
    f.log.take();
    QVERIFY(f.addAgain(cam.model) == cam.id);
    QCOMPARE(f.log.take(), QStringList({"active 1"}));
    QCOMPARE(f.inconsistency(), QString());
}

void tst_CNodeService::sameSourceAgainIgnoresTheInfo()
{
    CFixture f;
    const BaseInfoPtr info = makeInfo();
    const SPlaced cam = f.addSource("cam", info);
    f.addAgain(cam.model, makeInfo());
    QCOMPARE(f.active()->getSceneInfo(), info);
    QCOMPARE(cam.model->getInfo(), info);
    QCOMPARE(f.service->scenes().size(), 1);
}

void tst_CNodeService::otherSourceOfTheSameNameIsAnotherSource()
{
    CFixture f;
    const SPlaced first = f.addSource("cam");
    const SPlaced second = f.addSource("cam");
    QVERIFY(first.id != second.id);
    QCOMPARE(f.service->scenes().size(), 2);
    QCOMPARE(f.service->findNodeByModel(second.model)->id(), second.id);
}

void tst_CNodeService::uniqueModelOfAnotherKindIsNeverPlaced_data()
{
    QTest::addColumn<ENodeDataModelType>("type");
    QTest::newRow("sink") << ENodeDataModelType::Sink;
    QTest::newRow("decoupler") << ENodeDataModelType::Decoupler;
}

void tst_CNodeService::uniqueModelOfAnotherKindIsNeverPlaced()
{
    QFETCH(ENodeDataModelType, type);
    CFixture f;
    const auto addUnique = [&] {
        auto model = std::make_unique<CHostModel>(type, "odd", "odd");
        model->unique = true;
        return f.service->addNode(std::move(model), makeInfo());
    };
    QVERIFY(addUnique() == Core::CId());
    QCOMPARE(f.log.take(), QStringList({"active none"}));
    QCOMPARE(CHostModel::alive(), 0);
    QVERIFY(f.service->scenes().isEmpty());

    f.addSource();
    f.log.take();
    QVERIFY(addUnique() == Core::CId());
    QCOMPARE(f.log.take(), QStringList({"active none"}));
    QVERIFY(f.service->getActiveScene().isNull());
    QCOMPARE(f.service->scenes().size(), 1);
    QCOMPARE(f.service->scenes().first()->nodes().size(), std::size_t(1));
    QCOMPARE(CHostModel::alive(), 1);

    // With a scene, but none that is active.
    QVERIFY(f.addView().id == Core::CId());
    QCOMPARE(CHostModel::alive(), 1);
    QCOMPARE(f.log.take(), QStringList());
    QVERIFY(!f.service->importDocument(document({element("a", "Filter")})));
}

void tst_CNodeService::uniqueModelOfAnotherKindThatHasANodeActivatesItsScene()
{
    CFixture f;
    f.addSource("cam");
    const SPlaced view = f.addView();
    f.addSource("cam-2");
    view.model->unique = true;
    f.log.take();

    QVERIFY(f.addAgain(view.model) == view.id);
    QCOMPARE(f.log.take(), QStringList({"active 1"}));
    QCOMPARE(f.active(), f.service->scenes().first());
    QCOMPARE(CHostModel::alive(), 3);
    QCOMPARE(f.service->findNodeByModel(view.model)->id(), view.id);
}

void tst_CNodeService::modelWithoutAnActiveSceneIsDropped()
{
    CFixture f;
    for (const auto type : {ENodeDataModelType::Source, ENodeDataModelType::Sink, ENodeDataModelType::Decoupler})
        QVERIFY(f.service->addNode(std::make_unique<CHostModel>(type), makeInfo()) == Core::CId());
    QCOMPARE(CHostModel::alive(), 0);
    QVERIFY(f.service->scenes().isEmpty());
    QCOMPARE(f.log.take(), QStringList());
}

void tst_CNodeService::modelGoesToTheActiveScene()
{
    CFixture f;
    const BaseInfoPtr info = makeInfo();
    f.addSource("cam", info);
    f.addSource("cam-2");
    f.service->setActiveScene(f.service->scenes().first());
    f.log.take();

    for (const auto type : {ENodeDataModelType::Source, ENodeDataModelType::Sink, ENodeDataModelType::Decoupler}) {
        const SPlaced added = f.add(type, "model");
        QCOMPARE(f.log.take(), QStringList({"1 created model"}));
        CNodeBase* const node = f.service->findNode(added.id);
        QVERIFY(node);
        QCOMPARE(node->nodeDataModel(), added.model);
        QCOMPARE(f.service->findNodeByModel(added.model), node);
        QCOMPARE(f.active()->nodes().count(added.id), std::size_t(1));
        QCOMPARE(added.model->getInfo(), info);
    }
    QCOMPARE(f.active(), f.service->scenes().first());
    QVERIFY(f.service->documentNodes().isEmpty());
}

void tst_CNodeService::sameModelAgainStaysWhereItIs()
{
    CFixture f;
    f.addSource("cam");
    const SPlaced view = f.addView();
    f.addSource("cam-2");
    f.log.take();

    QVERIFY(f.addAgain(view.model) == view.id);
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(CHostModel::alive(), 3);
    QCOMPARE(f.service->scenes().last()->nodes().size(), std::size_t(1));
    QCOMPARE(f.active(), f.service->scenes().last());
    QCOMPARE(f.service->findNodeByModel(view.model)->id(), view.id);
}

void tst_CNodeService::modelOfADocumentNodeStaysWhereItIs()
{
    CFixture f;
    f.addSource("cam");
    QVERIFY(f.service->importDocument(document({element("a", "View")})));
    CHostModel* const model = modelNamed(f.active(), "View");
    CNodeBase* const node = nodeOf(*f.active(), model);
    f.log.take();

    QVERIFY(f.addAgain(model) == node->id());
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(f.active()->nodes().size(), std::size_t(2));
    QCOMPARE(CHostModel::alive(), 2);
}

void tst_CNodeService::modelOfALeavingNodeStaysWhereItIs_data()
{
    QTest::addColumn<bool>("isFromDocument");
    QTest::addColumn<bool>("throws");
    for (const bool isFromDocument : {false, true}) {
        for (const bool throws : {false, true})
            QTest::addRow("%s, %s", isFromDocument ? "from a document" : "added", throws ? "it stays" : "it goes")
                << isFromDocument << throws;
    }
}

void tst_CNodeService::modelOfALeavingNodeStaysWhereItIs()
{
    QFETCH(bool, isFromDocument);
    QFETCH(bool, throws);
    CFixture f;
    f.addSource("cam");
    if (isFromDocument)
        QVERIFY(f.service->importDocument(document({element("a", "View")})));
    else
        f.addView("View");
    CHostModel* const model = modelNamed(f.active(), "View");
    const Core::CId id = nodeOf(*f.active(), model)->id();
    QObject context;
    connect(f.active(), &CNodeScene::nodeDeleted, &context, [&](const CNodeBase&) {
        QVERIFY(f.addAgain(model) == id);
        if (throws)
            throw std::runtime_error("thrown by the test");
    });
    f.service->removeNode(id, false);
    disconnect(f.active(), nullptr, &context, nullptr);

    QCOMPARE(f.service->findNode(id) != nullptr, throws);
    QCOMPARE(CHostModel::alive(), throws ? 2 : 1);
    if (throws)
        QVERIFY(f.addAgain(model) == id);
    QCOMPARE(int(f.active()->nodes().size()), CHostModel::alive());
}

void tst_CNodeService::uniqueSourceThatTheHostPlacedStaysWhereItIs()
{
    CFixture f;
    f.addSource("cam");
    auto owned = makeSource("by hand");
    CHostModel* const model = owned.get();
    CNodeBase& node = f.active()->createNode(std::move(owned));
    f.addSource("cam-2");
    f.log.take();

    QVERIFY(f.addAgain(model) == node.id());
    QCOMPARE(f.log.take(), QStringList({"active 1"}));
    QCOMPARE(f.service->scenes().size(), 2);
    QCOMPARE(CHostModel::alive(), 3);
}

void tst_CNodeService::nullModelIsNoNode()
{
    CFixture f;
    QVERIFY(f.service->addNode(nullptr, makeInfo()) == Core::CId());
    f.addSource();
    f.log.take();
    QVERIFY(f.service->addNode(nullptr, nullptr) == Core::CId());
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(f.service->scenes().size(), 1);
    QCOMPARE(f.active()->nodes().size(), std::size_t(1));
}

void tst_CNodeService::activeSceneThatIsGoneTakesNoModel()
{
    CFixture f;
    f.addSource();
    delete f.active();
    QVERIFY(f.addView().id == Core::CId());
    QVERIFY(!f.service->importDocument(chain()));
    QCOMPARE(CHostModel::alive(), 0);
}

void tst_CNodeService::findNodeLooksIntoEveryScene()
{
    CFixture f;
    const SPlaced cam = f.addSource("cam");
    const SPlaced view = f.addView();
    const SPlaced other = f.addSource("cam-2");
    CNodeBase& byHand = f.active()->createNode(std::make_unique<CTestModel>());

    for (const SPlaced& placed : {cam, view, other})
        QCOMPARE(f.service->findNode(placed.id)->nodeDataModel(), placed.model);
    QCOMPARE(f.service->findNode(byHand.id()), &byHand);
    QVERIFY(!f.service->findNode(Core::CId()));
    QVERIFY(!f.service->findNode(Core::CId::createId()));
    QVERIFY(!f.service->findNode(cam.model->id()));
}

void tst_CNodeService::findNodeTakesTheFirstOfTwoScenes()
{
    CFixture f;
    f.addSource("cam");
    f.addSource("cam-2");
    const Core::CId id = Core::CId::createId();
    f.service->scenes().last()->loadFromMemory(sceneDocument(id));
    QCOMPARE(f.service->findNode(id), f.service->scenes().last()->nodes().at(id).get());
    f.service->scenes().first()->loadFromMemory(sceneDocument(id));
    QCOMPARE(f.service->findNode(id), f.service->scenes().first()->nodes().at(id).get());

    f.service->removeNode(id, false);
    QCOMPARE(f.service->findNode(id), f.service->scenes().last()->nodes().at(id).get());
    f.service->removeSceneOfNode(id);
    QVERIFY(!f.service->findNode(id));
    QCOMPARE(f.service->scenes().size(), 1);
}

void tst_CNodeService::findNodeByModelKnowsAddedModelsOnly()
{
    CFixture f;
    f.addSource();
    QVERIFY(f.service->importDocument(document({element("a", "View")})));
    CHostModel never(ENodeDataModelType::Sink);

    QVERIFY(!f.service->findNodeByModel(nullptr));
    QVERIFY(!f.service->findNodeByModel(&never));
    QVERIFY(!f.service->findNodeByModel(modelNamed(f.active(), "View")));
}

void tst_CNodeService::noDestroyedNodeIsFound_data()
{
    QTest::addColumn<Removal>("remove");
    QTest::newRow("removeNode") << Removal(
        [](CFixture& f, const SPlaced& node) { f.service->removeNode(node.id, false); });
    QTest::newRow("by the scene") << Removal(
        [](CFixture& f, const SPlaced& node) { f.active()->removeNode(*f.service->findNode(node.id)); });
    QTest::newRow("clearScene") << Removal([](CFixture& f, const SPlaced&) { f.active()->clearScene(); });
    QTest::newRow("removeSceneOfNode") << Removal(
        [](CFixture& f, const SPlaced& node) { f.service->removeSceneOfNode(node.id); });
    QTest::newRow("scene destroyed") << Removal([](CFixture& f, const SPlaced&) { delete f.active(); });
    QTest::newRow("replaced by a document")
        << Removal([](CFixture& f, const SPlaced& node) { f.active()->loadFromMemory(sceneDocument(node.id)); });
    QTest::newRow("service destroyed") << Removal([](CFixture& f, const SPlaced&) { f.service.reset(); });
}

void tst_CNodeService::noDestroyedNodeIsFound()
{
    QFETCH(Removal, remove);
    CFixture f;
    f.addSource();
    const SPlaced view = f.addView();
    const QPointer<CNodeBase> node = f.service->findNode(view.id);
    const QPointer<CNodeService> service = f.service.get();
    int asked = 0;
    // The model outlives its node's last signal: what is found for it then is a node that is being destroyed.
    view.model->onDestroyed = [&] {
        ++asked;
        CNodeService* const there = service.data();
        if (!there)
            return;
        QVERIFY(!there->findNodeByModel(view.model));
        const CNodeBase* const underItsId = there->findNode(view.id);
        QVERIFY(!underItsId || underItsId->nodeDataModel() != view.model);
        QVERIFY(!there->documentNodes().contains(node));
    };
    remove(f, view);

    QCOMPARE(asked, 1);
    QVERIFY(node.isNull());
    if (!service)
        return;
    const CNodeBase* const found = service->findNode(view.id);
    QVERIFY(!found || found->nodeDataModel()->name() == "View");
    QCOMPARE(f.inconsistency(), QString());
}

void tst_CNodeService::connectModelsTakesTheConsumerFirst()
{
    CFixture f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    f.log.take();
    const Core::CId id = f.service->connectModels(view.model, 0, cam.model, 0);

    QCOMPARE(f.log.take(), QStringList({"1 connected cam0-view0"}));
    QVERIFY(f.active()->connections().count(id) == 1);
    QVERIFY(f.active()->connections().at(id)->id() == id);
    cam.model->offer(CTestData::make(3));
    QCOMPARE(view.model->received, (std::vector<std::pair<int, int>>{{3, 0}}));
    QVERIFY(cam.model->received.empty());
}

void tst_CNodeService::connectModelsUsesTheRightPorts()
{
    CFixture f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    const Core::CId id = f.service->connectModels(view.model, 1, cam.model, 0);
    const auto connection = f.active()->connections().at(id);
    QCOMPARE(connection->getPortIndex(ENodePortType::In), 1);
    QCOMPARE(connection->getPortIndex(ENodePortType::Out), 0);
    QCOMPARE(std::as_const(*connection).getNode(ENodePortType::In), f.service->findNodeByModel(view.model));
    QCOMPARE(std::as_const(*connection).getNode(ENodePortType::Out), f.service->findNodeByModel(cam.model));
}

void tst_CNodeService::connectModelsUsesNoConverter()
{
    CFixture f;
    const SNodeDataType type = CTestData::defaultType();
    f.service->registerTypeConverter({type, type}, [](const CNodeDataPtr&) { return CTestData::make(99); });
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    f.service->connectModels(view.model, 0, cam.model, 0);
    cam.model->offer(CTestData::make(3));
    QCOMPARE(view.model->received.back().first, 3);
}

void tst_CNodeService::connectModelsRefuses_data()
{
    QTest::addColumn<int>("in");
    QTest::addColumn<int>("out");
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    QTest::newRow("in below") << -1 << 0;
    QTest::newRow("in beyond") << 2 << 0;
    QTest::newRow("in most") << most << 0;
    QTest::newRow("in least") << least << 0;
    QTest::newRow("out below") << 0 << -1;
    QTest::newRow("out beyond") << 0 << 2;
    QTest::newRow("out most") << 0 << most;
    QTest::newRow("out least") << 0 << least;
}

void tst_CNodeService::connectModelsRefuses()
{
    QFETCH(int, in);
    QFETCH(int, out);
    CFixture f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    f.log.take();
    QVERIFY(f.service->connectModels(view.model, in, cam.model, out) == Core::CId());
    QVERIFY(f.active()->connections().empty());
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(f.inconsistency(), QString());
}

void tst_CNodeService::connectModelsRefusesUnknownModels()
{
    CFixture f;
    const SPlaced cam = f.addSource();
    QVERIFY(f.service->importDocument(document({element("a", "View")})));
    CHostModel never(ENodeDataModelType::Sink);
    for (ANodeDataModel* stranger : {static_cast<ANodeDataModel*>(nullptr), static_cast<ANodeDataModel*>(&never),
                                     static_cast<ANodeDataModel*>(modelNamed(f.active(), "View"))}) {
        QVERIFY(f.service->connectModels(stranger, 0, cam.model, 0) == Core::CId());
        QVERIFY(f.service->connectModels(cam.model, 0, stranger, 0) == Core::CId());
    }
    QVERIFY(f.service->connectModels(nullptr, 0, nullptr, 0) == Core::CId());
    QVERIFY(f.active()->connections().empty());
}

void tst_CNodeService::connectionThatAHandlerTakesBackHasNoId_data()
{
    QTest::addColumn<Step>("takeBack");
    QTest::newRow("deleted") << Step(
        [](CFixture& f) { f.active()->deleteConnection(*f.active()->connections().begin()->second); });
    QTest::newRow("deleted now") << Step(
        [](CFixture& f) { f.active()->deleteConnectionNow(*f.active()->connections().begin()->second); });
    QTest::newRow("consumer removed") << Step([](CFixture& f) {
        ANodeDataModel* model = modelNamed(f.active(), "view");
        f.service->removeNodeByModel(model, false);
    });
    QTest::newRow("scene destroyed") << Step([](CFixture& f) { delete f.active(); });
    QTest::newRow("service destroyed") << Step([](CFixture& f) { f.service.reset(); });
}

void tst_CNodeService::connectionThatAHandlerTakesBackHasNoId()
{
    QFETCH(Step, takeBack);
    CFixture f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView("view");
    connect(f.active(), &CNodeScene::connectionCreated, this, [&] { takeBack(f); });
    QVERIFY(f.service->connectModels(view.model, 0, cam.model, 0) == Core::CId());
    if (f.service && f.active())
        QVERIFY(f.active()->connections().empty());
}

void tst_CNodeService::connectionOfTwoScenesBelongsToTheConsumers()
{
    CFixture f;
    const SPlaced cam = f.addSource("cam");
    const SPlaced view = f.addView();
    const SPlaced other = f.addSource("cam-2");
    f.log.take();
    const Core::CId id = f.service->connectModels(view.model, 0, other.model, 0);

    QCOMPARE(f.log.take(), QStringList({"1 connected cam-20-view0"}));
    QCOMPARE(f.service->scenes().first()->connections().count(id), std::size_t(1));
    QVERIFY(f.service->scenes().last()->connections().empty());
    QVERIFY(f.service->connectModels(other.model, 0, cam.model, 0) != Core::CId());
    QCOMPARE(f.log.take(), QStringList({"2 connected cam0-cam-20"}));
    other.model->offer(CTestData::make(4));
    QCOMPARE(view.model->received.back().first, 4);
}

void tst_CNodeService::twoConnectedScenesGoInAnyOrder_data()
{
    QTest::addColumn<bool>("consumerFirst");
    QTest::addColumn<bool>("firstWhole");
    QTest::addColumn<bool>("secondWhole");
    for (const bool consumerFirst : {false, true}) {
        for (const bool firstWhole : {false, true}) {
            for (const bool secondWhole : {false, true}) {
                QTest::addRow("%s first, %s, then %s", consumerFirst ? "consumer" : "producer",
                              firstWhole ? "scene" : "node", secondWhole ? "scene" : "node")
                    << consumerFirst << firstWhole << secondWhole;
            }
        }
    }
}

void tst_CNodeService::twoConnectedScenesGoInAnyOrder()
{
    QFETCH(bool, consumerFirst);
    QFETCH(bool, firstWhole);
    QFETCH(bool, secondWhole);
    CFixture f;
    f.addSource("cam");
    const SPlaced view = f.addView();
    const SPlaced other = f.addSource("cam-2");
    const SPlaced observer = f.addView("observer");
    f.service->connectModels(view.model, 0, other.model, 0);
    f.service->connectModels(other.model, 1, view.model, 0); // and back
    f.service->connectModels(observer.model, 0, other.model, 0);

    const auto remove = [&f](const Core::CId& id, bool whole) {
        if (whole)
            f.service->removeSceneOfNode(id);
        else
            f.service->removeNode(id, false);
    };
    remove(consumerFirst ? view.id : other.id, firstWhole);
    (consumerFirst ? other : view).model->offer(CTestData::make(1));
    QVERIFY(!f.service->findNode(consumerFirst ? view.id : other.id));
    remove(consumerFirst ? other.id : view.id, secondWhole);
    QVERIFY(!f.service->findNode(consumerFirst ? other.id : view.id));
    QCOMPARE(f.service->scenes().size(), 2 - int(firstWhole) - int(secondWhole));
}

void tst_CNodeService::removeNodeTellsTheSceneAlone()
{
    CFixture f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    f.service->connectModels(view.model, 0, cam.model, 0);
    f.log.take();
    f.service->removeNode(view.id, false);
    QCOMPARE(f.log.take(), QStringList({"1 deleted view", "1 disconnected cam0-view0"}));
    QCOMPARE(CHostModel::alive(), 1);
    QVERIFY(!f.service->findNode(view.id));

    f.service->removeNode(cam.id, false);
    QCOMPARE(f.log.take(), QStringList({"1 deleted cam"}));
    QVERIFY(f.active());
    QCOMPARE(f.service->scenes().size(), 1);
}

void tst_CNodeService::removeNodeOfAnUnknownIdDoesNothing()
{
    CFixture f;
    f.service->removeNode(Core::CId(), true);
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    f.service->removeNode(cam.id, false);
    f.log.take();
    f.service->removeNode(cam.id, true); // again: nothing was removed, so nothing is cleaned up
    f.service->removeNode(Core::CId::createId(), true);
    f.service->removeNode(view.model->id(), true);
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(f.service->findNode(view.id)->nodeDataModel(), view.model);
}

void tst_CNodeService::removeNodeByModelLeavesThePointer()
{
    CFixture f;
    f.addSource();
    const SPlaced view = f.addView();
    CHostModel never(ENodeDataModelType::Sink);
    f.log.take();

    ANodeDataModel* model = nullptr;
    f.service->removeNodeByModel(model, true);
    QVERIFY(!model);
    model = &never;
    f.service->removeNodeByModel(model, true);
    QCOMPARE(model, &never);
    QCOMPARE(f.log.take(), QStringList());

    model = view.model;
    f.service->removeNodeByModel(model, false);
    QCOMPARE(static_cast<void*>(model), static_cast<void*>(static_cast<ANodeDataModel*>(view.model)));
    QCOMPARE(f.log.take(), QStringList({"1 deleted view"}));
}

void tst_CNodeService::loneNode_data()
{
    QTest::addColumn<QString>("rest"); // a letter for each node that stays
    QTest::addColumn<bool>("cleanUp");
    QTest::addColumn<bool>("byModel");
    QTest::addColumn<bool>("isGone");
    for (const bool byModel : {false, true}) {
        const char* const how = byModel ? "by model" : "by id";
        QTest::addRow("%s, nothing left", how) << "" << true << byModel << false;
        QTest::addRow("%s, one sink", how) << "v" << true << byModel << true;
        QTest::addRow("%s, one sink, not asked", how) << "v" << false << byModel << false;
        QTest::addRow("%s, two sinks", how) << "vv" << true << byModel << false;
        QTest::addRow("%s, one source", how) << "s" << true << byModel << false;
        QTest::addRow("%s, one decoupler", how) << "d" << true << byModel << false;
        QTest::addRow("%s, one without an identity", how) << "p" << true << byModel << false;
        QTest::addRow("%s, sink and other", how) << "vp" << true << byModel << false;
    }
}

void tst_CNodeService::loneNode()
{
    QFETCH(QString, rest);
    QFETCH(bool, cleanUp);
    QFETCH(bool, byModel);
    QFETCH(bool, isGone);
    CFixture f;
    const SPlaced cam = f.addSource();
    for (const QChar kind : rest) {
        if (kind == 'p')
            f.active()->createNode(std::make_unique<CTestModel>());
        else
            f.add(kind == 'v'   ? ENodeDataModelType::Sink
                  : kind == 's' ? ENodeDataModelType::Source
                                : ENodeDataModelType::Decoupler,
                  kind);
    }
    f.log.take();

    ANodeDataModel* model = cam.model;
    if (byModel)
        f.service->removeNodeByModel(model, cleanUp);
    else
        f.service->removeNode(cam.id, cleanUp);

    QStringList expected{"1 deleted cam"};
    if (isGone)
        expected << "1 deleted v"
                 << "removing 1"
                 << "removed";
    QCOMPARE(f.log.take(), expected);
    QCOMPARE(f.service->scenes().size(), isGone ? 0 : 1);
    QCOMPARE(f.active() == nullptr, isGone);
    if (!isGone)
        QCOMPARE(int(f.active()->nodes().size()), rest.size());
}

void tst_CNodeService::loneSinkFromADocumentGoesToo()
{
    CFixture f;
    const SPlaced cam = f.addSource();
    QVERIFY(f.service->importDocument(document({element("a", "View")})));
    f.log.take();
    f.service->removeNode(cam.id, true);
    QCOMPARE(f.log.take(), QStringList({"1 deleted cam", "1 deleted View", "removing 1", "removed"}));
    QVERIFY(f.service->documentNodes().isEmpty());
}

void tst_CNodeService::loneNodeSceneOfSeveral()
{
    CFixture f;
    f.addSource("cam");
    const SPlaced second = f.addSource("cam-2");
    f.addView();
    f.addSource("cam-3");
    f.log.take();
    f.service->removeNode(second.id, true);
    QCOMPARE(f.log.take(), QStringList({"2 deleted cam-2", "2 deleted view", "removing 2", "removed", "active 1"}));
    QCOMPARE(f.active(), f.service->scenes().first());
    QCOMPARE(f.service->scenes().size(), 2);
}

void tst_CNodeService::removeSceneOfNodeTellsInOrder()
{
    CFixture f;
    f.addSource("cam");
    const SPlaced other = f.addSource("cam-2");
    const SPlaced view = f.addView();
    f.service->connectModels(view.model, 0, other.model, 0);
    f.service->removeNode(view.id, false);
    f.log.take();
    f.service->removeSceneOfNode(f.service->findNode(other.id));
    QCOMPARE(f.log.take(), QStringList({"removing 2", "2 deleted cam-2", "removed", "active 1"}));
    QCOMPARE(f.service->scenes().size(), 1);
    QCOMPARE(CHostModel::alive(), 1);
    QVERIFY(!f.service->findNode(other.id));
}

void tst_CNodeService::removeSceneOfNodeByIdCallsTheOther()
{
    class CCounting : public CNodeService
    {
    public:
        using CNodeService::CNodeService;
        using CNodeService::removeSceneOfNode;
        void removeSceneOfNode(CNodeBase* node) override { asked.append(node); }
        QList<CNodeBase*> asked;
    };
    CCounting service(nullptr);
    const Core::CId id = service.addNode(makeSource(), nullptr);
    service.removeSceneOfNode(id);
    QCOMPARE(service.asked, QList<CNodeBase*>({service.findNode(id)}));
    QCOMPARE(service.scenes().size(), 1);
}

void tst_CNodeService::removeSceneOfUnknownNodesDoesNothing()
{
    CFixture f;
    const SPlaced cam = f.addSource();
    CFixture g;
    const SPlaced stranger = g.addSource();
    CTestScene ownScene(nullptr, nullptr);
    CNodeBase& loose = ownScene.createNode(std::make_unique<CTestModel>());
    f.log.take();
    g.log.take();

    f.service->removeSceneOfNode(Core::CId());
    f.service->removeSceneOfNode(stranger.id);
    f.service->removeSceneOfNode(nullptr);
    f.service->removeSceneOfNode(g.service->findNode(stranger.id));
    f.service->removeSceneOfNode(&loose);
    f.service->removeSceneOfNode(&CNodeScene::noNode());
    f.service->removeNode(stranger.id, true);
    QCOMPARE(f.log.take() + g.log.take(), QStringList());
    QVERIFY(f.service->findNode(cam.id));
    QVERIFY(g.service->findNode(stranger.id));
    QCOMPARE(ownScene.nodes().size(), std::size_t(1));
}

void tst_CNodeService::lastSceneRemoved()
{
    CFixture f;
    const SPlaced cam = f.addSource();
    f.log.take();
    f.service->removeSceneOfNode(cam.id);
    QCOMPARE(f.log.take(), QStringList({"removing 1", "1 deleted cam", "removed"}));
    QVERIFY(f.service->getActiveScene().isNull());
    QVERIFY(f.service->scenes().isEmpty());

    f.addSource("cam-2");
    QCOMPARE(f.log.take(), QStringList({"added 2", "active 2", "2 created cam-2"}));
}

void tst_CNodeService::firstSceneBecomesActive_data()
{
    QTest::addColumn<int>("active");
    QTest::addColumn<int>("removed");
    for (int active = 1; active <= 3; ++active) {
        for (int removed = 1; removed <= 3; ++removed)
            QTest::addRow("active %d, removed %d", active, removed) << active << removed;
    }
}

void tst_CNodeService::firstSceneBecomesActive()
{
    QFETCH(int, active);
    QFETCH(int, removed);
    CFixture f;
    QList<SPlaced> cams;
    for (const char* name : {"cam1", "cam2", "cam3"})
        cams << f.addSource(name);
    f.service->setActiveScene(f.service->scenes().at(active - 1));
    f.log.take();

    f.service->removeSceneOfNode(cams.at(removed - 1).id);
    const QString gone = QString::number(removed);
    const QString first = removed == 1 ? "2" : "1";
    QCOMPARE(f.log.take(),
             QStringList({"removing " + gone, gone + " deleted cam" + gone, "removed", "active " + first}));
    QCOMPARE(f.active(), f.service->scenes().first());
    QCOMPARE(f.log.numberOf(f.active()), first);
}

void tst_CNodeService::sceneIsWholeWhileRemovingAndGoneWhenRemoved()
{
    CFixture f;
    const SPlaced cam = f.addSource("cam");
    f.addSource("cam-2");
    const QPointer<CNodeScene> scene = f.service->scenes().first();
    int heard = 0;
    connect(f.service.get(), &INodeService::sceneRemoving, this, [&](CNodeScene* leaving) {
        ++heard;
        QCOMPARE(leaving, scene.data());
        QCOMPARE(leaving->nodes().size(), std::size_t(1));
        QCOMPARE(f.service->findNode(cam.id)->nodeDataModel(), cam.model);
        QCOMPARE(f.service->findNodeByModel(cam.model)->id(), cam.id);
    });
    connect(scene, &CNodeScene::nodeDeleted, this, [&] {
        ++heard;
        QCOMPARE(f.service->scenes().size(), 1); // it is no longer the service's
        QVERIFY(!f.service->findNode(cam.id));
    });
    connect(f.service.get(), &INodeService::sceneRemoved, this, [&] {
        ++heard;
        QVERIFY(scene.isNull());
        QCOMPARE(f.service->scenes().size(), 1);
        QVERIFY(!f.service->findNode(cam.id));
        QVERIFY(f.service->getActiveScene().isNull()); // the next one is active when that is told
    });
    f.service->setActiveScene(scene);
    f.service->removeSceneOfNode(cam.id);
    QCOMPARE(heard, 3);
}

void tst_CNodeService::sceneThatTheHostDestroys()
{
    CFixture f;
    f.addSource("cam");
    f.addSource("cam-2");
    f.addSource("cam-3");
    f.log.take();
    delete f.service->scenes().at(1);
    QCOMPARE(f.log.take(), QStringList({"2 deleted cam-2", "removed", "active 1"}));
    QCOMPARE(f.active(), f.service->scenes().first());
    QCOMPARE(f.service->scenes().size(), 2);
    delete f.service->scenes().at(0);
    QCOMPARE(f.log.take(), QStringList({"1 deleted cam", "removed", "active 3"}));
    QCOMPARE(f.log.numberOf(f.active()), QString("3"));
}

void tst_CNodeService::sceneThatTheHostDestroysIsInNoTable()
{
    CFixture f;
    const BaseInfoPtr info = makeInfo();
    const SPlaced cam = f.addSource("cam", info);
    QVERIFY(f.service->importDocument(chain()));
    QCOMPARE(f.service->documentNodes().size(), 2);
    const QPointer<CNodeScene> gone = f.active();
    delete gone.data();

    QVERIFY(f.service->scenes().isEmpty());
    QVERIFY(f.service->documentNodes().isEmpty());
    QVERIFY(!f.service->findNode(cam.id));
    QVERIFY(!f.service->findSceneByInfo(info));
    f.service->setActiveScene(gone);
    f.service->removeSceneOfNode(cam.id);
    QCOMPARE(f.log.take().filter("removing"), QStringList());
}

void tst_CNodeService::lastSceneThatTheHostDestroys()
{
    CFixture f;
    f.addSource();
    f.log.take();
    delete f.active();
    QCOMPARE(f.log.take(), QStringList({"1 deleted cam", "removed"}));
    QVERIFY(f.service->getActiveScene().isNull());
}

void tst_CNodeService::setActiveSceneTellsEvenTheSame()
{
    CFixture f;
    f.addSource("cam");
    f.addSource("cam-2");
    f.log.take();
    f.service->setActiveScene(f.service->scenes().first());
    QCOMPARE(f.log.take(), QStringList({"active 1"}));
    QCOMPARE(f.active(), f.service->scenes().first());
    f.service->setActiveScene(f.service->scenes().first());
    QCOMPARE(f.log.take(), QStringList({"active 1"}));
    f.service->setActiveScene(f.service->scenes().last());
    QCOMPARE(f.log.take(), QStringList({"active 2"}));
}

void tst_CNodeService::setActiveSceneIgnoresOthers()
{
    CFixture f;
    f.addSource();
    CFixture g;
    g.addSource();
    CTestScene loose(nullptr, nullptr);
    f.log.take();
    for (CNodeScene* scene : std::initializer_list<CNodeScene*>{nullptr, g.active(), &loose})
        f.service->setActiveScene(scene);
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(f.active(), f.service->scenes().first());
}

void tst_CNodeService::findSceneByInfoComparesPointers()
{
    CFixture f;
    const BaseInfoPtr shared = makeInfo();
    const BaseInfoPtr own = makeInfo();
    f.addSource("cam", own);
    f.addSource("cam-2", shared);
    f.addSource("cam-3", shared);
    QCOMPARE(f.service->findSceneByInfo(own), f.service->scenes().at(0));
    QCOMPARE(f.service->findSceneByInfo(shared), f.service->scenes().at(1));
    QVERIFY(!f.service->findSceneByInfo(makeInfo()));
    QVERIFY(!f.service->findSceneByInfo(nullptr));
    delete f.service->scenes().at(1);
    QCOMPARE(f.service->findSceneByInfo(shared), f.service->scenes().at(1));
}

void tst_CNodeService::findSceneByInfoWithoutInfo()
{
    CFixture f;
    f.addSource("cam", makeInfo());
    f.addSource("cam-2");
    f.addSource("cam-3");
    QCOMPARE(f.service->findSceneByInfo(nullptr), f.service->scenes().at(1));
}

void tst_CNodeService::createModelMakesModelsWithAnIdentity()
{
    CFixture f;
    {
        const std::unique_ptr<ANodeDataModel> model = f.service->createModel("View");
        QVERIFY(model);
        QCOMPARE(model->name(), QString("View"));
        QCOMPARE(model->getType(), ENodeDataModelType::Sink);
        QVERIFY(f.service->createModel("View")->id() != model->id());
    }
    QCOMPARE(CHostModel::alive(), 0);
    QVERIFY(!f.service->createModel("Plain"));
    QCOMPARE(CTestModel::alive(), 0);
    QVERIFY(!f.service->createModel("Nothing"));
    QVERIFY(!f.service->createModel(QString()));
    QCOMPARE(f.log.take(), QStringList());
}

void tst_CNodeService::registerTypeConverterReachesEveryScene()
{
    CFixture f;
    f.addSource("cam");
    const SNodeDataType from{"from", "F"};
    const SNodeDataType to{"to", "T"};
    f.service->registerTypeConverter({from, to}, [](const CNodeDataPtr&) { return CTestData::make(1); });
    f.addSource("cam-2");
    const auto scenes = f.service->scenes();
    for (const CNodeScene* scene : scenes)
        QCOMPARE(CTestData::valueOf(scene->registry().getTypeConverter(from, to)(nullptr)), 1);
    QVERIFY(!f.service->registry()->getTypeConverter(to, from));

    f.service->registerTypeConverter({from, to}, [](const CNodeDataPtr&) { return CTestData::make(2); });
    QCOMPARE(CTestData::valueOf(f.active()->registry().getTypeConverter(from, to)(nullptr)), 2);
}

void tst_CNodeService::documentNodesAreThoseNotAdded()
{
    CFixture f;
    f.addSource();
    int heard = 0;
    const auto added = connect(f.active(), &CNodeScene::nodeCreated, this, [&] {
        ++heard;
        QVERIFY(f.service->documentNodes().isEmpty());
    });
    f.addView();
    disconnect(added);
    QCOMPARE(heard, 1);
    QVERIFY(f.service->documentNodes().isEmpty());

    QVERIFY(f.service->importDocument(chain()));
    QVector<CNodeBase*> expected{nodeOf(*f.active(), modelNamed(f.active(), "Filter")),
                                 nodeOf(*f.active(), modelNamed(f.active(), "View"))};
    expected << &f.active()->createNode(std::make_unique<CHostModel>(ENodeDataModelType::Sink, "by hand"));
    f.active()->createNode(std::make_unique<CTestModel>()); // without an identity
    QVector<CNodeBase*> found = f.service->documentNodes();
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    QCOMPARE(found, expected);
}

void tst_CNodeService::documentNodesForgetWhatGoes()
{
    CFixture f;
    const SPlaced cam = f.addSource();
    QVERIFY(f.service->importDocument(chain()));
    const QVector<CNodeBase*> nodes = f.service->documentNodes();
    QCOMPARE(nodes.size(), 2);
    connect(f.active(), &CNodeScene::nodeDeleted, this,
            [&](CNodeBase& node) { QVERIFY(!f.service->documentNodes().contains(&node)); });
    f.service->removeNode(nodes.first()->id(), false);
    QCOMPARE(f.service->documentNodes(), QVector<CNodeBase*>({nodes.last()}));
    f.active()->removeNode(*nodes.last());
    QVERIFY(f.service->documentNodes().isEmpty());
    QVERIFY(f.service->importDocument(chain()));
    f.service->removeSceneOfNode(cam.id);
    QVERIFY(f.service->documentNodes().isEmpty());
}

void tst_CNodeService::documentNodesHoldNothingReplaced()
{
    CFixture f;
    f.addSource();
    const Core::CId id = Core::CId::createId();
    for (int round = 0; round < 3; ++round) {
        f.active()->loadFromMemory(sceneDocument(id));
        QCOMPARE(f.service->documentNodes(), QVector<CNodeBase*>({f.active()->nodes().at(id).get()}));
    }
    f.active()->loadFromMemory(sceneDocument(id, "Plain"));
    QVERIFY(f.service->documentNodes().isEmpty());
}

void tst_CNodeService::importNeedsAnActiveScene()
{
    CFixture f;
    QVERIFY(!f.service->importDocument(document({})));
    QVERIFY(!f.service->importDocument(chain()));
    f.service->addStoredDocument(chain());
    QVERIFY(!f.service->importStoredDocuments());
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(CHostModel::alive(), 0);
    f.addSource();
    QVERIFY(f.service->importStoredDocuments());
}

void tst_CNodeService::importWiresAChain()
{
    CFixture f;
    const SPlaced cam = f.addSource();
    f.log.take();
    QVERIFY(f.service->importDocument(chain()));
    QCOMPARE(f.log.take(), QStringList({"1 created Filter", "1 created View", "1 connected cam0-Filter0",
                                        "1 connected Filter0-View0"}));
    QCOMPARE(f.service->findNodeByModel(cam.model)->id(), cam.id);
    cam.model->offer(CTestData::make(8));
    const CHostModel* const view = modelNamed(f.active(), "View");
    QCOMPARE(view->received, (std::vector<std::pair<int, int>>{{8, 0}}));
    QCOMPARE(view->restored.size(), std::size_t(1));
    QCOMPARE(view->restored.front(), (QJsonObject{{"name", "View"}, {"is_unique", false}}));
    QCOMPARE(f.inconsistency(), QString());
}

void tst_CNodeService::importGoesToTheActiveScene()
{
    CFixture f;
    f.addSource("cam");
    f.addSource("cam-2");
    f.service->setActiveScene(f.service->scenes().first());
    f.log.take();
    QVERIFY(f.service->importDocument(document({element("a", "View")})));
    QCOMPARE(f.log.take(), QStringList({"1 created View"}));

    // Sources of other scenes are not found.
    f.service->setActiveScene(f.service->scenes().last());
    f.log.take();
    QVERIFY(f.service->importDocument(chain()));
    QCOMPARE(f.log.take(), QStringList({"2 created Filter", "2 created View", "2 connected Filter0-View0"}));
}

void tst_CNodeService::importOfNonsenseIsTrue_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("null text") << QString();
    QTest::newRow("no JSON") << "[{";
    QTest::newRow("an object") << R"({"name": "a", "model": {"name": "View"}})";
    QTest::newRow("a number") << "7";
    QTest::newRow("empty array") << "[]";
    QTest::newRow("array of other things") << R"([1, "a", null, true, [], [{"name": "a", "model": {"name": "View"}}]])";
}

void tst_CNodeService::importOfNonsenseIsTrue()
{
    QFETCH(QString, text);
    CFixture f;
    f.addSource();
    f.log.take();
    QVERIFY(f.service->importDocument(text));
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(f.active()->nodes().size(), std::size_t(1));
}

void tst_CNodeService::importOfAnUnregisteredModelEnds()
{
    CFixture f;
    f.addSource();
    f.log.take();
    QVERIFY(!f.service->importDocument(
        document({element("a", "View"), element("b", "Nobody knows"), element("c", "Filter"),
                  element("d", "View", {{"connection", QJsonArray{QJsonValue(QJsonArray{"a"})}}})})));
    QCOMPARE(f.log.take(), QStringList({"1 created View"}));
    QCOMPARE(f.messages.texts("halvex.service").filter("Nobody knows").size(), 1);
    QCOMPARE(f.active()->nodes().size(), std::size_t(2));
    QVERIFY(f.active()->connections().empty());
    QCOMPARE(f.service->documentNodes().size(), 1);

    QVERIFY(f.service->importDocument(chain()));
    QCOMPARE(f.inconsistency(), QString());
}

void tst_CNodeService::importOfAnUnregisteredModelInAStoredDocumentEnds()
{
    CFixture f;
    f.addSource();
    f.service->addStoredDocument(document({element("a", "View")}));
    f.service->addStoredDocument(document({element("b", "Nobody")}));
    f.service->addStoredDocument(document({element("c", "Filter")}));
    f.log.take();
    QVERIFY(!f.service->importStoredDocuments());
    QCOMPARE(f.log.take(), QStringList({"1 created View"}));
    QCOMPARE(f.messages.texts("halvex.service").filter("Nobody").size(), 1);
}

void tst_CNodeService::modelThatThrowsWhileRestoredEndsTheImport()
{
    CFixture f;
    f.service->registry()->registerModel(
        [] {
            auto model = std::make_unique<CHostModel>(ENodeDataModelType::Sink, "Thrower");
            model->onRestore = [] { throw std::runtime_error("not like this"); };
            return model;
        },
        QStringLiteral("Test"));
    f.addSource();
    QVERIFY(
        !f.service->importDocument(document({element("a", "View"), element("b", "Thrower"), element("c", "View")})));
    QCOMPARE(f.active()->nodes().size(), std::size_t(2));
    QCOMPARE(f.messages.texts("halvex.service").filter("not like this").size(), 1);
    QCOMPARE(CHostModel::alive(), 2);
}

void tst_CNodeService::importThatLosesItsSceneIsFalse_data()
{
    QTest::addColumn<QString>("asked");
    QTest::newRow("name") << "name";
    QTest::newRow("isUnique") << "isUnique";
    QTest::newRow("nodeCreated") << "nodeCreated";
}

void tst_CNodeService::importThatLosesItsSceneIsFalse()
{
    QFETCH(QString, asked);
    CFixture f;
    CHostModel* const source = f.addSource().model;
    const auto destroyTheScene = [&f] {
        if (!f.active()->isBeingDestroyed()) // the log asks for names as well
            delete f.active();
    };
    if (asked == "name")
        source->onName = destroyTheScene;
    else if (asked == "isUnique")
        source->onIsUnique = destroyTheScene;
    else
        connect(f.active(), &CNodeScene::nodeCreated, this, destroyTheScene);
    QVERIFY(!f.service->importDocument(chain()));
    QVERIFY(f.service->scenes().isEmpty());
    QCOMPARE(CHostModel::alive(), 0);
}

void tst_CNodeService::storedDocumentsAreOneImport()
{
    CFixture f;
    f.addSource();
    QVERIFY(!f.service->importStoredDocuments()); // of none
    f.service->addStoredDocument(document({element("a", "View")}));
    f.service->addStoredDocument(
        document({element("b", "Filter", {{"connection", QJsonArray{QJsonValue(QJsonArray{"a"})}}})}));
    f.log.take();
    QVERIFY(f.service->importStoredDocuments());
    QCOMPARE(f.log.take(), QStringList({"1 created View", "1 created Filter", "1 connected Filter0-View0"}));
}

void tst_CNodeService::storedDocumentsAreKept()
{
    CFixture f;
    f.service->addStoredDocument(document({element("a", "View")}));
    f.addSource("cam");
    QVERIFY(f.service->importStoredDocuments());
    QVERIFY(f.service->importStoredDocuments());
    QCOMPARE(f.active()->nodes().size(), std::size_t(3));
    f.addSource("cam-2");
    f.log.take();
    QVERIFY(f.service->importStoredDocuments());
    QCOMPARE(f.log.take(), QStringList({"2 created View"}));

    // importDocument() neither stores what it is given nor imports what is stored.
    QVERIFY(f.service->importDocument(document({element("a", "Filter")})));
    QCOMPARE(f.log.take(), QStringList({"2 created Filter"}));
    QVERIFY(f.service->importStoredDocuments());
    QCOMPARE(f.log.take(), QStringList({"2 created View"}));
}

void tst_CNodeService::separateImportsShareNoLabels()
{
    CFixture f;
    f.addSource();
    QVERIFY(f.service->importDocument(document({element("a", "View")})));
    QVERIFY(f.service->importDocument(document(
        {element("b", "Filter", {{"connection", QJsonArray{QJsonValue(QJsonArray{"a"})}}}), element("a", "View")})));
    QCOMPARE(f.active()->nodes().size(), std::size_t(4));
    QCOMPARE(f.active()->connections().size(), std::size_t(1));
    QVERIFY(f.service->importDocument(
        document({element("b", "Filter", {{"connection", QJsonArray{QJsonValue(QJsonArray{"a"})}}})})));
    QCOMPARE(f.active()->connections().size(), std::size_t(1));
}

// A source that has a unique name but is not unique is described anew by the import, under the id of its node.
void tst_CNodeService::importReplacesNodeOfANonUniqueSource()
{
    CFixture f;
    f.registerModel("Named", ENodeDataModelType::Source);
    f.addSource();
    const SPlaced named = f.add(std::make_unique<CHostModel>(ENodeDataModelType::Source, "Named", "n"));
    const QPointer<CHostModel> old = named.model;
    QVERIFY(f.service->importDocument(
        document({element("a", "View", {{"unique_sources", QJsonArray{QJsonValue(QJsonArray{"n"})}}})})));

    QVERIFY(old.isNull());
    CNodeBase* const node = f.service->findNode(named.id);
    QVERIFY(node);
    QCOMPARE(f.service->documentNodes().size(), 2);
    QVERIFY(f.service->documentNodes().contains(node));
    auto* const renewed = dynamic_cast<CHostModel*>(node->nodeDataModel());
    renewed->offer(CTestData::make(4));
    QCOMPARE(modelNamed(f.active(), "View")->received.back().first, 4);
    f.service->removeNode(named.id, false);
    QCOMPARE(f.service->documentNodes().size(), 1);
    QCOMPARE(f.inconsistency(), QString());
}

void tst_CNodeService::nothingThrows_data()
{
    QTest::addColumn<Step>("step");
    const auto thrower = [] { throw std::runtime_error("thrown by the test"); };

    QTest::newRow("isUnique") << Step([thrower](CFixture& f) {
        auto model = makeSource("bad");
        model->onIsUnique = thrower;
        QVERIFY(f.service->addNode(std::move(model), nullptr) == Core::CId());
    });
    QTest::newRow("number that is no exception") << Step([](CFixture& f) {
        auto model = std::make_unique<CHostModel>(ENodeDataModelType::Sink);
        model->onPorts = [] { throw 42; };
        QVERIFY(f.service->addNode(std::move(model), nullptr) == Core::CId());
    });
    QTest::newRow("ports") << Step([thrower](CFixture& f) {
        auto model = std::make_unique<CHostModel>(ENodeDataModelType::Sink);
        model->onPorts = thrower;
        QVERIFY(f.service->addNode(std::move(model), nullptr) == Core::CId());
        QCOMPARE(f.active()->nodes().size(), std::size_t(1));
    });
    QTest::newRow("ports of a unique source") << Step([thrower](CFixture& f) {
        auto model = makeSource("bad");
        model->onPorts = thrower;
        QVERIFY(f.service->addNode(std::move(model), nullptr) == Core::CId());
    });
    QTest::newRow("nodeCreated") << Step([thrower](CFixture& f) {
        QObject::connect(f.active(), &CNodeScene::nodeCreated, f.active(), thrower);
        f.addView();
    });
    QTest::newRow("nodeDeleted") << Step([thrower](CFixture& f) {
        const SPlaced view = f.addView();
        QObject::connect(f.active(), &CNodeScene::nodeDeleted, f.active(), thrower);
        f.service->removeNode(view.id, true);
        ANodeDataModel* model = view.model;
        f.service->removeNodeByModel(model, true);
    });
    QTest::newRow("nodeDeleted of the only node, a sink") << Step([](CFixture& f) {
        const SPlaced bad = f.addSource("bad");
        const SPlaced view = f.addView();
        f.service->removeNode(bad.id, false);
        int asked = 0;
        QObject context;
        QObject::connect(f.active(), &CNodeScene::nodeDeleted, &context, [&asked] {
            ++asked;
            throw std::runtime_error("thrown by the test");
        });
        f.service->removeNode(view.id, true);
        QCOMPARE(asked, 1);
        QCOMPARE(f.service->scenes().size(), 2);
        QCOMPARE(f.service->findNode(view.id)->nodeDataModel(), view.model);
    });
    QTest::newRow("scene removed") << Step([thrower](CFixture& f) {
        const SPlaced bad = f.addSource("bad");
        QObject::connect(f.active(), &CNodeScene::nodeDeleted, f.active(), thrower);
        f.service->removeSceneOfNode(bad.id);
        QCOMPARE(f.service->scenes().size(), 1);
        QVERIFY(!f.service->findNode(bad.id));
    });
    QTest::newRow("data of a new connection") << Step([thrower](CFixture& f) {
        const SPlaced source = f.add(ENodeDataModelType::Source, "source");
        const SPlaced view = f.addView();
        source.model->offer(CTestData::make(1));
        view.model->onSetInData = thrower;
        QVERIFY(f.service->connectModels(view.model, 0, source.model, 0) == Core::CId());
        QVERIFY(f.active()->connections().empty());
    });
    QTest::newRow("connectionCreated") << Step([thrower](CFixture& f) {
        const SPlaced source = f.add(ENodeDataModelType::Source, "source");
        const SPlaced view = f.addView();
        QObject::connect(f.active(), &CNodeScene::connectionCreated, f.active(), thrower);
        QVERIFY(f.service->connectModels(view.model, 0, source.model, 0) == Core::CId());
        QCOMPARE(f.active()->connections().size(), std::size_t(1));
    });
    QTest::newRow("restore") << Step([thrower](CFixture& f) {
        f.service->registry()->registerModel(
            [thrower] {
                auto model = std::make_unique<CHostModel>(ENodeDataModelType::Sink, "Bad");
                model->onRestore = thrower;
                return model;
            },
            QStringLiteral("Test"));
        QVERIFY(!f.service->importDocument(document({element("a", "Bad")})));
    });
    QTest::newRow("creator") << Step([](CFixture& f) {
        auto isRegistered = std::make_shared<bool>(false);
        f.service->registry()->registerModel(
            [isRegistered] {
                if (std::exchange(*isRegistered, true))
                    throw std::runtime_error("thrown by the test");
                return std::make_unique<CHostModel>(ENodeDataModelType::Sink, "Bad");
            },
            QStringLiteral("Test"));
        QVERIFY(!f.service->createModel("Bad"));
    });
    QTest::newRow("model seen by the import") << Step([thrower](CFixture& f) {
        const SPlaced source = f.add(std::make_unique<CHostModel>(ENodeDataModelType::Source, "s", "s"));
        source.model->onIsUnique = thrower;
        QVERIFY(!f.service->importDocument(
            document({element("a", "View", {{"unique_sources", QJsonArray{QJsonValue(QJsonArray{"s"})}}})})));
        source.model->onIsUnique = nullptr;
    });
}

void tst_CNodeService::nothingThrows()
{
    QFETCH(Step, step);
    CFixture f;
    const SPlaced cam = f.addSource();
    try {
        step(f);
    } catch (...) {
        QFAIL("the service let an exception out");
    }
    QVERIFY(!(f.messages.texts("halvex.service") + f.messages.texts("halvex.graph")).isEmpty());

    // It goes on working: nothing waits, nothing is counted wrongly.
    f.service->setActiveScene(f.service->scenes().first());
    f.log.take();
    f.addSource("next");
    QCOMPARE(f.log.take().filter(QRegularExpression("^(added|active)")).size(), 2);
    QCOMPARE(f.service->findNodeByModel(cam.model)->id(), cam.id);
    QCOMPARE(f.inconsistency(), QString());
}

void tst_CNodeService::throwingHandlerLeavesTheServiceUsable_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("sceneAdded") << 0;
    QTest::newRow("activeSceneChanged") << 1;
    QTest::newRow("sceneRemoving") << 2;
    QTest::newRow("sceneRemoved") << 3;
}

void tst_CNodeService::throwingHandlerLeavesTheServiceUsable()
{
    QFETCH(int, signal);
    CFixture f;
    const auto thrower = [] { throw std::runtime_error("thrown by the test"); };
    QObject context;
    if (signal == 0)
        connect(f.service.get(), &INodeService::sceneAdded, &context, thrower);
    else if (signal == 1)
        connect(f.service.get(), &INodeService::activeSceneChanged, &context, thrower);
    else if (signal == 2)
        connect(f.service.get(), &INodeService::sceneRemoving, &context, thrower);
    else
        connect(f.service.get(), &INodeService::sceneRemoved, &context, thrower);

    try {
        f.addSource("one");
        const SPlaced two = f.addSource("two");
        f.service->setActiveScene(f.service->scenes().value(0));
        if (f.service->findNode(two.id))
            f.service->removeSceneOfNode(two.id);
        delete f.service->scenes().value(0);
    } catch (...) {
        QFAIL("the service let an exception out");
    }
    QVERIFY(!f.messages.texts("halvex.service").filter("thrown by the test").isEmpty());

    disconnect(f.service.get(), nullptr, &context, nullptr);
    f.log.take();
    const SPlaced three = f.addSource("three");
    const QStringList said = f.log.take();
    QCOMPARE(said.size(), 3);
    QVERIFY(said.at(0).startsWith("added "));
    QVERIFY(said.at(1).startsWith("active "));
    QVERIFY(said.at(2).endsWith(" created three"));
    QVERIFY(f.service->findNodeByModel(three.model));
    f.service->removeSceneOfNode(three.id);
    QVERIFY(!f.service->findNode(three.id));
}

void tst_CNodeService::modelWhoseAnnouncementThrewIsNotTakenTwice()
{
    CFixture f;
    f.addSource();
    QObject context;
    connect(f.active(), &CNodeScene::nodeCreated, &context, [] { throw std::runtime_error("thrown by the test"); });
    const SPlaced view = f.addView();
    disconnect(f.active(), nullptr, &context, nullptr);
    const CNodeBase* const node = nodeOf(*f.active(), view.model);
    QVERIFY(node); // what was created stays
    QVERIFY(view.id == node->id());

    QVERIFY(f.addAgain(view.model) == view.id);
    QCOMPARE(CHostModel::alive(), 2);
    QCOMPARE(f.active()->nodes().size(), std::size_t(2));
}

void tst_CNodeService::throwingModelsAreReported()
{
    CFixture f;
    f.addSource();
    auto model = std::make_unique<CHostModel>(ENodeDataModelType::Sink);
    model->onPorts = [] { throw std::runtime_error("thrown by the test"); };
    f.service->addNode(std::move(model), nullptr);
    QCOMPARE(f.messages.texts("halvex.service").filter("thrown by the test").size(), 1);
    QCOMPARE(CHostModel::alive(), 1);
}

void tst_CNodeService::destructionInTheOrderOfCreation()
{
    CFixture f;
    QStringList order;
    for (const char* name : {"one", "two", "three", "four"}) {
        f.addSource(name);
        connect(f.active(), &QObject::destroyed, this, [&order, name] { order << name; });
    }
    f.service->setActiveScene(f.service->scenes().at(2));
    f.log.take();
    f.service.reset();
    QCOMPARE(order, QStringList({"one", "two", "three", "four"}));
    QCOMPARE(f.log.take(), QStringList({"1 deleted one", "2 deleted two", "3 deleted three", "4 deleted four"}));
}

void tst_CNodeService::destructionReleasesTheRegistry()
{
    CFixture f;
    f.addSource("one");
    const std::weak_ptr<CNodeDataModelRegistry> registry = f.service->registry();
    f.service.reset();
    QVERIFY(registry.expired());
}

void tst_CNodeService::handlersMayCallADyingService()
{
    CFixture f;
    const SPlaced one = f.addSource("one");
    f.addView();
    const SPlaced two = f.addSource("two");
    f.addView();
    INodeService* const service = f.service.get();
    int calls = 0;
    const auto callEverything = [&] {
        ++calls;
        service->findNode(one.id);
        service->findNode(two.id);
        QVERIFY(service->addNode(makeSource("late"), nullptr) == Core::CId());
        QVERIFY(service->addNode(std::make_unique<CHostModel>(ENodeDataModelType::Sink), nullptr) == Core::CId());
        service->removeNode(two.id, true);
        service->removeSceneOfNode(two.id);
        service->removeSceneOfNode(one.id);
        service->setActiveScene(service->getActiveScene());
        service->importDocument(chain());
        service->addStoredDocument(chain());
        service->importStoredDocuments();
        service->findSceneByInfo(nullptr);
        service->createModel("View");
        service->registerTypeConverter({{}, {}}, {});
    };
    const auto scenes = f.service->scenes();
    for (CNodeScene* scene : scenes) {
        connect(scene, &CNodeScene::nodeDeleted, this, callEverything);
        connect(scene, &QObject::destroyed, this, callEverything);
    }
    f.log.take();
    f.service.reset();
    QVERIFY(calls >= 4);
    QCOMPARE(f.log.take().filter(QRegularExpression("^(added|active|removing|removed)")), QStringList());
}

void tst_CNodeService::modelsMayCallADyingService()
{
    CFixture f;
    INodeService* const service = f.service.get();
    int calls = 0;
    for (const char* name : {"one", "two"}) {
        CHostModel* const model = f.addSource(name).model;
        model->onDestroyed = [&calls, service, model] {
            ++calls;
            service->addNode(makeSource("late"), nullptr);
            service->removeNode(Core::CId(), true);
            QVERIFY(!service->findNodeByModel(model));
            service->connectModels(model, 0, model, 0);
            service->importDocument(chain());
            service->setActiveScene(service->getActiveScene());
        };
    }
    f.service.reset();
    QCOMPARE(calls, 2);
}

void tst_CNodeService::scenesMayOutliveNothing()
{
    CFixture f;
    f.addSource("one");
    f.addSource("two");
    QList<QPointer<CNodeScene>> scenes;
    const auto present = f.service->scenes();
    for (CNodeScene* scene : present)
        scenes << scene;
    f.service.reset();
    for (const QPointer<CNodeScene>& scene : qAsConst(scenes))
        QVERIFY(scene.isNull());
}

void tst_CNodeService::lookUpsWalkOverNoNodes()
{
    CFixture f;
    std::vector<SPlaced> all;
    for (int scene = 0; scene < 10; ++scene) {
        all.push_back(f.addSource(QStringLiteral("cam-%1").arg(scene), makeInfo()));
        for (int node = 1; node < 10000; ++node)
            all.push_back(f.add(ENodeDataModelType::Decoupler, "node"));
    }
    QCOMPARE(CHostModel::alive(), 100000);
    f.log.take();

    // With a walk over the nodes for each look-up this would take longer than the test may.
    for (const SPlaced& placed : all) {
        CNodeBase* const node = f.service->findNode(placed.id);
        QVERIFY(node && node->nodeDataModel() == placed.model);
        QVERIFY(f.service->findNodeByModel(placed.model) == node);
        QVERIFY(!f.service->findNode(placed.model->id()));
    }
    for (const SPlaced& placed : all)
        QVERIFY(f.addAgain(placed.model) == placed.id);
    for (std::size_t i = 1; i < all.size(); ++i)
        QVERIFY(f.service->connectModels(all[i].model, 0, all[i - 1].model, 0) != Core::CId());

    // Asking the model that is looked for what it is costs a call or two; asking the 100,000 would be seen.
    const int before = CHostModel::calls();
    for (std::size_t i = 9999; i < all.size(); i += 10000) {
        ANodeDataModel* model = all[i].model;
        QVERIFY(f.addAgain(all[i].model) == all[i].id);
        f.service->removeNodeByModel(model, true);
        f.service->removeNode(all[i - 1].id, true);
    }
    QVERIFY2(CHostModel::calls() - before < 1000, qPrintable(QString::number(CHostModel::calls() - before)));
    QCOMPARE(CHostModel::alive(), 100000 - 20);
}

QTEST_GUILESS_MAIN(tst_CNodeService)
#include "tst_CNodeService.moc"
