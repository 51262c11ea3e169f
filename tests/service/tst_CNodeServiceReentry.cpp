// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What the service says, and in which order, when handlers and models that it calls use it or destroy it. That all
// stays sound whatever they do to scenes, nodes and connections, the deletion matrix proves.

#include "CServiceFixture.h"

#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

/// What the service itself said; what a scene says begins with its number.
QString ofTheService(const CServiceLog& log)
{
    return log.said.filter(QRegularExpression("^[a-z]")).join(", ");
}

/// A service with two scenes, "cam-1" → "view-1" and "cam-2" → "view-2", the second of which is active. Whatever the
/// service and its scenes tell is heard by a first log, by the test's action, once, and by a last log.
class CGraph : public CServiceFixture
{
public:
    CGraph()
    {
        registerAsFirstHandler();
        last = std::make_unique<CServiceLog>(*service);
        for (const int scene : {0, 1}) {
            cams[scene] = addWatched(makeSource(QString("cam-%1").arg(scene + 1)));
            views[scene] = addWatched(makeModel(ENodeDataModelType::Sink, QString("view-%1").arg(scene + 1)));
            connect(views[scene], cams[scene]);
        }
        service->addStoredDocument(document(chainOfAll()));
        log.take();
        last->take();
    }
    ~CGraph()
    {
        m_action = nullptr;
        endService(); // while there is what its models call
    }

    /// Runs \a code when \a signal comes next. Operations of models are named as those.
    void act(const QString& signal, const std::function<void()>& code)
    {
        m_actsAt = signal;
        m_action = code;
    }

    /// Does something that makes \a signal come from the second scene, or from that of a new source, which it returns.
    SPlaced provoke(const QString& signal)
    {
        if (signal == "sceneRemoving" || signal == "sceneRemoved" || signal == "destroyed")
            service->removeSceneOfNode(cams[1].id);
        else if (signal == "nodeDeleted" || signal == "connectionDeleted" || signal == "~model")
            service->removeNode(views[1].id, true);
        else if (signal == "connectionCreated")
            service->connectModels(views[1].model, 1, cams[1].model, 0);
        else if (signal == "setInData")
            cams[1].model->offer(CTestData::make(1));
        else if (signal == "restore")
            import(chainOfAll());
        else if (signal == "nodeCreated")
            addView("new");
        else
            return addWatched(makeSource("new"));
        return {};
    }

    SPlaced addWatched(std::unique_ptr<CNamedTestModel> model)
    {
        watch(*model);
        return add(std::move(model));
    }

    /// Fed by the active scene's camera, whichever it is.
    static QJsonArray chainOfAll()
    {
        return {element("a", "Watched", fedBy({"cam-1", "cam-2", "new"})), element("b", "View", fedBy({"a"}))};
    }

    /// The model, or null if its node is gone.
    CNamedTestModel* modelOf(const SPlaced& placed) const
    {
        return service->findNode(placed.id) ? placed.model : nullptr;
    }

    /// What is wrong with the service between operations, or an empty text.
    QString disorder() const;

    SPlaced cams[2] = {};
    SPlaced views[2] = {};
    std::unique_ptr<CServiceLog> last;

private:
    void watch(CNamedTestModel& model)
    {
        model.onIsUnique = [this] { on("isUnique"); };
        model.onPorts = [this] { on("nPorts"); };
        model.onSetInData = [this](const CNodeDataPtr&, int) { on("setInData"); };
        model.onRestore = [this] { on("restore"); };
        model.onDestroyed = [this] { on("~model"); };
    }

    void on(const char* signal)
    {
        if (m_action && m_actsAt == signal)
            std::exchange(m_action, nullptr)();
    }

