// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Scenes from outside; what their own handlers and models may do to them is in tst_CNodeSceneReentry. Each CTestScene
// is proved sound when it goes.

#include <Halvex/scene/CNodeScene.h>

#include "scene/SceneSupport.h"
#include "support/BoundedWait.h"
#include "support/HasAssertions.h"
#include "support/MetaTypes.h"

#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <csignal>
#include <cstdio>
#include <functional>
#include <type_traits>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Plugin::Halvex;

Q_DECLARE_METATYPE(Plugin::Halvex::CNodeScene*) // as hosts do
using Core::AppCoreComponents::BaseInfoPtr;

static_assert(std::is_base_of_v<QObject, CNodeScene> && !std::is_copy_constructible_v<CNodeScene>, "an object");

namespace {

constexpr const char* staticSceneWanted = "HALVEX_TEST_STATIC_SCENE";

bool isStaticSceneWanted()
{
    return qEnvironmentVariableIsSet(staticSceneWanted);
}

using Numbers = std::vector<int>;

void placeMany(CNodeScene& scene, int count)
{
    for (int i = 0; i < count; ++i)
        place(scene);
}

std::vector<CNodeBase*> nodesInOrder(const CNodeScene& scene)
{
    std::vector<CNodeBase*> nodes;
    for (const auto& entry : scene.nodes())
        nodes.push_back(entry.second.get());
    return nodes;
}

/// Visits the nodes, or, through the other operation, their models, which \a visitor is told of as their nodes.
void visit(CNodeScene& scene, bool asModels, const std::function<void(CNodeBase*)>& visitor)
{
    if (!asModels)
        return scene.iterateOverNodes(visitor);
    scene.iterateOverNodeData([&](CNodeDataModel* model) {
        for (CNodeBase* const node : nodesInOrder(scene)) {
            if (node->nodeDataModel() == model)
                return visitor(node);
        }
    });
}

} // namespace

class tst_CNodeScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void hostMayDeclareItsPointer();
    void registryAndInfoMayBeMissing();
    void missingRegistryIsAsserted();
    void sharesItsRegistryUntilItGetsAnother();
    void belongsToItsParent();
    void releasesWhatItHoldsInOrder();
    void staticSceneOutlivesTheLibrarysStatics();
    void staticSceneOfAnotherProcess() const;

    void createdNodeOwnsTheModel();
    void modelHasTheInfoBeforeItsNodeIsBuilt();
    void noNodeBelongsNowhere();

    void removedNodeGoesAfterItsConnections();
    void consumersOfARemovedNodeReceiveEmptyData();
    void selfConnectionGoesOnce();
    void strangeNodeIsLeftAlone();
    void askingOnceMoreLeavesItWholeWhileItGoes();
    void nodeThatAHandlerRemovedIsNone();
    void nodeWithAChangedIdGoesAlone();
    void nodeReplacedAsItIsRemovedLeavesItsConnections();

    void isBeingDestroyedInItsDestructorAlone();
    void clearsInTheOrderOfTheTable();
    void clearingKeepsHalfConnections();
    void destructionAnnouncesWhatRemains();

    void visitsInTheOrderOfTheTable_data();
    void visitsInTheOrderOfTheTable();
    void emptyVisitorThrowsIfThereIsANode();
    void visitorMayRemoveNodes_data() { visitsInTheOrderOfTheTable_data(); }
    void visitorMayRemoveNodes();
    void visitorMayAdd_data() { visitsInTheOrderOfTheTable_data(); }
    void visitorMayAdd();
};

