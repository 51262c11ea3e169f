// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What is written and read when foreign code changes or destroys the scene, or throws, meanwhile. That the scene comes
// through all that is proved by tst_DeletionMatrix.

#include "scene/SceneDocuments.h"
#include "support/CLeakTest.h"
#include "support/CMessageCatcher.h"

#include <QtTest>

#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

using World = SDocumentWorld;

/// What a handler does that is told of a node, or of a connection that leads to it.
using Action = void (*)(World&, CNodeBase&);

void removeIt(World& world, CNodeBase& node)
{
    world.scene->removeNode(node);
}
void removeOthers(World& world, CNodeBase& node)
{
    world.scene->iterateOverNodes([&](CNodeBase* other) {
        if (other != &node)
            world.scene->removeNode(*other);
    });
}
void disconnectIt(World& world, CNodeBase&)
{
    world.scene->deleteConnection(world.onlyConnection());
}
void clear(World& world, CNodeBase&)
{
    world.scene->clearScene();
}
void save(World& world, CNodeBase&)
{
    world.scene->saveToMemory();
}
void destroy(World& world, CNodeBase&)
{
    CTestScene::endInside(world.scene);
}

/// Connects what the converters of connections make them ask for: their types.
void connectWithTypes(const World& world)
{
    world.scene->createConnection(world.node(idB), 0, world.node(idA), 0, &passOn);
    world.scene->createConnection(world.node(idC), 0, world.node(idA), 1, &passOn);
}

} // namespace

Q_DECLARE_METATYPE(Action)

class tst_SceneDocumentReentry : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void handlerDuringALoad_data();
    void handlerDuringALoad();
    void creatorReplacesTheRegistry();
    void handlersThatThrow();
    void restoreThatThrows();
    void replacedNodeIsOutAtOnce();
    void replacedModelRemovesTheNewNode();
    void newNodeIsReplacedWhenItIsAnnounced();
    void nameOfAModelRemovesNodes() const;
    void warningDestroysTheScene_data();
    void warningDestroysTheScene();
    void copiedConverterDestroysTheScene();

    void saveThatRemovesNodes();
    void saveThatChangesConnections();
    void typeAskedForDeletesConnections();
    void typeAskedForDestroysTheScene();
};

void tst_SceneDocumentReentry::handlerDuringALoad_data()
{
    QTest::addColumn<bool>("isOfNodes"); // or of connections
    QTest::addColumn<Action>("action");
    QTest::addColumn<int>("created");
    QTest::addColumn<int>("nodes"); // at the end; -1: the scene is gone
    QTest::addColumn<int>("connections");

    QTest::newRow("node created, removed") << true << Action(&removeIt) << 3 << 0 << 0;
    QTest::newRow("node created, others removed") << true << Action(&removeOthers) << 3 << 1 << 0;
    QTest::newRow("node created, scene cleared") << true << Action(&clear) << 3 << 0 << 0;
    QTest::newRow("node created, scene saved") << true << Action(&save) << 3 << 3 << 2;
    QTest::newRow("node created, scene destroyed") << true << Action(&destroy) << 1 << -1 << 0;
    QTest::newRow("connection created, deleted") << false << Action(&disconnectIt) << 3 << 3 << 0;
    QTest::newRow("connection created, node removed") << false << Action(&removeIt) << 3 << 2 << 0;
    QTest::newRow("connection created, scene cleared") << false << Action(&clear) << 3 << 0 << 0;
    QTest::newRow("connection created, scene destroyed") << false << Action(&destroy) << 3 << -1 << 0;
}

void tst_SceneDocumentReentry::handlerDuringALoad()
{
    QFETCH(const bool, isOfNodes);
    QFETCH(const Action, action);
    World world;
    const CNodeScene* const scene = world.scene.get();
    // The world ends before the action does.
    const auto onNode = [&](CNodeBase& node) { action(world, node); };
    const auto onConnection = [&](const CNodeConnection& made) { action(world, *made.getNode(ENodePortType::In)); };
    if (isOfNodes)
        connect(scene, &CNodeScene::nodeCreated, scene, onNode);
    else
        connect(scene, &CNodeScene::connectionCreated, scene, onConnection);
    world.loadChain();

    QTEST(world.log->count("created"), "created");
    QTEST(world.scene ? int(world.scene->nodes().size()) : -1, "nodes");
    QTEST(world.scene ? int(world.scene->connections().size()) : 0, "connections");
}