    void registerAsFirstHandler()
    {
        service->registry()->registerModel(
            [this] {
                auto model = makeModel(ENodeDataModelType::Sink, "Watched");
                watch(*model);
                return model;
            },
            QStringLiteral("Test"));
        const auto connectTo = [this](auto* sender, auto signal, const char* name) {
            QObject::connect(sender, signal, &m_context, [this, name] { on(name); });
        };
        QObject::connect(service.get(), &INodeService::sceneAdded, &m_context, [connectTo](CNodeScene* scene) {
            connectTo(scene, &CNodeScene::nodeCreated, "nodeCreated");
            connectTo(scene, &CNodeScene::nodeDeleted, "nodeDeleted");
            connectTo(scene, &CNodeScene::connectionCreated, "connectionCreated");
            connectTo(scene, &CNodeScene::connectionDeleted, "connectionDeleted");
            connectTo(scene, &QObject::destroyed, "destroyed");
        });
        connectTo(service.get(), &INodeService::sceneAdded, "sceneAdded");
        connectTo(service.get(), &INodeService::activeSceneChanged, "activeSceneChanged");
        connectTo(service.get(), &INodeService::sceneRemoving, "sceneRemoving");
        connectTo(service.get(), &INodeService::sceneRemoved, "sceneRemoved");
    }

    QString m_actsAt;
    std::function<void()> m_action;
    QObject m_context;
};

QString CGraph::disorder() const
{
    const QString unsound = inconsistencyOfScenes(*service);
    if (!unsound.isEmpty())
        return unsound;

    int nodes = 0;
    const auto scenes = service->scenes();
    for (const CNodeScene* scene : scenes) {
        nodes += nodeCount(scene);
        for (const auto& entry : scene->nodes()) {
            auto* const model = dynamic_cast<ANodeDataModel*>(entry.second->nodeDataModel());
            const bool isFromDocument = service->documentNodes().contains(entry.second.get());
            if (service->findNodeByModel(model) != (isFromDocument ? nullptr : entry.second.get()))
                return "a node is neither one from a document nor found by its model, or both";
        }
    }
    const auto documentNodes = service->documentNodes();
    for (CNodeBase* node : documentNodes) {
        if (service->findNode(node->id()) != node)
            return "a document node is in no scene";
    }
    if (nodes != CTestModels::alive())
        return QString("there are %1 models for %2 nodes").arg(CTestModels::alive()).arg(nodes);

    // Handlers heard of scenes that were there, and of each of them once that it goes and was removed.
    const QStringList said = log.said.filter(QRegularExpression("^[a-z]"));
    QStringList present{"none", "1", "2"};
    for (const QString& entry : said) {
        const QString number = entry.section(' ', 1);
        if (entry.startsWith("added"))
            present << number;
        else if (entry != "removed" && !present.contains(number))
            return "told of before it was added: " + entry;
        if (entry.startsWith("removing") && said.count(entry) != 1)
            return "told twice: " + entry;
    }
    if (service->scenes().size() != present.size() - 1 - said.count("removed"))
        return "a scene has gone without a word";
    const QStringList active = said.filter("active");
    if (!active.isEmpty() && service->getActiveScene() && active.last() != "active " + log.numberOf(this->active()))
        return "another scene is active than was told";
    return {};
}

using G = CGraph;
using Operation = std::function<void(G&)>;

} // namespace

Q_DECLARE_METATYPE(Operation)

class tst_CNodeServiceReentry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anythingInAnySignal_data();
    void anythingInAnySignal();
    void order_data();
    void order();

    void sceneThatIsBeingDestroyedIsNeverActive();
};

// Everything of the service that the matrix does not do.
void tst_CNodeServiceReentry::anythingInAnySignal_data()
{
    QTest::addColumn<Operation>("operation");
    const auto add = [](const char* name, const Operation& operation) { QTest::newRow(name) << operation; };

    add("add sources", [](G& g) {
        for (const char* name : {"added-1", "added-2"})
            g.addWatched(makeSource(name));
    });
    add("add a view", [](G& g) { g.addView("added"); });
    add("add a unique view", [](G& g) {
        auto view = makeModel(ENodeDataModelType::Sink);
        view->unique = true;
        g.add(std::move(view));
    });
    add("add the same source", [](G& g) {
        if (CNamedTestModel* const cam = g.modelOf(g.cams[0]))
            g.addAgain(cam);
    });
    add("remove a node and its lonely scene", [](G& g) { g.service->removeNode(g.cams[1].id, true); });
    add("remove a node by its model", [](G& g) {
        ANodeDataModel* model = g.modelOf(g.cams[1]);
        g.service->removeNodeByModel(model, true);
    });
    add("remove every scene, twice", [](G& g) {
        for (const int scene : {1, 0, 1, 0})
            g.service->removeSceneOfNode(g.cams[scene].id);
    });
    add("connect", [](G& g) { g.service->connectModels(g.modelOf(g.views[1]), 1, g.modelOf(g.cams[1]), 1); });
    add("import what is stored", [](G& g) { g.service->importStoredDocuments(); });
    add("look things up", [](G& g) {
        for (const SPlaced& placed : {g.cams[0], g.cams[1], g.views[0], g.views[1]})
            g.service->findNodeByModel(g.modelOf(placed));
        g.service->findSceneByInfo(nullptr);
        g.service->createModel("View");
        const auto documentNodes = g.service->documentNodes();
        for (CNodeBase* node : documentNodes)
            node->save();
    });
    add("destroy the service", [](G& g) { g.service.reset(); });
}

