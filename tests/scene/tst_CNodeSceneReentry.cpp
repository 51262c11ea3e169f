// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a scene does when its own handlers, or the models that a walk runs through, change or destroy it.

#include <Halvex/scene/CNodeScene.h>

#include "support/CMessageCatcher.h"
#include "support/CTestData.h"
#include "support/CTestModel.h"
#include "support/CTestScene.h"
#include "support/SceneConsistency.h"

#include <QTest>

#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

CTestModel& modelOf(CNodeBase& node)
{
    return *static_cast<CTestModel*>(node.nodeDataModel());
}

/// Something for a converter to capture that notices when it is copied.
class CCopyWatch
{
public:
    explicit CCopyWatch(std::function<void()> onCopied)
        : m_onCopied(std::move(onCopied))
    {
    }
    CCopyWatch(const CCopyWatch& other)
        : m_onCopied(other.m_onCopied)
    {
        m_onCopied();
    }
    CCopyWatch& operator=(const CCopyWatch&) = delete;
    CCopyWatch(CCopyWatch&&) = default;
    CCopyWatch& operator=(CCopyWatch&&) = delete;
    ~CCopyWatch() = default;

private:
    std::function<void()> m_onCopied;
};

/// A scene with a chain first → second → third, and what its signals said.
class CChain
{
public:
    CChain()
    {
        for (CNodeBase** node : {&first, &second, &third})
            *node = &scene->createNode(std::make_unique<CTestModel>());
        upper = scene->createConnection(*second, 0, *first, 0, NodeDataConverter());
        lower = scene->createConnection(*third, 0, *second, 0, NodeDataConverter());

        connect(&CNodeScene::nodeCreated, "nodeCreated");
        connect(&CNodeScene::nodeDeleted, "nodeDeleted");
        connect(&CNodeScene::connectionCreated, "connectionCreated");
        connect(&CNodeScene::connectionDeleted, "connectionDeleted");
    }

    /// Leaves the connections to the scene alone, which then destroys those it deletes.
    void releaseConnections()
    {
        upper.reset();
        lower.reset();
    }

    /// The handler runs at the first emission of \a signal.
    template <typename Object>
    void atFirst(void (CNodeScene::*signal)(Object&), std::function<void(Object&)> handler)
    {
        auto isFirst = std::make_shared<bool>(true);
        QObject::connect(scene.get(), signal, scene.get(), [isFirst, handler](Object& object) {
            if (std::exchange(*isFirst, false))
                handler(object);
        });
    }

    QStringList said; // before the scene, whose destructor still speaks
    std::unique_ptr<CTestScene> scene = std::make_unique<CTestScene>(nullptr, nullptr);
    CNodeBase* first = nullptr;
    CNodeBase* second = nullptr;
    CNodeBase* third = nullptr;
    std::shared_ptr<CNodeConnection> upper;
    std::shared_ptr<CNodeConnection> lower;

private:
    template <typename Object>
    void connect(void (CNodeScene::*signal)(Object&), const char* name)
    {
        QObject::connect(scene.get(), signal, scene.get(),
                         [this, name](Object&) { said << QString::fromLatin1(name); });
    }
};

enum ESignal
{
    NodeCreated,
    NodeDeleted,
    ConnectionCreated,
    ConnectionDeleted
};

} // namespace

Q_DECLARE_METATYPE(ESignal)