void tst_CNodeScene::cleanup()
{
    if (isStaticSceneWanted())
        return; // it is to outlive the tests
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeScene::hostMayDeclareItsPointer()
{
    const int type = qMetaTypeId<CNodeScene*>();
    QCOMPARE(MetaTypes::nameOf(type), QByteArray("Plugin::Halvex::CNodeScene*"));
    QVERIFY(QMetaType(type).flags().testFlag(QMetaType::PointerToQObject));
    QCOMPARE(QMetaType(type).metaObject(), &CNodeScene::staticMetaObject);

    CTestScene scene({}, nullptr);
    const QVariant variant = QVariant::fromValue<CNodeScene*>(&scene);
    QCOMPARE(variant.value<CNodeScene*>(), static_cast<CNodeScene*>(&scene));
    QCOMPARE(variant.value<QObject*>(), static_cast<QObject*>(&scene));
}

void tst_CNodeScene::registryAndInfoMayBeMissing()
{
    const CTestScene scene(nullptr, nullptr);
    QVERIFY(!scene.isRegistyValid());
    QVERIFY(scene.nodes().empty() && scene.connections().empty());
    QVERIFY(!scene.getSceneInfo());
    QVERIFY(!scene.parent());

    const BaseInfoPtr info = QSharedPointer<CTestInfo>::create();
    const CTestScene informed(std::shared_ptr<CNodeDataModelRegistry>(), info, nullptr);
    QVERIFY(!informed.isRegistyValid());
    QCOMPARE(informed.getSceneInfo(), info);
    QCOMPARE(CTestScene(info, nullptr).getSceneInfo(), info);
}

void tst_CNodeScene::missingRegistryIsAsserted()
{
    if (!hasAssertions)
        return; // what happens then is undefined
    const CTestScene scene(nullptr, nullptr);
    const pid_t child = fork();
    if (child == 0) {
        // Dies quietly: Qt Test would write a report, and the system an image of the memory.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        std::signal(SIGABRT, SIG_DFL);
        const rlimit noFile{0, 0};
        setrlimit(RLIMIT_CORE, &noFile);
        std::signal(SIGALRM, SIG_DFL);
        alarm(longestWait / 1000);
        scene.registry();
        _exit(0);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status));
    QVERIFY2(WTERMSIG(status) != SIGALRM, "The process neither failed nor went on: it hung.");
    QCOMPARE(WTERMSIG(status), SIGABRT);
}

void tst_CNodeScene::sharesItsRegistryUntilItGetsAnother()
{
    auto registry = std::make_shared<CNodeDataModelRegistry>();
    const std::weak_ptr<CNodeDataModelRegistry> watched = registry;
    const auto other = std::make_shared<CNodeDataModelRegistry>();
    CTestScene scene(registry, nullptr, nullptr);
    QVERIFY(scene.isRegistyValid());
    QCOMPARE(&scene.registry(), registry.get());
    const SPlaced a = place(scene);
    registry.reset();
    QVERIFY(!watched.expired());

    scene.setRegistry(other);
    QVERIFY(watched.expired());
    QCOMPARE(&scene.registry(), other.get());
    QCOMPARE(a.node.nodeDataModel(), &a.model);
    scene.setRegistry(nullptr);
    QVERIFY(!scene.isRegistyValid());
}

void tst_CNodeScene::belongsToItsParent()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<CNodeScene> first = new CTestScene(nullptr, parent.get());
    const QPointer<CNodeScene> second = new CTestScene(nullptr, nullptr, parent.get());
    place(*first);
    parent.reset();
    QVERIFY(!first && !second);
}

void tst_CNodeScene::releasesWhatItHoldsInOrder()
{
    QStringList said;
    auto scene = std::make_unique<CTestScene>(
        std::shared_ptr<CNodeDataModelRegistry>(new CNodeDataModelRegistry,
                                                [&said](const CNodeDataModelRegistry* registry) {
                                                    said << "registry";
                                                    delete registry;
                                                }),
        QSharedPointer<CTestInfo>::create([&said] { said << "info"; }), nullptr);
    const SPlaced a = place(*scene);
    a.model.onDestroyed = [&said] { said << "model"; };
    connect(scene->createConnection(ENodePortType::In, a.node, 0).get(), &QObject::destroyed, this,
            [&said] { said << "half connection"; });

    QCOMPARE(said, QStringList());
    scene.reset();
    QCOMPARE(said, QStringList({"model", "info", "registry", "half connection"}));
}

