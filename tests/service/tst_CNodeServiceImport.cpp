// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a service does with import documents, and which nodes it takes for those of documents. What a document says is
// tested with CSceneImport.

#include "CServiceFixture.h"

#include "models/CWorkerModel.h"

#include <algorithm>
#include <stdexcept>

using namespace Plugin::Halvex;

using F = CServiceFixture;

class tst_CNodeServiceImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void needsAnActiveScene();
    void wiresAChain();
    void modelThatIsNotMadeEndsIt();
    void sceneThatIsLostEndsIt();
    void nodeOfANonUniqueSourceIsReplaced();
    void elementSetsPolicyAndParallelismOfAWorker();

    void documentNodesAreThoseNotAdded();
    void documentNodesForgetWhatGoes();
    void documentNodesHoldNothingReplaced();
};

void tst_CNodeServiceImport::needsAnActiveScene()
{
    F f;
    QVERIFY(!f.import({}));
    QVERIFY(!f.import(chain()));
    f.service->addStoredDocument(document(chain()));
    QVERIFY(!f.service->importStoredDocuments());
    QCOMPARE(f.log.take(), QStringList());
    f.addSource();
    QVERIFY(f.service->importStoredDocuments());
    delete f.active();
    QVERIFY(!f.import(chain()));
}

void tst_CNodeServiceImport::wiresAChain()
{
    F f;
    const SPlaced cam = f.addSource();
    cam.model->offer(CTestData::make(7));
    f.log.take();
    QVERIFY(f.import(chain()));
    QCOMPARE(f.log.take(), QStringList({"1 created Filter", "1 created View", "1 connected cam0-Filter0",
                                        "1 connected Filter0-View0"}));
    QCOMPARE(f.service->findNodeByModel(cam.model)->id(), cam.id);
    cam.model->offer(CTestData::make(8));
    const CNamedTestModel* const view = modelNamed(f.active(), "View");
    QCOMPARE(deliveriesTo(*view), (Deliveries{{7, 0}, {8, 0}})); // what the source had already, then the next
    QCOMPARE(view->restored, (std::vector<QJsonObject>{{{"name", "View"}, {"is_unique", false}}}));
}

void tst_CNodeServiceImport::modelThatIsNotMadeEndsIt()
{
    for (const QString& model : {QString("Not registered"), QString("Thrower")}) {
        F f;
        const auto makeThrower = [model] {
            auto thrower = makeModel(ENodeDataModelType::Sink, "Thrower");
            thrower->onRestore = [model] { throw std::runtime_error(model.toStdString()); };
            return thrower;
        };
        f.service->registry()->registerModel(makeThrower, "Test");
        f.addSource();
        f.log.take();
        const QJsonArray before{element("a"), element("b", model)};
        const QJsonArray after{element("c", "Filter"), element("d", "View", feeding({"a"}))};
        QVERIFY(!f.import({before[0], before[1], after[0], after[1]}));
        f.service->addStoredDocument(document(before));
        f.service->addStoredDocument(document(after));
        QVERIFY(!f.service->importStoredDocuments());

        QCOMPARE(f.log.take(), QStringList({"1 created View", "1 created View"}));
        QCOMPARE(f.messages.texts("halvex.service").filter(model).size(), 2);
        QCOMPARE(CTestModels::alive(), 3);
        QCOMPARE(f.service->documentNodes().size(), 2);
        QVERIFY(f.import(chain()));
    }
}

void tst_CNodeServiceImport::sceneThatIsLostEndsIt()
{
    for (const QString& from : {QString("name"), QString("isUnique"), QString("nodeCreated")}) {
        F f;
        CNamedTestModel* const source = f.addSource().model;
        const auto destroyTheScene = [&f] {
            if (!f.active()->isBeingDestroyed()) // the log asks for names as well
                delete f.active();
        };
        if (from == "name")
            source->onName = destroyTheScene;
        else if (from == "isUnique")
            source->onIsUnique = destroyTheScene;
        else
            connect(f.active(), &CNodeScene::nodeCreated, this, destroyTheScene);
        QVERIFY(!f.import(chain()));
        QCOMPARE(f.sceneCount(), 0);
        QCOMPARE(CTestModels::alive(), 0);
    }
}