class tst_CNodeSceneReentry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void connectionOutlivesItsNodes();
    void halfConnectionOutlivesItsNode();
    void nodeKnownUnderAChangedIdIsRemoved();

    void deletingAConnectionFromTwoHandlersDeletesItOnce();
    void deletingAConnectionWhileItIsDeletedChangesNothing();
    void connectionOfAnotherSceneIsLeftAlone();

    void removingANodeInAnySignal_data();
    void removingANodeInAnySignal();
    void removingTheAnnouncedNodeTwice();
    void nodeRemovedInAHandlerDiesAfterItsConnections();
    void nodeThatHasLeftTakesNoConnection();
    void clearingInAnySignal_data() { removingANodeInAnySignal_data(); }
    void clearingInAnySignal();
    void destroyingTheSceneInAnySignal_data() { removingANodeInAnySignal_data(); }
    void destroyingTheSceneInAnySignal();
    void createNodeReturnsNoNodeWhenAHandlerRemovedIt();
    void infoHandlerMayDestroyTheScene();

    void modelRemovesItsOwnNodeAndFinishes();
    void modelRemovesItsNeighbours();
    void modelClearsTheScene();
    void modelDestroysTheScene();
    void outDataRemovesItsOwnNode();
    void converterDeletesItsConnection();
    void nodeRemovedDuringANestedWalkIsDestroyedOnce();

    void consumerRemovedByThePushIsNotConnected();
    void producerRemovedByThePushIsNotConnected();
    void sceneDestroyedByThePush();

    void modelDestructorChangesTheScene();
    void handlerThatFillsADyingSceneDoesNotHoldItUp();
    void queueOfADyingSceneIsFinished();
    void longQueueNeedsNoStack();
    void dyingSceneTakesNothingIn();
    void modelThatCountsItsPortsMayDestroyTheScene();
    void copyingAConverterMayRemoveTheNode() const;
    void dyingNodeIsNotConnected();
    void connectionMadeDuringARemovalIsRefused();

    void exceptionOfAHandlerLeavesTheSceneUsable_data() { removingANodeInAnySignal_data(); }
    void exceptionOfAHandlerLeavesTheSceneUsable();
    void exceptionOfAModelLeavesTheSceneUsable();
    void destructorReportsAndSwallowsExceptions();
    void queueRunsInSpiteOfAnException_data() { removingANodeInAnySignal_data(); }
    void queueRunsInSpiteOfAnException();
    void firstOfSeveralExceptionsPasses();
    void nodeThatAnExceptionKeepsTakesConnections();
    void deferredDeletionIsDoneInSpiteOfAnException();
    void destructorGoesOnAfterAnException();

    void nodesOfTwoScenesGoInAnyOrder_data();
    void nodesOfTwoScenesGoInAnyOrder();

private:
    // Makes the scene emit that signal.
    static void provoke(CChain& chain, ESignal signal);
    static void runAtFirst(CChain& chain, ESignal signal, const std::function<void()>& action);
};