void tst_SceneDocumentReentry::creatorReplacesTheRegistry()
{
    World world;
    const World other;
    world.onCreate = [&](CTestModel&) {
        world.registry.reset();
        world.scene->setRegistry(other.registry);
    };
    world.loadChain();
    QCOMPARE(world.contents(), contentsOf(chainDocument()));
}

void tst_SceneDocumentReentry::handlersThatThrow()
{
    for (const bool onNode : {true, false}) {
        const World world;
        const auto throwOnce = [throws = true]() mutable {
            if (std::exchange(throws, false))
                throw std::runtime_error("handler");
        };
        if (onNode)
            connect(world.scene.get(), &CNodeScene::nodeCreated, throwOnce);
        else
            connect(world.scene.get(), &CNodeScene::connectionCreated, throwOnce);
        QVERIFY_EXCEPTION_THROWN(world.loadChain(), std::runtime_error);
        QCOMPARE(world.scene->nodes().size(), std::size_t(onNode ? 1 : 3));
        QCOMPARE(inconsistencyOf(*world.scene), QString());

        world.scene->clearScene();
        world.loadChain();
        QCOMPARE(world.scene->nodes().size(), std::size_t(3));
    }
}

void tst_SceneDocumentReentry::restoreThatThrows()
{
    World world;
    world.load({nodeJson(idA), nodeJson(idB)});
    world.onCreate = [](CTestModel& model) { model.onRestore = [] { throw std::runtime_error("settings"); }; };
    QVERIFY_EXCEPTION_THROWN(world.load({nodeJson(idC, "Named"), nodeJson(idB), nodeJson(noId, "Named")}),
                             std::runtime_error);
    QVERIFY(world.has(idC));
    QCOMPARE(world.scene->nodes().size(), std::size_t(3)); // the old one of the same id among them

    world.onCreate = nullptr;
    world.load({}, chainConnections());
    QCOMPARE(world.scene->connections().size(), std::size_t(2));
}

void tst_SceneDocumentReentry::replacedModelRemovesTheNewNode()
{
    const World world;
    world.load({nodeJson(idA)});
    world.log->said.clear();
    world.model(idA).onDestroyed = [&world] { world.scene->removeNode(world.node(idA)); };
    world.load({nodeJson(idA)});
    QVERIFY(!world.has(idA));
    QCOMPARE(world.log->count("created"), 0);
    QCOMPARE(world.log->count("deleted"), 1);
}

void tst_SceneDocumentReentry::replacedNodeIsOutAtOnce()
{
    const World world;
    world.loadChain();
    CNodeBase& replacedNode = world.node(idB);
    int deliveries = 0;
    world.model(idB).onSetInData = [&](const CNodeDataPtr& data, int) {
        if (!data)
            return;
        ++deliveries;
        world.load({nodeJson(idB)});
        // It lives until its delivery has ended, and nothing leads to it meanwhile.
        QCOMPARE(CTestModel::alive(), 4);
        for (const auto& entry : world.scene->connections()) {
            QVERIFY(endOf(*entry.second, ENodePortType::In) != &replacedNode);
            QVERIFY(endOf(*entry.second, ENodePortType::Out) != &replacedNode);
        }
        QVERIFY(!world.scene->createConnection(replacedNode, 0, world.node(idA), 0, {}));
        QVERIFY(!world.scene->createConnection(ENodePortType::In, replacedNode, 0));
        world.scene->removeNode(replacedNode);
        QVERIFY(world.has(idB));
    };
    world.model(idA).offer(CTestData::make(1));
    QCOMPARE(deliveries, 1);
    QCOMPARE(CTestModel::alive(), 3);
}

void tst_SceneDocumentReentry::newNodeIsReplacedWhenItIsAnnounced()
{
    const World world;
    int announced = 0;
    connect(world.scene.get(), &CNodeScene::nodeCreated, world.scene.get(), [&](CNodeBase& node) {
        if (++announced == 1)
            world.load({nodeJson(node.id().toString())});
    });
    const CNodeBase& node = world.scene->createNode(std::make_unique<CTestModel>());
    QCOMPARE(announced, 2);
    QCOMPARE(&node, &CNodeScene::noNode()); // nobody could use the one that is gone
    QCOMPARE(world.scene->nodes().size(), std::size_t(1));
}

void tst_SceneDocumentReentry::nameOfAModelRemovesNodes() const
{
    for (const bool wholeScene : {false, true}) {
        auto scene = std::make_unique<CTestScene>(nullptr, nullptr);
        const SPlaced fleeting = place(*scene, "Fleeting");
        fleeting.model.onName = [&] { wholeScene ? scene.reset() : scene->removeNode(fleeting.node); };
        QCOMPARE(&scene->restoreNode(nodeJson(idA, "Fleeting", true)), &CNodeScene::noNode());
        QCOMPARE(CTestModel::alive(), 0);
    }
}