void tst_CNodeScene::staticSceneOutlivesTheLibrarysStatics()
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(staticSceneWanted, "1");
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {"staticSceneOfAnotherProcess"});
    QVERIFY(process.waitForFinished(60000));
    const QByteArray output = process.readAll();
    QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, output.constData());
    QVERIFY2(output.endsWith("the scene went with 2 nodes, 1 more was made, 1 found\n"), output.constData());
}

void tst_CNodeScene::staticSceneOfAnotherProcess() const
{
    if (!isStaticSceneWanted())
        return; // for the process that staticSceneOutlivesTheLibrarysStatics() starts

    // Made before the library makes statics of its own, so that it is destroyed when they are gone already.
    static struct SLastWords
    {
        ~SLastWords() { std::printf("the scene went with %d nodes, %d more was made, %d found\n", gone, made, found); }
        int gone = 0;
        int made = 0;
        int found = 0;
    } words;
    static CNodeScene scene(nullptr, nullptr);
    const SPlaced from = place(scene, "A");
    const SPlaced to = place(scene, "B");
    QVERIFY(join(scene, from, to));
    connect(&scene, &CNodeScene::nodeDeleted, &scene, [](CNodeBase& node) {
        for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
            node.nodeState().getEntries(side); // for writing, so that what is there is looked up from now on
            words.found += int(node.nodeState().connections(side, 0).size()); // nothing can be found any more
        }
        if (++words.gone == 1)
            words.made += &place(scene, "C").node != &CNodeScene::noNode() ? 1 : 0;
    });
}

void tst_CNodeScene::createdNodeOwnsTheModel()
{
    CTestScene scene(nullptr, nullptr);
    QList<CNodeBase*> announced;
    bool wasInTable = false;
    connect(&scene, &CNodeScene::nodeCreated, &scene, [&](CNodeBase& node) {
        announced << &node;
        wasInTable = scene.nodes().count(node.id()) == 1;
    });

    std::unique_ptr<CNodeDataModel> model = std::make_unique<CTestModel>();
    const CNodeDataModel* const given = model.get();
    CNodeBase& node = scene.createNode(std::move(model));

    QVERIFY(!model); // NOLINT(bugprone-use-after-move): that it was taken is the question
    QCOMPARE(node.nodeDataModel(), given);
    QVERIFY(!node.parent());
    QCOMPARE(announced, QList<CNodeBase*>{&node});
    QVERIFY(wasInTable);
    QCOMPARE(nodesInOrder(scene), std::vector<CNodeBase*>{&node});

    QVERIFY(place(scene).node.id() != node.id());
    QCOMPARE(scene.nodes().size(), std::size_t(2));
}

void tst_CNodeScene::modelHasTheInfoBeforeItsNodeIsBuilt()
{
    const BaseInfoPtr info = QSharedPointer<CTestInfo>::create();
    CTestScene scene(info, nullptr);
    QStringList said;
    auto model = std::make_unique<CTestModel>();
    CTestModel& placed = *model;
    placed.onPorts = [&said] { said << "ports"; };
    connect(&placed, &CNodeDataModel::infoInjected, &scene, [&](const BaseInfoPtr& injected) {
        said << (injected == info && scene.nodes().empty() ? "info" : "something else");
    });

    scene.createNode(std::move(model));
    QCOMPARE(placed.getInfo(), info);
    QCOMPARE(said, QStringList({"info", "ports", "ports"}));
}

void tst_CNodeScene::noNodeBelongsNowhere()
{
    CPairScene scene;
    CNodeBase& none = CNodeScene::noNode();
    QCOMPARE(&scene.createNode(nullptr), &none);
    QCOMPARE(none.id(), Core::CId());
    QVERIFY(none.nodeDataModel());
    QVERIFY(!scene.createConnection(scene.a.node, 0, none, 0, {}));
    QVERIFY(!scene.createConnection(none, 0, scene.a.node, 0, {}));
    QVERIFY(!scene.createConnection(ENodePortType::In, none, 0));
    scene.removeNode(none);
    QCOMPARE(scene.log.said, QStringList());
    QCOMPARE(scene.nodes().size(), std::size_t(2));
    QCOMPARE(&none, &CNodeScene::noNode());
}

