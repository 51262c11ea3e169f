// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Calls from a thread that they must not come from: a build with assertions says so, once for each operation. No call
// here does anything but be made, and the threads take turns: what would happen else is undefined.

#include "HostModels.h"
#include "support/BoundedWait.h"
#include "support/CMessageCatcher.h"
#include "support/HasAssertions.h"
#include "support/STestNode.h"

#include <Halvex/service/CNodeService.h>

#include <QThread>
#include <QtTest>

#include <functional>
#include <memory>

using namespace Plugin::Halvex;

namespace {

/// One of each, in the thread of the test.
struct SObjects
{
    CNodeService service{nullptr};
    CNodeScene scene{nullptr, nullptr};
    STestNode node;
    STestNode otherNode;
    std::unique_ptr<CNodeConnection> connection = join(node, otherNode);
};

using Call = std::function<void(SObjects&)>;

/// Runs \a work in a thread with a name and returns when that has ended.
void runInThread(const QString& name, const std::function<void()>& work)
{
    const std::unique_ptr<QThread> thread(QThread::create(work));
    thread->setObjectName(name);
    thread->start();
    waitForEnd(*thread);
}

} // namespace

Q_DECLARE_METATYPE(Call)

class tst_OtherThreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isReportedOnce_data();
    void isReportedOnce();
    void ownThreadIsNotReported();
    void serviceWasMadeInAnotherThread();
};

void tst_OtherThreads::initTestCase()
{
    QThread::currentThread()->setObjectName(QStringLiteral("main"));
}

void tst_OtherThreads::isReportedOnce_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<Call>("call");
    const auto add = [](const char* operation, const Call& call, const char* of = "") {
        QTest::addRow("%s%s", operation, of) << QString(operation) << call;
    };
    const Call connectBoth = [](SObjects& our) { our.scene.createConnection(*our.node, 7, *our.otherNode, 7, {}); };
    const Call connectOne = [](SObjects& our) { our.scene.createConnection(ENodePortType::In, *our.node, 7); };
    const Call removeFromScene = [](SObjects& our) { our.scene.removeNode(*our.node); };
    const Call removeFromService = [](SObjects& our) { our.service.removeNode(Core::CId(), false); };
    const Call removeByModel = [](SObjects& our) {
        ANodeDataModel* none = nullptr;
        our.service.removeNodeByModel(none, false);
    };

    add("propagateData", [](SObjects& our) { our.node->propagateData(nullptr, 0); });

    add("createNode", [](SObjects& our) { our.scene.createNode(nullptr); });
    add("createConnection", connectBoth, ", both ends");
    add("createConnection", connectOne, ", one end");
    add("deleteConnection", [](SObjects& our) { our.scene.deleteConnection(*our.connection); });
    add("deleteConnectionNow", [](SObjects& our) { our.scene.deleteConnectionNow(*our.connection); });
    add("removeNode", removeFromScene, " of the scene");
    add("clearScene", [](SObjects& our) { our.scene.clearScene(); });
    add("loadFromMemory", [](SObjects& our) { our.scene.loadFromMemory("{}"); });
    add("restoreNode", [](SObjects& our) { our.scene.restoreNode({{"model", QJsonObject{{"is_unique", true}}}}); });
    add("restoreConnection", [](SObjects& our) { our.scene.restoreConnection({}); });
    add("setRegistry", [](SObjects& our) { our.scene.setRegistry(nullptr); });

    // addNode() comes below.
    add("removeNode", removeFromService, " of the service");
    add("removeNodeByModel", removeByModel);
    add("removeSceneOfNode", [](SObjects& our) { our.service.removeSceneOfNode(Core::CId()); });
    add("connectModels", [](SObjects& our) { our.service.connectModels(nullptr, 0, nullptr, 0); });
    add("importDocument", [](SObjects& our) { our.service.importDocument({}); });
    add("importStoredDocuments", [](SObjects& our) { our.service.importStoredDocuments(); });
    add("addStoredDocument", [](SObjects& our) { our.service.addStoredDocument({}); });
    add("registerTypeConverter", [](SObjects& our) { our.service.registerTypeConverter({}, NodeDataConverter()); });
    add("setActiveScene", [](SObjects& our) { our.service.setActiveScene(nullptr); });
}

void tst_OtherThreads::isReportedOnce()
{
    QFETCH(const QString, operation);
    QFETCH(const Call, call);
    SObjects our;
    const CMessageCatcher messages;
    runInThread(QStringLiteral("camera"), [&] {
        call(our);
        call(our);
    });

    const QStringList texts = messages.texts("halvex.graph");
    QCOMPARE(texts.size(), hasAssertions ? 1 : 0);
    const QRegularExpression expected("^" + operation +
                                      R"(\(\) of Plugin::Halvex::C\w+\(0x\w+\) is called in QThread\(0x\w+, name = )"
                                      R"("camera"\), but belongs to QThread\(0x\w+, name = "main"\)$)");
    for (const QString& text : texts)
        QVERIFY2(expected.match(text).hasMatch(), qPrintable(text));
    QCOMPARE(messages.texts("halvex.graph"), texts);
}

void tst_OtherThreads::ownThreadIsNotReported()
{
    const CMessageCatcher messages;
    runInThread(QStringLiteral("graph"), [] {
        CNodeService service(nullptr);
        const Core::CId id = service.addNode(makeSource(), nullptr);
        service.findNode(id)->propagateData(CTestData::make(1), 0);
        service.removeSceneOfNode(id);
    });
    QCOMPARE(messages.texts(), QStringList());
}

void tst_OtherThreads::serviceWasMadeInAnotherThread()
{
    std::unique_ptr<CNodeService> service;
    runInThread(QStringLiteral("loader"), [&] { service = std::make_unique<CNodeService>(nullptr); });

    const CMessageCatcher messages;
    // Qt would have to queue the scene's signals to the service, and cannot: the service never hears of the node.
    QVERIFY(service->addNode(makeSource(), nullptr) == Core::CId());
    service.reset();
    QCOMPARE(CTestModels::alive(), 0);

    QVERIFY(!messages.texts().isEmpty()); // Qt's own in every build
    const QStringList texts = messages.texts("halvex.graph");
    QCOMPARE(texts.size(), hasAssertions ? 1 : 0);
    for (const QString& text : texts)
        QVERIFY2(text.startsWith("addNode() of Plugin::Halvex::CNodeService(0x"), qPrintable(text));
}

QTEST_GUILESS_MAIN(tst_OtherThreads)
#include "tst_OtherThreads.moc"
