// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/support/CDeferredQueue_p.h"

#include "support/CMessageCatcher.h"

#include <QtTest>

#include <functional>
#include <memory>
#include <stdexcept>
#include <type_traits>

using namespace Plugin::Halvex;

namespace {

static_assert(!std::is_copy_constructible_v<CDeferredQueue> && !std::is_copy_assignable_v<CDeferredQueue>,
              "what waits, waits once");

} // namespace

class tst_CDeferredQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsUnderWayAtFirst();
    void actionIsDoneAtOnceIfNothingIsUnderWay();
    void actionsWaitForTheWorkInOrder();
    void actionsWaitForTheOutermostWork();
    void actionOfAnActionJoinsTheEnd();
    void workOfAnActionIsNested();
    void stackStaysFlat();
    void exceptionPassesAfterWhatWaited_data();
    void exceptionPassesAfterWhatWaited();
    void firstOfSeveralExceptionsPasses();
    void exceptionOfNestedWorkPassesThroughTheOuter();
    void workMayDestroyTheOwner();
    void actionMayDestroyTheOwner_data();
    void actionMayDestroyTheOwner();
    void exceptionOutlivesTheOwner();
    void ownerDropsWhatWaits();
    void workThatWasLeftRunsNothingThatWaits();
    void leftQueueIsAsGoodAsNew();
};

void tst_CDeferredQueue::nothingIsUnderWayAtFirst()
{
    const CDeferredQueue queue;
    QVERIFY(!queue.isBusy());
    QCOMPARE(queue.depth(), 0u);
    QCOMPARE(queue.size(), std::size_t(0));
}

void tst_CDeferredQueue::actionIsDoneAtOnceIfNothingIsUnderWay()
{
    CDeferredQueue queue;
    QStringList done;
    QVERIFY(queue.defer([&] {
        QCOMPARE(queue.depth(), 1u);
        done << QStringLiteral("action");
    }));
    QCOMPARE(done, QStringList({"action"}));
    QVERIFY(!queue.isBusy());
}

void tst_CDeferredQueue::actionsWaitForTheWorkInOrder()
{
    CDeferredQueue queue;
    QStringList done;
    QVERIFY(queue.run([&] {
        QVERIFY(queue.defer([&] { done << QStringLiteral("first"); }));
        QVERIFY(queue.defer([&] { done << QStringLiteral("second"); }));
        QCOMPARE(queue.size(), std::size_t(2));
        QVERIFY(queue.isBusy());
        done << QStringLiteral("work");
    }));
    QCOMPARE(done, QStringList({"work", "first", "second"}));
    QVERIFY(!queue.isBusy());
    QCOMPARE(queue.size(), std::size_t(0));
}

void tst_CDeferredQueue::actionsWaitForTheOutermostWork()
{
    CDeferredQueue queue;
    QStringList done;
    queue.run([&] {
        queue.run([&] {
            QCOMPARE(queue.depth(), 2u);
            queue.defer([&] { done << QStringLiteral("action"); });
            done << QStringLiteral("inner");
        });
        QCOMPARE(queue.depth(), 1u);
        done << QStringLiteral("outer");
    });
    QCOMPARE(queue.depth(), 0u);
    QCOMPARE(done, QStringList({"inner", "outer", "action"}));
}

void tst_CDeferredQueue::actionOfAnActionJoinsTheEnd()
{
    CDeferredQueue queue;
    QStringList done;
    queue.run([&] {
        queue.defer([&] {
            queue.defer([&] { done << QStringLiteral("third"); });
            done << QStringLiteral("first");
        });
        queue.defer([&] { done << QStringLiteral("second"); });
    });
    QCOMPARE(done, QStringList({"first", "second", "third"}));
}

void tst_CDeferredQueue::workOfAnActionIsNested()
{
    // Its end is not the end of all work: what it defers must wait for the action, and for those before it.
    CDeferredQueue queue;
    QStringList done;
    queue.run([&] {
        queue.defer([&] {
            queue.run([&] { queue.defer([&] { done << QStringLiteral("third"); }); });
            done << QStringLiteral("first");
        });
        queue.defer([&] { done << QStringLiteral("second"); });
    });
    QCOMPARE(done, QStringList({"first", "second", "third"}));
}

void tst_CDeferredQueue::stackStaysFlat()
{
    CDeferredQueue queue;
    int left = 200000;
    std::function<void()> action = [&] {
        if (--left > 0)
            queue.defer(action);
    };
    QVERIFY(queue.defer(action));
    QCOMPARE(left, 0);
}

void tst_CDeferredQueue::exceptionPassesAfterWhatWaited_data()
{
    QTest::addColumn<bool>("isOfWork");

    QTest::newRow("of the work") << true;
    QTest::newRow("of an action") << false;
}