void tst_CNodeServiceReentry::anythingInAnySignal()
{
    QFETCH(Operation, operation);
    // Once in what the service does, once in what a host does that destroys the scene.
    const QStringList ofTheHost{"nodeDeleted", "connectionDeleted", "~model", "destroyed", "sceneRemoved"};
    const QStringList signalsInOrder =
        QStringList{"sceneAdded", "activeSceneChanged", "sceneRemoving", "nodeCreated", "connectionCreated", "isUnique",
                    "nPorts",     "setInData",          "restore"} +
        ofTheHost + ofTheHost;
    for (int i = 0; i < signalsInOrder.size(); ++i) {
        const QString& signal = signalsInOrder.at(i);
        const bool isByTheHost = i >= signalsInOrder.size() - ofTheHost.size();
        G g;
        bool hasActed = false;
        g.act(signal, [&] {
            hasActed = true;
            operation(g);
        });
        if (isByTheHost)
            delete g.scene(1);
        else
            g.provoke(signal);
        QVERIFY2(hasActed, qPrintable(signal));
        if (!g.service)
            continue;
        QVERIFY2(g.disorder().isEmpty(), qPrintable(signal + ": " + g.disorder()));
        QCOMPARE(ofTheService(*g.last), ofTheService(g.log));
        if (isByTheHost)
            QVERIFY(!g.log.said.contains("removing 2"));

        // And it goes on as ever.
        g.log.take();
        QVERIFY(g.addSource("later").id != Core::CId());
        QCOMPARE(g.log.take().size(), 3);
    }
}

