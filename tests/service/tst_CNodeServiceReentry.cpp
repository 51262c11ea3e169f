// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// In which order the service tells what handlers and models that it calls ask of it. That all stays sound whatever they
// do, that everything is told once, and to all handlers in the same order, the deletion matrix proves.

#include "service/CServiceFixture.h"
#include "world/Hooks.h"
#include "world/Operations.h"

#include <QtTest>

#include <algorithm>

using namespace Plugin::Halvex;

namespace {

/// An operation of the table, by its name, and what it is done to.
struct SAsked
{
    const char* operation;
    ETarget target = ETarget::AtHand;
};
using Asked = std::vector<SAsked>;

/// The hook or operation of that name.
template <typename Named>
const Named& find(const std::vector<Named>& all, const QString& name)
{
    const auto isMeant = [&name](const Named& each) { return QLatin1String(each.name) == name; };
    const auto found = std::find_if(all.begin(), all.end(), isMeant);
    if (found == all.end())
        qFatal("Nothing is named \"%s\".", qPrintable(name));
    return *found;
}

/// What the service itself said, with the numbers of scenes: "added 1, active 1, removing 1, removed, active none".
QString saidByTheService(const CWitness& witness)
{
    static const std::map<EHook, const char*> words{{EHook::SceneAdded, "added"},
                                                    {EHook::ActiveSceneChanged, "active"},
                                                    {EHook::SceneRemoving, "removing"},
                                                    {EHook::SceneRemoved, "removed"}};
    QStringList said;
    for (const CWitness::STold& told : witness.told()) {
        const auto word = words.find(told.signal);
        if (word == words.end())
            continue;
        QString text = QString::fromLatin1(word->second);
        if (told.signal != EHook::SceneRemoved)
            text += told.scene == 0 ? QStringLiteral(" none") : QStringLiteral(" %1").arg(told.scene);
        said << text;
    }
    return said.join(QStringLiteral(", "));
}

} // namespace

Q_DECLARE_METATYPE(Asked)

class tst_CNodeServiceReentry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void order_data();
    void order();
    void sceneThatIsBeingDestroyedIsNeverActive();
    void sceneThatIsBeingDestroyedGetsNothing();
};

// There are four scenes, of which that at hand, the last, is active. A source that is added makes the next.
void tst_CNodeServiceReentry::order_data()
{
    QTest::addColumn<QString>("hook");
    QTest::addColumn<Asked>("asked");
    QTest::addColumn<QString>("meanwhile"); // said when all was asked
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* what, const char* hook, const Asked& asked, const char* meanwhile,
                        const char* expected) {
        QTest::addRow("%s, in %s", what, hook) << hook << asked << meanwhile << expected;
    };
    const Asked activateFirst{{"setActiveScene", ETarget::Upstream}};
    const Asked removeFirst{{"removeSceneOfNode", ETarget::Upstream}};
    const Asked remove{{"removeSceneOfNode"}};
    const Asked addSource{{"addNode of a source"}};
    const Asked destroy{{"scene destroyed"}};
    // Of what waits, nothing is done or told.
    const Asked destroyService{removeFirst[0], activateFirst[0], {"service destroyed"}};

    // Each operation proves itself that what it changes is so at once.
    add("changes are told later", "sceneAdded", {activateFirst[0], {"addNode"}, addSource[0]}, "added 5",
        "added 5, active 1, added 6, active 6, active 5");
    add("other activated", "sceneAdded", activateFirst, "added 5", "added 5, active 1, active 5");
    add("other activated", "activeSceneChanged", activateFirst, "active 4", "active 4, active 1");
    add("source added", "sceneRemoving", addSource, "removing 4", "removing 4, added 5, active 5, removed, active 1");
    add("source added", "sceneRemoved", addSource, "removing 4, removed",
        "removing 4, removed, added 5, active 5, active 1");
    add("removed once more", "sceneRemoving", remove, "removing 4", "removing 4, removed, active 1");
    add("removed twice", "activeSceneChanged", {remove[0], remove[0]}, "active 4",
        "active 4, removing 4, removed, active 1");
    add("destroyed", "sceneRemoving", destroy, "removing 4", "removing 4, removed, active 1");
    add("destroyed", "sceneAdded", destroy, "added 5", "added 5, removed, active 1");
    add("destroyed", "activeSceneChanged", destroy, "active 4", "active 4, removed, active 1");
    add("handler throws", "activeSceneChanged", {remove[0], activateFirst[0], {"exception"}}, "active 4",
        "active 4, removing 4, active 1, removed, active 1");

    // A scene lives until its turn to go. In signals of the service that is later, in others at once.
    add("other removed", "sceneAdded", removeFirst, "added 5", "added 5, removing 1, removed, active 2, active 5");
    add("other removed", "activeSceneChanged", removeFirst, "active 4", "active 4, removing 1, removed, active 2");
    add("other removed", "sceneRemoved", removeFirst, "removing 4, removed",
        "removing 4, removed, removing 1, removed, active 2");
    // No handler is told that the first scene is active after "removing".
    add("other removed", "sceneRemoving", removeFirst, "removing 4",
        "removing 4, removing 1, removed, removed, active 2, active 2");
    for (const char* const hook : {"nodeCreated", "connectionCreated", "connectionDeleted", "setInData"})
        add("removed", hook, remove, "removing 4, removed, active 1", "removing 4, removed, active 1");

    add("service destroyed", "sceneAdded", destroyService, "added 5", "added 5");
    add("service destroyed", "activeSceneChanged", destroyService, "active 4", "active 4");
    add("service destroyed", "sceneRemoving", destroyService, "removing 4", "removing 4");
    add("service destroyed", "sceneRemoved", destroyService, "removing 4, removed", "removing 4, removed");
}

