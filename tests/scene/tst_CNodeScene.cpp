// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/scene/CNodeScene.h>

#include "support/CContextTranslator.h"
#include "support/CMessageCatcher.h"
#include "support/CTestModel.h"
#include "support/CTestScene.h"
#include "support/HasAssertions.h"
#include "support/MetaMethods.h"
#include "support/SceneConsistency.h"

#include <QProcess>
#include <QtTest>

#include <csignal>
#include <cstdio>
#include <functional>
#include <limits>
#include <map>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Plugin::Halvex;

Q_DECLARE_METATYPE(Plugin::Halvex::CNodeScene*) // as hosts do
using Core::AppCoreComponents::BaseInfoPtr;
using Core::AppCoreComponents::IBaseInfo;

static_assert(std::is_base_of_v<QObject, CNodeScene> && !std::is_copy_constructible_v<CNodeScene>, "an object");

namespace {

constexpr const char* staticSceneWanted = "HALVEX_TEST_STATIC_SCENE";

bool isStaticSceneWanted()
{
    return qEnvironmentVariableIsSet(staticSceneWanted);
}

using Numbers = std::vector<int>;
using Deletion = void (CNodeScene::*)(CNodeConnection&);

/// A node of a scene, with the model in it.
struct SPlaced
{
    CNodeBase& node;
    CTestModel& model;
};

SPlaced place(CNodeScene& scene, const QString& name = QStringLiteral("N"), unsigned int inPorts = 1,
              unsigned int outPorts = 1)
{
    auto model = std::make_unique<CTestModel>(inPorts, outPorts, name);
    CTestModel& placed = *model;
    return {scene.createNode(std::move(model)), placed};
}

std::shared_ptr<CNodeConnection> join(CNodeScene& scene, const SPlaced& from, int outIndex, const SPlaced& to,
                                      int inIndex)
{
    return scene.createConnection(to.node, inIndex, from.node, outIndex, NodeDataConverter());
}

std::vector<CNodeConnection*> joinPortByPort(CNodeScene& scene, const SPlaced& from, const SPlaced& to, int count)
{
    std::vector<CNodeConnection*> connections;
    connections.reserve(std::size_t(count));
    for (int index = 0; index < count; ++index)
        connections.push_back(join(scene, from, index, to, index).get());
    return connections;
}

CNodeBase* endOf(const CNodeConnection& connection, ENodePortType side)
{
    return connection.getNode(side);
}

bool isInTable(const CNodeScene& scene, const CNodeConnection& connection)
{
    const auto found = scene.connections().find(connection.id());
    return found != scene.connections().end() && found->second.get() == &connection;
}

bool isInPort(const CNodeBase& node, ENodePortType side, int index, const CNodeConnection& connection)
{
    return node.nodeState().connections(side, index).count(connection.id()) == 1;
}

/// In the scene's table, with both ends set and entered in their ports.
bool isWhole(const CNodeScene& scene, const CNodeConnection& connection)
{
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        const CNodeBase* const node = endOf(connection, side);
        if (!node || !isInPort(*node, side, connection.getPortIndex(side), connection))
            return false;
    }
    return isInTable(scene, connection);
}

/// How many entries the ports of a node hold together.
std::size_t entriesOf(const CNodeBase& node)
{
    std::size_t count = 0;
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        for (const auto& port : node.nodeState().getEntries(side))
            count += port.size();
    }
    return count;
}

/// What the signals of a scene say, in order: "created A", "connected A0-B0", "disconnected A0-", "deleted A".
class CSignalLog
{
public:
    explicit CSignalLog(CNodeScene& scene)
    {
        QObject::connect(&scene, &CNodeScene::nodeCreated, &m_context,
                         [this](CNodeBase& node) { said << "created " + nameOf(&node); });
        QObject::connect(&scene, &CNodeScene::nodeDeleted, &m_context,
                         [this](CNodeBase& node) { said << "deleted " + nameOf(&node); });
        QObject::connect(&scene, &CNodeScene::connectionCreated, &m_context,
                         [this](CNodeConnection& connection) { said << "connected " + endsOf(connection); });
        QObject::connect(&scene, &CNodeScene::connectionDeleted, &m_context,
                         [this](CNodeConnection& connection) { said << "disconnected " + endsOf(connection); });
    }

    QStringList said;

private:
    static QString nameOf(const CNodeBase* node) { return node->nodeDataModel()->name(); }
    static QString endOf(const CNodeConnection& connection, ENodePortType side)
    {
        const CNodeBase* const node = ::endOf(connection, side);
        return node ? nameOf(node) + QString::number(connection.getPortIndex(side)) : QString();
    }
    static QString endsOf(const CNodeConnection& connection)
    {
        return endOf(connection, ENodePortType::Out) + '-' + endOf(connection, ENodePortType::In);
    }

    QObject m_context;
};

class CInfo : public IBaseInfo
{
public:
    explicit CInfo(std::function<void()> onDestroyed = {})
        : m_onDestroyed(std::move(onDestroyed))
    {
    }
    ~CInfo() override
    {
        if (m_onDestroyed)
            m_onDestroyed();
    }

private:
    std::function<void()> m_onDestroyed;
};

/// Tells when its node asks for its ports.
class CPortAskedModel : public CTestModel
{
public:
    unsigned int nPorts(ENodePortType side) const override
    {
        onPortsAsked();
        return CTestModel::nPorts(side);
    }
    std::function<void()> onPortsAsked;
};

/// Visits the nodes or, through the other operation, their models.
void visit(CNodeScene& scene, bool asModels, const std::function<void(CNodeDataModel*)>& visitor)
{
    if (asModels)
        scene.iterateOverNodeData(visitor);
    else
        scene.iterateOverNodes([&visitor](CNodeBase* node) { visitor(node->nodeDataModel()); });
}

std::vector<CNodeDataModel*> modelsInOrder(const CNodeScene& scene)
{
    std::vector<CNodeDataModel*> models;
    for (const auto& entry : scene.nodes())
        models.push_back(entry.second->nodeDataModel());
    return models;
}

} // namespace