void tst_CNodeServiceReentry::order_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<Operation>("operation");
    const auto add = [](const char* what, const char* signal, const char* expected, const Operation& operation) {
        QTest::addRow("%s, in %s", what, signal) << signal << expected << operation;
    };
    const Operation addSource = [](G& g) { g.addSource("nested"); };
    const Operation removeSecond = [](G& g) { g.service->removeSceneOfNode(g.cams[1].id); };
    const Operation activateFirst = [](G& g) { g.service->setActiveScene(g.scene(0)); };

    add("changes are at once and told later", "sceneAdded", "added 3, active 1, added 4, active 4, active 3", [](G& g) {
        g.service->setActiveScene(g.scene(0));
        QCOMPARE(g.active(), g.scene(0));
        QVERIFY(g.addView("now").id != Core::CId());
        const SPlaced nested = g.addSource("nested");
        QCOMPARE(g.sceneCount(), 4);
        QCOMPARE(g.active(), g.scene(3));
        QVERIFY(g.service->findNodeByModel(nested.model));
        QCOMPARE(ofTheService(g.log), QString("added 3"));
    });
    // The new node goes to its own scene, whichever is active, and what the outer operation activates comes last.
    add("other activated", "sceneAdded", "added 3, active 1, active 3", activateFirst);
    add("other activated", "activeSceneChanged", "added 3, active 3, active 1", activateFirst);
    add("source added", "sceneRemoving", "removing 2, added 3, active 3, removed, active 1", addSource);
    add("source added", "sceneRemoved", "removing 2, removed, added 3, active 3, active 1", addSource);
    add("removed twice", "sceneRemoving", "removing 2, removed, active 1", removeSecond);
    add("removed twice", "activeSceneChanged", "added 3, active 3, removing 2, removed, active 1", [=](G& g) {
        removeSecond(g);
        removeSecond(g);
    });
    add("destroyed", "sceneRemoving", "removing 2, removed, active 1", [](G& g) { delete g.scene(1); });
    add("handler throws", "activeSceneChanged", "added 3, active 3, removing 2, active 1, removed, active 1",
        [=](G& g) {
            removeSecond(g);
            activateFirst(g);
            throw std::runtime_error("thrown by the test");
        });

    // A scene lives until its turn to go. In signals of the service that is later, in others at once.
    const Operation removeFirst = [](G& g) {
        const QPointer<CNodeScene> scene = g.scene(0);
        g.service->removeSceneOfNode(g.cams[0].id);
        QVERIFY(scene);
        QCOMPARE(g.scene(0), scene.data());
        QCOMPARE(G::nodeCount(scene), 2);
        QVERIFY(!g.log.said.contains("removing 1"));
    };
    add("other removed", "sceneAdded", "added 3, removing 1, removed, active 2, active 3", removeFirst);
    add("other removed", "activeSceneChanged", "added 3, active 3, removing 1, removed, active 2", removeFirst);
    add("other removed", "sceneRemoved", "removing 2, removed, removing 1, removed", removeFirst);
    // No handler is told that the first scene is active after "removing".
    add("other removed", "sceneRemoving", "removing 2, removing 1, removed, removed", removeFirst);
    for (const char* signal : {"nodeCreated", "connectionCreated", "connectionDeleted", "setInData"}) {
        add("removed", signal, "removing 2, removed, active 1", [=](G& g) {
            removeSecond(g);
            QCOMPARE(g.sceneCount(), 1);
            QCOMPARE(ofTheService(g.log), QString("removing 2, removed, active 1"));
        });
    }

    // A source that has lost its new scene has no node.
    const Operation destroyNew = [](G& g) { delete g.scene(2); };
    add("new scene destroyed", "sceneAdded", "added 3, removed, active 1", destroyNew);
    add("new scene destroyed", "activeSceneChanged", "added 3, active 3, removed, active 1", destroyNew);

    const Operation destroyService = [=](G& g) {
        activateFirst(g); // to be told, and never told
        g.service.reset();
    };
    add("service destroyed", "sceneAdded", "added 3", destroyService);
    add("service destroyed", "activeSceneChanged", "added 3, active 3", destroyService);
    add("service destroyed", "sceneRemoving", "removing 2", destroyService);
    add("service destroyed", "sceneRemoved", "removing 2, removed", destroyService);
}

void tst_CNodeServiceReentry::order()
{
    QFETCH(QString, signal);
    QFETCH(QString, expected);
    QFETCH(Operation, operation);
    G g;
    g.act(signal, [&] { operation(g); });
    const SPlaced added = g.provoke(signal);
    QCOMPARE(ofTheService(g.log), expected);
    if (!g.service)
        return;
    QVERIFY(added.id == Core::CId() || g.service->findNode(added.id));
    const auto scenes = g.service->scenes();
    for (const CNodeScene* scene : scenes)
        QVERIFY(scene->nodes().count(added.id) == 0 || G::nodeCount(scene) == 1);
    QCOMPARE(g.disorder(), QString());
    // The handlers after one that throws are not told.
    if (g.messages.texts("halvex.service").filter("thrown by the test").isEmpty())
        QCOMPARE(ofTheService(*g.last), expected);
}

void tst_CNodeServiceReentry::sceneThatIsBeingDestroyedIsNeverActive()
{
    G g;
    CNodeScene* const dying = g.scene(0);
    bool hasActed = false;
    g.act("nodeDeleted", [&] {
        hasActed = true;
        QVERIFY(dying->isBeingDestroyed());
        g.service->removeSceneOfNode(g.cams[1].id);
        QVERIFY(g.service->getActiveScene().isNull());
        g.service->setActiveScene(dying);
        QVERIFY(g.service->getActiveScene().isNull());
    });
    delete dying;
    QVERIFY(hasActed);
    QCOMPARE(ofTheService(g.log), QString("removing 2, removed, removed"));
    QCOMPARE(g.sceneCount(), 0);
}

QTEST_GUILESS_MAIN(tst_CNodeServiceReentry)
#include "tst_CNodeServiceReentry.moc"