// A source that has a unique name but is not unique is described anew by the import, under the id of its node.
void tst_CNodeServiceImport::nodeOfANonUniqueSourceIsReplaced()
{
    F f;
    registerModel(*f.service->registry(), ENodeDataModelType::Source, "Named");
    f.addSource();
    const SPlaced named = f.add(makeModel(ENodeDataModelType::Source, "Named", "n"));
    const QPointer<CNamedTestModel> old = named.model;
    QVERIFY(f.import({element("a", "View", fedBy({"n"}))}));

    QVERIFY(old.isNull());
    CNodeBase* const node = f.service->findNode(named.id);
    QVERIFY(node);
    QCOMPARE(f.service->documentNodes().size(), 2);
    QVERIFY(f.service->documentNodes().contains(node));
    dynamic_cast<CNamedTestModel&>(*node->nodeDataModel()).offer(CTestData::make(4));
    QCOMPARE(modelNamed(f.active(), "View")->values().back(), 4);
    f.service->removeNode(named.id, false);
    QCOMPARE(f.service->documentNodes().size(), 1);
}

void tst_CNodeServiceImport::elementSetsPolicyAndParallelismOfAWorker()
{
    F f;
    f.service->registry()->registerModel([] { return std::make_unique<CWorkerModel>(); }, "Test");
    f.addSource();
    QJsonObject worker = element("a", "Worker", fedBy({"cam"}));
    const QJsonObject property{{"policy", "DropOldest"}, {"most_waiting", 5}, {"parallelism", 3}};
    worker["model"] = QJsonObject{{"name", "Worker"}, {"property", property}};
    QVERIFY(f.import({worker}));
    const auto nodes = f.service->documentNodes();
    QCOMPARE(nodes.size(), 1);
    const auto& model = dynamic_cast<CWorkerModel&>(*nodes.front()->nodeDataModel());
    QCOMPARE(model.policy(), AWorkerNodeDataModel::EPolicy::DropOldest);
    QCOMPARE(model.mostWaiting(), 5);
    QCOMPARE(model.parallelism(), 3);
}

void tst_CNodeServiceImport::documentNodesAreThoseNotAdded()
{
    F f;
    f.addSource();
    int heard = 0;
    const auto added = connect(f.active(), &CNodeScene::nodeCreated, this, [&] {
        ++heard;
        QVERIFY(f.service->documentNodes().isEmpty());
    });
    f.addView();
    disconnect(added);
    QCOMPARE(heard, 1);
    QVERIFY(f.service->documentNodes().isEmpty());

    QVERIFY(f.import(chain()));
    QVector<CNodeBase*> expected{nodeOf(*f.active(), modelNamed(f.active(), "Filter")),
                                 nodeOf(*f.active(), modelNamed(f.active(), "View")),
                                 &f.active()->createNode(makeModel(ENodeDataModelType::Sink, "by hand"))};
    f.active()->createNode(std::make_unique<CTestModel>()); // without an identity
    QVector<CNodeBase*> found = f.service->documentNodes();
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    QCOMPARE(found, expected);
}

void tst_CNodeServiceImport::documentNodesForgetWhatGoes()
{
    F f;
    const SPlaced cam = f.addSource();
    QVERIFY(f.import(chain()));
    const QVector<CNodeBase*> nodes = f.service->documentNodes();
    QCOMPARE(nodes.size(), 2);
    connect(f.active(), &CNodeScene::nodeDeleted, this,
            [&](CNodeBase& node) { QVERIFY(!f.service->documentNodes().contains(&node)); });
    f.service->removeNode(nodes.first()->id(), false);
    QCOMPARE(f.service->documentNodes(), QVector<CNodeBase*>({nodes.last()}));
    f.active()->removeNode(*nodes.last());
    QVERIFY(f.service->documentNodes().isEmpty());
    QVERIFY(f.import(chain()));
    f.service->removeSceneOfNode(cam.id);
    QVERIFY(f.service->documentNodes().isEmpty());
}

void tst_CNodeServiceImport::documentNodesHoldNothingReplaced()
{
    F f;
    f.addSource();
    const Core::CId id = Core::CId::createId();
    for (int round = 0; round < 3; ++round) {
        f.active()->loadFromMemory(sceneDocument(id));
        QCOMPARE(f.service->documentNodes(), QVector<CNodeBase*>({f.active()->nodes().at(id).get()}));
    }
    f.active()->loadFromMemory(sceneDocument(id, "Plain"));
    QVERIFY(f.service->documentNodes().isEmpty());
}

QTEST_GUILESS_MAIN(tst_CNodeServiceImport)
#include "tst_CNodeServiceImport.moc"
