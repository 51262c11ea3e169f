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

/// A queue, and what was done in it.
struct SDiary
{
    std::function<void()> note(const char* name)
    {
        return [this, name] { done << QString(name); };
    }
    bool isIdle() const { return !queue->isBusy() && queue->depth() == 0 && queue->size() == 0; }

    std::unique_ptr<CDeferredQueue> queue = std::make_unique<CDeferredQueue>();
    QStringList done;
};

} // namespace

class tst_CDeferredQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void actionIsDoneAtOnceIfNothingIsUnderWay();
    void actionsWaitForTheOutermostWorkInOrder();
    void whatAnActionDefersJoinsTheEnd();
    void stackStaysFlat();
    void exceptionPassesAfterWhatWaited();
    void firstOfSeveralExceptionsPasses();
    void exceptionOfNestedWorkPassesThroughTheOuter();
    void workMayDestroyTheOwner();
    void actionMayDestroyTheOwner();
    void exceptionOutlivesTheOwner();
    void workThatWasLeftRunsNothingThatWaits();
    void leftQueueIsAsGoodAsNew();
};

void tst_CDeferredQueue::actionIsDoneAtOnceIfNothingIsUnderWay()
{
    SDiary diary;
    QVERIFY(diary.isIdle());
    QVERIFY(diary.queue->defer([&] {
        QCOMPARE(diary.queue->depth(), 1u);
        diary.done << QStringLiteral("action");
    }));
    QCOMPARE(diary.done, QStringList("action"));
    QVERIFY(diary.isIdle());
}

void tst_CDeferredQueue::actionsWaitForTheOutermostWorkInOrder()
{
    SDiary diary;
    CDeferredQueue& queue = *diary.queue;
    QVERIFY(queue.run([&] {
        queue.run([&] {
            QCOMPARE(queue.depth(), 2u);
            QVERIFY(queue.defer(diary.note("first")));
            QVERIFY(queue.defer(diary.note("second")));
            diary.done << QStringLiteral("inner");
        });
        QCOMPARE(queue.depth(), 1u);
        QCOMPARE(queue.size(), std::size_t(2));
        QVERIFY(queue.isBusy());
        diary.done << QStringLiteral("outer");
    }));
    QVERIFY(diary.isIdle());
    QCOMPARE(diary.done, QStringList({"inner", "outer", "first", "second"}));
}

void tst_CDeferredQueue::whatAnActionDefersJoinsTheEnd()
{
    // Also from work of its own: the end of that is not the end of all work.
    for (const bool fromWork : {false, true}) {
        SDiary diary;
        CDeferredQueue& queue = *diary.queue;
        queue.run([&] {
            queue.defer([&] {
                const auto defer = [&] { queue.defer(diary.note("third")); };
                fromWork ? static_cast<void>(queue.run(defer)) : defer();
                diary.done << QStringLiteral("first");
            });
            queue.defer(diary.note("second"));
        });
        QCOMPARE(diary.done, QStringList({"first", "second", "third"}));
    }
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

void tst_CDeferredQueue::exceptionPassesAfterWhatWaited()
{
    for (const bool isOfWork : {true, false}) {
        const CMessageCatcher messages;
        SDiary diary;
        const auto work = [&] {
            diary.queue->defer([&] {
                if (!isOfWork)
                    throw std::runtime_error("thrown");
            });
            diary.queue->defer(diary.note("action"));
            if (isOfWork)
                throw std::runtime_error("thrown");
        };
        QVERIFY_EXCEPTION_THROWN(diary.queue->run(work), std::runtime_error);
        QCOMPARE(diary.done, QStringList("action"));
        QVERIFY(diary.isIdle());
        QCOMPARE(messages.texts(), QStringList());

        QVERIFY(diary.queue->defer(diary.note("later")));
        QCOMPARE(diary.done, QStringList({"action", "later"}));
    }
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
    QVERIFY2(reports.at(0).contains("second"), qPrintable(reports.at(0)));
    QVERIFY2(reports.at(1).contains("unknown type"), qPrintable(reports.at(1)));
}

void tst_CDeferredQueue::exceptionOfNestedWorkPassesThroughTheOuter()
{
    SDiary diary;
    CDeferredQueue& queue = *diary.queue;
    queue.run([&] {
        const auto inner = [&] {
            queue.defer(diary.note("action"));
            throw std::runtime_error("thrown");
        };
        QVERIFY_EXCEPTION_THROWN(queue.run(inner), std::runtime_error);
        QCOMPARE(queue.depth(), 1u);
        diary.done << QStringLiteral("outer");
    });
    QCOMPARE(diary.done, QStringList({"outer", "action"}));
}

void tst_CDeferredQueue::workMayDestroyTheOwner()
{
    SDiary diary;
    const auto held = std::make_shared<int>(0);
    QVERIFY(!diary.queue->run([&] {
        QVERIFY(!diary.queue->run([&] {
            diary.queue->defer([held, note = diary.note("action")] { note(); });
            QCOMPARE(held.use_count(), 2L);
            diary.queue.reset();
            QCOMPARE(held.use_count(), 1L); // what waited is gone as well
        }));
    }));
    QCOMPARE(diary.done, QStringList());
}

void tst_CDeferredQueue::actionMayDestroyTheOwner()
{
    for (const bool waits : {false, true}) {
        SDiary diary;
        const auto destroy = [&] {
            diary.queue->defer(diary.note("next"));
            diary.queue.reset();
        };
        const bool isThere =
            waits ? diary.queue->run([&] { QVERIFY(diary.queue->defer(destroy)); }) : diary.queue->defer(destroy);
        QVERIFY(!isThere);
        QCOMPARE(diary.done, QStringList());
    }
}

void tst_CDeferredQueue::exceptionOutlivesTheOwner()
{
    SDiary diary;
    const auto work = [&] {
        diary.queue.reset();
        throw std::runtime_error("thrown");
    };
    QVERIFY_EXCEPTION_THROWN(diary.queue->run(work), std::runtime_error);
}

void tst_CDeferredQueue::workThatWasLeftRunsNothingThatWaits()
{
    SDiary diary;
    CDeferredQueue& queue = *diary.queue;
    QVERIFY(!queue.run([&] {
        queue.defer(diary.note("first"));
        queue.leaveWorkUnderWay();
        QCOMPARE(queue.depth(), 0u);
        QCOMPARE(queue.size(), std::size_t(1));
        QVERIFY(queue.isBusy());
    }));
    QCOMPARE(diary.done, QStringList());

    // What is deferred now has its turn behind that.
    QVERIFY(queue.defer(diary.note("second")));
    QCOMPARE(diary.done, QStringList({"first", "second"}));
    QVERIFY(diary.isIdle());
}

void tst_CDeferredQueue::leftQueueIsAsGoodAsNew()
{
    SDiary diary;
    CDeferredQueue& queue = *diary.queue;
    QVERIFY(!queue.run([&] {
        queue.leaveWorkUnderWay();
        QVERIFY(queue.run([&] {
            queue.defer(diary.note("action"));
            diary.done << QStringLiteral("work");
        }));
        QCOMPARE(diary.done, QStringList({"work", "action"}));
    }));
    QVERIFY(diary.isIdle());
}

QTEST_APPLESS_MAIN(tst_CDeferredQueue)
#include "tst_CDeferredQueue.moc"