void tst_CNodeScene::removedNodeGoesAfterItsConnections()
{
    CPairScene scene;
    const SPlaced hub = place(scene, "Hub", 2, 2);
    const auto fromHub = join(scene, hub, scene.b, 1);
    const auto toHub = join(scene, scene.a, hub, 0, 1);
    join(scene, hub, scene.b);
    join(scene, scene.a, hub);
    join(scene, scene.a, scene.b);
    scene.log.said.clear();
    hub.model.onDestroyed = [&scene] { scene.log.said << "destroyed Hub"; };
    bool wasWhole = false;
    const QObject context; // ends the handler before the scene
    connect(&scene, &CNodeScene::nodeDeleted, &context, [&](CNodeBase& node) {
        wasWhole = isWhole(scene, *fromHub) && isWhole(scene, *toHub) && scene.nodes().count(node.id()) == 1 &&
                   &node == &hub.node && node.nodeDataModel() == &hub.model;
    });

    const QPointer<CNodeBase> watched = &hub.node;
    scene.removeNode(hub.node);
    QCOMPARE(scene.log.said, QStringList({"deleted Hub", "disconnected A0-Hub0", "disconnected A0-Hub1",
                                          "disconnected Hub0-B0", "disconnected Hub1-B0", "destroyed Hub"}));
    QVERIFY(wasWhole);
    QVERIFY(!watched);
    QCOMPARE(scene.nodes().size(), std::size_t(2));
    QCOMPARE(scene.connections().size(), std::size_t(1)); // the one that was not its own
}

void tst_CNodeScene::consumersOfARemovedNodeReceiveEmptyData()
{
    CPairScene scene;
    const SPlaced c = place(scene);
    join(scene, scene.a, scene.b);
    join(scene, scene.b, c);
    scene.a.model.offer(CTestData::make(1));
    scene.removeNode(scene.a.node);
    QCOMPARE(scene.b.model.values(), (Numbers{1, -1}));
    QCOMPARE(c.model.values(), Numbers{1}); // empty data goes no further by itself
}

void tst_CNodeScene::selfConnectionGoesOnce()
{
    CPairScene scene;
    QVERIFY(join(scene, scene.a, scene.a));
    QCOMPARE(inconsistencyOf(scene), QString());
    scene.removeNode(scene.a.node);
    QCOMPARE(scene.log.said, QStringList({"connected A0-A0", "deleted A", "disconnected A0-A0"}));
    QVERIFY(scene.connections().empty());
}

void tst_CNodeScene::strangeNodeIsLeftAlone()
{
    CPairScene scene;
    CPairScene other;
    CNodeBase ofNobody(std::make_unique<CTestModel>());

    scene.removeNode(other.a.node);
    scene.removeNode(ofNobody);
    QCOMPARE(scene.log.said + other.log.said, QStringList());
    QCOMPARE(other.nodes().size(), std::size_t(2));
}

void tst_CNodeScene::askingOnceMoreLeavesItWholeWhileItGoes()
{
    CPairScene scene;
    const auto connection = join(scene, scene.a, scene.b);
    bool isThere = false;
    connect(&scene, &CNodeScene::nodeDeleted, &scene, [&](CNodeBase& node) {
        scene.removeNode(node);
        isThere = scene.nodes().count(node.id()) == 1 && isWhole(scene, *connection);
    });
    scene.removeNode(scene.a.node);
    QVERIFY(isThere);
    QCOMPARE(scene.log.said, QStringList({"connected A0-B0", "deleted A", "disconnected A0-B0"}));
}

