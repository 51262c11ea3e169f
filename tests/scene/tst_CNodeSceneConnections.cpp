// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Connections of a scene: how they are made and deleted.

#include "scene/SceneSupport.h"
#include "support/CLeakTest.h"

#include <QtTest>

#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace Plugin::Halvex;

namespace {

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();
constexpr int in = int(ENodePortType::In);
constexpr int out = int(ENodePortType::Out);
constexpr int none = int(ENodePortType::None);

using Numbers = std::vector<int>;
using Deletion = void (CNodeScene::*)(CNodeConnection&);

/// How many entries the ports of both nodes hold together.
std::size_t entriesOf(const CPairScene& scene)
{
    std::size_t count = 0;
    for (const CNodeBase* const node : {&scene.a.node, &scene.b.node}) {
        for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
            for (const auto& port : std::as_const(*node).nodeState().getEntries(side))
                count += port.size();
        }
    }
    return count;
}

} // namespace

Q_DECLARE_METATYPE(Deletion)

class tst_CNodeSceneConnections : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void connectsTheSecondNodeToTheFirst();
    void portsThatDoNotExist_data();
    void portsThatDoNotExist();
    void deliversTheCurrentOutputBeforeItAnnounces();
    void servesEarlierConsumersAgain();
    void convertsWhatItDelivers();
    void connectsTheSamePortsTwice();

    void halfConnectionHasOneEnd_data();
    void halfConnectionHasOneEnd();
    void halfConnectionToNoPort_data();
    void halfConnectionToNoPort();

    void deletesAtOnce_data();
    void deletesAtOnce();
    void sharedConnectionLivesOn_data() { deletesAtOnce_data(); }
    void sharedConnectionLivesOn();
    void strangeConnectionIsLeftAlone_data() { deletesAtOnce_data(); }
    void strangeConnectionIsLeftAlone();
    void connectionThatAHandlerKeptCanBeDeleted();
    void destroyedConnectionIsInNoTable();
};

void tst_CNodeSceneConnections::connectsTheSecondNodeToTheFirst()
{
    CPairScene scene;
    QList<CNodeConnection*> announced;
    bool wasWhole = false;
    connect(&scene, &CNodeScene::connectionCreated, &scene, [&](CNodeConnection& connection) {
        announced << &connection;
        wasWhole = isWhole(scene, connection);
    });

    const auto connection = scene.createConnection(scene.b.node, 1, scene.a.node, 0, {});
    QCOMPARE(announced, QList<CNodeConnection*>{connection.get()});
    QVERIFY(wasWhole);
    QCOMPARE(scene.log.said, QStringList{"connected A0-B1"});
    QCOMPARE(endOf(*connection, ENodePortType::In), &scene.b.node);
    QCOMPARE(endOf(*connection, ENodePortType::Out), &scene.a.node);
    QCOMPARE(scene.connections().size(), std::size_t(1));
    QCOMPARE(entriesOf(scene), std::size_t(2));
    QVERIFY(!connection->parent());

    scene.a.model.offer(CTestData::make(1));
    QCOMPARE(scene.b.model.values(), Numbers{1});
    QCOMPARE(scene.b.model.received[0].index, 1);
}

void tst_CNodeSceneConnections::portsThatDoNotExist_data()
{
    QTest::addColumn<int>("outIndex");
    QTest::addColumn<int>("inIndex");

    QTest::newRow("in behind the last") << 0 << 2;
    QTest::newRow("in none") << 0 << -1;
    QTest::newRow("in huge") << 0 << most;
    QTest::newRow("in negative") << 0 << least;
    QTest::newRow("out behind the last") << 2 << 0;
    QTest::newRow("out none") << -1 << 0;
    QTest::newRow("out huge") << most << 0;
    QTest::newRow("out negative") << least << 0;
    QTest::newRow("both") << -1 << -1;
}

void tst_CNodeSceneConnections::portsThatDoNotExist()
{
    QFETCH(const int, outIndex);
    QFETCH(const int, inIndex);
    CPairScene scene;
    scene.a.model.out = CTestData::make(1);

    QVERIFY(!join(scene, scene.a, scene.b, outIndex, inIndex));
    QCOMPARE(scene.log.said, QStringList());
    QVERIFY(scene.connections().empty());
    QCOMPARE(entriesOf(scene), std::size_t(0));
    QCOMPARE(scene.a.model.outDataCalls, 0);
    QCOMPARE(scene.b.model.values(), Numbers());
}

