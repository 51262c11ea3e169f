// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a worker leaves behind that goes while it works.

#include "SGatedModel.h"

#include "support/CMessageCatcher.h"
#include "support/CTestScene.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTest>

using namespace Plugin::Halvex;

using EPolicy = AWorkerNodeDataModel::EPolicy;
using EGathering = AWorkerNodeDataModel::EGathering;

class tst_RemovedWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void removedWhileItWorks();
    void removedByItsResult();
    void removedAsAFrameComes();
    void removedByWhatItIsAsked();
    void removedByWhatItsWorkKeeps();
    void removedByAFrameThatFindsNoRoom();
    void removedInGreatNumbers();
    void takesAndGivesNothingWhileItEnds();
    void takesWhatHasNotBegunOutOfThePool();
    void keepsNothingOfWhatHasNotBegun();
    void waitsForRemovedWorkWithABound();
    void waitsForRemovedWorkWithoutABound();
};

void tst_RemovedWork::init()
{
    QCOMPARE(CTestData::alive(), 0);
}

void tst_RemovedWork::cleanup()
{
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
    QTRY_COMPARE(CTestData::alive(), 0);
}

void tst_RemovedWork::removedWhileItWorks()
{
    SGatedModel gated;
    gated.model->send(1);
    gated.model->send(2);
    gated.work.waitForBegin();
    gated.model.reset(); // does not wait
    QVERIFY(CTestData::alive() > 0);
    gated.work.open(1);
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
    QCOMPARE(CTestData::alive(), 0);
}

void tst_RemovedWork::removedByItsResult()
{
    CTestScene scene(nullptr, nullptr);
    auto owned = std::make_unique<CWorkerModel>();
    CWorkerModel& model = *owned;
    model.setParallelism(2);
    CNodeBase& node = scene.createNode(std::move(owned));
    connect(&model, &CNodeDataModel::dataUpdated, &model, [&] { scene.removeNode(node); });
    model.send(1);
    model.send(2);
    QTRY_VERIFY(scene.nodes().empty());
}

void tst_RemovedWork::removedAsAFrameComes()
{
    auto* const model = new CWorkerModel;
    connect(model, &CNodeDataModel::computingStarted, model, [model] { delete model; });
    model->send(1);
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
    QCOMPARE(CTestData::alive(), 0);
}

void tst_RemovedWork::removedByWhatItIsAsked()
{
    for (const auto question : {&CWorkerModel::onPorts, &CWorkerModel::onNumber, &CWorkerModel::onMakeWork}) {
        auto* const model = new CWorkerModel(1, EGathering::SameNumber);
        model->*question = [model] { delete model; };
        model->send(1);
        QCOMPARE(CTestData::alive(), 0);
    }
}

void tst_RemovedWork::removedByWhatItsWorkKeeps()
{
    auto* const model = new CWorkerModel;
    {
        const std::shared_ptr<void> end(nullptr, [model](void*) { delete model; });
        model->setWork([end](const auto& inputs) { return CWorkerModel::addUp(inputs); });
    }
    // While it is made, other work is, so that it goes at once.
    model->onMakeWork = [model] {
        model->onMakeWork = nullptr;
        model->setWork(&CWorkerModel::addUp);
        model->send(1);
    };
    const QPointer<CWorkerModel> guard(model);
    model->send(2);
    QVERIFY(!guard);
}

void tst_RemovedWork::removedByAFrameThatFindsNoRoom()
{
    const CGatedWork work;
    auto model = std::make_unique<CWorkerModel>(1, EGathering::SameNumber); // it keeps no input for later frames
    model->setWork(work);
    model->setPolicy(EPolicy::DropNewest);
    model->setMostWaiting(1);
    model->send(1);
    work.waitForBegin();
    model->send(11);
    auto data = CTestData::make(21);
    data->onDestroyed = [&model] { model.reset(); };
    CWorkerModel& receiver = *model;
    receiver.setInData(std::move(data), 0);
    QVERIFY(!model);
    work.open(1);
}

// Each goes at another point of its work. A count that is wrong once stays so.
void tst_RemovedWork::removedInGreatNumbers()
{
    QThreadPool pool;
    pool.setMaxThreadCount(4);
    for (int round = 0; round < 5000; ++round) {
        CWorkerModel model;
        model.setThreadPool(&pool);
        model.setParallelism(4);
        model.setPolicy(EPolicy::DropOldest);
        for (int frame = 0; frame < round % 8; ++frame)
            model.send(frame);
    }
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
    QCoreApplication::processEvents();
}

void tst_RemovedWork::takesAndGivesNothingWhileItEnds()
{
    SGatedModel gated;
    auto* const model = gated.model.get();
    model->setPolicy(EPolicy::DropOldest);
    gated.work.open(5);
    model->send(5);
    QTRY_COMPARE(model->values, std::vector<int>{5});
    gated.work.waitForBegin();
    model->send(1);
    gated.work.waitForBegin();
    auto data = CTestData::make(2);
    // By then only the base is left of the model.
    bool hasOutput = true;
    data->onDestroyed = [&hasOutput, base = static_cast<AWorkerNodeDataModel*>(model)] {
        hasOutput = !base->outData(0).isNull();
        base->setInData(CTestData::make(3), 0);
    };
    model->setInData(std::move(data), 0);
    model->send(4);
    gated.model.reset();
    QVERIFY(!hasOutput);
    gated.work.open(1);
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
    QCOMPARE(CTestData::alive(), 0); // else 3 is worked on
}

void tst_RemovedWork::takesWhatHasNotBegunOutOfThePool()
{
    SGatedModel blocking;
    blocking.model->send(1);
    blocking.work.waitForBegin();
    auto model = std::make_unique<CWorkerModel>();
    model->setThreadPool(&blocking.pool);
    model->send(2);
    model.reset();
    QCOMPARE(CTestData::alive(), 1);
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork(0));
    blocking.work.open(1);
    QTRY_COMPARE(blocking.model->values, std::vector<int>{1});
}

void tst_RemovedWork::keepsNothingOfWhatHasNotBegun()
{
    SGatedModel gated;
    gated.model->setParallelism(2); // of which the pool can only do one
    gated.model->send(1);
    gated.model->send(2);
    gated.work.waitForBegin();
    gated.model.reset();
    QCOMPARE(CTestData::alive(), 1);
    gated.work.open(1);
}

void tst_RemovedWork::waitsForRemovedWorkWithABound()
{
    SGatedModel gated;
    gated.model->send(1);
    gated.work.waitForBegin();
    gated.model.reset();
    for (const unsigned long bound : {0UL, 1UL}) {
        const CMessageCatcher catcher;
        QVERIFY(!AWorkerNodeDataModel::waitForRemovedWork(bound));
        QCOMPARE(catcher.texts(),
                 QStringList{QString("Work of models that are gone has not ended within %1 ms.").arg(bound)});
    }
    gated.work.open(1);
}

void tst_RemovedWork::waitsForRemovedWorkWithoutABound()
{
    SGatedModel gated;
    gated.model->send(1);
    gated.work.waitForBegin();
    gated.model.reset();
    CTestThread opening([&gated] {
        QThread::msleep(20); // for the wait to begin; too short, this test would see less, but not fail
        gated.work.open(1);
    });
    const bool hasEnded = AWorkerNodeDataModel::waitForRemovedWork(std::numeric_limits<unsigned long>::max());
    opening.join();
    QVERIFY(hasEnded);
    QCOMPARE(CTestData::alive(), 0);
}

QTEST_GUILESS_MAIN(tst_RemovedWork)
#include "tst_RemovedWork.moc"
