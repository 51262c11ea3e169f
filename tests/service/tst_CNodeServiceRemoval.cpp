// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What becomes of a service when nodes, scenes or the service itself go.

#include "CServiceFixture.h"
#include "support/CTestScene.h"

using namespace Plugin::Halvex;

namespace {

using F = CServiceFixture;
using Remove = std::function<void(F&, const SPlaced&)>;

} // namespace

Q_DECLARE_METATYPE(Remove)

class tst_CNodeServiceRemoval : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void noDestroyedNodeIsFound_data();
    void noDestroyedNodeIsFound();
    void removeNodeTellsTheSceneAlone();
    void removeNodeOfAnUnknownIdDoesNothing();
    void removeNodeByModelLeavesThePointer();
    void loneNode_data();
    void loneNode();

    void removeSceneOfNodeByIdCallsTheOther();
    void removeSceneOfUnknownNodesDoesNothing();
    void firstSceneBecomesActive_data();
    void firstSceneBecomesActive();
    void sceneIsWholeWhileRemovingAndGoneWhenRemoved();
    void sceneThatTheHostDestroysIsInNoTable();

    void dyingServiceDestroysItsScenesInOrder();
    void dyingServiceMayBeCalled();
};

void tst_CNodeServiceRemoval::cleanup()
{
    QCOMPARE(CTestModels::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeServiceRemoval::noDestroyedNodeIsFound_data()
{
    QTest::addColumn<Remove>("remove");
    const auto add = [](const char* name, const Remove& remove) { QTest::newRow(name) << remove; };
    add("removeNode", [](F& f, const SPlaced& view) { f.service->removeNode(view.id, false); });
    add("by the scene", [](F& f, const SPlaced& view) { f.active()->removeNode(*f.service->findNode(view.id)); });
    add("clearScene", [](F& f, const SPlaced&) { f.active()->clearScene(); });
    add("removeSceneOfNode", [](F& f, const SPlaced& view) { f.service->removeSceneOfNode(view.id); });
    add("scene destroyed", [](F& f, const SPlaced&) { delete f.active(); });
    add("replaced", [](F& f, const SPlaced& view) { f.active()->loadFromMemory(sceneDocument(view.id)); });
    add("service destroyed", [](F& f, const SPlaced&) { f.service.reset(); });
}

void tst_CNodeServiceRemoval::noDestroyedNodeIsFound()
{
    QFETCH(Remove, remove);
    F f;
    f.addSource();
    const SPlaced view = f.addView();
    const QPointer<CNodeBase> node = f.service->findNode(view.id);
    const QPointer<CNodeService> service = f.service.get();
    int asked = 0;
    // The model outlives its node's last signal: what is found for it then is a node that is being destroyed.
    view.model->onDestroyed = [&] {
        ++asked;
        CNodeService* const there = service.data();
        if (!there)
            return;
        QVERIFY(!there->findNodeByModel(view.model));
        const CNodeBase* const underItsId = there->findNode(view.id);
        QVERIFY(!underItsId || underItsId->nodeDataModel() != view.model);
        QVERIFY(!there->documentNodes().contains(node));
    };
    remove(f, view);

    QCOMPARE(asked, 1);
    QVERIFY(node.isNull());
    if (!service)
        return;
    const CNodeBase* const found = service->findNode(view.id);
    QVERIFY(!found || found->nodeDataModel()->name() == "View");
}

void tst_CNodeServiceRemoval::removeNodeTellsTheSceneAlone()
{
    F f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    f.connect(view, cam);
    f.log.take();
    f.service->removeNode(view.id, false);
    QCOMPARE(f.log.take(), QStringList({"1 deleted view", "1 disconnected cam0-view0"}));
    QCOMPARE(CTestModels::alive(), 1);
    QVERIFY(!f.service->findNode(view.id));

    f.service->removeNode(cam.id, false);
    QCOMPARE(f.log.take(), QStringList({"1 deleted cam"}));
    QVERIFY(f.active());
    QCOMPARE(f.sceneCount(), 1);
}

void tst_CNodeServiceRemoval::removeNodeOfAnUnknownIdDoesNothing()
{
    F f;
    f.service->removeNode(Core::CId(), true);
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    f.service->removeNode(cam.id, false);
    f.log.take();
    // The first of them again: nothing was removed, so nothing is cleaned up.
    for (const Core::CId& unknown : {cam.id, Core::CId::createId(), view.model->id()})
        f.service->removeNode(unknown, true);
    QCOMPARE(f.log.take(), QStringList());
    QCOMPARE(f.service->findNode(view.id)->nodeDataModel(), view.model);
}

void tst_CNodeServiceRemoval::removeNodeByModelLeavesThePointer()
{
    F f;
    f.addSource();
    const SPlaced view = f.addView();
    CNamedTestModel never;
    f.log.take();
    const auto remove = [&f](ANodeDataModel* model) {
        const ANodeDataModel* const before = model;
        f.service->removeNodeByModel(model, false);
        QVERIFY(model == before);
    };
    remove(nullptr);
    remove(&never);
    QCOMPARE(f.log.take(), QStringList());
    remove(view.model);
    QCOMPARE(f.log.take(), QStringList({"1 deleted view"}));
}

void tst_CNodeServiceRemoval::loneNode_data()
{
    QTest::addColumn<QString>("rest"); // a letter for each node that stays
    QTest::addColumn<bool>("cleanUp");
    QTest::addColumn<bool>("isGone");
    QTest::newRow("nothing left") << "" << true << false;
    QTest::newRow("one sink") << "v" << true << true;
    QTest::newRow("one sink from a document") << "i" << true << true;
    QTest::newRow("one sink, not asked") << "v" << false << false;
    QTest::newRow("two sinks") << "vv" << true << false;
    QTest::newRow("one source") << "s" << true << false;
    QTest::newRow("one decoupler") << "d" << true << false;
    QTest::newRow("one without an identity") << "p" << true << false;
    QTest::newRow("sink and other") << "vp" << true << false;
}

void tst_CNodeServiceRemoval::loneNode()
{
    QFETCH(QString, rest);
    QFETCH(bool, cleanUp);
    QFETCH(bool, isGone);
    const QMap<QChar, ENodeDataModelType> types{
        {'v', ENodeDataModelType::Sink}, {'s', ENodeDataModelType::Source}, {'d', ENodeDataModelType::Decoupler}};
    for (const bool byModel : {false, true}) {
        F f;
        f.addSource("first"); // its scene becomes the active one
        const SPlaced cam = f.addSource();
        for (const QChar kind : rest) {
            if (types.contains(kind))
                f.add(makeModel(types[kind], "View"));
            else if (kind == 'i')
                f.import({element("a")});
            else
                f.active()->createNode(std::make_unique<CTestModel>());
        }
        f.log.take();

        ANodeDataModel* model = cam.model;
        if (byModel)
            f.service->removeNodeByModel(model, cleanUp);
        else
            f.service->removeNode(cam.id, cleanUp);

        QStringList expected{"2 deleted cam"};
        if (isGone)
            expected += QStringList{"2 deleted View", "removing 2", "removed", "active 1"};
        QCOMPARE(f.log.take(), expected);
        QCOMPARE(f.active(), f.scene(isGone ? 0 : 1));
        QCOMPARE(f.sceneCount(), isGone ? 1 : 2);
        QCOMPARE(F::nodeCount(f.active()), isGone ? 1 : rest.size());
        QVERIFY(f.service->documentNodes().isEmpty());
    }
}

void tst_CNodeServiceRemoval::removeSceneOfNodeByIdCallsTheOther()
{
    class CCounting : public CNodeService
    {
    public:
        using CNodeService::CNodeService;
        using CNodeService::removeSceneOfNode;
        void removeSceneOfNode(CNodeBase* node) override { asked.append(node); }
        QList<CNodeBase*> asked;
    };
    CCounting service(nullptr);
    const Core::CId id = service.addNode(makeSource(), nullptr);
    service.removeSceneOfNode(id);
    QCOMPARE(service.asked, QList<CNodeBase*>({service.findNode(id)}));
    QCOMPARE(service.scenes().size(), 1);
}

void tst_CNodeServiceRemoval::removeSceneOfUnknownNodesDoesNothing()
{
    F f;
    const SPlaced cam = f.addSource();
    CNodeService other(nullptr);
    const Core::CId stranger = other.addNode(makeSource(), nullptr);
    CTestScene ownScene(nullptr, nullptr);
    CNodeBase& loose = ownScene.createNode(std::make_unique<CTestModel>());
    f.log.take();

    f.service->removeSceneOfNode(Core::CId());
    f.service->removeSceneOfNode(stranger);
    f.service->removeNode(stranger, true);
    for (CNodeBase* node :
         std::initializer_list<CNodeBase*>{nullptr, other.findNode(stranger), &loose, &CNodeScene::noNode()})
        f.service->removeSceneOfNode(node);
    QCOMPARE(f.log.take(), QStringList());
    QVERIFY(f.service->findNode(cam.id));
    QVERIFY(other.findNode(stranger));
    QCOMPARE(F::nodeCount(&ownScene), 1);
}

void tst_CNodeServiceRemoval::firstSceneBecomesActive_data()
{
    QTest::addColumn<int>("scenes");
    QTest::addColumn<int>("active");
    QTest::addColumn<int>("removed");
    for (const int scenes : {1, 3}) {
        for (int active = 1; active <= scenes; ++active) {
            for (int removed = 1; removed <= scenes; ++removed)
                QTest::addRow("%d of %d, %d active", removed, scenes, active) << scenes << active << removed;
        }
    }
}

void tst_CNodeServiceRemoval::firstSceneBecomesActive()
{
    QFETCH(int, scenes);
    QFETCH(int, active);
    QFETCH(int, removed);
    for (const bool byHost : {false, true}) {
        F f;
        for (int number = 1; number <= scenes; ++number)
            f.addSource(QString("cam%1").arg(number));
        f.service->setActiveScene(f.scene(active - 1));
        f.log.take();

        CNodeScene* const scene = f.scene(removed - 1);
        const Core::CId id = scene->nodes().begin()->first;
        if (byHost)
            delete scene;
        else
            f.service->removeSceneOfNode(f.service->findNode(id));
        const QString gone = QString::number(removed);
        const QString first = scenes == 1 ? "none" : removed == 1 ? "2" : "1";
        QStringList expected{gone + " deleted cam" + gone, "removed"};
        if (!byHost)
            expected.prepend("removing " + gone);
        if (scenes > 1)
            expected << "active " + first;
        QCOMPARE(f.log.take(), expected);
        QCOMPARE(f.log.numberOf(f.active()), first);
        QCOMPARE(f.active(), f.scene(0));
        QCOMPARE(f.sceneCount(), scenes - 1);
        QVERIFY(!f.service->findNode(id));

        f.addSource("next");
        const QString next = QString::number(scenes + 1);
        QCOMPARE(f.log.take(), QStringList({"added " + next, "active " + next, next + " created next"}));
    }
}

void tst_CNodeServiceRemoval::sceneIsWholeWhileRemovingAndGoneWhenRemoved()
{
    F f;
    const SPlaced cam = f.addSource("cam");
    f.addSource("cam-2");
    const QPointer<CNodeScene> scene = f.scene(0);
    int heard = 0;
    connect(f.service.get(), &INodeService::sceneRemoving, this, [&](CNodeScene* leaving) {
        ++heard;
        QCOMPARE(leaving, scene.data());
        QCOMPARE(F::nodeCount(leaving), 1);
        QCOMPARE(f.service->findNode(cam.id)->nodeDataModel(), cam.model);
        QCOMPARE(f.service->findNodeByModel(cam.model)->id(), cam.id);
    });
    connect(scene, &CNodeScene::nodeDeleted, this, [&] {
        ++heard;
        QCOMPARE(f.sceneCount(), 1); // it is no longer the service's
        QVERIFY(!f.service->findNode(cam.id));
    });
    connect(f.service.get(), &INodeService::sceneRemoved, this, [&] {
        ++heard;
        QVERIFY(scene.isNull());
        QCOMPARE(f.sceneCount(), 1);
        QVERIFY(!f.service->findNode(cam.id));
        QVERIFY(f.service->getActiveScene().isNull()); // the next one is active when that is told
    });
    f.service->setActiveScene(scene);
    f.service->removeSceneOfNode(cam.id);
    QCOMPARE(heard, 3);
}

void tst_CNodeServiceRemoval::sceneThatTheHostDestroysIsInNoTable()
{
    F f;
    const auto info = F::makeInfo();
    const SPlaced cam = f.addSource("cam", info);
    QVERIFY(f.import(chain()));
    QCOMPARE(f.service->documentNodes().size(), 2);
    const QPointer<CNodeScene> gone = f.active();
    delete gone.data();

    QCOMPARE(f.sceneCount(), 0);
    QVERIFY(f.service->documentNodes().isEmpty());
    QVERIFY(!f.service->findNode(cam.id));
    QVERIFY(!f.service->findSceneByInfo(info));
    f.service->setActiveScene(gone);
    f.service->removeSceneOfNode(cam.id);
    QCOMPARE(f.log.take().filter("removing"), QStringList());
}

void tst_CNodeServiceRemoval::dyingServiceDestroysItsScenesInOrder()
{
    F f;
    QStringList order;
    for (const char* name : {"one", "two", "three", "four"}) {
        f.addSource(name);
        connect(f.active(), &QObject::destroyed, this, [&order, name] { order << name; });
    }
    f.service->setActiveScene(f.scene(2));
    const std::weak_ptr<CNodeDataModelRegistry> registry = f.service->registry();
    f.log.take();
    f.service.reset();
    QCOMPARE(order, QStringList({"one", "two", "three", "four"}));
    QCOMPARE(f.log.take(), QStringList({"1 deleted one", "2 deleted two", "3 deleted three", "4 deleted four"}));
    QVERIFY(registry.expired());
}

void tst_CNodeServiceRemoval::dyingServiceMayBeCalled()
{
    F f;
    INodeService* const service = f.service.get();
    std::vector<SPlaced> cams;
    int calls = 0;
    const auto callEverything = [&] {
        ++calls;
        for (const SPlaced& cam : cams) {
            service->findNode(cam.id);
            service->removeNode(cam.id, true);
            service->removeSceneOfNode(cam.id);
            service->connectModels(cam.model, 0, cam.model, 0);
        }
        QVERIFY(service->addNode(makeSource("late"), nullptr) == Core::CId());
        QVERIFY(service->addNode(makeModel(ENodeDataModelType::Sink), nullptr) == Core::CId());
        service->setActiveScene(service->getActiveScene());
        service->importDocument(document(chain()));
        service->addStoredDocument(document(chain()));
        service->importStoredDocuments();
        service->findSceneByInfo(nullptr);
        service->createModel("View");
        service->registerTypeConverter({{}, {}}, {});
    };
    for (const char* name : {"one", "two"}) {
        const SPlaced cam = f.addSource(name);
        cams.push_back(cam);
        cam.model->onDestroyed = [&, model = cam.model] {
            QVERIFY(!service->findNodeByModel(model));
            callEverything();
        };
        f.addView();
        connect(f.active(), &CNodeScene::nodeDeleted, this, callEverything);
        connect(f.active(), &QObject::destroyed, this, callEverything);
    }
    f.log.take();
    f.service.reset();
    QVERIFY2(calls >= 6, qPrintable(QString::number(calls)));
    QCOMPARE(f.log.take().filter(QRegularExpression("^(added|active|removing|removed)")), QStringList());
}

QTEST_GUILESS_MAIN(tst_CNodeServiceRemoval)
#include "tst_CNodeServiceRemoval.moc"
