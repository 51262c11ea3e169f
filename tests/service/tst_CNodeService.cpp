// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a service takes in, finds and connects. What goes, imports and exceptions have programs of their own.

#include "CServiceFixture.h"
#include "support/CTestScene.h"
#include "support/MetaMethods.h"

#include <limits>
#include <stdexcept>
#include <type_traits>

using namespace Plugin::Halvex;
using Core::AppCoreComponents::BaseInfoPtr;

static_assert(std::is_abstract_v<INodeService> && std::is_base_of_v<Core::Service::IService, INodeService>,
              "a service of the host");
static_assert(!std::is_copy_constructible_v<CNodeService>, "an object");

namespace {

using F = CServiceFixture;
using Place = std::function<CNamedTestModel*(F&)>;

constexpr auto allTypes = {ENodeDataModelType::Source, ENodeDataModelType::Sink, ENodeDataModelType::Decoupler};

} // namespace

Q_DECLARE_METATYPE(Place)

class tst_CNodeService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void signalsAndSlots();
    void startsEmpty();

    void uniqueSourceGetsASceneOfItsOwn();
    void sceneIsAddedThenActivatedThenFilled();
    void sameSourceAgainActivatesItsScene();
    void uniqueModelOfAnotherKindIsNeverPlaced();
    void modelWithoutAnActiveSceneIsDropped();
    void modelGoesToTheActiveScene();
    void modelThatHasANodeStaysWhereItIs_data();
    void modelThatHasANodeStaysWhereItIs();
    void modelOfALeavingNodeStaysWhereItIs();

    void findNodeLooksIntoEveryScene();
    void findNodeTakesTheFirstOfTwoScenes();

    void connectModelsTakesTheConsumerFirst();
    void connectModelsRefusesOtherPorts();
    void modelThatWasNotAddedIsNotConnected();
    void connectionThatAHandlerTakesBackHasNoId();
    void connectionOfTwoScenesBelongsToTheConsumers();

    void setActiveSceneTellsEvenTheSame();
    void setActiveSceneIgnoresOthers();
    void findSceneByInfoComparesPointers();

    void createModelMakesModelsWithAnIdentity();
    void registerTypeConverterReachesEveryScene();
};