void tst_CNodeSceneConnections::deliversTheCurrentOutputBeforeItAnnounces()
{
    QStringList said;
    CPairScene scene;
    scene.b.model.onSetInData = [&](const CNodeDataPtr&, NodePortIndex) {
        said << QString("delivered, %1 in the ports, %2 in the table")
                    .arg(entriesOf(scene))
                    .arg(scene.connections().size());
    };
    connect(&scene, &CNodeScene::connectionCreated, &scene, [&said] { said << "announced"; });

    join(scene, scene.a, scene.b); // no output, no delivery
    QCOMPARE(said, QStringList{"announced"});
    QCOMPARE(scene.a.model.outDataCalls, 1);

    said.clear();
    scene.a.model.out = CTestData::make(1);
    join(scene, scene.a, scene.b, 1, 1);
    QCOMPARE(said, QStringList({"delivered, 4 in the ports, 1 in the table", "announced"}));
    QCOMPARE(scene.b.model.received.back().data, scene.a.model.out);
    QCOMPARE(scene.a.model.outDataCalls, 2);
    scene.b.model.onSetInData = nullptr; // there are more deliveries at the end of the scene
}

void tst_CNodeSceneConnections::servesEarlierConsumersAgain()
{
    CPairScene scene;
    const SPlaced c = place(scene);
    const SPlaced other = place(scene);
    scene.a.model.onOutData = [](NodePortIndex index) { return CTestData::make(index); };
    join(scene, scene.a, other, 1);
    join(scene, scene.a, scene.b);
    QCOMPARE(scene.b.model.values(), Numbers{0});

    join(scene, scene.a, c);
    QCOMPARE(scene.b.model.values(), (Numbers{0, 0}));
    QCOMPARE(c.model.values(), Numbers{0});
    QCOMPARE(other.model.values(), Numbers{1}); // its port had nothing to do with it
}

void tst_CNodeSceneConnections::convertsWhatItDelivers()
{
    CPairScene scene;
    scene.a.model.out = CTestData::make(1);
    const auto connection = scene.createConnection(scene.b.node, 0, scene.a.node, 0, &addTen);
    scene.a.model.offer(CTestData::make(2));
    QCOMPARE(scene.b.model.values(), (Numbers{11, 12}));
    QVERIFY(connection->save().contains("converter"));
}

void tst_CNodeSceneConnections::connectsTheSamePortsTwice()
{
    CPairScene scene;
    const auto first = join(scene, scene.a, scene.b);
    const auto second = join(scene, scene.a, scene.b);
    QVERIFY(first && second && first->id() != second->id());
    scene.a.model.offer(CTestData::make(1));
    QCOMPARE(scene.b.model.values(), (Numbers{1, 1}));

    scene.deleteConnection(*first);
    QVERIFY(isWhole(scene, *second));
    scene.a.model.offer(CTestData::make(2));
    QCOMPARE(scene.b.model.values(), (Numbers{1, 1, 2}));
}

void tst_CNodeSceneConnections::halfConnectionHasOneEnd_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<QString>("announced");
    QTest::addColumn<int>("outIndex");
    QTest::addColumn<int>("inIndex");

    QTest::newRow("in") << in << "connected -A1" << -1 << 1;
    QTest::newRow("out") << out << "connected A1-" << 1 << -1;
    QTest::newRow("none") << none << "connected A-1-" << -1 << 1;
}

void tst_CNodeSceneConnections::halfConnectionHasOneEnd()
{
    QFETCH(const int, side);
    CPairScene scene;
    scene.a.model.out = CTestData::make(1);

    const auto half = scene.createConnection(ENodePortType(side), scene.a.node, 1);
    QVERIFY(half && isInTable(scene, *half));
    QTEST(scene.log.said.join(", "), "announced");
    QTEST(half->getPortIndex(ENodePortType::Out), "outIndex");
    QTEST(half->getPortIndex(ENodePortType::In), "inIndex");
    QVERIFY(half->save().isEmpty());

    // It is in no port table and carries nothing.
    QCOMPARE(entriesOf(scene), std::size_t(0));
    QCOMPARE(scene.a.model.outDataCalls, 0);
    scene.a.model.offer(CTestData::make(2), 1);
    QCOMPARE(scene.a.model.values(), Numbers());
}

void tst_CNodeSceneConnections::halfConnectionToNoPort_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("index");

    QTest::newRow("in behind the last") << in << 2;
    QTest::newRow("in none") << in << -1;
    QTest::newRow("in huge") << in << most;
    QTest::newRow("out behind the last") << out << 2;
    QTest::newRow("out none") << out << -1;
    QTest::newRow("unknown side") << 3 << 0;
}

void tst_CNodeSceneConnections::halfConnectionToNoPort()
{
    QFETCH(const int, side);
    QFETCH(const int, index);
    CPairScene scene;
    QVERIFY(!scene.createConnection(ENodePortType(side), scene.a.node, index));
    QVERIFY(scene.connections().empty());
    QCOMPARE(scene.log.said, QStringList());
}

