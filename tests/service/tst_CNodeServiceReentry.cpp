// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What the service does when handlers of its signals and of its scenes' signals, or the models that it asks, call it,
// destroy a scene or destroy the service.

#include <Halvex/service/CNodeService.h>

#include "CHostModel.h"
#include "CServiceLog.h"
#include "support/CMessageCatcher.h"
#include "support/ServiceConsistency.h"

#include <QtTest>

#include <algorithm>
#include <functional>

using namespace Plugin::Halvex;

namespace {

QRegularExpression ofTheService()
{
    return QRegularExpression("^(added|active|removing|removed)");
}

/// A service with two scenes, "cam-1" → "view-1" and "cam-2" → "view-2", the second of which is active. Whatever the
/// service and its scenes tell is heard by a first log, by the test's action, once, and by a last log.
class CGraph
{
public:
    CGraph()
    {
        service->registry()->registerModel([this] { return makeView("View"); }, QStringLiteral("Test"));
        connectAction();
        last = std::make_unique<CServiceLog>(*service);
        for (const int scene : {0, 1}) {
            cams[scene] = addSource(QString("cam-%1").arg(scene + 1));
            views[scene] = addView(QString("view-%1").arg(scene + 1));
            service->connectModels(views[scene], 0, cams[scene], 0);
            camIds[scene] = service->findNodeByModel(cams[scene])->id();
            viewIds[scene] = service->findNodeByModel(views[scene])->id();
        }
        service->addStoredDocument(chain());
        first->take();
        last->take();
    }
    ~CGraph()
    {
        m_action = nullptr;
        if (service)
            QCOMPARE(inconsistencyOfScenes(*service), QString());
        service.reset();
    }

    /// Runs \a code when \a signal comes next. Signals that models give are named as their operations.
    void act(const QString& signal, const std::function<void()>& code)
    {
        m_actsAt = signal;
        m_action = code;
    }

    /// As a host destroys a scene: not one that is being destroyed.
    static void destroy(CNodeScene* scene)
    {
        if (scene && !scene->isBeingDestroyed())
            delete scene;
    }

    /// Does something that makes \a signal come from the second scene, or from a new one.
    void provoke(const QString& signal)
    {
        if (signal == "sceneRemoving" || signal == "sceneRemoved" || signal == "destroyed")
            service->removeSceneOfNode(camIds[1]);
        else if (signal == "nodeDeleted" || signal == "connectionDeleted" || signal == "~model")
            service->removeNode(viewIds[1], true);
        else if (signal == "connectionCreated")
            service->connectModels(views[1], 1, cams[1], 0);
        else if (signal == "setInData")
            cams[1]->offer(CTestData::make(1));
        else if (signal == "restore")
            service->importDocument(chain());
        else if (signal == "nodeCreated")
            addView("new");
        else
            addSource("new");
    }

    CHostModel* addSource(const QString& name)
    {
        auto model = makeSource(name);
        instrument(*model);
        return add(std::move(model));
    }
    CHostModel* addView(const QString& name) { return add(makeView(name)); }

    /// Fed by the active scene's camera, whichever it is.
    static QString chain()
    {
        return R"([{"name": "a", "model": {"name": "View"}, "unique_sources": [["cam-1", "cam-2", "new"]],
                    "connection": [["b"]]}, {"name": "b", "model": {"name": "View"}}])";
    }

    bool isSceneThere(int scene) const { return service && service->findNode(camIds[scene]); }

    /// The model, or null if its node is gone.
    CHostModel* modelOf(const Core::CId& id) const
    {
        CNodeBase* const node = service->findNode(id);
        return node ? dynamic_cast<CHostModel*>(node->nodeDataModel()) : nullptr;
    }

    std::unique_ptr<CNodeService> service = std::make_unique<CNodeService>(nullptr);
    std::unique_ptr<CServiceLog> first = std::make_unique<CServiceLog>(*service);
    std::unique_ptr<CServiceLog> last;
    CHostModel* cams[2] = {};
    CHostModel* views[2] = {};
    Core::CId camIds[2];
    Core::CId viewIds[2];
    CNodeScene* told = nullptr; ///< The scene of the last signal of the service.
    CMessageCatcher messages;