Q_DECLARE_METATYPE(Deletion)

class tst_CNodeScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void hostMayDeclareItsPointer();
    void defaultIsEmptyWithoutRegistry();
    void sharesTheRegistry();
    void registryMayBeEmpty();
    void missingRegistryIsAsserted();
    void replacedRegistryLeavesNodesAlone();
    void sharesTheInfo();
    void belongsToItsParent();
    void releasesWhatItHoldsInOrder();

    void createdNodeOwnsTheModel();
    void modelHasTheInfoBeforeItsNodeIsBuilt();
    void missingInfoIsNotAnnounced();
    void nullModelMakesNothing();
    void noNodeBelongsNowhere();

    void connectsTheSecondNodeToTheFirst();
    void connectionIsWholeWhenAnnounced();
    void portsThatDoNotExist_data();
    void portsThatDoNotExist();
    void deliversTheCurrentOutputBeforeItAnnounces();
    void servesEarlierConsumersAgain();
    void emptyOutputDeliversNothing();
    void loopBehindANewConnectionEndsNothingElse();
    void convertsWhatItDelivers();
    void connectsTheSamePortsTwice();

    void halfConnectionHasOneEnd_data();
    void halfConnectionHasOneEnd();
    void halfConnectionOfNoSide();
    void halfConnectionToNoPort_data();
    void halfConnectionToNoPort();

    void deletesAtOnce_data();
    void deletesAtOnce();
    void sharedConnectionLivesOn_data() { deletesAtOnce_data(); }
    void sharedConnectionLivesOn();
    void deletesAHalfConnection_data() { deletesAtOnce_data(); }
    void deletesAHalfConnection();
    void deletingTwiceDeletesOnce_data() { deletesAtOnce_data(); }
    void deletingTwiceDeletesOnce();
    void strangeConnectionIsLeftAlone_data() { deletesAtOnce_data(); }
    void strangeConnectionIsLeftAlone();
    void modelDeletesAtOnce();

    void handlersDeletionWaitsForTheOtherHandlers();
    void handlersDeletionNowDoesNotWait();
    void handlersDeletionsKeepTheirOrder();
    void deletionAskedForByADeletionComesLast();
    void deletionWaitsForTheOutermostOperation();
    void longQueueOfDeletionsNeedsNoStack();
    void staticSceneOutlivesTheLibrarysStatics();
    void staticSceneOfAnotherProcess() const;

    void removedNodeGoesAfterItsConnections();
    void nodeIsWholeWhenItsRemovalIsAnnounced();
    void consumersOfARemovedNodeReceiveEmptyData();
    void selfConnectionGoesOnce();
    void deletionAskedForWhenARemovalIsAnnouncedComesFirst();
    void strangeNodeIsLeftAlone();
    void nodeThatTookAnothersIdGoesAlone();

    void isBeingDestroyedInItsDestructorAlone();
    void clearingAnEmptySceneDoesNothing();
    void clearsInTheOrderOfTheTable();
    void clearingKeepsHalfConnections();
    void destructionAnnouncesWhatRemains();

    void visitsInTheOrderOfTheTable_data();
    void visitsInTheOrderOfTheTable();
    void emptyVisitorThrowsIfThereIsANode();
    void visitorMayRemoveOthers_data() { visitsInTheOrderOfTheTable_data(); }
    void visitorMayRemoveOthers();
    void visitorMayRemoveEachNode_data() { visitsInTheOrderOfTheTable_data(); }
    void visitorMayRemoveEachNode();
    void visitorMayAdd_data() { visitsInTheOrderOfTheTable_data(); }
    void visitorMayAdd();
    void visitorMayDestroyTheScene_data() { visitsInTheOrderOfTheTable_data(); }
    void visitorMayDestroyTheScene();
    void visitorsExceptionPassesThrough_data() { visitsInTheOrderOfTheTable_data(); }
    void visitorsExceptionPassesThrough();

    void metaObject();
    void textsAreTranslatedUnderTheClassName();
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
    QCOMPARE(QByteArray(QMetaType::typeName(type)), QByteArray("Plugin::Halvex::CNodeScene*"));
    QVERIFY(QMetaType(type).flags().testFlag(QMetaType::PointerToQObject));
    QCOMPARE(QMetaType::metaObjectForType(type), &CNodeScene::staticMetaObject);

    CTestScene scene({}, nullptr);
    const QVariant variant = QVariant::fromValue<CNodeScene*>(&scene);
    QCOMPARE(variant.value<CNodeScene*>(), static_cast<CNodeScene*>(&scene));
    QCOMPARE(variant.value<QObject*>(), static_cast<QObject*>(&scene));
}