void tst_CNodeScene::nodeThatAHandlerRemovedIsNone()
{
    CPairScene scene;
    const CNodeBase* inner = nullptr;
    connect(&scene, &CNodeScene::nodeCreated, &scene, [&](CNodeBase& node) {
        if (node.nodeDataModel()->name() == "outer")
            inner = &place(scene, "inner").node;
        else
            scene.removeNode(node); // it lives on until the outer operation has ended
    });
    QVERIFY(&place(scene, "outer").node != &CNodeScene::noNode());
    QCOMPARE(inner, &CNodeScene::noNode());
}

void tst_CNodeScene::nodeWithAChangedIdGoesAlone()
{
    for (const bool takesAnothers : {true, false}) {
        CPairScene scene;
        const Core::CId idOfB = scene.b.node.id();
        const SPlaced c = place(scene, "C");
        join(scene, scene.a, c);
        join(scene, scene.b, c);
        scene.a.node.restore(takesAnothers ? QJsonObject{{"id", idOfB.toString()}} : QJsonObject());

        scene.removeNode(scene.a.node);
        QCOMPARE(scene.log.said.mid(3), QStringList({"deleted A", "disconnected A0-C0"}));
        QCOMPARE(scene.nodes().at(idOfB).get(), &scene.b.node);
        QCOMPARE(scene.nodes().size(), std::size_t(2));
    }
}

void tst_CNodeScene::nodeReplacedAsItIsRemovedLeavesItsConnections()
{
    auto registry = std::make_shared<CNodeDataModelRegistry>();
    registry->registerModel([] { return std::make_unique<CTestModel>(); }, "Test");
    CTestScene scene(registry, nullptr, nullptr);
    const SPlaced source = place(scene);
    const SPlaced sink = place(scene);
    const auto connection = join(scene, source, sink);
    const Core::CId id = source.node.id();
    connect(&scene, &CNodeScene::nodeDeleted, this, [&] {
        scene.restoreNode({{"id", id.toString()}, {"model", QJsonObject{{"name", "Test"}}}});
    });
    scene.removeNode(source.node);
    // The removal has come too late: what a document replaces keeps its connections, which lead to nothing then.
    QVERIFY(isInTable(scene, *connection));
    QVERIFY(!endOf(*connection, ENodePortType::Out));
    QCOMPARE(scene.nodes().count(id), std::size_t(1));
}

void tst_CNodeScene::isBeingDestroyedInItsDestructorAlone()
{
    auto scene = std::make_unique<CNodeScene>(nullptr, nullptr);
    Numbers told;
    const auto ask = [&told, asked = scene.get()] { told.push_back(asked->isBeingDestroyed() ? 1 : 0); };
    connect(scene.get(), &CNodeScene::nodeDeleted, this, ask);
    ask();
    place(*scene).model.onDestroyed = ask;
    scene->clearScene();
    ask();
    QCOMPARE(told, Numbers({0, 0, 0, 0}));

    told.clear();
    place(*scene).model.onDestroyed = ask;
    scene.reset();
    QCOMPARE(told, Numbers({1, 1}));
}

void tst_CNodeScene::clearsInTheOrderOfTheTable()
{
    CTestScene scene(nullptr, nullptr);
    const CSignalLog log(scene);
    scene.clearScene();
    for (int i = 0; i < 20; ++i)
        place(scene, QString::number(i));
    QStringList expected;
    for (const CNodeBase* const node : nodesInOrder(scene))
        expected << "deleted " + node->nodeDataModel()->name();

    scene.clearScene();
    QCOMPARE(log.said.mid(20), expected);
    QVERIFY(scene.nodes().empty());
    place(scene);
    QCOMPARE(scene.nodes().size(), std::size_t(1));
}

