// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "faults/CFault.h"

#include "service/HostModels.h"
#include "support/SceneConsistency.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QtTest>

using namespace Plugin::Halvex;

namespace {

const QString chain = QStringLiteral(
    R"([{"name": "f", "model": {"name": "Filter"}, "unique_sources": [["cam"]], "connection": [["v", "d"]]},
        {"name": "v", "model": {"name": "View"}},
        {"name": "d", "model": {"name": "DecouplerT"}}])");

/// A model of a host whose operations on data may throw.
class CThrowingModel : public CNamedTestModel
{
public:
    using CNamedTestModel::CNamedTestModel;

    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        CFault::chance(EFault::SetInData);
        CNamedTestModel::setInData(std::move(data), index);
    }
    CNodeDataPtr outData(NodePortIndex index) override
    {
        CFault::chance(EFault::OutData);
        return CNamedTestModel::outData(index);
    }
};

std::unique_ptr<CNamedTestModel> makeThrowingSource(const QString& name = QStringLiteral("cam"))
{
    auto source = std::make_unique<CThrowingModel>(2u, 2u, name, name);
    source->setType(ENodeDataModelType::Source);
    source->unique = true;
    return source;
}

CNodeDataPtr convert(CNodeDataPtr data)
{
    CFault::chance(EFault::Converter);
    return data;
}

void registerModels(CNodeDataModelRegistry& registry)
{
    for (const char* name : {"Filter", "View"}) {
        registry.registerModel(
            [text = QString::fromLatin1(name)] {
                CFault::chance(EFault::Creator);
                return std::make_unique<CThrowingModel>(2u, 2u, text);
            },
            QStringLiteral("Host"));
    }
    registry.registerModel<CGenericNodeDecouplerDataModel<CTestData>>(QStringLiteral("Tools"));
}

/// Listens to everything that \a scene tells.
void watch(const CNodeScene& scene)
{
    const auto onNode = [](const CNodeBase&) { CFault::chance(EFault::SceneHandler); };
    const auto onConnection = [](const CNodeConnection&) { CFault::chance(EFault::SceneHandler); };
    QObject::connect(&scene, &CNodeScene::nodeCreated, onNode);
    QObject::connect(&scene, &CNodeScene::nodeDeleted, onNode);
    QObject::connect(&scene, &CNodeScene::connectionCreated, onConnection);
    QObject::connect(&scene, &CNodeScene::connectionDeleted, onConnection);
}

void watch(const CNodeService& service)
{
    const auto onScene = [](const CNodeScene*) { CFault::chance(EFault::ServiceHandler); };
    QObject::connect(&service, &INodeService::sceneAdded, &service, [](const CNodeScene* scene) { watch(*scene); });
    QObject::connect(&service, &INodeService::sceneAdded, onScene);
    QObject::connect(&service, &INodeService::activeSceneChanged, onScene);
    QObject::connect(&service, &INodeService::sceneRemoving, onScene);
    QObject::connect(&service, &INodeService::sceneRemoved, [] { CFault::chance(EFault::ServiceHandler); });
}

/// What a host does from beginning to end, one step after the other, whatever becomes of the steps before.
class CScenario
{
public:
    void run();
    void tearDown() { m_service.reset(); }
    void requireUsable();
    void requireNoFailure() const { QCOMPARE(m_failure, QString()); }

private:
    template <typename Step>
    void runStep(const char* name, const Step& step);
    template <typename Step>
    void runServiceStep(const char* name, const Step& step);
    void check(const char* name);
    CNodeScene* scene() const { return m_service->getActiveScene(); }

    std::unique_ptr<CNodeService> m_service = std::make_unique<CNodeService>(nullptr);
    QString m_failure; // what was not as it should be, the first time
};

// A step that may throw what went wrong: it is the host's own code, or it is a scene that the host calls.
template <typename Step>
void CScenario::runStep(const char* name, const Step& step)
{
    try {
        step();
    } catch (const SFaultThrown&) {
    }
    check(name);
}

// A step of the service, which throws nothing.
template <typename Step>
void CScenario::runServiceStep(const char* name, const Step& step)
{
    bool hasThrown = true;
    runStep(name, [&] {
        step();
        hasThrown = false;
    });
    if (hasThrown && m_failure.isEmpty())
        m_failure = QStringLiteral("%1 has thrown").arg(QString::fromLatin1(name));
}

void CScenario::check(const char* name)
{
    const auto scenes = m_service->scenes();
    for (const CNodeScene* each : scenes) {
        const QString inconsistency = inconsistencyOf(*each);
        if (!inconsistency.isEmpty() && m_failure.isEmpty())
            m_failure = QStringLiteral("after %1: %2").arg(QString::fromLatin1(name), inconsistency);
    }
}

