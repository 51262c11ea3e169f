// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a scene does in which order, and returns, when its own handlers, or the models that a walk runs through, change
// or destroy it. That it comes through all that is proved by tst_DeletionMatrix.

#include "scene/SceneSupport.h"
#include "support/CLeakTest.h"
#include "support/CMessageCatcher.h"

#include <QtTest>

#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

enum ESignal
{
    NodeCreated,
    NodeDeleted,
    ConnectionCreated,
    ConnectionDeleted
};

/// A scene with a chain A → B → C, whose connections the scene alone has, and what its signals said.
struct SChain
{
    /// Makes the scene emit that signal.
    void provoke(ESignal signal);

    /// Runs \a action in the first handler of the first \a signal.
    void runAtFirst(ESignal signal, const std::function<void()>& action) const;

    std::unique_ptr<CTestScene> scene = std::make_unique<CTestScene>(nullptr, nullptr);
    SPlaced a = place(*scene, "A");
    SPlaced b = place(*scene, "B");
    SPlaced c = place(*scene, "C");
    CNodeConnection* upper = join(*scene, a, b).get();
    CNodeConnection* lower = join(*scene, b, c).get();
    std::unique_ptr<CSignalLog> log = std::make_unique<CSignalLog>(*scene);
};

void SChain::provoke(ESignal signal)
{
    switch (signal) {
    case NodeCreated:
        place(*scene, "D");
        break;
    case NodeDeleted:
        scene->removeNode(a.node);
        break;
    case ConnectionCreated:
        join(*scene, a, c);
        break;
    case ConnectionDeleted:
        scene->deleteConnection(*upper);
        break;
    }
}

void SChain::runAtFirst(ESignal signal, const std::function<void()>& action) const
{
    const auto runOnce = [action, isFirst = true]() mutable {
        if (std::exchange(isFirst, false))
            action();
    };
    switch (signal) {
    case NodeCreated:
        QObject::connect(scene.get(), &CNodeScene::nodeCreated, scene.get(), runOnce);
        break;
    case NodeDeleted:
        QObject::connect(scene.get(), &CNodeScene::nodeDeleted, scene.get(), runOnce);
        break;
    case ConnectionCreated:
        QObject::connect(scene.get(), &CNodeScene::connectionCreated, scene.get(), runOnce);
        break;
    case ConnectionDeleted:
        QObject::connect(scene.get(), &CNodeScene::connectionDeleted, scene.get(), runOnce);
        break;
    }
}

using Action = void (*)(SChain&);

void removeA(SChain& chain)
{
    chain.scene->removeNode(chain.a.node);
}
void removeC(SChain& chain)
{
    chain.scene->removeNode(chain.c.node);
}
void destroy(SChain& chain)
{
    CTestScene::endInside(chain.scene);
}

} // namespace

Q_DECLARE_METATYPE(ESignal)
Q_DECLARE_METATYPE(Action)

class tst_CNodeSceneReentry : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void deletionWaitsForTheOtherHandlers();
    void deletionsKeepTheirOrder();
    void deletionWaitsForTheOutermostOperation();
    void deletedConnectionIsGoneBeforeTheNextDeletion();
    void deletionAskedForTwiceIsDoneOnce();
    void deletionAskedForWhenItIsAnnouncedChangesNothing();
    void deletionAskedForWhenARemovalIsAnnouncedComesFirst();
    void longQueueNeedsNoStack();

    void removalAskedForWhenItIsAnnouncedChangesNothing();
    void nodeRemovedInAHandlerGoesAfterItsConnections();
    void leavingNodeTakesNoConnection();
    void createNodeReturnsNoNodeWhenItIsGone();

    void modelRemovesItsOwnNodeAndFinishes();
    void pushMayRemoveWhatItConnects_data();
    void pushMayRemoveWhatItConnects();
    void copyingAConverterMayRemoveTheNode() const;
    void dyingNodeIsNotConnected();

    void handlerThatFillsADyingSceneDoesNotHoldItUp();
    void queueOfADyingSceneIsFinished();
    void dyingSceneTakesNothingIn();
    void dyingSceneIsSilent();

    void exceptionOfAHandlerLeavesTheSceneUsable_data();
    void exceptionOfAHandlerLeavesTheSceneUsable();
    void exceptionOfAModelLeavesTheSceneUsable();
    void firstOfSeveralExceptionsPasses();
    void exceptionEndsARemovalThatIsNotDeferred();
    void destructorReportsAndSwallowsExceptions();
};