private:
    CHostModel* add(std::unique_ptr<CHostModel> model) const
    {
        CHostModel* const added = model.get();
        const Core::CId id = service->addNode(std::move(model), nullptr);
        return id == Core::CId() ? nullptr : added;
    }

    std::unique_ptr<CHostModel> makeView(const QString& name)
    {
        auto view = std::make_unique<CHostModel>(ENodeDataModelType::Sink, name);
        instrument(*view);
        return view;
    }

    void instrument(CHostModel& model)
    {
        model.onIsUnique = [this] { on("isUnique"); };
        model.onPorts = [this] { on("nPorts"); };
        model.onSetInData = [this] { on("setInData"); };
        model.onRestore = [this] { on("restore"); };
        model.onDestroyed = [this] { on("~model"); };
    }

    void on(const char* signal)
    {
        if (m_action && m_actsAt == signal)
            std::exchange(m_action, nullptr)();
    }

    void connectAction()
    {
        QObject::connect(service.get(), &INodeService::sceneAdded, &m_context, [this](CNodeScene* scene) {
            told = scene;
            connectAction(*scene);
            on("sceneAdded");
        });
        QObject::connect(service.get(), &INodeService::activeSceneChanged, &m_context, [this](CNodeScene* scene) {
            told = scene;
            on("activeSceneChanged");
        });
        QObject::connect(service.get(), &INodeService::sceneRemoving, &m_context, [this](CNodeScene* scene) {
            told = scene;
            on("sceneRemoving");
        });
        QObject::connect(service.get(), &INodeService::sceneRemoved, &m_context, [this] { on("sceneRemoved"); });
    }

    void connectAction(const CNodeScene& scene)
    {
        QObject::connect(&scene, &CNodeScene::nodeCreated, &m_context, [this] { on("nodeCreated"); });
        QObject::connect(&scene, &CNodeScene::nodeDeleted, &m_context, [this] { on("nodeDeleted"); });
        QObject::connect(&scene, &CNodeScene::connectionCreated, &m_context, [this] { on("connectionCreated"); });
        QObject::connect(&scene, &CNodeScene::connectionDeleted, &m_context, [this] { on("connectionDeleted"); });
        QObject::connect(&scene, &QObject::destroyed, &m_context, [this] { on("destroyed"); });
    }

    QString m_actsAt;
    std::function<void()> m_action;
    QObject m_context;
};

/// What is wrong with the service and its scenes between operations, or an empty text.
QString inconsistencyOf(CNodeService& service)
{
    const QString found = inconsistencyOfScenes(service);
    if (!found.isEmpty())
        return found;
    std::size_t nodes = 0;
    const auto scenes = service.scenes();
    for (const CNodeScene* scene : scenes) {
        nodes += scene->nodes().size();
        for (const auto& entry : scene->nodes()) {
            auto* const model = dynamic_cast<ANodeDataModel*>(entry.second->nodeDataModel());
            CNodeBase* const known = service.findNodeByModel(model);
            const bool isFromDocument = service.documentNodes().contains(entry.second.get());
            if (isFromDocument ? known != nullptr : known != entry.second.get())
                return QStringLiteral("a node is neither one from a document nor found by its model, or both");
            if (service.findNode(entry.first) != entry.second.get())
                return QStringLiteral("a node is not found by its id");
        }
    }
    const auto documentNodes = service.documentNodes();
    for (CNodeBase* node : documentNodes) {
        if (service.findNode(node->id()) != node)
            return QStringLiteral("a document node is in no scene");
    }
    if (int(nodes) != CHostModel::alive())
        return QStringLiteral("there are %1 models for %2 nodes").arg(CHostModel::alive()).arg(nodes);
    return {};
}

/// What is wrong with the order of the service's signals since there were \a scenes scenes, or an empty text.
QString disorderOf(const QStringList& said, int scenes)
{
    QStringList present;
    for (int number = 1; number <= scenes; ++number)
        present << QString::number(number);
    QStringList removing;
    int removed = 0;
    for (const QString& entry : said) {
        const QString number = entry.section(' ', 1);
        if (entry.startsWith("added")) {
            if (number.toInt() != ++scenes)
                return "added out of order: " + entry;
            present << number;
        } else if (entry.startsWith("active")) {
            if (number != "none" && !present.contains(number))
                return "active before it was added: " + entry;
        } else if (entry.startsWith("removing")) {
            if (!present.contains(number) || removing.contains(number))
                return "removing a scene that is not there, or again: " + entry;
            removing << number;
        } else {
            ++removed;
        }
    }
    return removed < removing.size() ? QStringLiteral("a scene was removing and never removed") : QString();
}