void tst_CNodeService::cleanup()
{
    QCOMPARE(CTestModels::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeService::signalsAndSlots()
{
    QCOMPARE(methodsOf(INodeService::staticMetaObject),
             QStringList({"public signal activeSceneChanged(CNodeScene* scene)",
                          "public signal sceneAdded(CNodeScene* scene)",
                          "public signal sceneRemoving(CNodeScene* scene)", "public signal sceneRemoved()"}));
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
    QVERIFY(service->registry() != CNodeService(nullptr).registry());
}

void tst_CNodeService::uniqueSourceGetsASceneOfItsOwn()
{
    F f;
    const BaseInfoPtr info = F::makeInfo();
    const SPlaced cam = f.addSource("cam", info);

    QCOMPARE(f.log.take(), QStringList({"added 1", "active 1", "1 created cam"}));
    QVERIFY(cam.id != Core::CId());
    CNodeBase* const node = f.service->findNode(cam.id);
    QVERIFY(node);
    QCOMPARE(node->id(), cam.id);
    QCOMPARE(node->nodeDataModel(), cam.model);
    QCOMPARE(f.service->findNodeByModel(cam.model), node);
    QCOMPARE(F::nodeCount(f.active()), 1);
    QCOMPARE(f.active()->getSceneInfo(), info);
    QCOMPARE(cam.model->getInfo(), info);
    QVERIFY(f.service->documentNodes().isEmpty());

    const SPlaced other = f.addSource("cam"); // another one, for all its name
    QCOMPARE(f.log.take(), QStringList({"added 2", "active 2", "2 created cam"}));
    QVERIFY(other.id != cam.id);
    QCOMPARE(f.service->findNodeByModel(other.model)->id(), other.id);
    QCOMPARE(f.sceneCount(), 2);
    QCOMPARE(f.scene(1), f.active());
    for (const int index : {0, 1}) {
        QCOMPARE(&f.scene(index)->registry(), f.service->registry().get());
        QVERIFY(!f.scene(index)->parent());
    }
}

void tst_CNodeService::sceneIsAddedThenActivatedThenFilled()
{
    F f;
    const BaseInfoPtr info = F::makeInfo();
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

void tst_CNodeService::sameSourceAgainActivatesItsScene()
{
    F f;
    const BaseInfoPtr info = F::makeInfo();
    const SPlaced cam = f.addSource("cam", info);
    f.addSource("cam-2");
    f.log.take();
    for (int round = 0; round < 2; ++round) {
        QVERIFY(f.addAgain(cam.model, F::makeInfo()) == cam.id);
        QCOMPARE(f.log.take(), QStringList({"active 1"}));
    }
    QCOMPARE(CTestModels::alive(), 2);
    QCOMPARE(f.sceneCount(), 2);
    QCOMPARE(f.active(), f.scene(0));
    QCOMPARE(F::nodeCount(f.active()), 1);
    QCOMPARE(f.active()->getSceneInfo(), info); // what comes with it later is ignored
    QCOMPARE(cam.model->getInfo(), info);

    const SPlaced view = f.addView();
    QVERIFY(f.connect(view, cam) != Core::CId());
    cam.model->offer(CTestData::make(5));
    QCOMPARE(view.model->values().back(), 5);
}

void tst_CNodeService::uniqueModelOfAnotherKindIsNeverPlaced()
{
    for (const auto type : {ENodeDataModelType::Sink, ENodeDataModelType::Decoupler}) {
        F f;
        const auto addUnique = [&] {
            auto model = makeModel(type, "odd", "odd");
            model->unique = true;
            return f.service->addNode(std::move(model), F::makeInfo());
        };
        QVERIFY(addUnique() == Core::CId());
        QCOMPARE(f.log.take(), QStringList({"active none"}));
        QCOMPARE(f.sceneCount(), 0);

        f.addSource();
        f.log.take();
        QVERIFY(addUnique() == Core::CId());
        QCOMPARE(f.log.take(), QStringList({"active none"}));
        QVERIFY(f.service->getActiveScene().isNull());
        QCOMPARE(f.sceneCount(), 1);
        QCOMPARE(CTestModels::alive(), 1);

        // With a scene, but none that is active.
        QVERIFY(f.addView().id == Core::CId());
        QCOMPARE(CTestModels::alive(), 1);
        QCOMPARE(f.log.take(), QStringList());
        QVERIFY(!f.import({element("a")}));
    }
}

void tst_CNodeService::modelWithoutAnActiveSceneIsDropped()
{
    F f;
    for (const bool hadAScene : {false, true}) {
        if (hadAScene) {
            f.addSource();
            delete f.active();
            f.log.take();
        }
        for (const auto type : allTypes)
            QVERIFY(f.service->addNode(makeModel(type), F::makeInfo()) == Core::CId());
        QVERIFY(f.service->addNode(nullptr, F::makeInfo()) == Core::CId());
        QCOMPARE(CTestModels::alive(), 0);
        QCOMPARE(f.sceneCount(), 0);
        QCOMPARE(f.log.take(), QStringList());
    }
}

void tst_CNodeService::modelGoesToTheActiveScene()
{
    F f;
    const BaseInfoPtr info = F::makeInfo();
    f.addSource("cam", info);
    f.addSource("cam-2");
    f.service->setActiveScene(f.scene(0));
    f.log.take();

    for (const auto type : allTypes) {
        const SPlaced added = f.add(makeModel(type, "model"));
        QCOMPARE(f.log.take(), QStringList({"1 created model"}));
        CNodeBase* const node = f.service->findNode(added.id);
        QVERIFY(node);
        QCOMPARE(node->nodeDataModel(), added.model);
        QCOMPARE(f.service->findNodeByModel(added.model), node);
        QCOMPARE(f.active()->nodes().count(added.id), std::size_t(1));
        QCOMPARE(added.model->getInfo(), info);
    }
    QVERIFY(f.service->addNode(nullptr, nullptr) == Core::CId());
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(f.active(), f.scene(0));
    QVERIFY(f.service->documentNodes().isEmpty());
}

void tst_CNodeService::modelThatHasANodeStaysWhereItIs_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<bool>("unique");
    const Place byHand = [](F& f) {
        return static_cast<CNamedTestModel*>(f.active()->createNode(makeSource("by hand")).nodeDataModel());
    };
    const Place byDocument = [](F& f) {
        f.import({element("a")});
        return modelNamed(f.active(), "View");
    };
    const Place byAddNode = [](F& f) { return f.addView().model; };
    QTest::newRow("added") << byAddNode << false;
    QTest::newRow("added, unique since then") << byAddNode << true;
    QTest::newRow("from a document") << byDocument << false;
    QTest::newRow("unique, placed by the host") << byHand << true;
}

void tst_CNodeService::modelThatHasANodeStaysWhereItIs()
{
    QFETCH(Place, place);
    QFETCH(bool, unique);
    F f;
    f.addSource("cam");
    CNamedTestModel* const model = place(f);
    QVERIFY(model);
    model->unique = unique;
    const CNodeBase* const node = nodeOf(*f.active(), model);
    f.addSource("cam-2");
    f.log.take();

    QVERIFY(f.addAgain(model) == node->id());
    QCOMPARE(f.log.take(), unique ? QStringList({"active 1"}) : QStringList());
    QCOMPARE(f.active(), f.scene(unique ? 0 : 1));
    QCOMPARE(CTestModels::alive(), 3);
    QCOMPARE(f.sceneCount(), 2);
    QCOMPARE(F::nodeCount(f.scene(0)), 2);
    QCOMPARE(nodeOf(*f.scene(0), model), node);
}

void tst_CNodeService::modelOfALeavingNodeStaysWhereItIs()
{
    for (const bool isFromDocument : {false, true}) {
        for (const bool throws : {false, true}) {
            F f;
            f.addSource("cam");
            QVERIFY(isFromDocument ? f.import({element("a")}) : f.addView("View").model != nullptr);
            CNamedTestModel* const model = modelNamed(f.active(), "View");
            const Core::CId id = nodeOf(*f.active(), model)->id();
            QObject context;
            connect(f.active(), &CNodeScene::nodeDeleted, &context, [&] {
                QVERIFY(f.addAgain(model) == id);
                if (throws)
                    throw std::runtime_error("thrown by the test");
            });
            f.service->removeNode(id, false);
            disconnect(f.active(), nullptr, &context, nullptr);

            // A handler that throws keeps the node.
            QCOMPARE(f.service->findNode(id) != nullptr, throws);
            QCOMPARE(CTestModels::alive(), throws ? 2 : 1);
            if (throws)
                QVERIFY(f.addAgain(model) == id);
            QCOMPARE(F::nodeCount(f.active()), CTestModels::alive());
        }
    }
}

void tst_CNodeService::findNodeLooksIntoEveryScene()
{
    F f;
    const SPlaced cam = f.addSource("cam");
    const SPlaced view = f.addView();
    const SPlaced other = f.addSource("cam-2");
    CNodeBase& byHand = f.active()->createNode(std::make_unique<CTestModel>());

    for (const SPlaced& placed : {cam, view, other})
        QCOMPARE(f.service->findNode(placed.id)->nodeDataModel(), placed.model);
    QCOMPARE(f.service->findNode(byHand.id()), &byHand);
    for (const Core::CId& unknown : {Core::CId(), Core::CId::createId(), cam.model->id()})
        QVERIFY(!f.service->findNode(unknown));
}

void tst_CNodeService::findNodeTakesTheFirstOfTwoScenes()
{
    F f;
    f.addSource("cam");
    f.addSource("cam-2");
    const Core::CId id = Core::CId::createId();
    for (const int index : {1, 0}) {
        f.scene(index)->loadFromMemory(sceneDocument(id));
        QCOMPARE(f.service->findNode(id), f.scene(index)->nodes().at(id).get());
    }
    f.service->removeNode(id, false);
    QCOMPARE(f.service->findNode(id), f.scene(1)->nodes().at(id).get());
    f.service->removeSceneOfNode(id);
    QVERIFY(!f.service->findNode(id));
    QCOMPARE(f.sceneCount(), 1);
}

void tst_CNodeService::connectModelsTakesTheConsumerFirst()
{
    F f;
    const SNodeDataType type = CTestData::defaultType();
    f.service->registerTypeConverter({type, type}, [](const CNodeDataPtr&) { return CTestData::make(99); });
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    f.log.take();
    const Core::CId id = f.service->connectModels(view.model, 1, cam.model, 0);

    QCOMPARE(f.log.take(), QStringList({"1 connected cam0-view1"}));
    QVERIFY(f.active()->connections().at(id)->id() == id);
    cam.model->offer(CTestData::make(3));
    QCOMPARE(deliveriesTo(*view.model), (Deliveries{{3, 1}})); // without the converter
    QVERIFY(cam.model->received.empty());
}

void tst_CNodeService::connectModelsRefusesOtherPorts()
{
    F f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    f.log.take();
    for (const int port : {-1, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        QVERIFY(f.service->connectModels(view.model, port, cam.model, 0) == Core::CId());
        QVERIFY(f.service->connectModels(view.model, 0, cam.model, port) == Core::CId());
    }
    QVERIFY(f.active()->connections().empty());
    QCOMPARE(f.log.take(), QStringList());
}

void tst_CNodeService::modelThatWasNotAddedIsNotConnected()
{
    F f;
    const SPlaced cam = f.addSource();
    QVERIFY(f.import({element("a")}));
    CNamedTestModel never;
    CNamedTestModel* const none = nullptr;
    for (CNamedTestModel* stranger : {none, &never, modelNamed(f.active(), "View")}) {
        QVERIFY(!f.service->findNodeByModel(stranger));
        QVERIFY(f.service->connectModels(stranger, 0, cam.model, 0) == Core::CId());
        QVERIFY(f.service->connectModels(cam.model, 0, stranger, 0) == Core::CId());
    }
    QVERIFY(f.service->connectModels(none, 0, none, 0) == Core::CId());
    QVERIFY(f.active()->connections().empty());
}

void tst_CNodeService::connectionThatAHandlerTakesBackHasNoId()
{
    const auto connection = [](F& f) -> CNodeConnection& { return *f.active()->connections().begin()->second; };
    const std::vector<std::function<void(F&)>> waysToTakeBack{
        [&](F& f) { f.active()->deleteConnection(connection(f)); },
        [&](F& f) { f.active()->deleteConnectionNow(connection(f)); },
        [&](F& f) { f.active()->removeNode(*connection(f).getNode(ENodePortType::In)); },
        [](F& f) { delete f.active(); },
        [](F& f) { f.service.reset(); },
    };
    for (const auto& takeBack : waysToTakeBack) {
        F f;
        const SPlaced cam = f.addSource();
        const SPlaced view = f.addView();
        connect(f.active(), &CNodeScene::connectionCreated, this, [&] { takeBack(f); });
        QVERIFY(f.connect(view, cam) == Core::CId());
        if (f.service && f.active())
            QVERIFY(f.active()->connections().empty());
    }
}

void tst_CNodeService::connectionOfTwoScenesBelongsToTheConsumers()
{
    F f;
    const SPlaced cam = f.addSource("cam");
    const SPlaced view = f.addView();
    const SPlaced other = f.addSource("cam-2");
    f.log.take();
    const Core::CId id = f.connect(view, other);

    QCOMPARE(f.log.take(), QStringList({"1 connected cam-20-view0"}));
    QCOMPARE(f.scene(0)->connections().count(id), std::size_t(1));
    QVERIFY(f.scene(1)->connections().empty());
    QVERIFY(f.connect(other, cam) != Core::CId());
    QCOMPARE(f.log.take(), QStringList({"2 connected cam0-cam-20"}));
    other.model->offer(CTestData::make(4));
    QCOMPARE(view.model->values().back(), 4);
}

void tst_CNodeService::setActiveSceneTellsEvenTheSame()
{
    F f;
    f.addSource("cam");
    f.addSource("cam-2");
    f.log.take();
    for (const int index : {0, 0, 1}) {
        f.service->setActiveScene(f.scene(index));
        QCOMPARE(f.active(), f.scene(index));
    }
    QCOMPARE(f.log.take(), QStringList({"active 1", "active 1", "active 2"}));
}

void tst_CNodeService::setActiveSceneIgnoresOthers()
{
    F f;
    f.addSource();
    CNodeService other(nullptr);
    other.addNode(makeSource(), nullptr);
    CTestScene loose(nullptr, nullptr);
    f.log.take();
    for (CNodeScene* scene : std::initializer_list<CNodeScene*>{nullptr, other.getActiveScene(), &loose})
        f.service->setActiveScene(scene);
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(f.active(), f.scene(0));
}

void tst_CNodeService::findSceneByInfoComparesPointers()
{
    F f;
    const BaseInfoPtr own = F::makeInfo();
    const BaseInfoPtr shared = F::makeInfo();
    f.addSource("cam", own);
    f.addSource("cam-2", shared);
    f.addSource("cam-3", shared);
    QCOMPARE(f.service->findSceneByInfo(own), f.scene(0));
    QCOMPARE(f.service->findSceneByInfo(shared), f.scene(1));
    QVERIFY(!f.service->findSceneByInfo(F::makeInfo()));
    QVERIFY(!f.service->findSceneByInfo(nullptr));
    delete f.scene(1);
    QCOMPARE(f.service->findSceneByInfo(shared), f.scene(1));

    f.addSource("without");
    f.addSource("without, too");
    QCOMPARE(f.service->findSceneByInfo(nullptr), f.scene(2));
}

void tst_CNodeService::createModelMakesModelsWithAnIdentity()
{
    F f;
    const std::unique_ptr<ANodeDataModel> model = f.service->createModel("View");
    QVERIFY(model);
    QCOMPARE(model->name(), QString("View"));
    QCOMPARE(model->getType(), ENodeDataModelType::Sink);
    QVERIFY(f.service->createModel("View")->id() != model->id());
    for (const char* name : {"Plain", "Nothing", ""})
        QVERIFY(!f.service->createModel(name));
    QCOMPARE(CTestModels::alive(), 1);
    QCOMPARE(f.log.take(), QStringList());
}

void tst_CNodeService::registerTypeConverterReachesEveryScene()
{
    F f;
    f.addSource("cam");
    const SNodeDataType from{"from", "F"};
    const SNodeDataType to{"to", "T"};
    for (const int number : {1, 2}) {
        f.service->registerTypeConverter({from, to}, [number](const CNodeDataPtr&) { return CTestData::make(number); });
        f.addSource("cam-2");
        const auto scenes = f.service->scenes();
        for (const CNodeScene* scene : scenes)
            QCOMPARE(CTestData::valueOf(scene->registry().getTypeConverter(from, to)(nullptr)), number);
    }
    QVERIFY(!f.service->registry()->getTypeConverter(to, from));
}

QTEST_GUILESS_MAIN(tst_CNodeService)
#include "tst_CNodeService.moc"