void tst_CNodeSceneReentry::deletionWaitsForTheOtherHandlers()
{
    for (const bool isNow : {false, true}) { // one that is to be done now does not wait
        CPairScene scene;
        std::vector<bool> wasWhole;
        const auto look = [&](CNodeConnection& connection) { wasWhole.push_back(isWhole(scene, connection)); };
        connect(&scene, &CNodeScene::connectionCreated, &scene,
                isNow ? &CNodeScene::deleteConnectionNow : &CNodeScene::deleteConnection);
        connect(&scene, &CNodeScene::connectionCreated, &scene, look);

        const auto connection = join(scene, scene.a, scene.b);
        QCOMPARE(wasWhole, std::vector<bool>{!isNow});
        QCOMPARE(scene.log.said, QStringList({"connected A0-B0", "disconnected A0-B0"}));
        QVERIFY(connection && scene.connections().empty());
        QCOMPARE(connection.use_count(), 1L);
    }
}

void tst_CNodeSceneReentry::deletionsKeepTheirOrder()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, "A", 0, 4);
    const SPlaced b = place(scene, "B", 4, 0);
    std::vector<CNodeConnection*> connections;
    connections.reserve(4);
    for (int index = 0; index < 4; ++index)
        connections.push_back(join(scene, a, b, index, index).get());
    connect(&scene, &CNodeScene::nodeCreated, &scene, [&] {
        for (const std::size_t index : {2U, 0U, 1U})
            scene.deleteConnection(*connections[index]);
    });
    connect(&scene, &CNodeScene::connectionDeleted, &scene, [&](CNodeConnection& connection) {
        if (&connection == connections[2])
            scene.deleteConnection(*connections[3]); // asked for by a deletion, it comes last
    });

    const CSignalLog log(scene);
    place(scene, "C");
    QCOMPARE(log.said, QStringList({"created C", "disconnected A2-B2", "disconnected A0-B0", "disconnected A1-B1",
                                    "disconnected A3-B3"}));
}

void tst_CNodeSceneReentry::deletionWaitsForTheOutermostOperation()
{
    CPairScene scene;
    bool wasWholeInTheOuterHandler = false;
    connect(&scene, &CNodeScene::connectionCreated, &scene, &CNodeScene::deleteConnection);
    connect(&scene, &CNodeScene::nodeCreated, &scene, [&] {
        const auto connection = join(scene, scene.a, scene.b);
        wasWholeInTheOuterHandler = connection && isWhole(scene, *connection);
    });
    place(scene, "C");
    QVERIFY(wasWholeInTheOuterHandler);
    QCOMPARE(scene.log.said, QStringList({"created C", "connected A0-B0", "disconnected A0-B0"}));
}

void tst_CNodeSceneReentry::deletedConnectionIsGoneBeforeTheNextDeletion()
{
    SChain chain;
    const std::weak_ptr<CNodeConnection> upper = chain.scene->connections().at(chain.upper->id());
    bool wasThere = false;
    bool wasGone = false;
    connect(chain.scene.get(), &CNodeScene::connectionDeleted, chain.scene.get(), [&](CNodeConnection& connection) {
        if (&connection != chain.lower) {
            wasThere = !upper.expired();
            chain.scene->deleteConnection(*chain.lower);
        } else {
            wasGone = upper.expired();
        }
    });
    chain.scene->deleteConnectionNow(*chain.upper);
    QVERIFY(wasThere && wasGone);
    QVERIFY(chain.scene->connections().empty());
}

void tst_CNodeSceneReentry::deletionAskedForTwiceIsDoneOnce()
{
    SChain chain;
    for (int handler = 0; handler < 2; ++handler) {
        chain.runAtFirst(NodeCreated, [&chain] {
            chain.scene->deleteConnection(*chain.upper);
            chain.scene->deleteConnection(*chain.upper);
            QVERIFY(isWhole(*chain.scene, *chain.upper));
        });
    }
    chain.provoke(NodeCreated);
    QCOMPARE(chain.log->said, QStringList({"created D", "disconnected A0-B0"}));
    QCOMPARE(chain.scene->connections().size(), std::size_t(1));
}