void tst_SceneDocumentReentry::warningDestroysTheScene_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::newRow("no JSON") << QByteArray("no JSON at all");
    QTest::newRow("no array") << QByteArray(R"({"nodes": {}, "connections": 7})");
    QTest::newRow("no object") << QByteArray(R"({"nodes": [], "connections": [5, {"in_id": ""}]})");
}

// Whoever installs a message handler runs code in the middle of a load.
void tst_SceneDocumentReentry::warningDestroysTheScene()
{
    QFETCH(const QByteArray, document);
    World world;
    CMessageCatcher messages;
    messages.onMessage = [&world] {
        if (world.scene)
            CTestScene::endInside(world.scene);
    };
    world.scene->loadFromMemory(document);
    QVERIFY(!world.scene);
    QVERIFY(!messages.texts("halvex.usage").isEmpty());
}

void tst_SceneDocumentReentry::copiedConverterDestroysTheScene()
{
    World world;
    world.loadChain();
    bool isArmed = false;
    const auto destroyTheScene = [&] {
        if (isArmed && world.scene)
            CTestScene::endInside(world.scene);
    };
    world.registry->registerTypeConverter({CTestData::defaultType(), CTestData::defaultType()},
                                          [watch = SCopyWatch(destroyTheScene)](CNodeDataPtr data) { return data; });
    const SNodeDataType type = CTestData::defaultType();
    const QJsonObject json{{"id", type.id}, {"name", type.name}};
    isArmed = true;
    QVERIFY(!world.scene->restoreConnection({{"converter", QJsonObject{{"in", json}, {"out", json}}}}));
    QVERIFY(!world.scene);
}

void tst_SceneDocumentReentry::saveThatRemovesNodes()
{
    for (const bool wholeScene : {false, true}) {
        World world;
        world.loadChain();
        // Whichever is asked first removes the two others and then itself.
        for (const QString& id : {idA, idB, idC})
            world.model(id).onSave = [&] { wholeScene ? world.scene.reset() : world.scene->clearScene(); };
        const QJsonObject root = world.saved();

        QCOMPARE(root["nodes"].toArray().size(), 1);
        QCOMPARE(root["nodes"][0]["model"]["name"].toString(), QString("Test"));
        QCOMPARE(root["connections"].toArray(), QJsonArray());
        QCOMPARE(world.scene == nullptr, wholeScene);
        QCOMPARE(CTestModel::alive(), 0);
    }
}

void tst_SceneDocumentReentry::saveThatChangesConnections()
{
    const World world;
    world.loadChain();
    // Whichever is asked first: what it deletes is not saved, what it makes is.
    bool isFirst = true;
    for (const QString& id : {idA, idB, idC}) {
        world.model(id).onSave = [&] {
            if (!std::exchange(isFirst, false))
                return;
            while (!world.scene->connections().empty())
                world.scene->deleteConnectionNow(world.onlyConnection());
            QVERIFY(world.scene->restoreConnection(connectionJson(idB, idB)));
        };
    }
    QCOMPARE(world.saved()["connections"].toArray(), QJsonArray{connectionJson(idB, idB)});
}

void tst_SceneDocumentReentry::typeAskedForDeletesConnections()
{
    const World world;
    world.load(chainNodes());
    connectWithTypes(world);
    // Whichever is saved first deletes the other.
    world.model(idA).onDataType = [&world](ENodePortType, NodePortIndex index) {
        const auto present = world.scene->connections();
        for (const auto& entry : present) {
            if (entry.second->getPortIndex(ENodePortType::Out) != index)
                world.scene->deleteConnectionNow(*entry.second);
        }
        return CTestData::defaultType();
    };
    QCOMPARE(world.saved()["connections"].toArray().size(), 1);
    QCOMPARE(world.scene->connections().size(), std::size_t(1));
}

void tst_SceneDocumentReentry::typeAskedForDestroysTheScene()
{
    World world;
    world.load(chainNodes());
    connectWithTypes(world);
    world.model(idA).onDataType = [&world](ENodePortType, NodePortIndex) {
        world.scene.reset();
        return CTestData::defaultType();
    };
    const QJsonObject root = world.saved();
    QVERIFY(!world.scene);
    QCOMPARE(root["nodes"].toArray().size(), 3);
    QCOMPARE(root["connections"].toArray().size(), 1); // the one that was asked
}

QTEST_GUILESS_MAIN(tst_SceneDocumentReentry)
#include "tst_SceneDocumentReentry.moc"