using Operation = std::function<void(CGraph&)>;

/// Everything that a handler may ask for, by name.
const std::vector<std::pair<const char*, Operation>>& operations()
{
    static const std::vector<std::pair<const char*, Operation>> all{
        {"add a source", [](CGraph& g) { g.addSource("added"); }},
        {"add two sources",
         [](CGraph& g) {
             g.addSource("added-1");
             g.addSource("added-2");
         }},
        {"add a view", [](CGraph& g) { g.addView("added"); }},
        {"add a unique view",
         [](CGraph& g) {
             auto view = std::make_unique<CHostModel>(ENodeDataModelType::Sink);
             view->unique = true;
             g.service->addNode(std::move(view), nullptr);
         }},
        {"add the same source",
         [](CGraph& g) {
             if (CHostModel* const cam = g.modelOf(g.camIds[0]))
                 g.service->addNode(std::unique_ptr<ANodeDataModel>(cam), nullptr);
         }},
        {"remove a node", [](CGraph& g) { g.service->removeNode(g.viewIds[1], false); }},
        {"remove a node and its lonely scene", [](CGraph& g) { g.service->removeNode(g.camIds[1], true); }},
        {"remove a node by its model",
         [](CGraph& g) {
             ANodeDataModel* model = g.modelOf(g.camIds[1]);
             g.service->removeNodeByModel(model, true);
         }},
        {"remove the very scene", [](CGraph& g) { g.service->removeSceneOfNode(g.camIds[1]); }},
        {"remove the very scene by its node",
         [](CGraph& g) { g.service->removeSceneOfNode(g.service->findNode(g.camIds[1])); }},
        {"remove the other scene", [](CGraph& g) { g.service->removeSceneOfNode(g.camIds[0]); }},
        {"remove every scene, twice",
         [](CGraph& g) {
             for (const Core::CId& id : {g.camIds[1], g.camIds[0], g.camIds[1], g.camIds[0]})
                 g.service->removeSceneOfNode(id);
         }},
        {"connect", [](CGraph& g) { g.service->connectModels(g.modelOf(g.viewIds[1]), 1, g.modelOf(g.camIds[1]), 1); }},
        {"import", [](CGraph& g) { g.service->importDocument(CGraph::chain()); }},
        {"import what is stored", [](CGraph& g) { g.service->importStoredDocuments(); }},
        {"activate", [](CGraph& g) { g.service->setActiveScene(g.service->scenes().value(0)); }},
        {"look things up",
         [](CGraph& g) {
             for (const Core::CId& id : {g.camIds[0], g.camIds[1], g.viewIds[0], g.viewIds[1]})
                 g.service->findNodeByModel(g.modelOf(id));
             g.service->findSceneByInfo(nullptr);
             g.service->createModel("View");
             const auto documentNodes = g.service->documentNodes();
             for (CNodeBase* node : documentNodes)
                 node->save();
         }},
        {"destroy the very scene", [](CGraph& g) { CGraph::destroy(g.service->scenes().value(1)); }},
        {"destroy the newest scene",
         [](CGraph& g) { CGraph::destroy(g.service->scenes().isEmpty() ? nullptr : g.service->scenes().last()); }},
        {"destroy every scene",
         [](CGraph& g) {
             QList<QPointer<CNodeScene>> scenes;
             const auto present = g.service->scenes();
             for (CNodeScene* scene : present)
                 scenes << scene;
             for (const QPointer<CNodeScene>& scene : qAsConst(scenes))
                 CGraph::destroy(scene);
         }},
        {"destroy the service", [](CGraph& g) { g.service.reset(); }},
    };
    return all;
}

} // namespace

Q_DECLARE_METATYPE(Operation)