void tst_CNodeSceneReentry::deletionAskedForWhenItIsAnnouncedChangesNothing()
{
    SChain chain;
    chain.runAtFirst(ConnectionDeleted, [&chain] {
        chain.scene->deleteConnectionNow(*chain.upper);
        chain.scene->deleteConnection(*chain.upper);
        QVERIFY(isWhole(*chain.scene, *chain.upper));
    });
    chain.scene->deleteConnectionNow(*chain.upper);
    QCOMPARE(chain.log->said, QStringList({"disconnected A0-B0"}));
    QCOMPARE(chain.scene->connections().size(), std::size_t(1));
}

void tst_CNodeSceneReentry::deletionAskedForWhenARemovalIsAnnouncedComesFirst()
{
    SChain chain;
    chain.runAtFirst(NodeDeleted, [&chain] { chain.scene->deleteConnection(*chain.lower); });
    chain.scene->removeNode(chain.b.node);
    QCOMPARE(chain.log->said, QStringList({"deleted B", "disconnected B0-C0", "disconnected A0-B0"}));
}

void tst_CNodeSceneReentry::longQueueNeedsNoStack()
{
    const int count = 100000;
    CTestScene scene(nullptr, nullptr);
    const SPlaced hub = place(scene);
    const SPlaced sink = place(scene, "Sink", 1, 0);
    sink.model.onSetInData = [](const CNodeDataPtr&, NodePortIndex) {};
    for (int i = 0; i < count; ++i)
        join(scene, hub, sink);
    int deleted = 0;
    connect(&scene, &CNodeScene::connectionDeleted, &scene, [&deleted] { ++deleted; });
    connect(&scene, &CNodeScene::nodeCreated, &scene, [&] { scene.clearScene(); });
    place(scene);
    QCOMPARE(deleted, count);
    QVERIFY(scene.nodes().empty() && scene.connections().empty());
}

void tst_CNodeSceneReentry::removalAskedForWhenItIsAnnouncedChangesNothing()
{
    SChain chain;
    connect(chain.scene.get(), &CNodeScene::nodeDeleted, chain.scene.get(), &CNodeScene::removeNode);
    chain.scene->removeNode(chain.b.node);
    QCOMPARE(chain.log->said, QStringList({"deleted B", "disconnected A0-B0", "disconnected B0-C0"}));
    QCOMPARE(CTestModel::alive(), 2);
}

void tst_CNodeSceneReentry::nodeRemovedInAHandlerGoesAfterItsConnections()
{
    SChain chain;
    chain.b.model.onDestroyed = [&chain] { chain.log->said << "destroyed B"; };
    chain.runAtFirst(NodeCreated, [&chain] {
        const Core::CId id = chain.b.node.id();
        for (int time = 0; time < 2; ++time) {
            chain.scene->removeNode(chain.b.node);
            QCOMPARE(chain.scene->nodes().count(id), std::size_t(0));
        }
        chain.log->said << "handler ends, and so does " + chain.b.model.name();
    });
    chain.provoke(NodeCreated);
    QCOMPARE(chain.log->said, QStringList({"created D", "deleted B", "handler ends, and so does B",
                                           "disconnected A0-B0", "disconnected B0-C0", "destroyed B"}));
}

void tst_CNodeSceneReentry::leavingNodeTakesNoConnection()
{
    SChain chain;
    const auto refuse = [&chain] {
        QVERIFY(!join(*chain.scene, chain.a, chain.b));
        QVERIFY(!join(*chain.scene, chain.b, chain.c));
        QVERIFY(!chain.scene->createConnection(ENodePortType::In, chain.b.node, 0));
    };
    chain.runAtFirst(NodeCreated, [&] {
        chain.scene->removeNode(chain.b.node);
        refuse(); // it is out of the table
    });
    chain.runAtFirst(ConnectionDeleted, refuse); // its connections go
    chain.provoke(NodeCreated);
    QVERIFY(chain.scene->connections().empty());
    QCOMPARE(chain.log->count("disconnected"), 2);
}