void tst_CNodeSceneReentry::cleanup()
{
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeSceneReentry::provoke(CChain& chain, ESignal signal)
{
    switch (signal) {
    case NodeCreated:
        chain.scene->createNode(std::make_unique<CTestModel>());
        break;
    case NodeDeleted:
        chain.scene->removeNode(*chain.first);
        break;
    case ConnectionCreated:
        chain.scene->createConnection(*chain.third, 0, *chain.first, 0, NodeDataConverter());
        break;
    case ConnectionDeleted:
        chain.scene->deleteConnection(*chain.upper);
        break;
    }
}

void tst_CNodeSceneReentry::runAtFirst(CChain& chain, ESignal signal, const std::function<void()>& action)
{
    const auto onNode = [action](CNodeBase&) { action(); };
    const auto onConnection = [action](CNodeConnection&) { action(); };
    switch (signal) {
    case NodeCreated:
        return chain.atFirst<CNodeBase>(&CNodeScene::nodeCreated, onNode);
    case NodeDeleted:
        return chain.atFirst<CNodeBase>(&CNodeScene::nodeDeleted, onNode);
    case ConnectionCreated:
        return chain.atFirst<CNodeConnection>(&CNodeScene::connectionCreated, onConnection);
    case ConnectionDeleted:
        return chain.atFirst<CNodeConnection>(&CNodeScene::connectionDeleted, onConnection);
    }
}

void tst_CNodeSceneReentry::connectionOutlivesItsNodes()
{
    CChain chain;
    const auto kept = chain.upper;
    chain.scene->removeNode(*chain.second);

    QVERIFY(!std::as_const(*kept).getNode(ENodePortType::In));
    QCOMPARE(kept->getPortIndex(ENodePortType::In), -1);
    QCOMPARE(std::as_const(*kept).getNode(ENodePortType::Out), chain.first);
    QVERIFY(kept->save().isEmpty());
    kept->propagateData(CTestData::make(1));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::halfConnectionOutlivesItsNode()
{
    CChain chain;
    const auto half = chain.scene->createConnection(ENodePortType::Out, *chain.first, 0);
    chain.scene->removeNode(*chain.first);

    QCOMPARE(chain.scene->connections().count(half->id()), std::size_t(1));
    QVERIFY(!half->getNode(ENodePortType::Out));
    half->propagateData(CTestData::make(1));
    chain.scene->deleteConnection(*half);
    QCOMPARE(chain.scene->connections().count(half->id()), std::size_t(0));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::nodeKnownUnderAChangedIdIsRemoved()
{
    CChain chain;
    chain.second->restore(QJsonObject());
    chain.scene->removeNode(*chain.second);

    QCOMPARE(chain.scene->nodes().size(), std::size_t(2));
    QCOMPARE(CTestModel::alive(), 2);
    QVERIFY(chain.scene->connections().empty());
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::deletingAConnectionFromTwoHandlersDeletesItOnce()
{
    CChain chain;
    for (int handler = 0; handler < 2; ++handler) {
        QObject::connect(chain.scene.get(), &CNodeScene::connectionCreated, chain.scene.get(), [&chain] {
            chain.scene->deleteConnection(*chain.upper);
            chain.scene->deleteConnection(*chain.upper);
            QCOMPARE(chain.scene->connections().count(chain.upper->id()), std::size_t(1));
        });
    }
    provoke(chain, ConnectionCreated);

    QCOMPARE(chain.said, QStringList({"connectionCreated", "connectionDeleted"}));
    QCOMPARE(chain.scene->connections().count(chain.upper->id()), std::size_t(0));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::deletingAConnectionWhileItIsDeletedChangesNothing()
{
    CChain chain;
    QObject::connect(chain.scene.get(), &CNodeScene::connectionDeleted, chain.scene.get(),
                     [&chain](CNodeConnection& connection) {
                         chain.scene->deleteConnectionNow(connection);
                         chain.scene->deleteConnection(connection);
                         QCOMPARE(chain.scene->connections().count(connection.id()), std::size_t(1));
                     });
    chain.scene->deleteConnectionNow(*chain.upper);

    QCOMPARE(chain.said, QStringList({"connectionDeleted"}));
    QCOMPARE(chain.scene->connections().size(), std::size_t(1));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::connectionOfAnotherSceneIsLeftAlone()
{
    CChain chain;
    CChain other;
    chain.scene->deleteConnection(*other.upper);
    chain.scene->deleteConnectionNow(*other.upper);
    chain.scene->removeNode(*other.first);

    QCOMPARE(chain.said, QStringList());
    QCOMPARE(other.said, QStringList());
    QCOMPARE(other.scene->connections().size(), std::size_t(2));
    QCOMPARE(inconsistencyOf(*other.scene), QString());
}

void tst_CNodeSceneReentry::removingANodeInAnySignal_data()
{
    QTest::addColumn<ESignal>("signal");
    QTest::newRow("nodeCreated") << NodeCreated;
    QTest::newRow("nodeDeleted") << NodeDeleted;
    QTest::newRow("connectionCreated") << ConnectionCreated;
    QTest::newRow("connectionDeleted") << ConnectionDeleted;
}

void tst_CNodeSceneReentry::removingANodeInAnySignal()
{
    QFETCH(ESignal, signal);
    CChain chain;
    chain.releaseConnections();
    runAtFirst(chain, signal, [&chain] {
        const Core::CId id = chain.second->id();
        chain.scene->removeNode(*chain.second);
        QCOMPARE(chain.scene->nodes().count(id), std::size_t(0));
        QVERIFY(CTestModel::alive() >= 3); // out of the table, yet whole until the queue has run
        QCOMPARE(modelOf(*chain.second).caption(), QStringLiteral("Test"));
        chain.scene->removeNode(*chain.second);
    });
    if (signal == ConnectionDeleted)
        chain.upper = chain.scene->connections().begin()->second;
    provoke(chain, signal);

    const auto secondRemoved = [&chain] { return chain.said.count("connectionDeleted") == 2; };
    QVERIFY(secondRemoved());
    QCOMPARE(chain.said.count("nodeDeleted"), signal == NodeDeleted ? 2 : 1);
    QCOMPARE(CTestModel::alive(), int(chain.scene->nodes().size()));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::removingTheAnnouncedNodeTwice()
{
    CChain chain;
    QObject::connect(chain.scene.get(), &CNodeScene::nodeDeleted, chain.scene.get(),
                     [&chain](CNodeBase& node) { chain.scene->removeNode(node); });
    chain.scene->removeNode(*chain.second);

    QCOMPARE(chain.said, QStringList({"nodeDeleted", "connectionDeleted", "connectionDeleted"}));
    QCOMPARE(CTestModel::alive(), 2);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::nodeRemovedInAHandlerDiesAfterItsConnections()
{
    CChain chain;
    QStringList order;
    modelOf(*chain.second).onDestroyed = [&order] { order << "destroyed"; };
    QObject::connect(chain.scene.get(), &CNodeScene::connectionDeleted, chain.scene.get(),
                     [&](CNodeConnection& connection) {
                         QVERIFY(connection.getNode(ENodePortType::In));
                         QVERIFY(connection.getNode(ENodePortType::Out));
                         order << "connectionDeleted";
                     });
    chain.atFirst<CNodeBase>(&CNodeScene::nodeCreated, [&](CNodeBase&) {
        chain.scene->removeNode(*chain.second);
        order << "handler ends";
    });
    provoke(chain, NodeCreated);

    QCOMPARE(order, QStringList({"handler ends", "connectionDeleted", "connectionDeleted", "destroyed"}));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::nodeThatHasLeftTakesNoConnection()
{
    CChain chain;
    chain.atFirst<CNodeBase>(&CNodeScene::nodeCreated, [&](CNodeBase& added) {
        chain.scene->removeNode(*chain.second);
        QVERIFY(!chain.scene->createConnection(*chain.second, 0, added, 0, NodeDataConverter()));
        QVERIFY(!chain.scene->createConnection(added, 0, *chain.second, 0, NodeDataConverter()));
        QVERIFY(!chain.scene->createConnection(ENodePortType::In, *chain.second, 0));
    });
    provoke(chain, NodeCreated);

    QVERIFY(chain.scene->connections().empty());
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::clearingInAnySignal()
{
    QFETCH(ESignal, signal);
    CChain chain;
    runAtFirst(chain, signal, [&chain] { chain.scene->clearScene(); });
    provoke(chain, signal);

    const int nodes = signal == NodeCreated ? 4 : 3;
    QCOMPARE(chain.said.count("nodeDeleted"), nodes);
    QCOMPARE(chain.said.count("connectionDeleted"), signal == ConnectionCreated ? 3 : 2);
    QVERIFY(chain.scene->nodes().empty());
    QVERIFY(chain.scene->connections().empty());
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeSceneReentry::destroyingTheSceneInAnySignal()
{
    QFETCH(ESignal, signal);
    CChain chain;
    runAtFirst(chain, signal, [&chain] { CTestScene::endInside(chain.scene); });
    provoke(chain, signal);

    QVERIFY(!chain.scene);
    QCOMPARE(chain.said.count("nodeDeleted"), signal == NodeCreated ? 4 : 3);
    QCOMPARE(chain.said.count("connectionDeleted"), signal == ConnectionCreated ? 3 : 2);
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeSceneReentry::createNodeReturnsNoNodeWhenAHandlerRemovedIt()
{
    CChain chain;
    QObject::connect(chain.scene.get(), &CNodeScene::nodeCreated, chain.scene.get(),
                     [&chain](CNodeBase& node) { chain.scene->removeNode(node); });
    CNodeBase& none = chain.scene->createNode(std::make_unique<CTestModel>());

    QCOMPARE(&none, &CNodeScene::noNode());
    QVERIFY(none.id() == Core::CId());
    QVERIFY(!chain.scene->createConnection(none, 0, *chain.first, 0, NodeDataConverter()));
    chain.scene->removeNode(none);
    QCOMPARE(chain.scene->nodes().size(), std::size_t(3));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::infoHandlerMayDestroyTheScene()
{
    class CInfo : public Core::AppCoreComponents::IBaseInfo
    {
    };
    auto scene = std::make_unique<CTestScene>(QSharedPointer<CInfo>::create(), nullptr);
    auto model = std::make_unique<CTestModel>();
    QObject::connect(model.get(), &CNodeDataModel::infoInjected, [&scene] { scene.reset(); });
    CNodeBase& none = scene->createNode(std::move(model));

    QVERIFY(!scene);
    QCOMPARE(&none, &CNodeScene::noNode());
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeSceneReentry::modelRemovesItsOwnNodeAndFinishes()
{
    CChain chain;
    chain.releaseConnections();
    const Core::CId id = chain.second->id();
    QStringList order;
    CTestModel& model = modelOf(*chain.second);
    model.onDestroyed = [&order] { order << "destroyed"; };
    model.onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (!data)
            return;
        chain.scene->removeNode(*chain.second);
        QCOMPARE(chain.scene->nodes().count(id), std::size_t(0));
        QCOMPARE(chain.said.count("connectionDeleted"), 2);
        order << "finished " + model.name(); // still whole
    };
    modelOf(*chain.first).offer(CTestData::make(1));

    QCOMPARE(order, QStringList({"finished Test", "destroyed"}));
    QCOMPARE(modelOf(*chain.third).values(), std::vector<int>({-1}));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::modelRemovesItsNeighbours()
{
    CChain chain;
    chain.releaseConnections();
    modelOf(*chain.second).onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (!data)
            return;
        chain.scene->removeNode(*chain.first);
        chain.scene->removeNode(*chain.third);
    };
    modelOf(*chain.first).offer(CTestData::make(1));

    QCOMPARE(CTestModel::alive(), 1);
    QCOMPARE(chain.scene->nodes().size(), std::size_t(1));
    QVERIFY(chain.scene->connections().empty());
    QCOMPARE(modelOf(*chain.second).values(), std::vector<int>({1, -1}));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::modelClearsTheScene()
{
    CChain chain;
    modelOf(*chain.third).onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (!data)
            return;
        chain.scene->clearScene();
        QVERIFY(chain.scene->nodes().empty());
        QCOMPARE(CTestModel::alive(), 3); // the walk stands in all of them
    };
    modelOf(*chain.first).offer(CTestData::make(1));
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(chain.said.count("nodeDeleted"), 3);
}

void tst_CNodeSceneReentry::modelDestroysTheScene()
{
    CChain chain;
    modelOf(*chain.third).onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (data)
            chain.scene.reset();
    };
    modelOf(*chain.first).offer(CTestData::make(1));
    QVERIFY(!chain.scene);
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeSceneReentry::outDataRemovesItsOwnNode()
{
    CChain chain;
    chain.releaseConnections();
    modelOf(*chain.first).onOutData = [&](NodePortIndex) -> CNodeDataPtr {
        chain.scene->removeNode(*chain.first);
        return CTestData::make(1);
    };
    CTestModel& second = modelOf(*chain.second);
    Q_EMIT modelOf(*chain.first).dataUpdated(0);

    QCOMPARE(second.values(), std::vector<int>({-1}));
    QCOMPARE(CTestModel::alive(), 2);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::converterDeletesItsConnection()
{
    CChain chain;
    chain.upper->setTypeConverter([&chain](const CNodeDataPtr& data) {
        if (chain.upper)
            chain.scene->deleteConnectionNow(*std::exchange(chain.upper, nullptr));
        return data;
    });
    modelOf(*chain.first).offer(CTestData::make(1));

    QCOMPARE(modelOf(*chain.second).values(), std::vector<int>({-1}));
    QCOMPARE(chain.scene->connections().size(), std::size_t(1));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::nodeRemovedDuringANestedWalkIsDestroyedOnce()
{
    CChain chain;
    int depth = 0;
    modelOf(*chain.second).onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (!data || ++depth > 3)
            return;
        modelOf(*chain.first).offer(CTestData::make(depth));
        if (depth == 4)
            chain.scene->removeNode(*chain.second);
    };
    modelOf(*chain.first).offer(CTestData::make(0));
    QCOMPARE(CTestModel::alive(), 2);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::consumerRemovedByThePushIsNotConnected()
{
    CChain chain;
    modelOf(*chain.first).out = CTestData::make(1);
    modelOf(*chain.third).onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (data)
            chain.scene->removeNode(*chain.third);
    };
    chain.lower.reset();
    QVERIFY(!chain.scene->createConnection(*chain.third, 0, *chain.first, 0, NodeDataConverter()));

    QCOMPARE(chain.said.count("connectionCreated"), 0);
    QCOMPARE(chain.scene->connections().size(), std::size_t(1));
    QCOMPARE(CTestModel::alive(), 2);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::producerRemovedByThePushIsNotConnected()
{
    CChain chain;
    modelOf(*chain.first).out = CTestData::make(1);
    modelOf(*chain.third).onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (data)
            chain.scene->removeNode(*chain.first);
    };
    // From a handler, so that the node waits in the queue when the push has ended.
    chain.atFirst<CNodeBase>(&CNodeScene::nodeCreated, [&](CNodeBase&) {
        QVERIFY(!chain.scene->createConnection(*chain.third, 0, *chain.first, 0, NodeDataConverter()));
    });
    provoke(chain, NodeCreated);

    QCOMPARE(chain.said.count("connectionCreated"), 0);
    QCOMPARE(chain.scene->connections().size(), std::size_t(1));
    QCOMPARE(CTestModel::alive(), 3);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::sceneDestroyedByThePush()
{
    CChain chain;
    modelOf(*chain.first).out = CTestData::make(1);
    modelOf(*chain.third).onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (data)
            CTestScene::endInside(chain.scene);
    };
    QVERIFY(!chain.scene->createConnection(*chain.third, 0, *chain.first, 0, NodeDataConverter()));
    QVERIFY(!chain.scene);
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeSceneReentry::modelDestructorChangesTheScene()
{
    CChain chain;
    modelOf(*chain.first).onDestroyed = [&chain] {
        chain.scene->removeNode(*chain.second);
        chain.scene->createNode(std::make_unique<CTestModel>());
    };
    chain.scene->removeNode(*chain.first);

    QCOMPARE(chain.scene->nodes().size(), std::size_t(2));
    QVERIFY(chain.scene->connections().empty());
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::handlerThatFillsADyingSceneDoesNotHoldItUp()
{
    CChain chain;
    CNodeScene* const scene = chain.scene.get();
    const auto refills = std::make_shared<int>(0);
    QObject::connect(scene, &CNodeScene::nodeDeleted, scene, [refills, scene] {
        ++*refills;
        scene->createNode(std::make_unique<CTestModel>());
    });
    chain.scene.reset();
    QCOMPARE(*refills, 3); // once for each node that the scene had, and never for those filled in
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeSceneReentry::queueOfADyingSceneIsFinished()
{
    CChain chain;
    chain.atFirst<CNodeBase>(&CNodeScene::nodeCreated, [&chain](CNodeBase&) {
        chain.scene->deleteConnection(*chain.upper);
        chain.scene->removeNode(*chain.third);
        QCOMPARE(chain.said.count("connectionDeleted"), 0);
        CTestScene::endInside(chain.scene);
    });
    provoke(chain, NodeCreated);
    QCOMPARE(chain.said.count("connectionDeleted"), 2);
    QCOMPARE(chain.said.count("nodeDeleted"), 4);
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeSceneReentry::longQueueNeedsNoStack()
{
    CTestScene scene(nullptr, nullptr);
    CNodeBase& hub = scene.createNode(std::make_unique<CTestModel>(1, 1));
    CNodeBase& sink = scene.createNode(std::make_unique<CTestModel>(1, 0));
    modelOf(sink).onSetInData = [](const CNodeDataPtr&, NodePortIndex) {};
    for (int i = 0; i < 100000; ++i)
        scene.createConnection(sink, 0, hub, 0, NodeDataConverter());
    QObject::connect(&scene, &CNodeScene::nodeCreated, &scene, [&] { scene.clearScene(); });
    scene.createNode(std::make_unique<CTestModel>());

    QVERIFY(scene.connections().empty());
    QVERIFY(scene.nodes().empty());
}

void tst_CNodeSceneReentry::dyingSceneTakesNothingIn()
{
    // A half connection goes with the scene's tables, when all signals are sent, and its last delivery asks for more.
    CChain other;
    auto dying = std::make_unique<CTestScene>(nullptr, nullptr);
    CNodeScene* const late = dying.get();
    QVERIFY(late->createConnection(ENodePortType::In, *other.first, 0));
    int calls = 0;
    bool isRefused = false;
    modelOf(*other.first).onSetInData = [&](const CNodeDataPtr&, NodePortIndex) {
        ++calls;
        isRefused = &late->createNode(std::make_unique<CTestModel>()) == &CNodeScene::noNode() &&
                    !late->createConnection(ENodePortType::In, *other.first, 0);
    };
    dying.reset();
    QCOMPARE(calls, 1);
    QVERIFY(isRefused);
}

void tst_CNodeSceneReentry::modelThatCountsItsPortsMayDestroyTheScene()
{
    class CCountingModel : public CTestModel
    {
    public:
        unsigned int nPorts(ENodePortType portType) const override
        {
            if (onCount)
                onCount();
            return CTestModel::nPorts(portType);
        }
        std::function<void()> onCount;
    };
    CChain chain;
    auto model = std::make_unique<CCountingModel>();
    model->onCount = [&chain] { chain.scene.reset(); };
    QCOMPARE(&chain.scene->createNode(std::move(model)), &CNodeScene::noNode());
    QVERIFY(!chain.scene);
}

void tst_CNodeSceneReentry::copyingAConverterMayRemoveTheNode() const
{
    CChain chain;
    bool isArmed = false;
    const NodeDataConverter converter = [capture = CCopyWatch([&] {
                                             if (std::exchange(isArmed, false))
                                                 chain.scene->removeNode(*chain.third);
                                         })](const CNodeDataPtr& data) { return data; };
    isArmed = true;
    QVERIFY(!chain.scene->createConnection(*chain.third, 0, *chain.first, 0, converter));
    QCOMPARE(chain.scene->nodes().size(), std::size_t(2));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::dyingNodeIsNotConnected()
{
    CChain chain;
    CNodeBase* const dying = chain.third;
    int calls = 0;
    const CCopyWatch watch([&calls, dying] {
        ++calls;
        dying->onDataUpdated(0);
    });
    modelOf(*dying).onDestroyed = [&] {
        const NodeDataConverter converter = [watch](const CNodeDataPtr& data) { return data; };
        calls = 0;
        QVERIFY(!chain.scene->createConnection(*dying, 0, *chain.first, 0, converter));
        QVERIFY(!chain.scene->createConnection(*chain.first, 0, *dying, 0, converter));
    };
    chain.scene->removeNode(*dying);
    QCOMPARE(calls, 0);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::connectionMadeDuringARemovalIsRefused()
{
    CChain chain;
    chain.atFirst<CNodeConnection>(&CNodeScene::connectionDeleted, [&chain](CNodeConnection&) {
        QVERIFY(!chain.scene->createConnection(*chain.second, 0, *chain.first, 0, NodeDataConverter()));
    });
    chain.scene->removeNode(*chain.second);
    QVERIFY(chain.scene->connections().empty());
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::deferredDeletionIsDoneInSpiteOfAnException()
{
    CChain chain;
    chain.releaseConnections();
    chain.atFirst<CNodeConnection>(&CNodeScene::connectionDeleted,
                                   [](CNodeConnection&) { throw std::runtime_error("handler"); });
    chain.atFirst<CNodeBase>(&CNodeScene::nodeCreated,
                             [&chain](CNodeBase&) { chain.scene->removeNode(*chain.second); });
    QVERIFY_EXCEPTION_THROWN(provoke(chain, NodeCreated), std::runtime_error);

    QVERIFY(chain.scene->connections().empty());
    QCOMPARE(CTestModel::alive(), 3);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::destructorGoesOnAfterAnException()
{
    CChain chain;
    QObject::connect(chain.scene.get(), &CNodeScene::nodeDeleted, [] { throw std::runtime_error("handler"); });
    const CMessageCatcher messages;
    chain.scene.reset();
    QCOMPARE(chain.said.count("connectionDeleted"), 2);
    QCOMPARE(messages.texts("halvex.graph").size(), 3);
}

void tst_CNodeSceneReentry::exceptionOfAHandlerLeavesTheSceneUsable()
{
    QFETCH(ESignal, signal);
    CChain chain;
    runAtFirst(chain, signal, [] { throw std::runtime_error("handler"); });
    QVERIFY_EXCEPTION_THROWN(provoke(chain, signal), std::runtime_error);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());

    // The depth is back at zero, and what the exception cut short can be done again.
    chain.said.clear();
    chain.scene->deleteConnection(*chain.lower);
    QCOMPARE(chain.said, QStringList({"connectionDeleted"}));
    chain.scene->removeNode(*chain.first);
    QCOMPARE(chain.said.count("nodeDeleted"), 1);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::exceptionOfAModelLeavesTheSceneUsable()
{
    CChain chain;
    bool throws = true;
    modelOf(*chain.third).onSetInData = [&throws](const CNodeDataPtr&, NodePortIndex) {
        if (throws)
            throw std::runtime_error("model");
    };
    QVERIFY_EXCEPTION_THROWN(modelOf(*chain.first).offer(CTestData::make(1)), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(chain.scene->createConnection(*chain.third, 0, *chain.first, 0, NodeDataConverter()),
                             std::runtime_error);
    QCOMPARE(chain.scene->connections().size(), std::size_t(2));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());

    throws = false;
    modelOf(*chain.first).offer(CTestData::make(2));
    QCOMPARE(CTestData::valueOf(modelOf(*chain.third).received.back().data), 2);
}

void tst_CNodeSceneReentry::destructorReportsAndSwallowsExceptions()
{
    CChain chain;
    QObject::connect(chain.scene.get(), &CNodeScene::nodeDeleted, [] { throw std::runtime_error("handler"); });
    modelOf(*chain.second).onSetInData = [](const CNodeDataPtr&, NodePortIndex) { throw 42; };
    chain.upper.reset();
    const CMessageCatcher messages;
    chain.scene.reset();

    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(messages.texts("halvex.graph").filter("handler").size(), 3);
}

void tst_CNodeSceneReentry::queueRunsInSpiteOfAnException()
{
    QFETCH(ESignal, signal);
    CChain chain;
    CNodeBase& fourth = chain.scene->createNode(std::make_unique<CTestModel>());
    const auto other = chain.scene->createConnection(fourth, 0, *chain.first, 0, NodeDataConverter());
    chain.said.clear();
    runAtFirst(chain, signal, [&] {
        chain.scene->deleteConnection(*other);
        throw std::runtime_error("handler");
    });
    QVERIFY_EXCEPTION_THROWN(provoke(chain, signal), std::runtime_error);
    QCOMPARE(chain.said.last(), QStringLiteral("connectionDeleted"));
    QCOMPARE(chain.scene->connections().count(other->id()), std::size_t(0));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::firstOfSeveralExceptionsPasses()
{
    CChain chain;
    int deleted = 0;
    QObject::connect(chain.scene.get(), &CNodeScene::connectionDeleted,
                     [&deleted] { throw std::runtime_error("handler " + std::to_string(++deleted)); });
    chain.atFirst<CNodeBase>(&CNodeScene::nodeCreated, [&chain](CNodeBase&) {
        chain.scene->deleteConnection(*chain.upper);
        chain.scene->deleteConnection(*chain.lower);
    });
    const CMessageCatcher messages;
    QString passed;
    try {
        provoke(chain, NodeCreated);
    } catch (const std::runtime_error& error) {
        passed = error.what();
    }
    QCOMPARE(passed, QStringLiteral("handler 1"));
    QCOMPARE(messages.texts("halvex.graph").filter("handler 2").size(), 1);
    QVERIFY(chain.scene->connections().empty());
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::nodeThatAnExceptionKeepsTakesConnections()
{
    CChain chain;
    chain.releaseConnections();
    chain.atFirst<CNodeConnection>(&CNodeScene::connectionDeleted,
                                   [](CNodeConnection&) { throw std::runtime_error("handler"); });
    QVERIFY_EXCEPTION_THROWN(chain.scene->removeNode(*chain.second), std::runtime_error);
    QVERIFY(chain.scene->createConnection(*chain.second, 0, *chain.first, 0, NodeDataConverter()));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
}

void tst_CNodeSceneReentry::nodesOfTwoScenesGoInAnyOrder_data()
{
    QTest::addColumn<bool>("ownerFirst");
    QTest::addColumn<bool>("wholeScene");
    for (const bool ownerFirst : {true, false}) {
        for (const bool wholeScene : {true, false}) {
            QTest::addRow("%s %s first", wholeScene ? "scene" : "node", ownerFirst ? "consumer" : "producer")
                << ownerFirst << wholeScene;
        }
    }
}

void tst_CNodeSceneReentry::nodesOfTwoScenesGoInAnyOrder()
{
    QFETCH(bool, ownerFirst);
    QFETCH(bool, wholeScene);
    CChain consumer;
    CChain producer;
    auto crossing = consumer.scene->createConnection(*consumer.first, 0, *producer.third, 0, NodeDataConverter());
    QVERIFY(crossing);
    modelOf(*producer.first).offer(CTestData::make(7));
    QCOMPARE(modelOf(*consumer.third).values(), std::vector<int>({7}));
    crossing.reset();

    CChain& goes = ownerFirst ? consumer : producer;
    CChain& stays = ownerFirst ? producer : consumer;
    if (wholeScene)
        goes.scene.reset();
    else
        goes.scene->removeNode(ownerFirst ? *consumer.first : *producer.third);

    modelOf(*stays.first).offer(CTestData::make(8));
    QCOMPARE(CTestData::valueOf(modelOf(*stays.third).received.back().data), 8);
}

QTEST_GUILESS_MAIN(tst_CNodeSceneReentry)
#include "tst_CNodeSceneReentry.moc"
