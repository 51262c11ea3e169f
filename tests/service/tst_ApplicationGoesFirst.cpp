// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A host whose application object goes before the service does.

#include "CHostModel.h"
#include "ImportDocument.h"
#include "support/CMessageCatcher.h"
#include "support/ServiceConsistency.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/service/CNodeService.h>

#include <QCoreApplication>
#include <QtTest>

#include <algorithm>
#include <memory>

using namespace Plugin::Halvex;

namespace {

bool hasReceived(const CHostModel& model, int value, NodePortIndex port)
{
    const auto found = std::find(model.received.begin(), model.received.end(), std::make_pair(value, port));
    return found != model.received.end();
}

} // namespace

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
    service->registry()->registerModel([] { return std::make_unique<CHostModel>(ENodeDataModelType::Sink, "View"); },
                                       QStringLiteral("Test"));
    const Core::CId first = service->addNode(makeSource("first"), nullptr);
    service->addNode(makeSource("camera"), nullptr);
    // The view gets every frame at port 0, and what comes out of the decoupler at port 1.
    QVERIFY(service->importDocument(document(
        {element("view", "View", {{"unique_sources", QJsonArray{QJsonValue(QJsonArray{"camera"})}}}),
         element(
             "decoupler", "DecouplerT",
             {{"unique_sources", QJsonArray{QJsonValue(QJsonArray{"camera"})}},
              {"connection", QJsonArray{QJsonValue(QJsonArray{QJsonObject{{"name", "view"}, {"index_in", 1}}})}}})})));
    CNodeScene& scene = *service->getActiveScene();
    CHostModel& camera = *modelNamed(&scene, "camera");
    CHostModel& view = *modelNamed(&scene, "View");

    camera.offer(CTestData::make(1));
    QTRY_VERIFY(hasReceived(view, 1, 1)); // now the decoupler's thread runs

    application.reset();
    camera.offer(CTestData::make(2));
    QVERIFY(hasReceived(view, 2, 0));
    service->removeSceneOfNode(first);
    QCOMPARE(service->scenes(), QList<CNodeScene*>({&scene}));
    QVERIFY(service->addNode(makeSource("late"), nullptr) != Core::CId());
    QCOMPARE(inconsistencyOfScenes(*service), QString());

    service.reset();
    QCOMPARE(CHostModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(messages.texts(), QStringList());
}

QTEST_APPLESS_MAIN(tst_ApplicationGoesFirst)
#include "tst_ApplicationGoesFirst.moc"
