// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Whatever foreign code destroys or rewires from within the library, in every place where the library calls it.

#include "world/Hooks.h"
#include "world/Operations.h"

#include <QTest>

#include <algorithm>

namespace {

struct SCell
{
    ELayout layout = ELayout::OneScene;
    const SHook* hook = nullptr;
    const SOperation* operation = nullptr;
    ETarget target = ETarget::AtHand;
};

const char* nameOf(ELayout layout)
{
    return layout == ELayout::OneScene ? "one scene" : "a scene each";
}

const char* nameOf(ETarget target)
{
    switch (target) {
    case ETarget::AtHand:
        return "at hand";
    case ETarget::Upstream:
        return "upstream";
    case ETarget::Downstream:
        return "downstream";
    case ETarget::Unrelated:
        break;
    }
    return "unrelated";
}

template <typename T>
bool contains(const std::vector<T>& values, T value)
{
    return std::find(values.begin(), values.end(), value) != values.end();
}

std::vector<ETarget> targetsOf(const SOperation& operation)
{
    if (operation.part == EPart::Service)
        return {ETarget::AtHand}; // they do not look at it
    return {ETarget::AtHand, ETarget::Upstream, ETarget::Downstream, ETarget::Unrelated};
}

/// Why the cell makes no sense: its target is not there. Null if it is.
const char* reasonAgainst(const SCell& cell)
{
    for (const SGone& gone : cell.hook->gone) {
        const auto& targets = cell.layout == ELayout::OneScene ? gone.inOneScene : gone.inSceneEach;
        if (contains(gone.parts, cell.operation->part) && contains(targets, cell.target))
            return gone.reason;
    }
    return nullptr;
}

std::unique_ptr<CMatrixWorld> makeWorld(const SCell& cell)
{
    const bool hasDecouplers = cell.operation->part == EPart::Decoupler || cell.hook->needs == SHook::Decouplers;
    const bool hasWorkers = cell.operation->part == EPart::Worker || cell.hook->needs == SHook::Workers;
    for (int attempt = 0; attempt < 1000; ++attempt) {
        auto world = std::make_unique<CMatrixWorld>(cell.layout, hasDecouplers, hasWorkers);
        if (cell.hook->needs == SHook::HandFirst && !world->isHandFirst())
            continue;
        return !hasDecouplers || world->startDecouplers() ? std::move(world) : nullptr;
    }
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(SCell)

class tst_DeletionMatrix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cell_data();
    void cell();
    void cleanup();
};

void tst_DeletionMatrix::cell_data()
{
    QTest::addColumn<SCell>("cell");
    for (const ELayout layout : {ELayout::OneScene, ELayout::SceneEach}) {
        for (const SHook& hook : matrixHooks()) {
            for (const SOperation* const operation : matrixOperations()) {
                for (const ETarget target : targetsOf(*operation)) {
                    const SCell cell{layout, &hook, operation, target};
                    const char* const reason = reasonAgainst(cell);
                    QTest::addRow("%s / %s / %s / %s%s%s", nameOf(layout), hook.name, operation->name, nameOf(target),
                                  reason ? ": none, for " : "", reason ? reason : "")
                        << cell;
                }
            }
        }
    }
}

void tst_DeletionMatrix::cell()
{
    QFETCH(SCell, cell);
    const std::unique_ptr<CMatrixWorld> world = makeWorld(cell);
    QVERIFY2(world, "there is no such world");

    bool isThere = false;
    Proof proof;
    world->setHandler([&] {
        const SPlace& target = world->at(cell.target);
        isThere = world->has(cell.operation->part, target);
        if (isThere)
            proof = cell.operation->run(*world, target, cell.operation->inMatrix);
    });
    cell.hook->provoke(*world);
    QVERIFY2(world->hasFired(), "the hook has not run");
    QCOMPARE(isThere, !reasonAgainst(cell));
    QVERIFY2(!proof || proof(), "the operation has done nothing");

    QCOMPARE(world->inconsistency(), QString());
    QCOMPARE(world->inconsistencyOfWalks(), QString());
    QCOMPARE(world->inconsistencyOfWorkers(), QString());
    // And it goes on as ever.
    QVERIFY(!world->hasService() || world->addNode(world->makeSource(), {}));
    QCOMPARE(world->witness().complaintAfterStep(0), QString());
}

void tst_DeletionMatrix::cleanup()
{
    QCOMPARE(CTestModels::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
    QCOMPARE(CWorldInfo::alive(), 0);
}

QTEST_GUILESS_MAIN(tst_DeletionMatrix)
#include "tst_DeletionMatrix.moc"
