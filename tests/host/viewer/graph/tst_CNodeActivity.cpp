// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CNodeActivity.h"

#include "support/BoundedWait.h"
#include "support/CTestModel.h"

#include <QTest>

#include <vector>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CNodeActivity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsByPort();
    void countsFromManyThreads();
    void tellsOnceThatSomethingHappened();
    void timesWhatIsComputed();
    void outlivesItsModelAndTheOtherWayRound();
};

void tst_CNodeActivity::countsByPort()
{
    CTestModel model(1, 2);
    const CNodeActivity activity(model);
    model.offer(CTestData::make(1), 0);
    model.offer(CTestData::make(1), 1);
    model.offer(CTestData::make(1), 1);
    model.offer(CTestData::make(1), 7); // a port that is not there
    QCOMPARE(activity.updates(0), quint64(1));
    QCOMPARE(activity.updates(1), quint64(2));
    QCOMPARE(activity.updates(7), quint64(0));
}

void tst_CNodeActivity::countsFromManyThreads()
{
    constexpr int each = 1000;
    CTestModel model;
    const CNodeActivity activity(model);
    std::vector<CTestThread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&model] {
            for (int n = 0; n < each; ++n)
                Q_EMIT model.dataUpdated(0);
        });
    }
    for (CTestThread& thread : threads)
        thread.join();
    QCOMPARE(activity.updates(0), quint64(4 * each));
}

void tst_CNodeActivity::tellsOnceThatSomethingHappened()
{
    CTestModel model;
    CNodeActivity activity(model);
    QVERIFY(activity.takeChanged());
    QVERIFY(!activity.takeChanged());
    Q_EMIT model.dataInvalidated(0);
    QVERIFY(activity.takeChanged());
    Q_EMIT model.computingFinished();
    QVERIFY(activity.takeChanged());
    QVERIFY(!activity.takeChanged());
}

void tst_CNodeActivity::timesWhatIsComputed()
{
    CTestModel model;
    CNodeActivity activity(model);
    QCOMPARE(activity.takeLongest().count(), std::chrono::nanoseconds::rep(0));
    Q_EMIT model.computingFinished(); // that never began
    QCOMPARE(activity.takeLongest().count(), std::chrono::nanoseconds::rep(0));
    Q_EMIT model.computingStarted();
    QTRY_VERIFY(activity.takeLongest() > std::chrono::milliseconds(2)); // while it goes on
    Q_EMIT model.computingFinished();
    QVERIFY(activity.takeLongest() > std::chrono::milliseconds(2));
    QCOMPARE(activity.takeLongest().count(), std::chrono::nanoseconds::rep(0));
}

void tst_CNodeActivity::outlivesItsModelAndTheOtherWayRound()
{
    auto model = std::make_unique<CTestModel>();
    auto activity = std::make_unique<CNodeActivity>(*model);
    model->offer(CTestData::make(1));
    model.reset();
    QCOMPARE(activity->updates(0), quint64(1));
    activity.reset();

    CTestModel other;
    std::make_unique<CNodeActivity>(other).reset();
    other.offer(CTestData::make(1));
}

QTEST_GUILESS_MAIN(tst_CNodeActivity)
#include "tst_CNodeActivity.moc"