void tst_CDeferredQueue::exceptionPassesAfterWhatWaited()
{
    QFETCH(const bool, isOfWork);
    const CMessageCatcher messages;
    CDeferredQueue queue;
    QStringList done;
    const auto work = [&] {
        queue.defer([&] {
            if (!isOfWork)
                throw std::runtime_error("thrown");
        });
        queue.defer([&] { done << QStringLiteral("action"); });
        if (isOfWork)
            throw std::runtime_error("thrown");
    };
    QVERIFY_EXCEPTION_THROWN(queue.run(work), std::runtime_error);
    QCOMPARE(done, QStringList({"action"}));
    QVERIFY(!queue.isBusy());
    QCOMPARE(messages.texts(), QStringList());

    QVERIFY(queue.defer([&] { done << QStringLiteral("later"); }));
    QCOMPARE(done.constLast(), QStringLiteral("later"));
}

void tst_CDeferredQueue::firstOfSeveralExceptionsPasses()
{
    const CMessageCatcher messages;
    CDeferredQueue queue;
    const auto work = [&] {
        queue.defer([] { throw std::logic_error("second"); });
        queue.defer([] { throw 3; });
        throw std::runtime_error("first");
    };
    QVERIFY_EXCEPTION_THROWN(queue.run(work), std::runtime_error);
    const QStringList reports = messages.texts("halvex.graph");
    QCOMPARE(reports.size(), 2);
    QVERIFY2(reports.at(0).contains(QLatin1String("second")), qPrintable(reports.at(0)));
    QVERIFY2(reports.at(1).contains(QLatin1String("unknown type")), qPrintable(reports.at(1)));
}

void tst_CDeferredQueue::exceptionOfNestedWorkPassesThroughTheOuter()
{
    CDeferredQueue queue;
    QStringList done;
    queue.run([&] {
        const auto inner = [&] {
            queue.defer([&] { done << QStringLiteral("action"); });
            throw std::runtime_error("thrown");
        };
        QVERIFY_EXCEPTION_THROWN(queue.run(inner), std::runtime_error);
        QCOMPARE(queue.depth(), 1u);
        done << QStringLiteral("outer");
    });
    QCOMPARE(done, QStringList({"outer", "action"}));
}

void tst_CDeferredQueue::workMayDestroyTheOwner()
{
    auto queue = std::make_unique<CDeferredQueue>();
    bool isActionDone = false;
    const bool isOuterThere = queue->run([&] {
        const bool isInnerThere = queue->run([&] {
            queue->defer([&] { isActionDone = true; });
            queue.reset();
        });
        QVERIFY(!isInnerThere);
    });
    QVERIFY(!isOuterThere);
    QVERIFY(!isActionDone);
}

void tst_CDeferredQueue::actionMayDestroyTheOwner_data()
{
    QTest::addColumn<bool>("waits");

    QTest::newRow("at once") << false;
    QTest::newRow("after work") << true;
}

void tst_CDeferredQueue::actionMayDestroyTheOwner()
{
    QFETCH(const bool, waits);
    auto queue = std::make_unique<CDeferredQueue>();
    bool isNextDone = false;
    const auto destroy = [&] {
        queue->defer([&] { isNextDone = true; });
        queue.reset();
    };
    if (waits)
        QVERIFY(!queue->run([&] { QVERIFY(queue->defer(destroy)); }));
    else
        QVERIFY(!queue->defer(destroy));
    QVERIFY(!isNextDone);
}

void tst_CDeferredQueue::exceptionOutlivesTheOwner()
{
    auto queue = std::make_unique<CDeferredQueue>();
    const auto work = [&] {
        queue.reset();
        throw std::runtime_error("thrown");
    };
    QVERIFY_EXCEPTION_THROWN(queue->run(work), std::runtime_error);
}

void tst_CDeferredQueue::ownerDropsWhatWaits()
{
    auto queue = std::make_unique<CDeferredQueue>();
    const auto held = std::make_shared<int>(0);
    queue->run([&] {
        queue->defer([held] { QFAIL("The owner is gone"); });
        QCOMPARE(held.use_count(), 2L);
        queue.reset();
        QCOMPARE(held.use_count(), 1L);
    });
}

void tst_CDeferredQueue::workThatWasLeftRunsNothingThatWaits()
{
    CDeferredQueue queue;
    QStringList done;
    QVERIFY(!queue.run([&] {
        queue.defer([&] { done << QStringLiteral("first"); });
        queue.leaveWorkUnderWay();
        QCOMPARE(queue.depth(), 0u);
        QCOMPARE(queue.size(), std::size_t(1));
        QVERIFY(queue.isBusy());
    }));
    QCOMPARE(done, QStringList());

    // What is deferred now has its turn behind that.
    QVERIFY(queue.defer([&] { done << QStringLiteral("second"); }));
    QCOMPARE(done, QStringList({"first", "second"}));
    QVERIFY(!queue.isBusy());
}

void tst_CDeferredQueue::leftQueueIsAsGoodAsNew()
{
    CDeferredQueue queue;
    QStringList done;
    QVERIFY(!queue.run([&] {
        queue.leaveWorkUnderWay();
        QVERIFY(queue.run([&] {
            queue.defer([&] { done << QStringLiteral("action"); });
            done << QStringLiteral("work");
        }));
        QCOMPARE(done, QStringList({"work", "action"}));
    }));
    QVERIFY(!queue.isBusy());
}

QTEST_APPLESS_MAIN(tst_CDeferredQueue)
#include "tst_CDeferredQueue.moc"