void tst_CNodeSceneConnections::deletesAtOnce_data()
{
    QTest::addColumn<Deletion>("deletion");

    QTest::newRow("deleteConnection") << Deletion(&CNodeScene::deleteConnection);
    QTest::newRow("deleteConnectionNow") << Deletion(&CNodeScene::deleteConnectionNow);
}

void tst_CNodeSceneConnections::deletesAtOnce()
{
    QFETCH(const Deletion, deletion);
    CPairScene scene;
    CNodeConnection& connection = *join(scene, scene.a, scene.b);
    CNodeConnection& half = *scene.createConnection(ENodePortType::Out, scene.a.node, 0);
    const std::weak_ptr<CNodeConnection> watched = scene.connections().at(connection.id());
    scene.log.said.clear();
    bool wasWhole = false;
    connect(&scene, &CNodeScene::connectionDeleted, &scene, [&](CNodeConnection& leaving) {
        wasWhole = wasWhole || (isWhole(scene, leaving) && scene.b.model.received.empty());
    });

    (scene.*deletion)(connection);
    QCOMPARE(scene.log.said, QStringList{"disconnected A0-B0"});
    QVERIFY(wasWhole);
    QVERIFY(watched.expired());
    QCOMPARE(scene.connections().size(), std::size_t(1));
    QCOMPARE(entriesOf(scene), std::size_t(0));
    QCOMPARE(scene.b.model.values(), Numbers{-1});
    QCOMPARE(scene.nodes().size(), std::size_t(2));

    (scene.*deletion)(half);
    QCOMPARE(scene.log.said.last(), QString("disconnected A0-"));
    QVERIFY(scene.connections().empty());
}

void tst_CNodeSceneConnections::sharedConnectionLivesOn()
{
    QFETCH(const Deletion, deletion);
    CPairScene scene;
    auto shared = join(scene, scene.a, scene.b);

    (scene.*deletion)(*shared);
    QCOMPARE(shared.use_count(), 1L);
    QVERIFY(scene.connections().empty());
    QCOMPARE(entriesOf(scene), std::size_t(0));
    QCOMPARE(endOf(*shared, ENodePortType::In), &scene.b.node);
    QCOMPARE(endOf(*shared, ENodePortType::Out), &scene.a.node);
    scene.a.model.offer(CTestData::make(1));
    QCOMPARE(scene.b.model.values(), Numbers());

    (scene.*deletion)(*shared);
    QCOMPARE(scene.log.said, QStringList({"connected A0-B0", "disconnected A0-B0"})); // once
    shared.reset();
    QCOMPARE(scene.b.model.values(), Numbers{-1});
}

void tst_CNodeSceneConnections::strangeConnectionIsLeftAlone()
{
    QFETCH(const Deletion, deletion);
    CTestScene scene(nullptr, nullptr);
    CPairScene other;
    const auto ofOther = join(other, other.a, other.b);
    CNodeConnection ofNobody(other.b.node, 0, other.a.node, 0, {});
    const CSignalLog log(scene);

    (scene.*deletion)(*ofOther);
    (scene.*deletion)(ofNobody);
    QCOMPARE(log.said, QStringList());
    QCOMPARE(other.log.said, QStringList{"connected A0-B0"});
    QVERIFY(isWhole(other, *ofOther));
}

void tst_CNodeSceneConnections::connectionThatAHandlerKeptCanBeDeleted()
{
    CPairScene scene;
    const auto connection = join(scene, scene.a, scene.b);
    connect(&scene, &CNodeScene::connectionDeleted, [throws = true]() mutable {
        if (std::exchange(throws, false))
            throw std::runtime_error("handler");
    });
    QVERIFY_EXCEPTION_THROWN(scene.deleteConnectionNow(*connection), std::runtime_error);
    QVERIFY(isWhole(scene, *connection));
    scene.deleteConnectionNow(*connection);
    QVERIFY(scene.connections().empty());
    QCOMPARE(entriesOf(scene), std::size_t(0));
}

void tst_CNodeSceneConnections::destroyedConnectionIsInNoTable()
{
    CPairScene scene;
    int left = -1;
    {
        const std::shared_ptr<void> released(nullptr, [&](void*) { left = int(scene.connections().size()); });
        scene.createConnection(scene.b.node, 0, scene.a.node, 0, [released](CNodeDataPtr data) { return data; });
    }
    QCOMPARE(left, -1);
    scene.deleteConnectionNow(*scene.connections().begin()->second);
    QCOMPARE(left, 0);
}

QTEST_GUILESS_MAIN(tst_CNodeSceneConnections)

#include "tst_CNodeSceneConnections.moc"
