// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What models and handlers throw: the service reports it, lets nothing out and goes on working.

#include "CServiceFixture.h"

#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

using F = CServiceFixture;
using Step = std::function<void(F&)>;

void throwSomething()
{
    throw std::runtime_error("thrown by the test");
}

/// A handler of the signals that a row is about; it throws once.
template <typename Sender, typename Signal>
void throwAt(Sender* sender, Signal signal)
{
    QObject::connect(sender, signal, sender, [hasThrown = std::make_shared<bool>(false)] {
        if (!std::exchange(*hasThrown, true))
            throwSomething();
    });
}

} // namespace

Q_DECLARE_METATYPE(Step)

class tst_CNodeServiceExceptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingGetsOut_data();
    void nothingGetsOut();
};

void tst_CNodeServiceExceptions::nothingGetsOut_data()
{
    QTest::addColumn<Step>("step"); // with a service whose active scene has the source "cam"
    const auto add = [](const char* name, const Step& step) { QTest::newRow(name) << step; };

    const auto addModel = [&add](const char* name, const std::function<void(CNamedTestModel&)>& spoil) {
        add(name, [spoil](F& f) {
            auto model = makeSource("bad");
            spoil(*model);
            QVERIFY(f.add(std::move(model)).id == Core::CId());
            QCOMPARE(CTestModels::alive(), 1);
        });
    };
    addModel("isUnique", [](auto& model) { model.onIsUnique = &throwSomething; });
    add("isUnique of a source that is handed in again", [](F& f) {
        const SPlaced source = f.addSource("again");
        f.service->setActiveScene(f.scene(0));
        source.model->onIsUnique = &throwSomething;
        QVERIFY(f.addAgain(source.model) == source.id);
        QCOMPARE(f.active(), f.scene(0));
        source.model->onIsUnique = nullptr;
    });
    addModel("ports", [](auto& model) { model.unique = false, model.onPorts = &throwSomething; });
    addModel("ports of a unique source", [](auto& model) { model.onPorts = &throwSomething; });
    addModel("what is no exception", [](auto& model) { model.onPorts = [] { throw 42; }; });
    add("nodeCreated", [](F& f) {
        throwAt(f.active(), &CNodeScene::nodeCreated);
        const SPlaced view = f.addView(); // what was announced stays
        QVERIFY(view.id == nodeOf(*f.active(), view.model)->id());
        QVERIFY(f.addAgain(view.model) == view.id);
        QCOMPARE(F::nodeCount(f.active()), 2);
    });
    add("nodeDeleted, of the only node, a sink", [](F& f) {
        f.addSource("other");
        const SPlaced view = f.addView();
        f.service->removeNode(f.service->findNodeByModel(modelNamed(f.active(), "other"))->id(), false);
        throwAt(f.active(), &CNodeScene::nodeDeleted);
        ANodeDataModel* model = view.model;
        f.service->removeNodeByModel(model, true);
        QCOMPARE(f.sceneCount(), 2);
        QCOMPARE(f.service->findNode(view.id)->nodeDataModel(), view.model);
    });
    add("nodeDeleted of a scene", [](F& f) {
        const SPlaced bad = f.addSource("bad");
        throwAt(f.active(), &CNodeScene::nodeDeleted);
        f.service->removeSceneOfNode(bad.id);
        QCOMPARE(f.sceneCount(), 1);
        QVERIFY(!f.service->findNode(bad.id));
    });
    add("data of a new connection", [](F& f) {
        const SPlaced source = f.add(makeModel(ENodeDataModelType::Source));
        const SPlaced view = f.addView();
        source.model->offer(CTestData::make(1));
        view.model->onSetInData = [](const CNodeDataPtr& data, int) {
            if (data)
                throwSomething();
        };
        QVERIFY(f.connect(view, source) == Core::CId());
        QVERIFY(f.active()->connections().empty());
    });
    add("connectionCreated", [](F& f) {
        const SPlaced source = f.add(makeModel(ENodeDataModelType::Source));
        throwAt(f.active(), &CNodeScene::connectionCreated);
        QVERIFY(f.connect(f.addView(), source) == Core::CId());
        QCOMPARE(f.active()->connections().size(), std::size_t(1));
    });
    add("creator", [](F& f) {
        auto isRegistered = std::make_shared<bool>(false);
        f.service->registry()->registerModel(
            [isRegistered] {
                if (std::exchange(*isRegistered, true))
                    throwSomething();
                return makeModel(ENodeDataModelType::Sink, "Bad");
            },
            QStringLiteral("Test"));
        QVERIFY(!f.service->createModel("Bad"));
    });
    add("isUnique in an import", [](F& f) {
        const SPlaced source = f.add(makeModel(ENodeDataModelType::Source, "s", "s"));
        source.model->onIsUnique = &throwSomething;
        QVERIFY(!f.import({element("a", "View", fedBy({"s"}))}));
        source.model->onIsUnique = nullptr;
    });
    const auto addSignal = [&add](const char* name, auto signal) {
        add(name, [signal](F& f) {
            throwAt(f.service.get(), signal);
            f.addSource("one");
            const SPlaced two = f.addSource("two");
            f.service->setActiveScene(f.scene(0));
            f.service->removeSceneOfNode(two.id);
            delete f.scene(1);
        });
    };
    addSignal("sceneAdded", &INodeService::sceneAdded);
    addSignal("activeSceneChanged", &INodeService::activeSceneChanged);
    addSignal("sceneRemoving", &INodeService::sceneRemoving);
    addSignal("sceneRemoved", &INodeService::sceneRemoved);
}

void tst_CNodeServiceExceptions::nothingGetsOut()
{
    QFETCH(Step, step);
    F f;
    const SPlaced cam = f.addSource();
    try {
        step(f);
    } catch (...) {
        QFAIL("the service let an exception out");
    }
    const QStringList said = f.messages.texts("halvex.service") + f.messages.texts("halvex.graph");
    QCOMPARE(said.size(), 1);
    static const QRegularExpression expected("ended with an exception(: thrown by the test| of unknown type)$");
    QVERIFY2(said.first().contains(expected), qPrintable(said.first()));

    // It goes on working: nothing waits, nothing is counted wrongly.
    f.service->setActiveScene(f.scene(0));
    f.log.take();
    const SPlaced next = f.addSource("next");
    const QString number = f.log.numberOf(f.active());
    QCOMPARE(f.log.take(), QStringList({"added " + number, "active " + number, number + " created next"}));
    for (const SPlaced& placed : {cam, next})
        QCOMPARE(f.service->findNodeByModel(placed.model)->id(), placed.id);
}

QTEST_GUILESS_MAIN(tst_CNodeServiceExceptions)
#include "tst_CNodeServiceExceptions.moc"
