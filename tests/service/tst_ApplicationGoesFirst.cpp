// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A host whose application object goes before the service does.

#include "HostModels.h"
#include "support/CMessageCatcher.h"
#include "support/ServiceConsistency.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/service/CNodeService.h>

#include <QCoreApplication>
#include <QtTest>

#include <algorithm>
#include <memory>

using namespace Plugin::Halvex;

class tst_ApplicationGoesFirst : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void serviceGoesOnWithoutIt();
};

void tst_ApplicationGoesFirst::serviceGoesOnWithoutIt()
{
    int argc = 1;
    char name[] = "test";
    char* argv[] = {name, nullptr};
    auto application = std::make_unique<QCoreApplication>(argc, argv);
    const CMessageCatcher messages;

    auto service = std::make_unique<CNodeService>(nullptr);
    service->registry()->registerModel<CGenericNodeDecouplerDataModel<CTestData>>(QStringLiteral("Test"));
    registerModel(*service->registry(), ENodeDataModelType::Sink, "View");
    const Core::CId first = service->addNode(makeSource("first"), nullptr);
    service->addNode(makeSource("camera"), nullptr);
    // The view gets every frame at port 0, and what comes out of the decoupler at port 1.
    QVERIFY(service->importDocument(
        R"([{"name": "view", "model": {"name": "View"}, "unique_sources": [["camera"]]},
            {"name": "decoupler", "model": {"name": "DecouplerT"}, "unique_sources": [["camera"]],
             "connection": [[{"name": "view", "index_in": 1}]]}])"));
    CNodeScene& scene = *service->getActiveScene();
    CNamedTestModel& camera = *modelNamed(&scene, "camera");
    const CNamedTestModel& view = *modelNamed(&scene, "View");
    const auto hasReceived = [&view](int value, int port) {
        const Deliveries deliveries = deliveriesTo(view);
        return std::count(deliveries.begin(), deliveries.end(), std::make_pair(value, port)) != 0;
    };

    camera.offer(CTestData::make(1));
    QTRY_VERIFY(hasReceived(1, 1)); // now the decoupler's thread runs

    application.reset();
    camera.offer(CTestData::make(2));
    QVERIFY(hasReceived(2, 0));
    service->removeSceneOfNode(first);
    QCOMPARE(service->scenes(), QList<CNodeScene*>({&scene}));
    QVERIFY(service->addNode(makeSource("late"), nullptr) != Core::CId());
    QCOMPARE(inconsistencyOfScenes(*service), QString());

    service.reset();
    QCOMPARE(CTestModels::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(messages.texts(), QStringList());
}

QTEST_APPLESS_MAIN(tst_ApplicationGoesFirst)
#include "tst_ApplicationGoesFirst.moc"
