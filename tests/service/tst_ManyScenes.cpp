// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A service with many more cameras, and so scenes, than a host is likely to have.

#include "CHostModel.h"
#include "ImportDocument.h"
#include "support/ServiceConsistency.h"

#include <Halvex/service/CNodeService.h>

#include <QSignalSpy>
#include <QtTest>

#include <memory>
#include <vector>

using namespace Plugin::Halvex;
using Core::AppCoreComponents::BaseInfoPtr;
using Core::AppCoreComponents::IBaseInfo;

namespace {

constexpr int sceneCount = 300;

class CInfo : public IBaseInfo
{
};

QString cameraName(int number)
{
    return QStringLiteral("camera %1").arg(number);
}

/// A service with a scene for each camera, which feeds a view.
struct SManyScenes
{
    SManyScenes()
    {
        service.registry()->registerModel([] { return std::make_unique<CHostModel>(ENodeDataModelType::Sink, "View"); },
                                          QStringLiteral("Test"));
        for (int i = 0; i < sceneCount; ++i) {
            infos.emplace_back(QSharedPointer<CInfo>::create());
            ids.push_back(service.addNode(makeSource(cameraName(i)), infos.back()));
            service.importDocument(document(
                {element("view", "View", {{"unique_sources", QJsonArray{QJsonValue(QJsonArray{cameraName(i)})}}})}));
        }
    }

    CNodeScene* scene(int number) { return service.findSceneByInfo(infos[std::size_t(number)]); }
    Core::CId id(int number) const { return ids[std::size_t(number)]; }

    CNodeService service{nullptr};
    std::vector<BaseInfoPtr> infos;
    std::vector<Core::CId> ids;
};

} // namespace

class tst_ManyScenes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void eachIsFound();
    void eachHasItsOwnFrames();
    void anyOrderOfRemoval();
};

void tst_ManyScenes::cleanup()
{
    QCOMPARE(CHostModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_ManyScenes::eachIsFound()
{
    SManyScenes many;
    const QList<CNodeScene*> scenes = many.service.scenes();
    QCOMPARE(scenes.size(), sceneCount);
    QCOMPARE(many.service.getActiveScene().data(), scenes.last());
    for (int i = 0; i < sceneCount; ++i) {
        QCOMPARE(many.scene(i), scenes[i]);
        CNodeBase* const node = many.service.findNode(many.id(i));
        QVERIFY(node);
        QCOMPARE(node->nodeDataModel()->name(), cameraName(i));
        QCOMPARE(scenes[i]->nodes().size(), std::size_t(2));
    }
    QCOMPARE(inconsistencyOfScenes(many.service), QString());
}

void tst_ManyScenes::eachHasItsOwnFrames()
{
    SManyScenes many;
    for (int i = 0; i < sceneCount; ++i) {
        CHostModel* const camera = modelNamed(many.scene(i), cameraName(i));
        QVERIFY(camera);
        camera->offer(CTestData::make(i));
    }
    using Received = decltype(CHostModel::received);
    for (int i = 0; i < sceneCount; ++i) {
        const CHostModel* const view = modelNamed(many.scene(i), QStringLiteral("View"));
        QVERIFY(view);
        QCOMPARE(view->received, Received({{i, 0}}));
    }
}

void tst_ManyScenes::anyOrderOfRemoval()
{
    SManyScenes many;
    const QSignalSpy removing(&many.service, &INodeService::sceneRemoving);
    const QSignalSpy removed(&many.service, &INodeService::sceneRemoved);

    // 7 and the count have no divisor in common: every scene has its turn.
    for (int turn = 0; turn < sceneCount; ++turn) {
        const int number = turn * 7 % sceneCount;
        if (turn % 2 == 0)
            many.service.removeSceneOfNode(many.id(number));
        else
            delete many.scene(number); // as its host may
        QCOMPARE(many.service.scenes().size(), sceneCount - turn - 1);
        QVERIFY(!many.service.findNode(many.id(number)));
        QCOMPARE(many.service.getActiveScene().data(), many.service.scenes().value(0));
    }
    QCOMPARE(removing.size(), sceneCount / 2);
    QCOMPARE(removed.size(), sceneCount);
}

QTEST_GUILESS_MAIN(tst_ManyScenes)
#include "tst_ManyScenes.moc"