void tst_CNodeScene::defaultIsEmptyWithoutRegistry()
{
    const CTestScene scene(nullptr, nullptr);
    QVERIFY(!scene.isRegistyValid());
    QVERIFY(scene.nodes().empty());
    QVERIFY(scene.connections().empty());
    QVERIFY(!scene.getSceneInfo());
    QVERIFY(!scene.parent());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::sharesTheRegistry()
{
    const auto registry = std::make_shared<CNodeDataModelRegistry>();
    const CTestScene first(registry, nullptr, nullptr);
    const CTestScene second(registry, nullptr, nullptr);
    QVERIFY(first.isRegistyValid());
    QCOMPARE(&first.registry(), registry.get());
    QCOMPARE(&second.registry(), registry.get());
    QCOMPARE(registry.use_count(), 3L);
}

void tst_CNodeScene::registryMayBeEmpty()
{
    const BaseInfoPtr info = QSharedPointer<CInfo>::create();
    const CTestScene scene(std::shared_ptr<CNodeDataModelRegistry>(), info, nullptr);
    QVERIFY(!scene.isRegistyValid());
    QCOMPARE(scene.getSceneInfo(), info);
}

void tst_CNodeScene::missingRegistryIsAsserted()
{
    if (!hasAssertions)
        QSKIP("Without assertions, what happens is undefined.");
    const CTestScene scene(nullptr, nullptr);
    const pid_t child = fork();
    if (child == 0) {
        // Dies quietly: Qt Test would write a report, and the system an image of the memory.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        std::signal(SIGABRT, SIG_DFL);
        const rlimit noFile{0, 0};
        setrlimit(RLIMIT_CORE, &noFile);
        scene.registry();
        _exit(0);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGABRT);
}

void tst_CNodeScene::replacedRegistryLeavesNodesAlone()
{
    auto old = std::make_shared<CNodeDataModelRegistry>();
    const std::weak_ptr<CNodeDataModelRegistry> watched = old;
    CTestScene scene(std::move(old), nullptr, nullptr);
    const SPlaced a = place(scene);

    const auto registry = std::make_shared<CNodeDataModelRegistry>();
    scene.setRegistry(registry);
    QVERIFY(watched.expired());
    QCOMPARE(&scene.registry(), registry.get());
    QCOMPARE(a.node.nodeDataModel(), &a.model);

    scene.setRegistry(nullptr);
    QVERIFY(!scene.isRegistyValid());
    QCOMPARE(registry.use_count(), 1L);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::sharesTheInfo()
{
    auto info = QSharedPointer<CInfo>::create();
    const QWeakPointer<CInfo> watched = info;
    auto scene = std::make_unique<CTestScene>(info, nullptr);
    QCOMPARE(scene->getSceneInfo(), BaseInfoPtr(info));
    info.reset();
    QVERIFY(watched);
    scene.reset();
    QVERIFY(!watched);
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
        QSharedPointer<CInfo>::create([&said] { said << "info"; }), nullptr);
    const SPlaced a = place(*scene);
    a.model.onDestroyed = [&said] { said << "model"; };
    connect(scene->createConnection(ENodePortType::In, a.node, 0).get(), &QObject::destroyed, this,
            [&said] { said << "half connection"; });

    scene.reset();
    QCOMPARE(said, QStringList({"model", "info", "registry", "half connection"}));
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
    QCOMPARE(scene.nodes().size(), std::size_t(1));
    QCOMPARE(scene.nodes().at(node.id()).get(), &node);

    CNodeBase& second = place(scene).node;
    QVERIFY(second.id() != node.id());
    QCOMPARE(scene.nodes().size(), std::size_t(2));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::modelHasTheInfoBeforeItsNodeIsBuilt()
{
    const BaseInfoPtr info = QSharedPointer<CInfo>::create();
    CTestScene scene(info, nullptr);
    QStringList said;
    auto model = std::make_unique<CPortAskedModel>();
    CPortAskedModel& placed = *model;
    placed.onPortsAsked = [&said] { said << "ports"; };
    connect(&placed, &CNodeDataModel::infoInjected, &scene, [&](const BaseInfoPtr& injected) {
        said << (injected == info && scene.nodes().empty() ? "info" : "something else");
    });

    scene.createNode(std::move(model));
    QCOMPARE(placed.getInfo(), info);
    QCOMPARE(said, QStringList({"info", "ports", "ports"}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::missingInfoIsNotAnnounced()
{
    CTestScene scene(nullptr, nullptr);
    auto model = std::make_unique<CTestModel>();
    bool isInjected = false;
    connect(model.get(), &CNodeDataModel::infoInjected, &scene, [&isInjected] { isInjected = true; });
    scene.createNode(std::move(model));
    QVERIFY(!isInjected);
}

void tst_CNodeScene::nullModelMakesNothing()
{
    CTestScene scene(nullptr, nullptr);
    const CSignalLog log(scene);
    const CNodeBase& node = scene.createNode(nullptr);

    QCOMPARE(&node, &CNodeScene::noNode());
    QCOMPARE(log.said, QStringList());
    QVERIFY(scene.nodes().empty());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::noNodeBelongsNowhere()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    CNodeBase& none = CNodeScene::noNode();
    QCOMPARE(&none, &CNodeScene::noNode());
    QCOMPARE(none.id(), Core::CId());
    QVERIFY(none.nodeDataModel());

    const CSignalLog log(scene);
    QVERIFY(!scene.createConnection(a.node, 0, none, 0, NodeDataConverter()));
    QVERIFY(!scene.createConnection(none, 0, a.node, 0, NodeDataConverter()));
    QVERIFY(!scene.createConnection(ENodePortType::In, none, 0));
    scene.removeNode(none);
    QCOMPARE(log.said, QStringList());
    QCOMPARE(&none, &CNodeScene::noNode());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::connectsTheSecondNodeToTheFirst()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced consumer = place(scene, QStringLiteral("Consumer"), 3, 1);
    const SPlaced producer = place(scene, QStringLiteral("Producer"), 0, 2);

    const auto connection = scene.createConnection(consumer.node, 2, producer.node, 1, NodeDataConverter());
    QVERIFY(connection);
    QCOMPARE(endOf(*connection, ENodePortType::In), &consumer.node);
    QCOMPARE(connection->getPortIndex(ENodePortType::In), 2);
    QCOMPARE(endOf(*connection, ENodePortType::Out), &producer.node);
    QCOMPARE(connection->getPortIndex(ENodePortType::Out), 1);
    QVERIFY(isWhole(scene, *connection));
    QCOMPARE(entriesOf(consumer.node), std::size_t(1));
    QCOMPARE(entriesOf(producer.node), std::size_t(1));
    QVERIFY(!connection->parent());

    producer.model.offer(CTestData::make(1), 1);
    QCOMPARE(consumer.model.values(), Numbers{1});
    QCOMPARE(consumer.model.received[0].index, 2);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::connectionIsWholeWhenAnnounced()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    QList<CNodeConnection*> announced;
    bool wasWhole = false;
    connect(&scene, &CNodeScene::connectionCreated, &scene, [&](CNodeConnection& connection) {
        announced << &connection;
        wasWhole = isWhole(scene, connection);
    });

    const auto connection = join(scene, a, 0, b, 0);
    QCOMPARE(announced, QList<CNodeConnection*>{connection.get()});
    QVERIFY(wasWhole);
    QCOMPARE(scene.connections().size(), std::size_t(1));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::portsThatDoNotExist_data()
{
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();

    QTest::addColumn<int>("inIndex");
    QTest::addColumn<int>("outIndex");

    QTest::newRow("in behind the last") << 2 << 0;
    QTest::newRow("in none") << -1 << 0;
    QTest::newRow("in huge") << most << 0;
    QTest::newRow("in negative") << least << 0;
    QTest::newRow("out behind the last") << 0 << 3;
    QTest::newRow("out none") << 0 << -1;
    QTest::newRow("out huge") << 0 << most;
    QTest::newRow("out negative") << 0 << least;
    QTest::newRow("both") << -1 << -1;
}

void tst_CNodeScene::portsThatDoNotExist()
{
    QFETCH(const int, inIndex);
    QFETCH(const int, outIndex);

    CTestScene scene(nullptr, nullptr);
    const SPlaced producer = place(scene, QStringLiteral("Producer"), 0, 3);
    const SPlaced consumer = place(scene, QStringLiteral("Consumer"), 2, 0);
    producer.model.out = CTestData::make(1);
    const CSignalLog log(scene);

    QVERIFY(!join(scene, producer, outIndex, consumer, inIndex));
    QCOMPARE(log.said, QStringList());
    QVERIFY(scene.connections().empty());
    QCOMPARE(entriesOf(producer.node) + entriesOf(consumer.node), std::size_t(0));
    QCOMPARE(producer.model.outDataCalls, 0);
    QCOMPARE(consumer.model.values(), Numbers());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::deliversTheCurrentOutputBeforeItAnnounces()
{
    QStringList said; // before the scene, since there is one more delivery at its end
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    a.model.out = CTestData::make(1);
    b.model.onSetInData = [&](const CNodeDataPtr&, NodePortIndex) {
        said << QStringLiteral("delivered, %1 in the ports, %2 in the table")
                    .arg(entriesOf(a.node) + entriesOf(b.node))
                    .arg(scene.connections().size());
    };
    connect(&scene, &CNodeScene::connectionCreated, &scene, [&said] { said << "announced"; });

    join(scene, a, 0, b, 0);
    QCOMPARE(said, QStringList({"delivered, 2 in the ports, 0 in the table", "announced"}));
    QCOMPARE(b.model.received[0].data, a.model.out);
    QCOMPARE(a.model.outDataCalls, 1);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::servesEarlierConsumersAgain()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"), 0, 2);
    const SPlaced b = place(scene);
    const SPlaced c = place(scene);
    const SPlaced other = place(scene);
    a.model.onOutData = [](NodePortIndex index) { return CTestData::make(index); };
    join(scene, a, 1, other, 0);
    join(scene, a, 0, b, 0);
    QCOMPARE(b.model.values(), Numbers{0});

    join(scene, a, 0, c, 0);
    QCOMPARE(b.model.values(), (Numbers{0, 0}));
    QCOMPARE(c.model.values(), Numbers{0});
    QCOMPARE(other.model.values(), Numbers{1}); // its port had nothing to do with it
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::emptyOutputDeliversNothing()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    const SPlaced c = place(scene);
    join(scene, a, 0, b, 0);
    join(scene, a, 0, c, 0);
    QCOMPARE(a.model.outDataCalls, 2);
    QCOMPARE(b.model.values(), Numbers());
    QCOMPARE(c.model.values(), Numbers());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::loopBehindANewConnectionEndsNothingElse()
{
    const CMessageCatcher messages; // the loop is reported
    CTestScene scene(nullptr, nullptr);
    const SPlaced source = place(scene, QStringLiteral("A"), 0, 1);
    const SPlaced relay = place(scene, QStringLiteral("B"));
    const SPlaced loop = place(scene, QStringLiteral("C"));
    const SPlaced sink = place(scene, QStringLiteral("D"), 1, 0);
    QVERIFY(join(scene, loop, 0, loop, 0));
    QVERIFY(join(scene, relay, 0, loop, 0));
    QVERIFY(join(scene, relay, 0, sink, 0));
    source.model.out = CTestData::make(1);

    QVERIFY(join(scene, source, 0, relay, 0));

    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QCOMPARE(sink.model.values(), Numbers({1}));
}

void tst_CNodeScene::convertsWhatItDelivers()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    a.model.out = CTestData::make(1);
    const NodeDataConverter addTen = [](const CNodeDataPtr& data) {
        return data ? CTestData::make(CTestData::valueOf(data) + 10) : nullptr;
    };
    const auto connection = scene.createConnection(b.node, 0, a.node, 0, addTen);
    a.model.offer(CTestData::make(2));
    QCOMPARE(b.model.values(), (Numbers{11, 12}));
    QVERIFY(connection->save().contains("converter"));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::connectsTheSamePortsTwice()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    const auto first = join(scene, a, 0, b, 0);
    const auto second = join(scene, a, 0, b, 0);
    QVERIFY(first && second && first->id() != second->id());
    a.model.offer(CTestData::make(1));
    QCOMPARE(b.model.values(), (Numbers{1, 1}));

    scene.deleteConnection(*first);
    QVERIFY(isWhole(scene, *second));
    a.model.offer(CTestData::make(2));
    QCOMPARE(b.model.values(), (Numbers{1, 1, 2}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::halfConnectionHasOneEnd_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<QString>("announced");

    QTest::newRow("in") << int(ENodePortType::In) << "connected -A1";
    QTest::newRow("out") << int(ENodePortType::Out) << "connected A1-";
}

void tst_CNodeScene::halfConnectionHasOneEnd()
{
    QFETCH(const int, side);
    QFETCH(const QString, announced);
    const auto portType = ENodePortType(side);
    const ENodePortType otherSide = portType == ENodePortType::In ? ENodePortType::Out : ENodePortType::In;

    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"), 2, 2);
    a.model.out = CTestData::make(1);
    const CSignalLog log(scene);

    const auto half = scene.createConnection(portType, a.node, 1);
    QVERIFY(half);
    QCOMPARE(log.said, QStringList{announced});
    QVERIFY(isInTable(scene, *half));
    QCOMPARE(endOf(*half, portType), &a.node);
    QCOMPARE(half->getPortIndex(portType), 1);
    QVERIFY(!endOf(*half, otherSide));
    QCOMPARE(half->getPortIndex(otherSide), -1);

    // It is in no port table and carries nothing.
    QCOMPARE(entriesOf(a.node), std::size_t(0));
    QCOMPARE(a.model.outDataCalls, 0);
    a.model.offer(CTestData::make(2), 1);
    QCOMPARE(a.model.values(), Numbers());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::halfConnectionOfNoSide()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"), 2, 1);
    const CSignalLog log(scene);

    const auto half = scene.createConnection(ENodePortType::None, a.node, 7);
    QVERIFY(half);
    QCOMPARE(log.said.size(), 1);
    QVERIFY(isInTable(scene, *half));
    QCOMPARE(endOf(*half, ENodePortType::Out), &a.node);
    QCOMPARE(half->getPortIndex(ENodePortType::Out), -1);
    QVERIFY(!endOf(*half, ENodePortType::In));
    QCOMPARE(half->getPortIndex(ENodePortType::In), 7);
    QCOMPARE(entriesOf(a.node), std::size_t(0));
    QVERIFY(half->save().isEmpty());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::halfConnectionToNoPort_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("index");

    QTest::newRow("in behind the last") << int(ENodePortType::In) << 2;
    QTest::newRow("in none") << int(ENodePortType::In) << -1;
    QTest::newRow("in huge") << int(ENodePortType::In) << std::numeric_limits<int>::max();
    QTest::newRow("out behind the last") << int(ENodePortType::Out) << 1;
    QTest::newRow("out none") << int(ENodePortType::Out) << -1;
    QTest::newRow("unknown side") << 3 << 0;
}

void tst_CNodeScene::halfConnectionToNoPort()
{
    QFETCH(const int, side);
    QFETCH(const int, index);

    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"), 2, 1);
    const CSignalLog log(scene);
    QVERIFY(!scene.createConnection(ENodePortType(side), a.node, index));
    QVERIFY(scene.connections().empty());
    QCOMPARE(log.said, QStringList());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::deletesAtOnce_data()
{
    QTest::addColumn<Deletion>("deletion");

    QTest::newRow("deleteConnection") << Deletion(&CNodeScene::deleteConnection);
    QTest::newRow("deleteConnectionNow") << Deletion(&CNodeScene::deleteConnectionNow);
}

void tst_CNodeScene::deletesAtOnce()
{
    QFETCH(const Deletion, deletion);

    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    CNodeConnection& connection = *join(scene, a, 0, b, 0);
    const std::weak_ptr<CNodeConnection> watched = scene.connections().at(connection.id());
    QList<CNodeConnection*> announced;
    bool wasWhole = false;
    connect(&scene, &CNodeScene::connectionDeleted, &scene, [&](CNodeConnection& leaving) {
        announced << &leaving;
        wasWhole = isWhole(scene, leaving) && b.model.received.empty();
    });

    (scene.*deletion)(connection);
    QCOMPARE(announced, QList<CNodeConnection*>{&connection});
    QVERIFY(wasWhole);
    QVERIFY(watched.expired());
    QVERIFY(scene.connections().empty());
    QCOMPARE(entriesOf(a.node) + entriesOf(b.node), std::size_t(0));
    QCOMPARE(b.model.values(), Numbers{-1});
    QCOMPARE(scene.nodes().size(), std::size_t(2));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::sharedConnectionLivesOn()
{
    QFETCH(const Deletion, deletion);

    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    auto shared = join(scene, a, 0, b, 0);

    (scene.*deletion)(*shared);
    QCOMPARE(shared.use_count(), 1L);
    QVERIFY(scene.connections().empty());
    QCOMPARE(entriesOf(a.node) + entriesOf(b.node), std::size_t(0));
    QCOMPARE(endOf(*shared, ENodePortType::In), &b.node);
    QCOMPARE(endOf(*shared, ENodePortType::Out), &a.node);
    a.model.offer(CTestData::make(1));
    QCOMPARE(b.model.values(), Numbers());

    shared.reset();
    QCOMPARE(b.model.values(), Numbers{-1});
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::deletesAHalfConnection()
{
    QFETCH(const Deletion, deletion);

    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"));
    const CSignalLog log(scene);
    CNodeConnection& half = *scene.createConnection(ENodePortType::Out, a.node, 0);
    (scene.*deletion)(half);
    QCOMPARE(log.said, QStringList({"connected A0-", "disconnected A0-"}));
    QVERIFY(scene.connections().empty());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::deletingTwiceDeletesOnce()
{
    QFETCH(const Deletion, deletion);

    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"));
    const SPlaced b = place(scene, QStringLiteral("B"));
    const auto shared = join(scene, a, 0, b, 0);
    const CSignalLog log(scene);
    (scene.*deletion)(*shared);
    (scene.*deletion)(*shared);
    QCOMPARE(log.said, QStringList{"disconnected A0-B0"});
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::strangeConnectionIsLeftAlone()
{
    QFETCH(const Deletion, deletion);

    CTestScene scene(nullptr, nullptr);
    CTestScene other(nullptr, nullptr);
    const SPlaced a = place(other, QStringLiteral("A"));
    const SPlaced b = place(other, QStringLiteral("B"));
    const auto ofOther = join(other, a, 0, b, 0);
    CNodeConnection ofNobody(b.node, 0, a.node, 0, NodeDataConverter());
    const CSignalLog log(scene);
    const CSignalLog otherLog(other);

    (scene.*deletion)(*ofOther);
    (scene.*deletion)(ofNobody);
    QCOMPARE(log.said + otherLog.said, QStringList());
    QVERIFY(isWhole(other, *ofOther));
    QCOMPARE(inconsistencyOf(scene), QString());
    QCOMPARE(inconsistencyOf(other), QString());
}

void tst_CNodeScene::modelDeletesAtOnce()
{
    // A delivery outside of the scene's own operations is no reason to wait.
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    CNodeConnection& connection = *join(scene, a, 0, b, 0);
    std::size_t left = 1;
    b.model.onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
        if (!data)
            return;
        scene.deleteConnection(connection);
        left = scene.connections().size();
    };
    a.model.offer(CTestData::make(1));
    QCOMPARE(left, std::size_t(0));
    QCOMPARE(b.model.values(), (Numbers{1, -1}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::handlersDeletionWaitsForTheOtherHandlers()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"));
    const SPlaced b = place(scene, QStringLiteral("B"));
    bool wasWholeAfterAsking = false;
    bool wasWholeForTheNext = false;
    connect(&scene, &CNodeScene::connectionCreated, &scene, [&](CNodeConnection& connection) {
        scene.deleteConnection(connection);
        wasWholeAfterAsking = isWhole(scene, connection);
    });
    const CSignalLog log(scene);
    connect(&scene, &CNodeScene::connectionCreated, &scene,
            [&](CNodeConnection& connection) { wasWholeForTheNext = isWhole(scene, connection); });

    const auto connection = join(scene, a, 0, b, 0);
    QVERIFY(wasWholeAfterAsking);
    QVERIFY(wasWholeForTheNext);
    QCOMPARE(log.said, QStringList({"connected A0-B0", "disconnected A0-B0"}));
    QVERIFY(connection);
    QVERIFY(!isInTable(scene, *connection));
    QCOMPARE(connection.use_count(), 1L);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::handlersDeletionNowDoesNotWait()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"));
    const SPlaced b = place(scene, QStringLiteral("B"));
    bool wasInTableForTheNext = true;
    connect(&scene, &CNodeScene::connectionCreated, &scene,
            [&](CNodeConnection& connection) { scene.deleteConnectionNow(connection); });
    connect(&scene, &CNodeScene::connectionCreated, &scene,
            [&](CNodeConnection& connection) { wasInTableForTheNext = isInTable(scene, connection); });

    const auto connection = join(scene, a, 0, b, 0);
    QVERIFY(connection);
    QVERIFY(!wasInTableForTheNext);
    QVERIFY(scene.connections().empty());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::handlersDeletionsKeepTheirOrder()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"), 0, 3);
    const SPlaced b = place(scene, QStringLiteral("B"), 3, 0);
    const std::vector<CNodeConnection*> connections = joinPortByPort(scene, a, b, 3);
    connect(&scene, &CNodeScene::nodeCreated, &scene, [&] {
        for (const std::size_t index : {2U, 0U, 1U})
            scene.deleteConnection(*connections[index]);
    });

    const CSignalLog log(scene);
    place(scene, QStringLiteral("C"));
    QCOMPARE(log.said, QStringList({"created C", "disconnected A2-B2", "disconnected A0-B0", "disconnected A1-B1"}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::deletionAskedForByADeletionComesLast()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"), 0, 3);
    const SPlaced b = place(scene, QStringLiteral("B"), 3, 0);
    const std::vector<CNodeConnection*> connections = joinPortByPort(scene, a, b, 3);
    connect(&scene, &CNodeScene::nodeCreated, &scene, [&] {
        scene.deleteConnection(*connections[0]);
        scene.deleteConnection(*connections[1]);
    });
    connect(&scene, &CNodeScene::connectionDeleted, &scene, [&](CNodeConnection& connection) {
        if (&connection == connections[0])
            scene.deleteConnection(*connections[2]);
    });

    const CSignalLog log(scene);
    place(scene, QStringLiteral("C"));
    QCOMPARE(log.said, QStringList({"created C", "disconnected A0-B0", "disconnected A1-B1", "disconnected A2-B2"}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::deletionWaitsForTheOutermostOperation()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"));
    const SPlaced b = place(scene, QStringLiteral("B"));
    bool wasWholeInTheOuterHandler = false;
    connect(&scene, &CNodeScene::connectionCreated, &scene,
            [&](CNodeConnection& connection) { scene.deleteConnection(connection); });
    connect(&scene, &CNodeScene::nodeCreated, &scene, [&] {
        const auto connection = join(scene, a, 0, b, 0);
        wasWholeInTheOuterHandler = connection && isWhole(scene, *connection);
    });

    const CSignalLog log(scene);
    place(scene, QStringLiteral("C"));
    QVERIFY(wasWholeInTheOuterHandler);
    // "created" comes second because the handler above stands before the log.
    QCOMPARE(log.said, QStringList({"connected A0-B0", "created C", "disconnected A0-B0"}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::staticSceneOutlivesTheLibrarysStatics()
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(staticSceneWanted), QStringLiteral("1"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("staticSceneOfAnotherProcess")});
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
    const SPlaced from = place(scene, QStringLiteral("A"));
    const SPlaced to = place(scene, QStringLiteral("B"));
    QVERIFY(join(scene, from, 0, to, 0));
    connect(&scene, &CNodeScene::nodeDeleted, &scene, [](CNodeBase& node) {
        for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
            node.nodeState().getEntries(side); // for writing, so that what is there is looked up from now on
            words.found += int(node.nodeState().connections(side, 0).size()); // nothing can be found any more
        }
        if (++words.gone == 1) {
            SPlaced late = place(scene, QStringLiteral("C"));
            words.made += &late.node != &CNodeScene::noNode() ? 1 : 0;
        }
    });
}

void tst_CNodeScene::longQueueOfDeletionsNeedsNoStack()
{
    const int count = 100000;

    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    for (int i = 0; i < count; ++i)
        join(scene, a, 0, b, 0);
    QCOMPARE(scene.connections().size(), std::size_t(count));

    int deleted = 0;
    connect(&scene, &CNodeScene::connectionDeleted, &scene, [&deleted] { ++deleted; });
    connect(&scene, &CNodeScene::nodeCreated, &scene, [&scene] {
        for (const auto& entry : scene.connections())
            scene.deleteConnection(*entry.second);
    });
    place(scene);
    QCOMPARE(deleted, count);
    QVERIFY(scene.connections().empty());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::removedNodeGoesAfterItsConnections()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"), 0, 1);
    const SPlaced hub = place(scene, QStringLiteral("Hub"), 2, 2);
    const SPlaced b = place(scene, QStringLiteral("B"), 1, 0);
    join(scene, hub, 1, b, 0);
    join(scene, a, 0, hub, 1);
    join(scene, hub, 0, b, 0);
    join(scene, a, 0, hub, 0);
    join(scene, a, 0, b, 0);

    CSignalLog log(scene);
    hub.model.onDestroyed = [&log] { log.said << "destroyed Hub"; };
    const QPointer<CNodeBase> watched = &hub.node;
    scene.removeNode(hub.node);

    QCOMPARE(log.said, QStringList({"deleted Hub", "disconnected A0-Hub0", "disconnected A0-Hub1",
                                    "disconnected Hub0-B0", "disconnected Hub1-B0", "destroyed Hub"}));
    QVERIFY(!watched);
    QCOMPARE(scene.nodes().size(), std::size_t(2));
    QCOMPARE(scene.connections().size(), std::size_t(1)); // the one that was not its own
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::nodeIsWholeWhenItsRemovalIsAnnounced()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    CNodeConnection& connection = *join(scene, a, 0, b, 0);
    QList<CNodeBase*> announced;
    bool wasWhole = false;
    const QObject context; // ends the handler before the scene
    connect(&scene, &CNodeScene::nodeDeleted, &context, [&](CNodeBase& node) {
        announced << &node;
        wasWhole =
            isWhole(scene, connection) && scene.nodes().count(node.id()) == 1 && node.nodeDataModel() == &a.model;
    });
    scene.removeNode(a.node);
    QCOMPARE(announced, QList<CNodeBase*>{&a.node});
    QVERIFY(wasWhole);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::consumersOfARemovedNodeReceiveEmptyData()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene);
    const SPlaced b = place(scene);
    const SPlaced c = place(scene);
    join(scene, a, 0, b, 0);
    join(scene, b, 0, c, 0);
    a.model.offer(CTestData::make(1));
    scene.removeNode(a.node);
    QCOMPARE(b.model.values(), (Numbers{1, -1}));
    QCOMPARE(c.model.values(), Numbers{1}); // empty data goes no further by itself
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::selfConnectionGoesOnce()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"));
    QVERIFY(join(scene, a, 0, a, 0));
    QCOMPARE(inconsistencyOf(scene), QString());
    const CSignalLog log(scene);
    scene.removeNode(a.node);
    QCOMPARE(log.said, QStringList({"deleted A", "disconnected A0-A0"}));
    QVERIFY(scene.nodes().empty() && scene.connections().empty());
}

void tst_CNodeScene::deletionAskedForWhenARemovalIsAnnouncedComesFirst()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"), 0, 2);
    const SPlaced b = place(scene, QStringLiteral("B"), 2, 0);
    join(scene, a, 0, b, 0);
    CNodeConnection& second = *join(scene, a, 1, b, 1);
    const QObject context; // ends the handler before the scene
    connect(&scene, &CNodeScene::nodeDeleted, &context, [&] { scene.deleteConnection(second); });

    const CSignalLog log(scene);
    scene.removeNode(a.node);
    QCOMPARE(log.said, QStringList({"deleted A", "disconnected A1-B1", "disconnected A0-B0"}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::strangeNodeIsLeftAlone()
{
    CTestScene scene(nullptr, nullptr);
    CTestScene other(nullptr, nullptr);
    const SPlaced ofOther = place(other);
    CNodeBase ofNobody(std::make_unique<CTestModel>());
    const CSignalLog log(scene);
    const CSignalLog otherLog(other);

    scene.removeNode(ofOther.node);
    scene.removeNode(ofNobody);
    QCOMPARE(log.said + otherLog.said, QStringList());
    QCOMPARE(other.nodes().size(), std::size_t(1));
    QCOMPARE(inconsistencyOf(scene), QString());
    QCOMPARE(inconsistencyOf(other), QString());
}

void tst_CNodeScene::nodeThatTookAnothersIdGoesAlone()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"));
    const SPlaced b = place(scene, QStringLiteral("B"));
    const SPlaced c = place(scene, QStringLiteral("C"));
    join(scene, a, 0, c, 0);
    join(scene, b, 0, c, 0);
    a.node.restore({{"id", b.node.id().toString()}});

    const CSignalLog log(scene);
    scene.removeNode(a.node);
    QCOMPARE(log.said, QStringList({"deleted A", "disconnected A0-C0"}));
    QCOMPARE(scene.nodes().at(b.node.id()).get(), &b.node);
    QCOMPARE(scene.nodes().size(), std::size_t(2));
    QCOMPARE(inconsistencyOf(scene), QString());
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

void tst_CNodeScene::clearingAnEmptySceneDoesNothing()
{
    CTestScene scene(nullptr, nullptr);
    const CSignalLog log(scene);
    scene.clearScene();
    QCOMPARE(log.said, QStringList());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::clearsInTheOrderOfTheTable()
{
    CTestScene scene(nullptr, nullptr);
    for (int i = 0; i < 20; ++i)
        place(scene, QString::number(i));
    QStringList expected;
    for (CNodeDataModel* const model : modelsInOrder(scene))
        expected << "deleted " + model->name();

    const CSignalLog log(scene);
    scene.clearScene();
    QCOMPARE(log.said, expected);
    QVERIFY(scene.nodes().empty());
    QCOMPARE(inconsistencyOf(scene), QString());

    place(scene);
    QCOMPARE(scene.nodes().size(), std::size_t(1));
}

void tst_CNodeScene::clearingKeepsHalfConnections()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced a = place(scene, QStringLiteral("A"));
    const SPlaced b = place(scene, QStringLiteral("B"));
    join(scene, a, 0, b, 0);
    const auto half = scene.createConnection(ENodePortType::In, a.node, 0);

    const CSignalLog log(scene);
    scene.clearScene();
    QCOMPARE(log.said.filter("disconnected"), QStringList{"disconnected A0-B0"});
    QCOMPARE(scene.connections().size(), std::size_t(1));
    QVERIFY(isInTable(scene, *half));
    QVERIFY(!endOf(*half, ENodePortType::In));

    scene.deleteConnection(*half);
    QCOMPARE(log.said.last(), QStringLiteral("disconnected -"));
    QVERIFY(scene.connections().empty());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::destructionAnnouncesWhatRemains()
{
    auto scene = std::make_unique<CTestScene>(nullptr, nullptr);
    const SPlaced a = place(*scene, QStringLiteral("A"), 0, 1);
    const SPlaced b = place(*scene, QStringLiteral("B"), 1, 0);
    auto shared = join(*scene, a, 0, b, 0);
    const bool isFirstFirst = modelsInOrder(*scene).front() == &a.model;
    const QString first = isFirstFirst ? "A" : "B";
    const QString second = isFirstFirst ? "B" : "A";

    const CSignalLog log(*scene);
    scene.reset();
    QCOMPARE(log.said, QStringList({"deleted " + first, "disconnected A0-B0", "deleted " + second}));
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
    std::vector<CNodeDataModel*> visited;
    const auto note = [&visited](CNodeDataModel* model) { visited.push_back(model); };
    visit(scene, asModels, note);
    QVERIFY(visited.empty());

    for (int i = 0; i < 20; ++i)
        place(scene);
    visit(scene, asModels, note);
    QCOMPARE(visited, modelsInOrder(scene));
    QCOMPARE(inconsistencyOf(scene), QString());
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
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::visitorMayRemoveOthers()
{
    QFETCH(const bool, asModels);

    CTestScene scene(nullptr, nullptr);
    std::map<CNodeDataModel*, CNodeBase*> nodeOf;
    for (int i = 0; i < 5; ++i) {
        const SPlaced placed = place(scene);
        nodeOf[&placed.model] = &placed.node;
    }
    const std::vector<CNodeDataModel*> before = modelsInOrder(scene);
    std::vector<CNodeDataModel*> visited;
    visit(scene, asModels, [&](CNodeDataModel* model) {
        visited.push_back(model);
        if (model == before[1]) {
            scene.removeNode(*nodeOf.at(before[0]));
            scene.removeNode(*nodeOf.at(before[3]));
        }
    });
    // The removed one is left out, and no other.
    QCOMPARE(visited, (std::vector<CNodeDataModel*>{before[0], before[1], before[2], before[4]}));
    QCOMPARE(scene.nodes().size(), std::size_t(3));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::visitorMayRemoveEachNode()
{
    QFETCH(const bool, asModels);

    CTestScene scene(nullptr, nullptr);
    std::map<CNodeDataModel*, CNodeBase*> nodeOf;
    for (int i = 0; i < 5; ++i) {
        const SPlaced placed = place(scene);
        nodeOf[&placed.model] = &placed.node;
    }
    int visits = 0;
    visit(scene, asModels, [&](CNodeDataModel* model) {
        ++visits;
        scene.removeNode(*nodeOf.at(model));
    });
    QCOMPARE(visits, 5);
    QVERIFY(scene.nodes().empty());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::visitorMayAdd()
{
    QFETCH(const bool, asModels);

    CTestScene scene(nullptr, nullptr);
    for (int i = 0; i < 3; ++i)
        place(scene);
    int visits = 0;
    visit(scene, asModels, [&](CNodeDataModel*) {
        ++visits;
        for (int i = 0; i < 100; ++i) // enough to rehash the table
            place(scene);
    });
    QCOMPARE(visits, 3);
    QCOMPARE(scene.nodes().size(), std::size_t(303));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::visitorMayDestroyTheScene()
{
    QFETCH(const bool, asModels);

    auto scene = std::make_unique<CTestScene>(nullptr, nullptr);
    for (int i = 0; i < 3; ++i)
        place(*scene);
    int visits = 0;
    visit(*scene, asModels, [&](CNodeDataModel*) {
        ++visits;
        scene.reset();
    });
    QCOMPARE(visits, 1);
    QVERIFY(!scene);
}

void tst_CNodeScene::visitorsExceptionPassesThrough()
{
    QFETCH(const bool, asModels);

    CTestScene scene(nullptr, nullptr);
    for (int i = 0; i < 3; ++i)
        place(scene);
    int visits = 0;
    const auto failing = [&visits](CNodeDataModel*) {
        ++visits;
        throw std::runtime_error("enough seen");
    };
    QVERIFY_EXCEPTION_THROWN(visit(scene, asModels, failing), std::runtime_error);
    QCOMPARE(visits, 1);
    scene.clearScene();
    QVERIFY(scene.nodes().empty());
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_CNodeScene::metaObject()
{
    const QMetaObject& metaObject = CNodeScene::staticMetaObject;
    QCOMPARE(metaObject.className(), "Plugin::Halvex::CNodeScene");
    QCOMPARE(metaObject.superClass(), &QObject::staticMetaObject);
    QCOMPARE(methodsOf(metaObject),
             QStringList({"public signal nodeCreated(CNodeBase& node)", "public signal nodeDeleted(CNodeBase& node)",
                          "public signal connectionCreated(CNodeConnection& connection)",
                          "public signal connectionDeleted(CNodeConnection& connection)"}));
    QCOMPARE(otherMembersOf(metaObject), 0);
}

void tst_CNodeScene::textsAreTranslatedUnderTheClassName()
{
    const CContextTranslator translator;
    QCOMPARE(CNodeScene::tr("text"), QStringLiteral("Plugin::Halvex::CNodeScene"));
}

QTEST_GUILESS_MAIN(tst_CNodeScene)

#include "tst_CNodeScene.moc"
