// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a service says of each operation, and what it finds. What becomes of things that go, what imports do to nodes,
// and exceptions have programs of their own.

#include "CServiceFixture.h"
#include "support/CTestScene.h"

#include <limits>
#include <stdexcept>
#include <type_traits>

using namespace Plugin::Halvex;

static_assert(std::is_abstract_v<INodeService> && std::is_base_of_v<Core::Service::IService, INodeService>,
              "a service of the host");
static_assert(!std::is_copy_constructible_v<CNodeService>, "an object");

namespace {

using F = CServiceFixture;

/// In the first scene "cam" feeds "view", in the second, which is active, is "cam-2".
class CWorld : public F
{
public:
    CWorld()
    {
        connect(view, cam);
        other = addSource("cam-2");
        log.take();
    }

    const SPlaced cam = addSource();
    const SPlaced view = addView();
    SPlaced other;
};

using W = CWorld;
using Operation = std::function<void(W&)>;

void removeByModel(W& w, ANodeDataModel* model, bool removeLoneNodeScene = false)
{
    const ANodeDataModel* const before = model;
    w.service->removeNodeByModel(model, removeLoneNodeScene);
    QVERIFY(model == before);
}

} // namespace

Q_DECLARE_METATYPE(Operation)

class tst_CNodeService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void operations_data();
    void operations();
    void strangersAreIgnored();
    void serviceWithoutAnActiveSceneDropsModels();
    void uniqueModelThatIsNoSourceMayEndTheService();
    void sceneIsAddedThenActivatedThenFilled();
    void addedNodeIsFound();
    void modelOfALeavingNodeStaysWhereItIs();
    void modelIsHandedInOnceMoreAsItIsAdded();
    void modelRemovesItselfAsItIsHandedInAgain();
    void nodeThatAHandlerRemovedHasNoId();

    void nodeWhoseIdWasChangedStays();
    void findNodeLooksIntoEveryScene();

    void connectionIsMadeWithoutAConverter();
    void modelThatWasNotAddedIsNotConnected();
    void connectionThatAHandlerTakesBackHasNoId();
    void findSceneByInfoComparesPointers();
    void createModelMakesModelsWithAnIdentity();
    void registerTypeConverterReachesEveryScene();
};

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