class tst_CNodeServiceReentry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void anythingInAnySignal_data();
    void anythingInAnySignal();
    void anythingWhileTheHostDestroysAScene_data();
    void anythingWhileTheHostDestroysAScene();
    void anythingInEverySignal_data();
    void anythingInEverySignal();

    void sceneLivesUntilItsTurn_data();
    void sceneLivesUntilItsTurn();
    void changesAreAtOnceAndToldLater();
    void activeSceneIsSetByTheOuterOperationLast();
    void sceneAddedWhileAnotherIsRemovedIsToldBefore();
    void firstSceneBecomesActiveAfterHandlersOfRemoved();
    void removalAskedForTwiceIsOne();
    void removalsOfTwoScenesAreToldInOrder();
    void sceneThatIsBeingDestroyedIsNeverActive();
    void removalOutsideOfTheServicesSignalsIsAtOnce();
    void newSceneThatAHandlerDestroysTakesNoNode_data();
    void newSceneThatAHandlerDestroysTakesNoNode();
    void removedSceneThatAHandlerDestroysIsToldOnce();
    void everyHandlerHearsOfASceneThatAnotherWantsRemoved();
    void serviceThatAHandlerDestroysSaysNoMore_data();
    void serviceThatAHandlerDestroysSaysNoMore();
    void throwingHandlerHoldsUpNoTurn();
};

void tst_CNodeServiceReentry::cleanup()
{
    QCOMPARE(CHostModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeServiceReentry::anythingInAnySignal_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<Operation>("operation");
    for (const char* signal : {"sceneAdded", "activeSceneChanged", "sceneRemoving", "sceneRemoved", "nodeCreated",
                               "nodeDeleted", "connectionCreated", "connectionDeleted", "destroyed", "isUnique",
                               "nPorts", "setInData", "restore", "~model"}) {
        for (const auto& operation : operations())
            QTest::addRow("%s, %s", signal, operation.first) << QString(signal) << operation.second;
    }
}

void tst_CNodeServiceReentry::anythingInAnySignal()
{
    QFETCH(QString, signal);
    QFETCH(Operation, operation);
    CGraph g;
    bool hasActed = false;
    g.act(signal, [&] {
        hasActed = true;
        operation(g);
    });
    g.provoke(signal);
    QVERIFY(hasActed);
    if (!g.service)
        return; // that all models are gone, cleanup() sees

    QCOMPARE(inconsistencyOf(*g.service), QString());
    const QStringList said = g.first->take().filter(ofTheService());
    QCOMPARE(g.last->take().filter(ofTheService()), said);
    QCOMPARE(disorderOf(said, 2), QString());
    const int gone = said.count("removed");
    QCOMPARE(g.service->scenes().size(), 2 + said.filter("added").size() - gone);
    const QStringList active = said.filter("active");
    if (!active.isEmpty() && g.service->getActiveScene())
        QCOMPARE(active.last(), "active " + g.first->numberOf(g.service->getActiveScene()));

    // And it goes on as ever.
    const CHostModel* const later = g.addSource("later");
    QVERIFY(later);
    QCOMPARE(g.first->take().size(), 3);
    QCOMPARE(g.last->take().size(), 3);
    QCOMPARE(inconsistencyOf(*g.service), QString());
}

void tst_CNodeServiceReentry::anythingWhileTheHostDestroysAScene_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<Operation>("operation");
    for (const char* signal : {"nodeDeleted", "connectionDeleted", "~model", "destroyed", "sceneRemoved"}) {
        for (const auto& operation : operations())
            QTest::addRow("%s, %s", signal, operation.first) << QString(signal) << operation.second;
    }
}

void tst_CNodeServiceReentry::anythingWhileTheHostDestroysAScene()
{
    QFETCH(QString, signal);
    QFETCH(Operation, operation);
    CGraph g;
    bool hasActed = false;
    g.act(signal, [&] {
        hasActed = true;
        operation(g);
    });
    CGraph::destroy(g.service->scenes().last());
    QVERIFY(hasActed);
    if (!g.service)
        return;

    QCOMPARE(inconsistencyOf(*g.service), QString());
    const QStringList said = g.first->take().filter(ofTheService());
    QCOMPARE(g.last->take().filter(ofTheService()), said);
    QCOMPARE(disorderOf(said, 2), QString());
    QVERIFY(!said.contains("removing 2"));
    QCOMPARE(g.service->scenes().size(), 2 + said.filter("added").size() - said.count("removed"));
}

void tst_CNodeServiceReentry::anythingInEverySignal_data()
{
    QTest::addColumn<Operation>("operation");
    for (const auto& operation : operations())
        QTest::addRow("%s", operation.first) << operation.second;
}