void tst_CNodeServiceReentry::order()
{
    QFETCH(const QString, hook);
    QFETCH(const Asked, asked);
    const CMessageCatcher messages; // of what is thrown
    CMatrixWorld world(ELayout::SceneEach, false, false);
    std::vector<Proof> proofs;
    QString meanwhile;
    world.setHandler([&] {
        for (const SAsked& each : asked) {
            const SOperation& operation = find(operations(), QString::fromLatin1(each.operation));
            meanwhile = saidByTheService(world.witness());
            proofs.push_back(operation.run(world, world.at(each.target), operation.inMatrix));
        }
        meanwhile = saidByTheService(world.witness());
    });
    world.beginStep();
    find(matrixHooks(), hook).provoke(world);

    QTEST(meanwhile, "meanwhile");
    QTEST(saidByTheService(world.witness()), "expected");
    QCOMPARE(world.inconsistency(), QString());
    for (const Proof& proof : proofs)
        QVERIFY(!proof || !world.hasService() || proof());
}

void tst_CNodeServiceReentry::sceneThatIsBeingDestroyedIsNeverActive()
{
    CServiceFixture fixture;
    fixture.addSource();
    const SPlaced other = fixture.addSource();
    CNodeScene* const dying = fixture.scene(0);
    connect(fixture.scene(0), &CNodeScene::nodeDeleted, this, [&] {
        QVERIFY(dying->isBeingDestroyed());
        fixture.service->removeSceneOfNode(other.id);
        QVERIFY(!fixture.active());
        fixture.service->setActiveScene(dying);
        QVERIFY(!fixture.active());
    });
    fixture.log.take();
    delete dying;
    QCOMPARE(fixture.log.take().filter(QRegularExpression("^[a-z]")),
             QStringList({"removing 2", "removed", "removed"}));
    QCOMPARE(fixture.sceneCount(), 0);
}

void tst_CNodeServiceReentry::sceneThatIsBeingDestroyedGetsNothing()
{
    CServiceFixture fixture;
    fixture.addSource();
    const QPointer<CNodeScene> dying = fixture.active();
    connect(dying, &CNodeScene::nodeDeleted, this, [&] {
        QVERIFY(dying->isBeingDestroyed());
        QVERIFY(fixture.service->addNode(makeModel(ENodeDataModelType::Sink), {}) == Core::CId());
        QVERIFY(!fixture.import(chain()));
        fixture.service->addStoredDocument(document(chain()));
        QVERIFY(!fixture.service->importStoredDocuments());
        QCOMPARE(CTestModels::alive(), 1);
    });
    fixture.log.take();
    delete dying;
    QCOMPARE(fixture.log.take().filter(QStringLiteral("created")), QStringList());
    QCOMPARE(fixture.messages.texts("halvex.usage").size(), 1); // of the model that was dropped
}

QTEST_GUILESS_MAIN(tst_CNodeServiceReentry)
#include "tst_CNodeServiceReentry.moc"