void tst_CNodeService::operations_data()
{
    QTest::addColumn<QString>("expected");
    QTest::addColumn<Operation>("operation");
    const auto add = [](const char* what, const QString& expected, const Operation& operation) {
        QTest::newRow(what) << expected << operation;
    };
    const auto addModel = [](ENodeDataModelType type) {
        return [type](W& w) { QVERIFY(w.add(makeModel(type)).id != Core::CId()); };
    };
    const auto addUnique = [](ENodeDataModelType type) {
        return [type](W& w) {
            auto model = makeModel(type, "odd", "odd");
            model->unique = true;
            QVERIFY(w.add(std::move(model), F::makeInfo()).id == Core::CId());
        };
    };

    add("source", "added 3, active 3, 3 created new", [](W& w) { w.addSource("new"); });
    add("source of a known name", "added 3, active 3, 3 created cam", [](W& w) { w.addSource("cam"); });
    add("source that is not unique", "2 created Model", addModel(ENodeDataModelType::Source));
    add("sink", "2 created Model", addModel(ENodeDataModelType::Sink));
    add("decoupler", "2 created Model", addModel(ENodeDataModelType::Decoupler));
    add("unique sink", "active none", addUnique(ENodeDataModelType::Sink));
    add("unique decoupler", "active none", addUnique(ENodeDataModelType::Decoupler));
    add("with no active scene", "active none", [=](W& w) {
        addUnique(ENodeDataModelType::Sink)(w);
        QVERIFY(w.addView().id == Core::CId());
        QVERIFY(!w.import({element("a")}));
    });
    add("no model", "", [](W& w) { QVERIFY(w.add(nullptr).id == Core::CId()); });

    add("source whose scene a handler destroys", "added 3, active 3, 3 created new, 3 deleted new, removed, active 1",
        [](W& w) {
            QObject::connect(w.service.get(), &INodeService::sceneAdded, w.service.get(), [](CNodeScene* scene) {
                QObject::connect(scene, &CNodeScene::nodeCreated, scene, [scene] { delete scene; });
            });
            QVERIFY(w.addSource("new").id == Core::CId());
        });

    // A model that has a node stays where it is, and its owner the same.
    add("source again", "active 1, active 1", [](W& w) {
        QVERIFY(w.addAgain(w.cam.model) == w.cam.id);
        QVERIFY(w.addAgain(w.cam.model, F::makeInfo()) == w.cam.id);
        QVERIFY(!w.cam.model->getInfo()); // of the first time
        QVERIFY(!w.active()->getSceneInfo());
    });
    add("sink again", "", [](W& w) { QVERIFY(w.addAgain(w.view.model) == w.view.id); });
    add("sink again, unique since then", "active 1", [](W& w) {
        w.view.model->unique = true;
        QVERIFY(w.addAgain(w.view.model) == w.view.id);
    });
    add("sink of a document again", "2 created View", [](W& w) {
        w.import({element("a")});
        CNamedTestModel* const model = modelNamed(w.active(), "View");
        QVERIFY(w.addAgain(model) == nodeOf(*w.active(), model)->id());
    });
    add("source that the host placed again", "1 created by hand, active 1", [](W& w) {
        CNodeBase& node = w.scene(0)->createNode(makeSource("by hand"));
        QVERIFY(w.addAgain(static_cast<CNamedTestModel*>(node.nodeDataModel())) == node.id());
    });

    // A connection belongs to the scene of the consumer, which is given first.
    add("connection", "1 connected view1-cam0",
        [](W& w) { w.service->connectModels(w.cam.model, 0, w.view.model, 1); });
    add("connections of two scenes", "1 connected cam-20-view0, 2 connected cam0-cam-20", [](W& w) {
        w.connect(w.view, w.other);
        w.connect(w.other, w.cam);
    });
    add("connections of other ports", "", [](W& w) {
        for (const int port : {-1, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            QVERIFY(w.service->connectModels(w.view.model, port, w.cam.model, 0) == Core::CId());
            QVERIFY(w.service->connectModels(w.view.model, 0, w.cam.model, port) == Core::CId());
        }
    });

    const QString viewGoes = "1 deleted view, 1 disconnected cam0-view0";
    add("node removed", viewGoes, [](W& w) { w.service->removeNode(w.view.id, true); });
    add("node removed by its model", viewGoes, [](W& w) { removeByModel(w, w.view.model); });
    add("last node removed", "2 deleted cam-2", [](W& w) { w.service->removeNode(w.other.id, true); });
    add("node removed twice", "1 deleted cam, 1 disconnected cam0-view0", [](W& w) {
        w.service->removeNode(w.cam.id, false);
        w.service->removeNode(w.cam.id, true); // nothing is removed, so nothing is cleaned up
    });

    // What becomes of the last node in the scene of a node that is removed.
    const QString loneSink = "2 deleted cam-2, 2 deleted View, removing 2, removed, active 1";
    const auto addLone = [&add](const char* what, const QString& expected, const Operation& place) {
        add(what, expected, [place](W& w) {
            place(w);
            w.service->removeNode(w.other.id, true);
        });
    };
    const Operation view = [](W& w) { w.addView("View"); };
    const Operation plain = [](W& w) { w.active()->createNode(std::make_unique<CTestModel>()); };
    const Operation imported = [](W& w) { w.import({element("a")}); };
    addLone("lone sink", "2 created View, " + loneSink, view);
    addLone("lone sink of a document", "2 created View, " + loneSink, imported);
    addLone("lone source", "2 created Model, 2 deleted cam-2", addModel(ENodeDataModelType::Source));
    addLone("lone decoupler", "2 created Model, 2 deleted cam-2", addModel(ENodeDataModelType::Decoupler));
    addLone("lone node without an identity", "2 created Test, 2 deleted cam-2", plain);
    addLone("two sinks", "2 created View, 2 created View, 2 deleted cam-2", [=](W& w) { view(w), view(w); });
    addLone("sink and other", "2 created View, 2 created Test, 2 deleted cam-2", [=](W& w) { view(w), plain(w); });
    add("lone sink, by the model", "2 created View, " + loneSink, [=](W& w) {
        view(w);
        removeByModel(w, w.other.model, true);
    });
    add("lone sink, not asked", "2 created View, 2 deleted cam-2", [=](W& w) {
        view(w);
        w.service->removeNode(w.other.id, false);
    });

    // The first of the scenes that are left is the active one.
    add("scene removed", "removing 2, 2 deleted cam-2, removed, active 1",
        [](W& w) { w.service->removeSceneOfNode(w.service->findNode(w.other.id)); });
    add("scene destroyed", "2 deleted cam-2, removed, active 1", [](W& w) { delete w.scene(1); });
    add("scene removed that is not active", "active 1, removing 2, 2 deleted cam-2, removed, active 1", [](W& w) {
        w.service->setActiveScene(w.scene(0));
        w.service->removeSceneOfNode(w.other.id);
    });
    add("first of three scenes destroyed",
        "added 3, active 3, 3 created new, " + viewGoes + ", 1 deleted cam, removed, active 2", [](W& w) {
            w.addSource("new");
            w.service->removeNode(w.view.id, false);
            delete w.scene(0);
        });
    add("all scenes removed",
        viewGoes + ", removing 2, 2 deleted cam-2, removed, active 1, removing 1, 1 deleted cam, removed", [](W& w) {
            w.service->removeNode(w.view.id, false);
            for (const SPlaced& cam : {w.other, w.cam})
                w.service->removeSceneOfNode(cam.id);
        });

    const QString chainIsMade = "2 created Filter, 2 created View, 2 connected Filter0-View0";
    add("import", chainIsMade, [](W& w) { QVERIFY(w.import(chain())); }); // "cam" is in the other scene
    add("import into the other scene",
        "active 1, 1 created Filter, 1 created View, 1 connected cam0-Filter0, 1 connected Filter0-View0", [](W& w) {
            w.service->setActiveScene(w.scene(0));
            QVERIFY(w.import(chain()));
        });
    add("import of nonsense", "", [](W& w) {
        for (const char* text : {"", "[{", R"({"name": "a", "model": {"name": "View"}})", "[]", R"([1, "a", [{}]])"})
            QVERIFY2(w.service->importDocument(text), text);
    });
    add("imports share no labels", "2 created View, 2 created Filter", [](W& w) {
        QVERIFY(w.import({element("a")}));
        QVERIFY(w.import({element("b", "Filter", feeding({"a"}))}));
    });
    add("stored documents are one import", "2 created View, 2 created Filter, 2 connected Filter0-View0", [](W& w) {
        QVERIFY(!w.service->importStoredDocuments()); // of none
        w.service->addStoredDocument(document({element("a")}));
        w.service->addStoredDocument(document({element("b", "Filter", feeding({"a"}))}));
        QVERIFY(w.service->importStoredDocuments());
    });
    add("stored documents are kept", "2 created View, 2 created Filter, 2 created View, active 1, 1 created View",
        [](W& w) {
            w.service->addStoredDocument(document({element("a")}));
            QVERIFY(w.service->importStoredDocuments());
            QVERIFY(w.import({element("a", "Filter")})); // neither stored, nor with what is stored
            QVERIFY(w.service->importStoredDocuments());
            w.addAgain(w.cam.model);
            QVERIFY(w.service->importStoredDocuments());
        });

    add("activated", "active 1", [](W& w) { w.service->setActiveScene(w.scene(0)); });
    add("activated again", "active 2", [](W& w) { w.service->setActiveScene(w.scene(1)); });
}

// What an operation tells, and that what can be asked for afterwards is as it was told.
void tst_CNodeService::operations()
{
    QFETCH(QString, expected);
    QFETCH(Operation, operation);
    W w;
    operation(w);
    const QStringList said = w.log.take();
    QCOMPARE(said.join(", "), expected);

    const QStringList active = QStringList{"active 2"} + said.filter("active");
    QCOMPARE("active " + w.log.numberOf(w.active()), w.sceneCount() ? active.last() : "active none");
    int nodes = 0;
    int connections = 0;
    const auto scenes = w.service->scenes();
    for (const CNodeScene* scene : scenes) {
        nodes += F::nodeCount(scene);
        connections += int(scene->connections().size());
    }
    QCOMPARE(CTestModels::alive(), nodes);
    QCOMPARE(scenes.size(), 2 + said.filter("added").size() - said.count("removed"));
    QCOMPARE(nodes, 3 + said.filter(" created ").size() - said.filter(" deleted ").size());
    QCOMPARE(connections, 1 + said.filter(" connected ").size() - said.filter(" disconnected ").size());
}

void tst_CNodeService::strangersAreIgnored()
{
    W w;
    CNodeService service(nullptr);
    const Core::CId id = service.addNode(makeSource(), nullptr);
    CNodeBase* const node = service.findNode(id);
    CTestScene scene(nullptr, nullptr);
    CNodeBase& loose = scene.createNode(std::make_unique<CTestModel>());
    CNamedTestModel model;

    for (const Core::CId& stranger : {id, Core::CId(), Core::CId::createId()}) {
        w.service->removeNode(stranger, true);
        w.service->removeSceneOfNode(stranger);
    }
    for (CNodeBase* stranger : std::initializer_list<CNodeBase*>{nullptr, node, &loose, &CNodeScene::noNode()})
        w.service->removeSceneOfNode(stranger);
    for (CNodeScene* stranger : std::initializer_list<CNodeScene*>{nullptr, service.getActiveScene(), &scene})
        w.service->setActiveScene(stranger);
    removeByModel(w, nullptr, true);
    removeByModel(w, &model, true);
    QCOMPARE(w.log.take(), QStringList());
    QCOMPARE(w.active(), w.scene(1));
    QCOMPARE(service.findNode(id), node);
    QCOMPARE(F::nodeCount(&scene), 1);
}

void tst_CNodeService::serviceWithoutAnActiveSceneDropsModels()
{
    F f;
    for (const bool hadAScene : {false, true}) {
        if (hadAScene) {
            f.addSource();
            delete f.active();
            f.log.take();
        }
        for (const auto type : {ENodeDataModelType::Source, ENodeDataModelType::Sink, ENodeDataModelType::Decoupler})
            QVERIFY(f.service->addNode(makeModel(type), F::makeInfo()) == Core::CId());
        QVERIFY(f.service->addNode(nullptr, F::makeInfo()) == Core::CId());
        QCOMPARE(CTestModels::alive(), 0);
        QCOMPARE(f.sceneCount(), 0);
        QCOMPARE(f.log.take(), QStringList());
    }
}

void tst_CNodeService::uniqueModelThatIsNoSourceMayEndTheService()
{
    F f;
    f.addSource();
    f.log.take();
    auto view = makeModel(ENodeDataModelType::Sink);
    view->unique = true;
    view->onName = [&f] { f.service.reset(); }; // asked for a message, when all is done
    QVERIFY(f.service->addNode(std::move(view), {}) == Core::CId());
    QVERIFY(!f.service);
    QCOMPARE(f.log.take(), QStringList({"active none", "1 deleted cam"}));
}

void tst_CNodeService::sceneIsAddedThenActivatedThenFilled()
{
    F f;
    const auto info = F::makeInfo();
    int heard = 0;
    connect(f.service.get(), &INodeService::sceneAdded, this, [&](CNodeScene* scene) {
        ++heard;
        QVERIFY(f.service->getActiveScene().isNull());
        QCOMPARE(f.service->scenes(), QList<CNodeScene*>({scene}));
        QCOMPARE(scene->getSceneInfo(), info);
        QCOMPARE(f.service->findSceneByInfo(info), scene);
        QCOMPARE(&scene->registry(), f.service->registry().get());
        QVERIFY(!scene->parent());
        QVERIFY(scene->nodes().empty());
    });
    connect(f.service.get(), &INodeService::activeSceneChanged, this, [&](CNodeScene* scene) {
        ++heard;
        QCOMPARE(f.active(), scene);
        QVERIFY(scene->nodes().empty());
    });
    f.addSource("cam", info);
    QCOMPARE(heard, 2);
    QCOMPARE(F::nodeCount(f.active()), 1);
}

void tst_CNodeService::addedNodeIsFound()
{
    F f;
    const auto info = F::makeInfo();
    for (const SPlaced& added : {f.addSource("cam", info), f.addView()}) {
        CNodeBase* const node = f.service->findNode(added.id);
        QVERIFY(node);
        QVERIFY(added.id != Core::CId());
        QCOMPARE(node->id(), added.id);
        QCOMPARE(node->nodeDataModel(), added.model);
        QCOMPARE(f.service->findNodeByModel(added.model), node);
        QCOMPARE(f.active()->nodes().count(added.id), std::size_t(1));
        QCOMPARE(added.model->getInfo(), info);
    }
    QVERIFY(f.service->documentNodes().isEmpty());
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

void tst_CNodeService::modelIsHandedInOnceMoreAsItIsAdded()
{
    F f;
    auto source = makeSource();
    CNamedTestModel* const model = source.get();
    const QSignalSpy injected(model, &CNodeDataModel::infoInjected);
    connect(model, &CNodeDataModel::infoInjected, model, [service = &f, model] {
        QVERIFY(service->addAgain(model) == Core::CId()); // it has no node yet
    });
    const Core::CId id = f.add(std::move(source), F::makeInfo()).id;
    QCOMPARE(injected.count(), 1);
    QCOMPARE(f.service->findNode(id)->nodeDataModel(), model);
}

void tst_CNodeService::modelRemovesItselfAsItIsHandedInAgain()
{
    F f;
    const SPlaced source = f.addSource();
    source.model->onIsUnique = [&] { f.service->removeNode(source.id, false); };
    QVERIFY(f.addAgain(source.model) == Core::CId());
    QCOMPARE(CTestModels::alive(), 0);
}

void tst_CNodeService::nodeThatAHandlerRemovedHasNoId()
{
    F f;
    f.addSource();
    Core::CId inner = Core::CId::createId();
    connect(f.active(), &CNodeScene::nodeCreated, f.active(), [&](CNodeBase& node) {
        if (node.nodeDataModel()->name() == "outer")
            inner = f.addView("inner").id;
        else
            f.active()->removeNode(node); // it lives on until the outer operation has ended
    });
    QVERIFY(f.addView("outer").id != Core::CId());
    QVERIFY(inner == Core::CId());
}

void tst_CNodeService::nodeWhoseIdWasChangedStays()
{
    F f;
    f.addSource();
    const SPlaced view = f.addView();
    CNodeBase* const node = f.service->findNode(view.id);
    node->restore(QJsonObject{{"id", Core::CId::createId().toString()}});
    f.service->removeNode(view.id, false);
    QCOMPARE(F::nodeCount(f.active()), 2);
    node->restore(QJsonObject{{"id", view.id.toString()}});
    f.service->removeNode(view.id, false);
    QCOMPARE(F::nodeCount(f.active()), 1);
}

void tst_CNodeService::findNodeLooksIntoEveryScene()
{
    W w;
    CNodeBase& byHand = w.active()->createNode(std::make_unique<CTestModel>());
    QCOMPARE(w.service->findNode(byHand.id()), &byHand);
    for (const SPlaced& placed : {w.cam, w.view, w.other})
        QCOMPARE(w.service->findNode(placed.id)->nodeDataModel(), placed.model);
    for (const Core::CId& unknown : {Core::CId(), Core::CId::createId(), w.cam.model->id()})
        QVERIFY(!w.service->findNode(unknown));

    // A node of the same id in two scenes, as from one document.
    const Core::CId id = Core::CId::createId();
    for (const int index : {1, 0}) {
        w.scene(index)->loadFromMemory(sceneDocument(id));
        QCOMPARE(w.service->findNode(id), w.scene(index)->nodes().at(id).get());
    }
    w.service->removeNode(id, false);
    QCOMPARE(w.service->findNode(id), w.scene(1)->nodes().at(id).get());
    w.service->removeSceneOfNode(id);
    QVERIFY(!w.service->findNode(id));
    QCOMPARE(w.sceneCount(), 1);
}

void tst_CNodeService::connectionIsMadeWithoutAConverter()
{
    W w;
    const SNodeDataType type = CTestData::defaultType();
    w.service->registerTypeConverter({type, type}, [](const CNodeDataPtr&) { return CTestData::make(99); });
    const Core::CId id = w.service->connectModels(w.view.model, 1, w.other.model, 0);
    QVERIFY(w.scene(0)->connections().at(id)->id() == id);
    w.other.model->offer(CTestData::make(3));
    QCOMPARE(deliveriesTo(*w.view.model), (Deliveries{{3, 1}}));
    QVERIFY(w.other.model->received.empty());
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

void tst_CNodeService::findSceneByInfoComparesPointers()
{
    F f;
    const auto own = F::makeInfo();
    const auto shared = F::makeInfo();
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
