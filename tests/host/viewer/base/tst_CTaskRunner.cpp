// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CTaskRunner.h"

#include "support/BoundedWait.h"

#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <memory>

using namespace Host;

class tst_CTaskRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void taskRunsElsewhereAndComesBack();
    void newestWins();
    void nothingComesBackToWhatIsGone();
    void mayBeDestroyedByWhatComesBack();
};

void tst_CTaskRunner::taskRunsElsewhereAndComesBack()
{
    CTaskRunner runner(CTaskRunner::EPolicy::NewestWins);
    QThread* ran = nullptr;
    QThread* cameBack = nullptr;
    runner.run([&]() -> CTaskRunner::Done {
        ran = QThread::currentThread();
        return [&] { cameBack = QThread::currentThread(); };
    });
    QTRY_VERIFY(cameBack);
    QCOMPARE(cameBack, QThread::currentThread());
    QVERIFY(ran != cameBack);
}

void tst_CTaskRunner::newestWins()
{
    CTaskRunner runner(CTaskRunner::EPolicy::NewestWins);
    QSemaphore mayGoOn;
    std::vector<int> done;
    for (int i = 0; i < 5; ++i) {
        runner.run([&mayGoOn, &done, i]() -> CTaskRunner::Done {
            acquireSoon(mayGoOn);
            return [&done, i] { done.push_back(i); };
        });
    }
    mayGoOn.release(5);
    QTRY_COMPARE(done.size(), std::size_t(2));
    QCOMPARE(runner.statistics().dropped, quint64(3));
    QCOMPARE(done, (std::vector<int>{0, 4}));
}

void tst_CTaskRunner::nothingComesBackToWhatIsGone()
{
    QSemaphore hasBegun;
    QSemaphore mayGoOn;
    QSemaphore hasRun;
    bool isDone = false;
    auto runner = std::make_unique<CTaskRunner>(CTaskRunner::EPolicy::NewestWins);
    runner->run([&]() -> CTaskRunner::Done {
        hasBegun.release();
        acquireSoon(mayGoOn);
        hasRun.release();
        return [&] { isDone = true; };
    });
    acquireSoon(hasBegun);
    runner.reset();
    mayGoOn.release();
    acquireSoon(hasRun);
    QVERIFY(CTaskRunner::waitForRemovedWork());
    QCoreApplication::processEvents();
    QVERIFY(!isDone);
}

void tst_CTaskRunner::mayBeDestroyedByWhatComesBack()
{
    auto runner = std::make_unique<CTaskRunner>(CTaskRunner::EPolicy::NewestWins);
    runner->run([&]() -> CTaskRunner::Done { return [&] { runner.reset(); }; });
    QTRY_VERIFY(!runner);
}

QTEST_GUILESS_MAIN(tst_CTaskRunner)
#include "tst_CTaskRunner.moc"