void tst_CNodeScene::clearingKeepsHalfConnections()
{
    CPairScene scene;
    join(scene, scene.a, scene.b);
    const auto half = scene.createConnection(ENodePortType::In, scene.a.node, 0);

    scene.clearScene();
    QCOMPARE(scene.log.said.filter("disconnected"), QStringList{"disconnected A0-B0"});
    QCOMPARE(scene.connections().size(), std::size_t(1));
    QVERIFY(isInTable(scene, *half));
    QVERIFY(!endOf(*half, ENodePortType::In));

    scene.deleteConnection(*half);
    QCOMPARE(scene.log.said.last(), QString("disconnected -"));
    QVERIFY(scene.connections().empty());
}

void tst_CNodeScene::destructionAnnouncesWhatRemains()
{
    auto scene = std::make_unique<CTestScene>(nullptr, nullptr);
    const SPlaced a = place(*scene, "A", 0, 1);
    const SPlaced b = place(*scene, "B", 1, 0);
    const auto shared = join(*scene, a, b);
    QStringList nodes;
    for (const CNodeBase* const node : nodesInOrder(*scene))
        nodes << "deleted " + node->nodeDataModel()->name();

    const CSignalLog log(*scene);
    scene.reset();
    QCOMPARE(log.said, QStringList({nodes[0], "disconnected A0-B0", nodes[1]}));
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(shared.use_count(), 1L);
    QVERIFY(!endOf(*shared, ENodePortType::In) && !endOf(*shared, ENodePortType::Out));
}

void tst_CNodeScene::visitsInTheOrderOfTheTable_data()
{
    QTest::addColumn<bool>("asModels");

    QTest::newRow("nodes") << false;
    QTest::newRow("models") << true;
}

void tst_CNodeScene::visitsInTheOrderOfTheTable()
{
    QFETCH(const bool, asModels);
    CTestScene scene(nullptr, nullptr);
    std::vector<CNodeBase*> visited;
    const auto note = [&visited](CNodeBase* node) { visited.push_back(node); };
    visit(scene, asModels, note);
    QVERIFY(visited.empty());

    placeMany(scene, 20);
    visit(scene, asModels, note);
    QCOMPARE(visited, nodesInOrder(scene));
}

void tst_CNodeScene::emptyVisitorThrowsIfThereIsANode()
{
    const std::function<void(CNodeBase*)> ofNodes;
    const std::function<void(CNodeDataModel*)> ofModels;
    CTestScene scene(nullptr, nullptr);
    scene.iterateOverNodes(ofNodes);
    scene.iterateOverNodeData(ofModels);

    place(scene);
    QVERIFY_EXCEPTION_THROWN(scene.iterateOverNodes(ofNodes), std::bad_function_call);
    QVERIFY_EXCEPTION_THROWN(scene.iterateOverNodeData(ofModels), std::bad_function_call);
}

void tst_CNodeScene::visitorMayRemoveNodes()
{
    QFETCH(const bool, asModels);
    CTestScene scene(nullptr, nullptr);
    placeMany(scene, 5);
    const std::vector<CNodeBase*> before = nodesInOrder(scene);
    std::vector<CNodeBase*> visited;
    visit(scene, asModels, [&](CNodeBase* node) {
        visited.push_back(node);
        if (node != before[1])
            return;
        scene.removeNode(*before[0]);
        scene.removeNode(*before[3]);
        scene.removeNode(*node);
    });
    // The one that was removed before its turn is left out, and no other.
    QCOMPARE(visited, (std::vector<CNodeBase*>{before[0], before[1], before[2], before[4]}));
    QCOMPARE(scene.nodes().size(), std::size_t(2));
}

void tst_CNodeScene::visitorMayAdd()
{
    QFETCH(const bool, asModels);
    CTestScene scene(nullptr, nullptr);
    placeMany(scene, 3);
    int visits = 0;
    visit(scene, asModels, [&](CNodeBase*) {
        ++visits;
        placeMany(scene, 100); // enough to rehash the table
    });
    QCOMPARE(visits, 3);
    QCOMPARE(scene.nodes().size(), std::size_t(303));
}

QTEST_GUILESS_MAIN(tst_CNodeScene)

#include "tst_CNodeScene.moc"
