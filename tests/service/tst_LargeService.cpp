// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A service with many more scenes, nodes or elements of a document than a host is likely to have.

#include "CServiceFixture.h"
#include "service/CSceneImport_p.h"

#include <QSignalSpy>

using namespace Plugin::Halvex;

namespace {

using F = CServiceFixture;
constexpr int cameraCount = 300;

QString cameraName(int number)
{
    return QStringLiteral("camera %1").arg(number);
}

/// A service with a scene for each camera, which feeds a view.
class CManyScenes : public F
{
public:
    CManyScenes()
    {
        for (int i = 0; i < cameraCount; ++i) {
            infos.push_back(makeInfo());
            cameras.push_back(addSource(cameraName(i), infos.back()));
            import({element("view", "View", fedBy({cameraName(i)}))});
        }
    }

    std::vector<BaseInfoPtr> infos;
    std::vector<SPlaced> cameras;
};

/// A model that counts how often the library calls anything virtual of any of its kind: moc's function too, for the
/// service asks through it what a model is.
class CCountedModel : public CNamedTestModel
{
public:
    using CNamedTestModel::CNamedTestModel;
    const QMetaObject* metaObject() const override
    {
        ++calls;
        return CNamedTestModel::metaObject();
    }

    static inline int calls = 0;
};

std::unique_ptr<CNamedTestModel> makeCounted(const QString& uniqueName)
{
    auto model = std::make_unique<CCountedModel>(2u, 2u, "counted", uniqueName);
    model->unique = true;
    model->setType(ENodeDataModelType::Source);
    return model;
}

} // namespace

class tst_LargeService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void eachSceneIsFoundAndHasItsOwnFrames();
    void scenesGoInAnyOrder();
    void lookUpsWalkOverNoNodes();
    void importOfManyElementsAsksLittle();
};

void tst_LargeService::initTestCase()
{
    CTestModels::onCalled = [] { ++CCountedModel::calls; };
}

void tst_LargeService::eachSceneIsFoundAndHasItsOwnFrames()
{
    const CManyScenes many;
    QCOMPARE(many.sceneCount(), cameraCount);
    QCOMPARE(many.active(), many.scene(cameraCount - 1));
    for (int i = 0; i < cameraCount; ++i) {
        QCOMPARE(many.service->findSceneByInfo(many.infos[std::size_t(i)]), many.scene(i));
        CNodeBase* const node = many.service->findNode(many.cameras[std::size_t(i)].id);
        QVERIFY(node);
        QCOMPARE(node->nodeDataModel(), many.cameras[std::size_t(i)].model);
        QCOMPARE(F::nodeCount(many.scene(i)), 2);
        many.cameras[std::size_t(i)].model->offer(CTestData::make(i));
    }
    for (int i = 0; i < cameraCount; ++i) {
        const CNamedTestModel* const view = modelNamed(many.scene(i), "View");
        QVERIFY(view);
        QCOMPARE(deliveriesTo(*view), (Deliveries{{i, 0}}));
    }
}

void tst_LargeService::scenesGoInAnyOrder()
{
    const CManyScenes many;
    const QSignalSpy removing(many.service.get(), &INodeService::sceneRemoving);
    const QSignalSpy removed(many.service.get(), &INodeService::sceneRemoved);

    // 7 and the count have no divisor in common: every scene has its turn.
    for (int turn = 0; turn < cameraCount; ++turn) {
        const int number = turn * 7 % cameraCount;
        if (turn % 2 == 0)
            many.service->removeSceneOfNode(many.cameras[std::size_t(number)].id);
        else
            delete many.service->findSceneByInfo(many.infos[std::size_t(number)]); // as its host may
        QCOMPARE(many.sceneCount(), cameraCount - turn - 1);
        QVERIFY(!many.service->findNode(many.cameras[std::size_t(number)].id));
        QCOMPARE(many.active(), many.scene(0));
    }
    QCOMPARE(removing.size(), cameraCount / 2);
    QCOMPARE(removed.size(), cameraCount);
}

void tst_LargeService::lookUpsWalkOverNoNodes()
{
    F f;
    std::vector<SPlaced> all;
    for (int scene = 0; scene < 10; ++scene) {
        all.push_back(f.add(makeCounted(cameraName(scene))));
        for (int node = 1; node < 10000; ++node)
            all.push_back(f.add(std::make_unique<CCountedModel>(2u, 2u)));
    }
    QCOMPARE(CTestModels::alive(), 100000);

    // With a walk over the nodes for each look-up this would take longer than the test may.
    for (const SPlaced& placed : all) {
        CNodeBase* const node = f.service->findNode(placed.id);
        QVERIFY(node && node->nodeDataModel() == placed.model);
        QVERIFY(f.service->findNodeByModel(placed.model) == node);
        QVERIFY(!f.service->findNode(placed.model->id()));
        QVERIFY(f.addAgain(placed.model) == placed.id);
    }
    for (std::size_t i = 1; i < all.size(); ++i)
        QVERIFY(f.connect(all[i], all[i - 1]) != Core::CId());

    // Asking the model that is looked for what it is costs a call or two; asking the 100,000 would be seen.
    CCountedModel::calls = 0;
    for (std::size_t i = 9999; i < all.size(); i += 10000) {
        ANodeDataModel* model = all[i].model;
        QVERIFY(f.addAgain(all[i].model) == all[i].id);
        f.service->removeNodeByModel(model, true);
        f.service->removeNode(all[i - 1].id, true);
    }
    QVERIFY2(CCountedModel::calls < 1000, qPrintable(QString::number(CCountedModel::calls)));
    QCOMPARE(CTestModels::alive(), 100000 - 20);
}

void tst_LargeService::importOfManyElementsAsksLittle()
{
    F f;
    f.addSource("cam");
    constexpr int sources = 5000;
    constexpr int elements = 10000;
    for (int i = 0; i < sources; ++i)
        f.active()->createNode(makeCounted(cameraName(i)));
    QJsonArray array;
    for (int i = 0; i < elements; ++i)
        array.append(element(QString::number(i), "View", fedBy({cameraName((i * 7) % sources), "cam"})));

    CCountedModel::calls = 0;
    CSceneImport import(*f.active());
    import.addDocument(document(array));
    const int callsOfTheImport = CCountedModel::calls;
    QCOMPARE(import.sceneDocument()["nodes"].toArray().size(), 3 * elements);

    CCountedModel::calls = 0;
    QVERIFY(f.import(array));
    const int callsInAll = CCountedModel::calls;
    QCOMPARE(F::nodeCount(f.active()), 1 + sources + elements);
    QCOMPARE(f.active()->connections().size(), std::size_t(2 * elements));

    // A search per mention would ask thousands of models ten thousand times.
    QVERIFY2(callsOfTheImport < 10 * (sources + elements), qPrintable(QString::number(callsOfTheImport)));
    QVERIFY2(callsInAll < 50 * (sources + elements), qPrintable(QString::number(callsInAll)));
}

QTEST_GUILESS_MAIN(tst_LargeService)
#include "tst_LargeService.moc"