// Each operation in eight signals in a row, its own included.
void tst_CNodeServiceReentry::anythingInEverySignal()
{
    QFETCH(Operation, operation);
    CGraph g;
    int left = 8;
    QObject context;
    const auto act = [&] {
        if (left-- > 0 && g.service)
            operation(g);
    };
    connect(g.service.get(), &INodeService::sceneAdded, &context, act);
    connect(g.service.get(), &INodeService::activeSceneChanged, &context, act);
    connect(g.service.get(), &INodeService::sceneRemoving, &context, act);
    connect(g.service.get(), &INodeService::sceneRemoved, &context, act);
    const auto scenes = g.service->scenes();
    for (const CNodeScene* scene : scenes) {
        connect(scene, &CNodeScene::nodeCreated, &context, act);
        connect(scene, &CNodeScene::nodeDeleted, &context, act);
        connect(scene, &CNodeScene::connectionCreated, &context, act);
        connect(scene, &CNodeScene::connectionDeleted, &context, act);
    }
    for (const char* signal : {"connectionCreated", "nodeCreated", "sceneAdded", "sceneRemoved"}) {
        if (g.isSceneThere(1))
            g.provoke(signal);
    }
    QVERIFY(left < 8);
    if (!g.service)
        return;
    left = 0;
    QCOMPARE(inconsistencyOf(*g.service), QString());
    QCOMPARE(g.last->said.filter(ofTheService()), g.first->said.filter(ofTheService()));
    QCOMPARE(disorderOf(g.first->said.filter(ofTheService()), 2), QString());
}

void tst_CNodeServiceReentry::sceneLivesUntilItsTurn_data()
{
    QTest::addColumn<QString>("signal");
    for (const char* signal : {"sceneAdded", "activeSceneChanged", "sceneRemoving", "sceneRemoved"})
        QTest::newRow(signal) << QString(signal);
}

void tst_CNodeServiceReentry::sceneLivesUntilItsTurn()
{
    QFETCH(QString, signal);
    CGraph g;
    // The scene that goes is the one that the provoked signal is not about.
    const QPointer<CNodeScene> scene = g.service->scenes().first();
    g.act(signal, [&] {
        g.service->removeSceneOfNode(g.camIds[0]);
        QVERIFY(scene);
        QVERIFY(g.service->scenes().contains(scene));
        QCOMPARE(g.modelOf(g.viewIds[0]), g.views[0]);
        QVERIFY(!g.first->said.contains("removing 1"));
    });
    g.provoke(signal);
    QVERIFY(scene.isNull());
    QCOMPARE(g.first->said.count("removing 1"), 1);
    QCOMPARE(g.last->said.filter(ofTheService()), g.first->said.filter(ofTheService()));
}

void tst_CNodeServiceReentry::changesAreAtOnceAndToldLater()
{
    CGraph g;
    g.act("sceneAdded", [&] {
        CNodeScene* const one = g.service->scenes().first();
        g.service->setActiveScene(one);
        QCOMPARE(g.service->getActiveScene().data(), one);
        const CHostModel* const view = g.addView("now");
        QVERIFY(view);
        CHostModel* const source = g.addSource("nested");
        QCOMPARE(g.service->scenes().size(), 4);
        QCOMPARE(g.service->getActiveScene().data(), g.service->scenes().last());
        QVERIFY(g.service->findNodeByModel(source));
        QCOMPARE(g.first->said.filter(ofTheService()), QStringList({"added 3"}));
    });
    g.provoke("sceneAdded");
    const QStringList expected{"added 3", "active 1", "added 4", "active 4", "active 3"};
    QCOMPARE(g.first->said.filter(ofTheService()), expected);
    QCOMPARE(g.last->said.filter(ofTheService()), expected);
}

void tst_CNodeServiceReentry::activeSceneIsSetByTheOuterOperationLast()
{
    CGraph g;
    g.act("sceneAdded", [&] { g.service->setActiveScene(g.service->scenes().first()); });
    CHostModel* const added = g.addSource("new");
    QCOMPARE(g.service->getActiveScene().data(), g.service->scenes().last());
    QCOMPARE(g.service->getActiveScene()->nodes().size(), std::size_t(1));
    QVERIFY(added);

    // The node goes to its own scene even if a handler made another one active meanwhile.
    g.act("activeSceneChanged", [&] { g.service->setActiveScene(g.service->scenes().first()); });
    g.addSource("newer");
    QCOMPARE(g.service->getActiveScene().data(), g.service->scenes().first());
    QCOMPARE(g.service->scenes().last()->nodes().size(), std::size_t(1));
    QCOMPARE(g.service->scenes().first()->nodes().size(), std::size_t(2));
}