void tst_CNodeSceneReentry::createNodeReturnsNoNodeWhenItIsGone()
{
    CPairScene scene;
    connect(&scene, &CNodeScene::nodeCreated, &scene, &CNodeScene::removeNode);
    QCOMPARE(&place(scene).node, &CNodeScene::noNode());
    QCOMPARE(scene.nodes().size(), std::size_t(2));

    auto informed = std::make_unique<CTestScene>(QSharedPointer<CTestInfo>::create(), nullptr);
    auto model = std::make_unique<CTestModel>();
    connect(model.get(), &CNodeDataModel::infoInjected, [&informed] { informed.reset(); });
    QCOMPARE(&informed->createNode(std::move(model)), &CNodeScene::noNode());
    QVERIFY(!informed);

    auto asking = std::make_unique<CTestScene>(nullptr, nullptr);
    model = std::make_unique<CTestModel>();
    model->onPorts = [&asking] { asking.reset(); };
    QCOMPARE(&asking->createNode(std::move(model)), &CNodeScene::noNode());
    QVERIFY(!asking);
}

void tst_CNodeSceneReentry::modelRemovesItsOwnNodeAndFinishes()
{
    SChain chain;
    const Core::CId id = chain.b.node.id();
    chain.b.model.onDestroyed = [&chain] { chain.log->said << "destroyed B"; };
    chain.b.model.onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (!data)
            return;
        chain.scene->removeNode(chain.b.node);
        QCOMPARE(chain.scene->nodes().count(id), std::size_t(0));
        chain.log->said << "finished " + chain.b.model.name(); // still whole
    };
    chain.a.model.offer(CTestData::make(1));
    QCOMPARE(chain.log->said,
             QStringList({"deleted B", "disconnected A0-B0", "disconnected B0-C0", "finished B", "destroyed B"}));
    QCOMPARE(chain.c.model.values(), std::vector<int>({-1}));
}

void tst_CNodeSceneReentry::pushMayRemoveWhatItConnects_data()
{
    QTest::addColumn<Action>("removal");
    QTest::addColumn<bool>("isInHandler"); // where the node waits in the queue when the push has ended

    for (const bool isInHandler : {false, true}) {
        const char* const where = isInHandler ? " in a handler" : "";
        QTest::addRow("consumer%s", where) << Action(&removeC) << isInHandler;
        QTest::addRow("producer%s", where) << Action(&removeA) << isInHandler;
        QTest::addRow("scene%s", where) << Action(&destroy) << isInHandler;
    }
}

void tst_CNodeSceneReentry::pushMayRemoveWhatItConnects()
{
    QFETCH(const Action, removal);
    QFETCH(const bool, isInHandler);
    SChain chain;
    chain.a.model.out = CTestData::make(1);
    chain.c.model.onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (data)
            removal(chain);
    };
    const auto connectThem = [&chain] { QVERIFY(!join(*chain.scene, chain.a, chain.c)); };
    if (isInHandler) {
        chain.runAtFirst(NodeCreated, connectThem);
        chain.provoke(NodeCreated);
    } else {
        connectThem();
    }

    QCOMPARE(chain.log->count("connected"), 0);
    if (!chain.scene)
        return; // cleanup() looks whether all is gone
    QCOMPARE(CTestModel::alive(), isInHandler ? 3 : 2);
    QCOMPARE(chain.scene->connections().size(), std::size_t(1));
}

void tst_CNodeSceneReentry::copyingAConverterMayRemoveTheNode() const
{
    for (const auto removed : {&SChain::a, &SChain::c}) {
        SChain chain;
        bool isArmed = false;
        const SCopyWatch watch([&] {
            if (std::exchange(isArmed, false))
                chain.scene->removeNode((chain.*removed).node);
        });
        const NodeDataConverter converter = [watch](const CNodeDataPtr& data) { return data; };
        isArmed = true;
        QVERIFY(!chain.scene->createConnection(chain.c.node, 0, chain.a.node, 0, converter));
        QCOMPARE(chain.scene->nodes().size(), std::size_t(2));
    }
}

