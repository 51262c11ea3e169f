// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "faults/CFault.h"

#include "models/CGenericNodeDecouplerDataModel.h"
#include "scene/CNodeScene.h"
#include "service/CHostModel.h"
#include "service/CNodeService.h"
#include "support/SceneConsistency.h"

#include <QtTest>

using namespace Plugin::Halvex;

namespace {

const QString chain = QStringLiteral(
    R"([{"name": "f", "model": {"name": "Filter"}, "unique_sources": [["cam"]], "connection": [["v", "d"]]},
        {"name": "v", "model": {"name": "View"}},
        {"name": "d", "model": {"name": "DecouplerT"}}])");

std::unique_ptr<CHostModel> withFault(std::unique_ptr<CHostModel> model)
{
    model->onSetInData = [] { CFault::chance(EFault::SetInData); };
    return model;
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
                return withFault(std::make_unique<CHostModel>(ENodeDataModelType::Sink, text));
            },
            QStringLiteral("Host"));
    }
    registry.registerModel<CGenericNodeDecouplerDataModel<CTestData>>(QStringLiteral("Tools"));
}

/// A shared object, without a chance for a fault: QSharedPointer itself loses the object, or releases one that was
/// never made, when it gets no memory for its count.
template <typename T, typename... Arguments>
QSharedPointer<T> shared(Arguments... arguments)
{
    const CFault::CPause pause;
    return QSharedPointer<T>::create(arguments...);
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
    void ask(const char* name, const Step& step);
    template <typename Step>
    void order(const char* name, const Step& step);
    void check(const char* name);
    CNodeScene* scene() const { return m_service ? m_service->getActiveScene().data() : nullptr; }
    std::unique_ptr<CNodeService> m_service;
    QString m_failure; // what was not as it should be, the first time
};

// A step that may throw what went wrong: it is the host's own code, or it is a scene that the host calls.
template <typename Step>
void CScenario::ask(const char* name, const Step& step)
{
    try {
        step();
    } catch (const std::bad_alloc&) {
    } catch (const SFaultThrown&) {
    }
    check(name);
}

// A step of the service, which throws nothing.
template <typename Step>
void CScenario::order(const char* name, const Step& step)
{
    bool hasThrown = true;
    ask(name, [&] {
        if (m_service)
            step();
        hasThrown = false;
    });
    const CFault::CPause pause;
    if (hasThrown && m_failure.isEmpty())
        m_failure = QStringLiteral("%1 has thrown").arg(QString::fromLatin1(name));
}

void CScenario::check(const char* name)
{
    const CFault::CPause pause;
    const auto scenes = m_service ? m_service->scenes() : QList<CNodeScene*>();
    for (const CNodeScene* each : scenes) {
        const QString inconsistency = inconsistencyOf(*each);
        if (!inconsistency.isEmpty() && m_failure.isEmpty())
            m_failure = QStringLiteral("after %1: %2").arg(QString::fromLatin1(name), inconsistency);
    }
}

void CScenario::run()
{
    using Core::AppCoreComponents::BaseInfoPtr;
    using Core::AppCoreComponents::IBaseInfo;

    ask("making the service", [&] { m_service = std::make_unique<CNodeService>(nullptr); });
    ask("registering", [&] {
        if (m_service)
            registerModels(*m_service->registry());
    });
    order("registering a converter", [&] {
        m_service->registerTypeConverter({CTestData::defaultType(), {QStringLiteral("Other"), QString()}}, &convert);
    });

    const BaseInfoPtr info = shared<IBaseInfo>();
    std::unique_ptr<CHostModel> camera;
    ask("making a source", [&] { camera = withFault(makeSource()); });
    Core::CId source;
    order("adding the source", [&] { source = m_service->addNode(std::move(camera), info); });
    order("importing", [&] { m_service->importDocument(chain); });

    CHostModel* const out = modelNamed(scene(), QStringLiteral("cam"));
    CHostModel* const in = modelNamed(scene(), QStringLiteral("View"));
    std::shared_ptr<CNodeConnection> connection;
    ask("connecting", [&] {
        if (out && in)
            connection = scene()->createConnection(*nodeOf(*scene(), in), 1, *nodeOf(*scene(), out), 0, &convert);
    });
    for (int frame = 0; frame < 2; ++frame) {
        ask("streaming", [&] {
            if (out)
                out->offer(shared<CTestData>(frame));
        });
    }

    QByteArray saved;
    ask("saving", [&] { saved = scene() ? scene()->saveToMemory() : QByteArray(); });
    std::unique_ptr<CHostModel> second;
    ask("making another source", [&] { second = withFault(makeSource(QStringLiteral("cam-2"))); });
    order("adding another source", [&] { m_service->addNode(std::move(second), nullptr); });
    ask("loading", [&] {
        if (scene())
            scene()->loadFromMemory(saved);
    });
    order("making a model", [&] { m_service->createModel(QStringLiteral("View")); });
    order("keeping a document", [&] { m_service->addStoredDocument(chain); });
    order("importing what was kept", [&] { m_service->importStoredDocuments(); });
    order("activating", [&] {
        if (!m_service->scenes().isEmpty())
            m_service->setActiveScene(m_service->scenes().first());
    });
    ask("deleting a connection", [&] {
        if (connection && scene())
            scene()->deleteConnection(*connection);
        connection.reset();
    });
    order("removing a node", [&] {
        if (scene() && scene()->nodes().size() > 1)
            m_service->removeNode(scene()->nodes().begin()->first, true);
    });
    order("removing a scene", [&] {
        if (scene() && !scene()->nodes().empty())
            m_service->removeSceneOfNode(scene()->nodes().begin()->second.get());
    });
}