void tst_CNodeServiceReentry::sceneAddedWhileAnotherIsRemovedIsToldBefore()
{
    CGraph g;
    g.act("sceneRemoving", [&] { g.addSource("new"); });
    g.provoke("sceneRemoving");
    const QStringList expected{"removing 2", "added 3", "active 3", "removed", "active 1"};
    QCOMPARE(g.first->said.filter(ofTheService()), expected);
    QCOMPARE(g.last->said.filter(ofTheService()), expected);
}

void tst_CNodeServiceReentry::firstSceneBecomesActiveAfterHandlersOfRemoved()
{
    CGraph g;
    g.addSource("third");
    g.first->take();
    g.act("sceneRemoved", [&] { g.service->setActiveScene(g.service->scenes().last()); });
    g.provoke("sceneRemoved");
    QCOMPARE(g.first->said.filter(ofTheService()), QStringList({"removing 2", "removed", "active 3", "active 1"}));
    QCOMPARE(g.service->getActiveScene().data(), g.service->scenes().first());
}

void tst_CNodeServiceReentry::removalAskedForTwiceIsOne()
{
    CGraph g;
    QObject context;
    const auto removeAgain = [&] {
        g.service->removeSceneOfNode(g.camIds[1]);
        g.service->removeSceneOfNode(g.viewIds[1]);
    };
    connect(g.service.get(), &INodeService::sceneRemoving, &context, removeAgain);
    connect(g.service.get(), &INodeService::activeSceneChanged, &context, removeAgain);
    g.service->setActiveScene(g.service->scenes().first());
    QCOMPARE(g.first->said.filter(ofTheService()), QStringList({"active 1", "removing 2", "removed", "active 1"}));
    QCOMPARE(g.last->said.filter(ofTheService()), g.first->said.filter(ofTheService()));
}

void tst_CNodeServiceReentry::removalsOfTwoScenesAreToldInOrder()
{
    CGraph g;
    g.act("sceneRemoving", [&] { g.service->removeSceneOfNode(g.camIds[0]); });
    g.provoke("sceneRemoving");
    // The first scene is in the list until its turn, but no handler is told that it is active after "removing".
    QCOMPARE(g.first->said.filter(ofTheService()), QStringList({"removing 2", "removing 1", "removed", "removed"}));
    QCOMPARE(g.last->said.filter(ofTheService()), g.first->said.filter(ofTheService()));
    QVERIFY(g.service->scenes().isEmpty());
    QVERIFY(g.service->getActiveScene().isNull());
}

void tst_CNodeServiceReentry::sceneThatIsBeingDestroyedIsNeverActive()
{
    CGraph g;
    CNodeScene* const dying = g.service->scenes().first();
    bool hasActed = false;
    g.act("nodeDeleted", [&] {
        hasActed = true;
        QVERIFY(dying->isBeingDestroyed());
        g.service->removeSceneOfNode(g.camIds[1]);
        QVERIFY(g.service->getActiveScene().isNull());
        g.service->setActiveScene(dying);
        QVERIFY(g.service->getActiveScene().isNull());
    });
    CGraph::destroy(dying);
    QVERIFY(hasActed);
    QCOMPARE(g.first->said.filter(ofTheService()), QStringList({"removing 2", "removed", "removed"}));
    QVERIFY(g.service->scenes().isEmpty());
}

void tst_CNodeServiceReentry::removalOutsideOfTheServicesSignalsIsAtOnce()
{
    for (const char* signal : {"nodeCreated", "connectionCreated", "connectionDeleted", "setInData"}) {
        CGraph g;
        const QPointer<CNodeScene> scene = g.service->scenes().last();
        g.act(signal, [&] {
            g.service->removeSceneOfNode(g.camIds[1]);
            QVERIFY(scene.isNull());
            QCOMPARE(g.first->said.filter(ofTheService()), QStringList({"removing 2", "removed", "active 1"}));
        });
        g.provoke(signal);
        QVERIFY(scene.isNull());
    }
}