void CScenario::run()
{
    watch(*m_service);
    runStep("registering", [&] { registerModels(*m_service->registry()); });
    runServiceStep("registering a converter", [&] {
        m_service->registerTypeConverter({CTestData::defaultType(), {QStringLiteral("Other"), QString()}}, &convert);
    });

    const auto info = QSharedPointer<Core::AppCoreComponents::IBaseInfo>::create();
    runServiceStep("adding a source", [&] { m_service->addNode(makeThrowingSource(), info); });
    runServiceStep("importing", [&] { m_service->importDocument(chain); });

    CNamedTestModel* const out = modelNamed(scene(), QStringLiteral("cam"));
    CNamedTestModel* const in = modelNamed(scene(), QStringLiteral("View"));
    std::shared_ptr<CNodeConnection> connection;
    runStep("connecting", [&] {
        if (out && in)
            connection = scene()->createConnection(*nodeOf(*scene(), in), 1, *nodeOf(*scene(), out), 0, &convert);
    });
    for (int frame = 0; frame < 2; ++frame) {
        runStep("streaming", [&] {
            if (out)
                out->offer(CTestData::make(frame));
        });
    }

    QByteArray saved;
    runStep("saving", [&] { saved = scene() ? scene()->saveToMemory() : QByteArray(); });
    runServiceStep("adding another source",
                   [&] { m_service->addNode(makeThrowingSource(QStringLiteral("cam-2")), nullptr); });
    runStep("loading", [&] {
        if (scene())
            scene()->loadFromMemory(saved);
    });
    runServiceStep("making a model", [&] { m_service->createModel(QStringLiteral("View")); });
    runServiceStep("keeping a document", [&] { m_service->addStoredDocument(chain); });
    runServiceStep("importing what was kept", [&] { m_service->importStoredDocuments(); });
    runServiceStep("activating", [&] {
        if (!m_service->scenes().isEmpty())
            m_service->setActiveScene(m_service->scenes().first());
    });
    runStep("deleting a connection", [&] {
        if (connection && scene())
            scene()->deleteConnection(*connection);
        connection.reset();
    });
    runServiceStep("removing a node", [&] {
        if (scene() && scene()->nodes().size() > 1)
            m_service->removeNode(scene()->nodes().begin()->first, true);
    });
    runServiceStep("removing a scene", [&] {
        if (scene() && !scene()->nodes().empty())
            m_service->removeSceneOfNode(scene()->nodes().begin()->second.get());
    });
}

void CScenario::requireUsable()
{
    registerModels(*m_service->registry());
    const int before = int(m_service->scenes().size());
    auto owned = makeSource();
    CNamedTestModel* const source = owned.get();
    const Core::CId id = m_service->addNode(std::move(owned), nullptr);
    QVERIFY(m_service->findNodeByModel(source));
    QVERIFY(m_service->importDocument(chain));
    source->offer(CTestData::make(7));
    const CNamedTestModel* const view = modelNamed(scene(), QStringLiteral("View"));
    QVERIFY(view);
    QVERIFY(!view->values().empty());
    QCOMPARE(view->values().back(), 7);
    m_service->removeSceneOfNode(id);
    QCOMPARE(m_service->scenes().size(), before);
    check("using it again");
}

void requireNothingAlive()
{
    QCOMPARE(CTestModels::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

/// Runs the scenario with a fault at that chance; returns whether there were so many chances.
bool runWithFault(EFault kind, int chance)
{
    const CFault fault(kind, chance);
    {
        CScenario scenario;
        scenario.run();
        if (fault.hasHappened())
            scenario.requireUsable();
        scenario.tearDown();
        scenario.requireNoFailure();
    }
    requireNothingAlive();
    return fault.hasHappened();
}

} // namespace

Q_DECLARE_METATYPE(EFault)

/**
 * Whatever foreign code throws, and wherever: what the library holds is sound after each step, the service throws
 * nothing and works again, and all is released in the end.
 */
class tst_Faults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyFault_data();
    void everyFault();
};

void tst_Faults::initTestCase()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    });
}

void tst_Faults::everyFault_data()
{
    QTest::addColumn<EFault>("kind");
    QTest::addColumn<int>("fewest");
    QTest::newRow("converter") << EFault::Converter << 3;
    QTest::newRow("creator") << EFault::Creator << 6;
    QTest::newRow("outData") << EFault::OutData << 10;
    QTest::newRow("handler of a scene") << EFault::SceneHandler << 30;
    QTest::newRow("handler of the service") << EFault::ServiceHandler << 6;
    QTest::newRow("setInData") << EFault::SetInData << 10;
}

void tst_Faults::everyFault()
{
    QFETCH(EFault, kind);
    QFETCH(int, fewest);
    int chances = 0;
    while (runWithFault(kind, chances + 1)) {
        ++chances;
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("after a fault at chance %1").arg(chances)));
    }
    QVERIFY2(chances >= fewest, qPrintable(QString::number(chances)));
}

QTEST_GUILESS_MAIN(tst_Faults)
#include "tst_Faults.moc"
