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
    void noDestroyedNodeIsFound_data();
    void noDestroyedNodeIsFound();

    void removeSceneOfNodeByIdCallsTheOther();
    void sceneIsWholeWhileRemovingAndGoneWhenRemoved();
    void sceneThatTheHostDestroysIsInNoTable();
    void sceneMayGoWithItsLoneSink();
    void serviceMayGoWithItsLoneSink();
    void serviceMayGoWithItsScene();
    void sceneMayGoAsItsRemovalIsTold();
    void serviceMayGoAsANodeIsAdded();
    void whatComesAsTheLoneSinkGoesGoesWithTheScene();

    void dyingServiceDestroysItsScenesInOrder();
    void dyingServiceMayBeCalled();
};

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

void tst_CNodeServiceRemoval::sceneMayGoWithItsLoneSink()
{
    F f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    const QPointer<CNodeScene> scene = f.active();
    connect(scene, &CNodeScene::nodeDeleted, this, [&](CNodeBase& node) {
        if (node.id() == view.id)
            delete scene.data();
    });
    f.log.take();
    f.service->removeNode(cam.id, true);
    QVERIFY(scene.isNull());
    QCOMPARE(f.sceneCount(), 0);
    QCOMPARE(f.log.take(), QStringList({"1 deleted cam", "1 deleted view", "removed"}));
}

void tst_CNodeServiceRemoval::serviceMayGoWithItsLoneSink()
{
    F f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    connect(f.active(), &CNodeScene::nodeDeleted, this, [&](CNodeBase& node) {
        if (node.id() == view.id)
            f.service.reset();
    });
    f.log.take();
    f.service->removeNode(cam.id, true);
    QVERIFY(!f.service);
    QCOMPARE(f.log.take(), QStringList({"1 deleted cam", "1 deleted view"}));
}

void tst_CNodeServiceRemoval::serviceMayGoWithItsScene()
{
    for (const bool isRemoved : {false, true}) {
        F f;
        const SPlaced cam = f.addSource();
        const auto end = [&f] { f.service.reset(); };
        if (isRemoved)
            connect(f.service.get(), &INodeService::sceneRemoved, this, end);
        else
            connect(f.service.get(), &INodeService::sceneRemoving, this, end);
        f.log.take();
        f.service->removeSceneOfNode(cam.id);
        QVERIFY(!f.service);
        QCOMPARE(f.log.take().filter("removed").size(), isRemoved ? 1 : 0);
        QCOMPARE(CTestModels::alive(), 0);
    }
}

void tst_CNodeServiceRemoval::sceneMayGoAsItsRemovalIsTold()
{
    F f;
    const SPlaced cam = f.addSource();
    f.addSource("cam-2");
    connect(f.service.get(), &INodeService::sceneRemoving, this, [](const CNodeScene* leaving) { delete leaving; });
    f.log.take();
    f.service->removeSceneOfNode(cam.id);
    QCOMPARE(f.log.take().filter("remov"), QStringList({"removing 1", "removed"}));
    QCOMPARE(f.sceneCount(), 1);
}

void tst_CNodeServiceRemoval::serviceMayGoAsANodeIsAdded()
{
    for (const bool isByItsName : {false, true}) {
        F f;
        f.addSource();
        const auto end = [&f] { f.service.reset(); };
        auto view = makeModel(ENodeDataModelType::Sink, "view");
        if (isByItsName)
            view->onName = end;
        else
            connect(f.active(), &CNodeScene::nodeCreated, this, end);
        QVERIFY(f.service->addNode(std::move(view), {}) == Core::CId());
        QVERIFY(!f.service);
    }
}

void tst_CNodeServiceRemoval::whatComesAsTheLoneSinkGoesGoesWithTheScene()
{
    F f;
    const SPlaced cam = f.addSource();
    const SPlaced view = f.addView();
    connect(f.active(), &CNodeScene::nodeDeleted, this, [&](const CNodeBase& node) {
        if (node.id() == view.id)
            f.addView("late");
    });
    f.log.take();
    f.service->removeNode(cam.id, true);
    QCOMPARE(f.log.take(), QStringList({"1 deleted cam", "1 deleted view", "1 created late", "removing 1",
                                        "1 deleted late", "removed"}));
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
    std::vector<std::pair<Core::CId, QPointer<ANodeDataModel>>> cams; // what they still are in their destructors
    int calls = 0;
    const auto callEverything = [&] {
        ++calls;
        for (const auto& cam : cams) {
            service->findNode(cam.first);
            service->removeNode(cam.first, true);
            service->removeSceneOfNode(cam.first);
            service->connectModels(cam.second, 0, cam.second, 0);
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
        cams.emplace_back(cam.id, cam.model);
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