void CScenario::requireUsable()
{
    if (!m_service)
        return;
    registerModels(*m_service->registry());
    const int before = m_service->scenes().size();
    auto owned = makeSource();
    CHostModel* const source = owned.get();
    const Core::CId id = m_service->addNode(std::move(owned), nullptr);
    QVERIFY(m_service->findNodeByModel(source));
    QVERIFY(m_service->importDocument(chain));
    source->offer(CTestData::make(7));
    const CHostModel* const view = modelNamed(scene(), QStringLiteral("View"));
    QVERIFY(view);
    QVERIFY(!view->received.empty());
    QCOMPARE(view->received.back().first, 7);
    m_service->removeSceneOfNode(id);
    QCOMPARE(m_service->scenes().size(), before);
    check("using it again");
}

void requireNothingAlive()
{
    QCOMPARE(CHostModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

/// Runs the scenario with a fault at that chance; returns how many blocks it leaves behind.
long runWithFault(EFault kind, int chance, bool& hasHappened)
{
    const long blocks = CFault::blocks();
    {
        const CFault fault(kind, chance);
        CScenario scenario;
        scenario.run();
        if (fault.hasHappened())
            scenario.requireUsable();
        scenario.tearDown();
        hasHappened = fault.hasHappened();
        scenario.requireNoFailure();
    }
    requireNothingAlive();
    return CFault::blocks() - blocks;
}

} // namespace

Q_DECLARE_METATYPE(EFault)

/**
 * Whatever fails, and wherever: what the library holds is sound after each step, the service throws nothing and works
 * again, and all is released in the end.
 */
class tst_Faults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyFault_data();
    void everyFault();
    void addedNodesLeaveNothingInTheService_data();
    void addedNodesLeaveNothingInTheService();
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
    QTest::newRow("allocation") << EFault::Allocation << 200;
    QTest::newRow("converter") << EFault::Converter << 3;
    QTest::newRow("setInData") << EFault::SetInData << 10;
}

void tst_Faults::everyFault()
{
    QFETCH(EFault, kind);
    QFETCH(int, fewest);
    int chance = 0;
    for (bool hasHappened = true; hasHappened;) {
        ++chance;
        long blocksLeft = runWithFault(kind, chance, hasHappened);
        // What is made once and stays is not made again; what leaks leaks again.
        if (blocksLeft != 0)
            blocksLeft = runWithFault(kind, chance, hasHappened);
        if (blocksLeft != 0 || QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("%1 blocks left by a fault at chance %2").arg(blocksLeft).arg(chance)));
    }
    QVERIFY2(chance > fewest, qPrintable(QString::number(chance)));
}

void tst_Faults::addedNodesLeaveNothingInTheService_data()
{
    QTest::addColumn<bool>("isRemovedByHandler");
    QTest::newRow("an allocation fails") << false;
    QTest::newRow("a handler removes the node, an allocation fails") << true;
}

void tst_Faults::addedNodesLeaveNothingInTheService()
{
    QFETCH(bool, isRemovedByHandler);
    CNodeService service(nullptr);
    const Core::CId source = service.addNode(makeSource(), nullptr);
    // A sink that is left alone: a removal that was asked for by a host might take the scene with it.
    service.addNode(std::make_unique<CHostModel>(ENodeDataModelType::Sink, QStringLiteral("Lone")), nullptr);
    service.removeNode(source, false);
    const QPointer<CNodeScene> scene = service.getActiveScene();
    if (isRemovedByHandler) {
        connect(scene, &CNodeScene::nodeCreated, scene, [scene](CNodeBase& node) {
            if (node.nodeDataModel()->name() == QStringLiteral("View"))
                scene->removeNode(node);
        });
    }

    const auto blocksLeftBy = [&service](int chance, bool& hasHappened) {
        const long blocks = CFault::blocks();
        auto model = std::make_unique<CHostModel>(ENodeDataModelType::Sink, QStringLiteral("View"));
        CFault fault(EFault::Allocation, chance);
        const Core::CId id = service.addNode(std::move(model), nullptr);
        CFault::disarm();
        hasHappened = fault.hasHappened();
        service.removeNode(id, false);
        return CFault::blocks() - blocks;
    };
    int chance = 0;
    for (bool hasHappened = true; hasHappened;) {
        ++chance;
        long blocksLeft = 0;
        // Containers that have grown keep their room; what leaks leaks each time.
        for (int round = 0; round < 50; ++round)
            blocksLeft += blocksLeftBy(chance, hasHappened);
        QVERIFY(scene);
        QVERIFY2(blocksLeft < 10, qPrintable(QStringLiteral("%1 blocks at chance %2").arg(blocksLeft).arg(chance)));
    }
    QVERIFY2(chance > 5, qPrintable(QString::number(chance)));
}

QTEST_GUILESS_MAIN(tst_Faults)
#include "tst_Faults.moc"
