// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A camera that is too fast for a worker must not fill the memory.

#include "SGatedModel.h"

#include "support/Allocations.h"

#include <QSignalSpy>
#include <QTest>

using namespace Plugin::Halvex;

class tst_WorkerAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void droppedFramesAllocateNothing();
    void framesOneAfterTheOtherTakeNoMoreMemory();
    void modelsWhoseWorkHasNotBegunLeaveNothing();
    void poolsThatAreGoneLeaveNothing();
};

void tst_WorkerAllocations::droppedFramesAllocateNothing()
{
    SGatedModel gated;
    gated.model->send(1);
    gated.work.waitForBegin();
    const CNodeDataPtr data = CTestData::make(2);
    const auto send = [&gated, &data](int frames) {
        for (int frame = 0; frame < frames; ++frame)
            gated.model->setInData(data, 0);
    };
    send(10); // until there is room for what waits and what is dropped
    const long before = allocations();
    send(1000);
    QCOMPARE(allocations() - before, 0L);
    QCOMPARE(gated.model->statistics().dropped, quint64(1009));
    gated.work.open(1);
    gated.work.open(2);
    QTRY_COMPARE(gated.model->values, (std::vector<int>{1, 2}));
}

void tst_WorkerAllocations::framesOneAfterTheOtherTakeNoMoreMemory()
{
    CWorkerModel model;
    const CNodeDataPtr data = CTestData::make(1);
    model.values.reserve(1100);
    QVERIFY(keepsNothing([&model, &data] {
        QSignalSpy sent(&model, &CNodeDataModel::dataUpdated);
        model.setInData(data, 0);
        QVERIFY(sent.wait());
    }));
}

void tst_WorkerAllocations::modelsWhoseWorkHasNotBegunLeaveNothing()
{
    SGatedModel blocking;
    blocking.model->send(1);
    blocking.work.waitForBegin();
    QVERIFY(keepsNothing([&blocking] {
        CWorkerModel model;
        model.setThreadPool(&blocking.pool);
        model.send(2);
    }));
    blocking.work.open(1);
    QTRY_COMPARE(blocking.model->values, std::vector<int>{1});
}

void tst_WorkerAllocations::poolsThatAreGoneLeaveNothing()
{
    QVERIFY(keepsNothing([] {
        QThreadPool pool;
        CWorkerModel model;
        model.setThreadPool(&pool);
        model.send(1);
    }));
}

QTEST_GUILESS_MAIN(tst_WorkerAllocations)
#include "tst_WorkerAllocations.moc"
