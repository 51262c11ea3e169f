// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The check that other tests end with finds what it is there to find.

#include "support/STestNode.h"
#include "support/SceneConsistency.h"

#include <QTest>

#include <functional>

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
    void whatIsUnderWayIsReported();
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

    const auto addRow = [](const char* name, const char* report, const Break& breakIt) {
        QTest::newRow(name) << breakIt << report;
    };
    const Core::CId otherId = Core::CId::createId();
    addRow("entry missing", "a connection is missing in a port table of its node",
           [](SPair& pair) { pair.inputs().clear(); });
    addRow("null entry", "a port table holds a null connection",
           [=](SPair& pair) { pair.inputs().emplace(otherId, nullptr); });
    addRow("entry under another id", "a port table holds a connection under another id",
           [=](SPair& pair) { pair.inputs().emplace(otherId, pair.connection.get()); });
    addRow("second entry", "a port table holds a connection that is attached elsewhere",
           [](SPair& pair) { pair.consumer.nodeState().setConnection(ENodePortType::In, 1, *pair.connection); });
    addRow("end moved to a port that is not there", "a connection leads to a port that is not there",
           [](SPair& pair) { pair.connection->setNodeToPort(pair.consumer, ENodePortType::In, 7); });
    addRow("id changed", "a node stands under another id", [](SPair& pair) { pair.consumer.restore({}); });
    addRow("connection of nobody", "a port table holds a connection that no scene does", [](SPair& pair) {
        pair.scene.deleteConnection(*pair.connection);
        enter(*pair.connection);
    });
}

void tst_SceneConsistency::brokenSceneIsReported()
{
    QFETCH(Break, breakIt);
    SPair pair;
    breakIt(pair);
    QTEST(inconsistencyOf(pair.scene), "report");
}

void tst_SceneConsistency::whatIsUnderWayIsReported()
{
    SPair pair;
    QStringList reports;
    QObject::connect(&pair.scene, &CNodeScene::nodeCreated, [&] {
        reports << inconsistencyOf(pair.scene);
        pair.scene.deleteConnection(*pair.connection);
        reports << inconsistencyOf(pair.scene);
    });
    pair.scene.createNode(std::make_unique<CTestModel>());
    QCOMPARE(reports,
             QStringList({"an announcement of the scene has not ended", "something waits in the scene's queue"}));
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