void tst_CNodeServiceReentry::newSceneThatAHandlerDestroysTakesNoNode_data()
{
    QTest::addColumn<QString>("signal");
    QTest::newRow("sceneAdded") << "sceneAdded";
    QTest::newRow("activeSceneChanged") << "activeSceneChanged";
    QTest::newRow("nodeCreated") << "nodeCreated";
}

void tst_CNodeServiceReentry::newSceneThatAHandlerDestroysTakesNoNode()
{
    QFETCH(QString, signal);
    CGraph g;
    g.act(signal, [&] { CGraph::destroy(g.service->scenes().last()); });
    QVERIFY(g.service->addNode(makeSource("new"), nullptr) == Core::CId());
    QStringList expected{"added 3", "active 3", "removed", "active 1"};
    if (signal == "sceneAdded")
        expected.removeOne("active 3");
    QCOMPARE(g.first->said.filter(ofTheService()), expected);
    QCOMPARE(g.service->scenes().size(), 2);
    QCOMPARE(CHostModel::alive(), 4);
}

void tst_CNodeServiceReentry::removedSceneThatAHandlerDestroysIsToldOnce()
{
    CGraph g;
    g.act("sceneRemoving", [&] { CGraph::destroy(g.told); });
    g.provoke("sceneRemoving");
    QCOMPARE(g.first->said.filter(ofTheService()), QStringList({"removing 2", "removed", "active 1"}));
    QCOMPARE(g.last->said.filter(ofTheService()), g.first->said.filter(ofTheService()));
    QCOMPARE(g.service->scenes().size(), 1);
}

void tst_CNodeServiceReentry::everyHandlerHearsOfASceneThatAnotherWantsRemoved()
{
    CGraph g;
    g.act("activeSceneChanged", [&] { g.service->removeSceneOfNode(g.camIds[1]); });
    int heard = 0;
    QObject context;
    connect(g.service.get(), &INodeService::activeSceneChanged, &context, [&](CNodeScene* scene) {
        if (++heard == 1) {
            QCOMPARE(scene, g.service->scenes().last());
            QCOMPARE(scene->nodes().size(), std::size_t(2));
        }
    });
    g.service->setActiveScene(g.service->scenes().last());
    QCOMPARE(g.first->said.filter(ofTheService()), QStringList({"active 2", "removing 2", "removed", "active 1"}));
    QCOMPARE(heard, 2);
}

void tst_CNodeServiceReentry::serviceThatAHandlerDestroysSaysNoMore_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("sceneAdded") << "sceneAdded" << QStringList{"added 3"};
    QTest::newRow("activeSceneChanged") << "activeSceneChanged" << QStringList{"added 3", "active 3"};
    QTest::newRow("sceneRemoving") << "sceneRemoving" << QStringList{"removing 2"};
    QTest::newRow("sceneRemoved") << "sceneRemoved" << QStringList{"removing 2", "removed"};
}

void tst_CNodeServiceReentry::serviceThatAHandlerDestroysSaysNoMore()
{
    QFETCH(QString, signal);
    QFETCH(QStringList, expected);
    CGraph g;
    g.act(signal, [&] {
        g.service->setActiveScene(g.service->scenes().first()); // to be told, and never told
        g.service.reset();
    });
    g.provoke(signal);
    QVERIFY(!g.service);
    QCOMPARE(g.first->said.filter(ofTheService()), expected);
    QCOMPARE(CHostModel::alive(), 0);
}

void tst_CNodeServiceReentry::throwingHandlerHoldsUpNoTurn()
{
    CGraph g;
    g.act("activeSceneChanged", [&] {
        g.service->removeSceneOfNode(g.camIds[1]);
        g.service->setActiveScene(g.service->scenes().last());
        throw std::runtime_error("handler");
    });
    g.service->setActiveScene(g.service->scenes().first());
    QCOMPARE(g.first->said.filter(ofTheService()),
             QStringList({"active 1", "removing 2", "active 2", "removed", "active 1"}));
    QCOMPARE(g.messages.texts("halvex.service").filter("handler").size(), 1);
    QCOMPARE(inconsistencyOf(*g.service), QString());
}

QTEST_GUILESS_MAIN(tst_CNodeServiceReentry)
#include "tst_CNodeServiceReentry.moc"
