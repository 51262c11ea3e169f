// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The check that other tests end with finds what it is there to find.

#include "support/STestNode.h"
#include "support/SceneConsistency.h"

#include <QTest>

#include <functional>
#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

/// A producer and a consumer, connected, in a scene.
struct SPair
{
    CNodeState::Connections& inputs() const { return consumer.nodeState().getEntries(ENodePortType::In).front(); }

    CNodeScene scene{nullptr, nullptr};
    CNodeBase& producer = scene.createNode(std::make_unique<CTestModel>(1, 2));
    CNodeBase& consumer = scene.createNode(std::make_unique<CTestModel>(2, 1));
    std::shared_ptr<CNodeConnection> connection = scene.createConnection(consumer, 0, producer, 0, {});
};

} // namespace

using Break = std::function<void(SPair&)>;
Q_DECLARE_METATYPE(Break)

class tst_SceneConsistency : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundSceneHasNoInconsistency();
    void brokenSceneIsReported_data();
    void brokenSceneIsReported();
    void operationUnderWayIsReported();
    void waitingActionIsReported();
    void connectionBetweenScenesIsLookedUpInBoth();
};

void tst_SceneConsistency::soundSceneHasNoInconsistency()
{
    SPair pair;
    QVERIFY(pair.scene.createConnection(ENodePortType::Out, pair.producer, 1));
    QCOMPARE(inconsistencyOf(pair.scene), QString());

    pair.scene.removeNode(pair.producer);
    QCOMPARE(inconsistencyOf(pair.scene), QString());
}

void tst_SceneConsistency::brokenSceneIsReported_data()
{
    QTest::addColumn<Break>("breakIt");
    QTest::addColumn<QString>("report");

    QTest::newRow("entry missing") << Break([](SPair& pair) { pair.inputs().clear(); })
                                   << "a connection is missing in a port table of its node";
    QTest::newRow("null entry") << Break([](SPair& pair) { pair.inputs().emplace(Core::CId::createId(), nullptr); })
                                << "a port table holds a null connection";
    QTest::newRow("entry under another id")
        << Break([](SPair& pair) { pair.inputs().emplace(Core::CId::createId(), pair.connection.get()); })
        << "a port table holds a connection under another id";
    QTest::newRow("second entry") << Break([](SPair& pair) {
        pair.consumer.nodeState().setConnection(ENodePortType::In, 1, *pair.connection);
    }) << "a port table holds a connection that is attached elsewhere";
    QTest::newRow("end moved to a port that is not there")
        << Break([](SPair& pair) { pair.connection->setNodeToPort(pair.consumer, ENodePortType::In, 7); })
        << "a connection leads to a port that is not there";
    QTest::newRow("id changed") << Break([](SPair& pair) { pair.consumer.restore(QJsonObject()); })
                                << "a node stands under another id";
    QTest::newRow("connection of nobody") << Break([](SPair& pair) {
        pair.scene.deleteConnection(*pair.connection);
        enter(*pair.connection);
    }) << "a port table holds a connection that no scene does";
}

void tst_SceneConsistency::brokenSceneIsReported()
{
    QFETCH(Break, breakIt);
    SPair pair;
    breakIt(pair);
    QTEST(inconsistencyOf(pair.scene), "report");
}

void tst_SceneConsistency::operationUnderWayIsReported()
{
    SPair pair;
    QString report;
    QObject::connect(&pair.scene, &CNodeScene::nodeCreated, [&] { report = inconsistencyOf(pair.scene); });
    pair.scene.createNode(std::make_unique<CTestModel>());
    QCOMPARE(report, QStringLiteral("an announcement of the scene has not ended"));
    QCOMPARE(inconsistencyOf(pair.scene), QString());
}

void tst_SceneConsistency::waitingActionIsReported()
{
    SPair pair;
    QString report;
    QObject::connect(&pair.scene, &CNodeScene::nodeCreated, [&] {
        pair.scene.deleteConnection(*pair.connection);
        report = inconsistencyOf(pair.scene);
    });
    pair.scene.createNode(std::make_unique<CTestModel>());
    QCOMPARE(report, QStringLiteral("something waits in the scene's queue"));
    QCOMPARE(inconsistencyOf(pair.scene), QString());
}

void tst_SceneConsistency::connectionBetweenScenesIsLookedUpInBoth()
{
    SPair consumers;
    SPair producers;
    QVERIFY(consumers.scene.createConnection(consumers.consumer, 1, producers.producer, 1, {}));
    QCOMPARE(inconsistencyOf(SceneWorld{&producers.scene, &consumers.scene}), QString());
    QCOMPARE(inconsistencyOf(producers.scene), QStringLiteral("a port table holds a connection that no scene does"));
}

QTEST_GUILESS_MAIN(tst_SceneConsistency)
#include "tst_SceneConsistency.moc"