void tst_CNodeSceneReentry::dyingNodeIsNotConnected()
{
    SChain chain;
    int calls = 0;
    const SCopyWatch watch([&calls, &dying = chain.c.node] {
        ++calls;
        dying.onDataUpdated(0);
    });
    chain.c.model.onDestroyed = [&] {
        const NodeDataConverter converter = [watch](const CNodeDataPtr& data) { return data; };
        calls = 0;
        QVERIFY(!chain.scene->createConnection(chain.c.node, 0, chain.a.node, 0, converter));
        QVERIFY(!chain.scene->createConnection(chain.a.node, 0, chain.c.node, 0, converter));
    };
    chain.scene->removeNode(chain.c.node);
    QCOMPARE(calls, 0);
}

void tst_CNodeSceneReentry::handlerThatFillsADyingSceneDoesNotHoldItUp()
{
    SChain chain;
    CNodeScene* const scene = chain.scene.get();
    int refills = 0;
    const auto refill = [&refills, scene] {
        ++refills;
        place(*scene);
    };
    connect(scene, &CNodeScene::nodeDeleted, scene, refill);
    chain.scene.reset();
    QCOMPARE(refills, 3); // once for each node that the scene had, and never for those filled in
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeSceneReentry::queueOfADyingSceneIsFinished()
{
    SChain chain;
    chain.runAtFirst(NodeCreated, [&chain] {
        chain.scene->deleteConnection(*chain.upper);
        chain.scene->removeNode(chain.c.node);
        QCOMPARE(chain.log->count("disconnected"), 0);
        CTestScene::endInside(chain.scene);
    });
    chain.provoke(NodeCreated);
    QCOMPARE(chain.log->count("disconnected"), 2);
    QCOMPARE(chain.log->count("deleted"), 4);
    // What was asked for comes before what the end of the scene brings.
    QCOMPARE(chain.log->said.mid(0, 3), QStringList({"created D", "deleted C", "disconnected A0-B0"}));
    QCOMPARE(CTestModel::alive(), 0);
}

void tst_CNodeSceneReentry::dyingSceneTakesNothingIn()
{
    // A half connection goes with the scene's tables, when all signals are sent, and its last delivery asks for more.
    CPairScene other;
    auto dying = std::make_unique<CTestScene>(nullptr, nullptr);
    CNodeScene* const late = dying.get();
    QVERIFY(late->createConnection(ENodePortType::In, other.a.node, 0));
    int calls = 0;
    bool isRefused = false;
    other.a.model.onSetInData = [&](const CNodeDataPtr&, NodePortIndex) {
        ++calls;
        isRefused = &late->createNode(std::make_unique<CTestModel>()) == &CNodeScene::noNode() &&
                    !late->createConnection(ENodePortType::In, other.a.node, 0);
    };
    dying.reset();
    QCOMPARE(calls, 1);
    QVERIFY(isRefused);
}

void tst_CNodeSceneReentry::dyingSceneIsSilent()
{
    // What the destructor of its information object asks for is not announced.
    CPairScene other;
    std::unique_ptr<CTestScene> dying;
    CNodeConnection* half = nullptr;
    CNodeScene* late = nullptr;
    bool isRefused = false;
    const auto onInfoDestroyed = [&] {
        isRefused = &late->createNode(std::make_unique<CTestModel>()) == &CNodeScene::noNode();
        late->deleteConnectionNow(*half);
    };
    dying = std::make_unique<CTestScene>(QSharedPointer<CTestInfo>::create(onInfoDestroyed), nullptr);
    late = dying.get();
    half = late->createConnection(ENodePortType::In, other.a.node, 0).get();
    const CSignalLog log(*late);
    dying.reset();
    QVERIFY(isRefused);
    QCOMPARE(log.said, QStringList());
}

void tst_CNodeSceneReentry::exceptionOfAHandlerLeavesTheSceneUsable_data()
{
    QTest::addColumn<ESignal>("signal");
    QTest::addColumn<bool>("isMoreWaiting");
    for (const bool isMoreWaiting : {false, true}) {
        const char* const what = isMoreWaiting ? ", more waits" : "";
        QTest::addRow("nodeCreated%s", what) << NodeCreated << isMoreWaiting;
        QTest::addRow("nodeDeleted%s", what) << NodeDeleted << isMoreWaiting;
        QTest::addRow("connectionCreated%s", what) << ConnectionCreated << isMoreWaiting;
        QTest::addRow("connectionDeleted%s", what) << ConnectionDeleted << isMoreWaiting;
    }
}

void tst_CNodeSceneReentry::exceptionOfAHandlerLeavesTheSceneUsable()
{
    QFETCH(const ESignal, signal);
    QFETCH(const bool, isMoreWaiting);
    SChain chain;
    const auto waiting = join(*chain.scene, chain.c, chain.a);
    chain.runAtFirst(signal, [&] {
        if (isMoreWaiting)
            chain.scene->deleteConnection(*waiting);
        throw std::runtime_error("handler");
    });
    QVERIFY_EXCEPTION_THROWN(chain.provoke(signal), std::runtime_error);
    QCOMPARE(inconsistencyOf(*chain.scene), QString());
    QCOMPARE(isInTable(*chain.scene, *waiting), !isMoreWaiting); // the queue runs all the same
    QCOMPARE(chain.log->said.last() == "disconnected C0-A0", isMoreWaiting);

    // Nothing is put off any more, and what the exception cut short can be done again.
    chain.log->said.clear();
    chain.scene->deleteConnection(*chain.lower);
    QCOMPARE(chain.log->said, QStringList({"disconnected B0-C0"}));
    chain.scene->removeNode(chain.a.node);
    QCOMPARE(chain.log->count("deleted"), 1);
}

void tst_CNodeSceneReentry::exceptionOfAModelLeavesTheSceneUsable()
{
    SChain chain;
    bool throws = true;
    chain.c.model.onSetInData = [&throws](const CNodeDataPtr&, NodePortIndex) {
        if (throws)
            throw std::runtime_error("model");
    };
    QVERIFY_EXCEPTION_THROWN(chain.a.model.offer(CTestData::make(1)), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(join(*chain.scene, chain.a, chain.c), std::runtime_error);
    QCOMPARE(chain.scene->connections().size(), std::size_t(2));
    QCOMPARE(inconsistencyOf(*chain.scene), QString());

    throws = false;
    chain.a.model.offer(CTestData::make(2));
    QCOMPARE(chain.c.model.values().back(), 2);
}

void tst_CNodeSceneReentry::firstOfSeveralExceptionsPasses()
{
    SChain chain;
    int deleted = 0;
    connect(chain.scene.get(), &CNodeScene::connectionDeleted,
            [&deleted] { throw std::runtime_error("handler " + std::to_string(++deleted)); });
    chain.runAtFirst(NodeCreated, [&chain] {
        chain.scene->deleteConnection(*chain.upper);
        chain.scene->deleteConnection(*chain.lower);
    });
    const CMessageCatcher messages;
    QString passed;
    try {
        chain.provoke(NodeCreated);
    } catch (const std::runtime_error& error) {
        passed = error.what();
    }
    QCOMPARE(passed, QString("handler 1"));
    QCOMPARE(messages.texts("halvex.graph").filter("handler 2").size(), 1);
    QVERIFY(chain.scene->connections().empty());
}

void tst_CNodeSceneReentry::exceptionEndsARemovalThatIsNotDeferred()
{
    for (const bool isDeferred : {false, true}) {
        SChain chain;
        const auto removeB = [&chain] { chain.scene->removeNode(chain.b.node); };
        chain.runAtFirst(ConnectionDeleted, [] { throw std::runtime_error("handler"); });
        if (isDeferred)
            chain.runAtFirst(NodeCreated, removeB);
        QVERIFY_EXCEPTION_THROWN(isDeferred ? chain.provoke(NodeCreated) : removeB(), std::runtime_error);

        QCOMPARE(CTestModel::alive(), 3);
        if (isDeferred)
            QVERIFY(chain.scene->connections().empty());
        else
            QVERIFY(join(*chain.scene, chain.a, chain.b)); // it takes connections as before
    }
}

void tst_CNodeSceneReentry::destructorReportsAndSwallowsExceptions()
{
    SChain chain;
    connect(chain.scene.get(), &CNodeScene::nodeDeleted, [] { throw std::runtime_error("handler"); });
    chain.b.model.onSetInData = [](const CNodeDataPtr&, NodePortIndex) { throw 42; };
    const CMessageCatcher messages;
    chain.scene.reset();
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(chain.log->count("disconnected"), 2);
    QCOMPARE(messages.texts("halvex.graph").filter("handler").size(), 3);
}

QTEST_GUILESS_MAIN(tst_CNodeSceneReentry)
#include "tst_CNodeSceneReentry.moc"
