// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Races on purpose, which the detector must find. The argument names the one to run.

#include "models/TestModels.h"
#include "support/BoundedWait.h"

#include <Halvex/models/CDecoupler.h>

#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>

#include <atomic>

using namespace Plugin::Halvex;

namespace {

class CData : public CNodeData
{
public:
    SNodeDataType type() const override { return {}; }
    int value = 0;
};

/// What the slot has read; relaxed, so that it orders nothing.
std::atomic<int> seen{-1};

void see(const CNodeData& data)
{
    seen.store(static_cast<const CData&>(data).value, std::memory_order_relaxed);
}

bool isSeen()
{
    return seen.load(std::memory_order_relaxed) >= 0;
}

template <typename Work, typename Meanwhile>
void runBeside(Work work, const Meanwhile& meanwhile)
{
    const std::unique_ptr<QThread> thread(QThread::create(std::move(work)));
    thread->start();
    meanwhile();
    waitForEnd(*thread);
}

constexpr auto whatIsAwaited = "the slot has read the data";

void processUntilSeen()
{
    waitUntil(whatIsAwaited, [] {
        QCoreApplication::processEvents();
        return isSeen();
    });
}

/// Not inlined, or the report may give the line of whatever stands around it.
[[gnu::noinline]] void count(int& counter)
{
    ++counter;
}

/// One thread takes the mutex around a counter, the other forgets to.
void takeNoMutex()
{
    QMutex mutex;
    int counter = 0;
    const auto countLocked = [&mutex, &counter] {
        for (int i = 0; i < 1000; ++i) {
            const QMutexLocker lock(&mutex);
            count(counter);
        }
    };
    runBeside(countLocked, [&counter] {
        for (int i = 0; i < 1000; ++i)
            count(counter);
    });
}

/// A directly connected slot runs in the decoupler's worker and counts in a plain variable, which the main thread reads
/// meanwhile.
void countInSlot()
{
    int counted = 0;
    CDecoupler decoupler;
    QObject::connect(&decoupler, &CDecoupler::nodeDataAvailable, [&counted](const CNodeDataPtr& data) {
        count(counted);
        see(*data);
    });
    decoupler.setNodeData(QSharedPointer<CData>::create());
    waitUntil(whatIsAwaited, &isSeen);
    count(counted); // nothing orders this after the slot
}

/// A thread changes a data object after it has handed it to a proxy, while the slot that the queued signal reaches
/// reads it.
void changeQueuedArgument()
{
    qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr");
    CNodeDataFlowProxy proxy;
    QObject::connect(&proxy, &CNodeDataFlowProxy::newDataAvailable, &proxy,
                     [](const CNodeDataPtr& data) { see(*data); });
    const auto send = [&proxy] {
        const auto data = QSharedPointer<CData>::create();
        proxy.setData(data);
        data->value = 1; // handed on, it must not change any more
    };
    runBeside(send, &processUntilSeen);
}

/// The same with an entry, and with the source that reads.
void changeInQueuedCall()
{
    CSource source;
    QObject::connect(&source, &CSource::dataUpdated, &source, [&source] { see(*source.outData(0)); });
    const auto send = [entry = source.dataEntry()] {
        const auto data = QSharedPointer<CData>::create();
        entry.setData(data);
        // That the source's copies come and go would order the two otherwise, if this thread's were the first to go.
        waitUntil(whatIsAwaited, &isSeen);
        data->value = 1;
    };
    runBeside(send, &processUntilSeen);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString race = arguments.value(1);
    if (race == QLatin1String("mutex_not_taken"))
        takeNoMutex();
    else if (race == QLatin1String("slot"))
        countInSlot();
    else if (race == QLatin1String("queued_argument"))
        changeQueuedArgument();
    else if (race == QLatin1String("queued_call"))
        changeInQueuedCall();
    else
        qFatal("There is no such race: %s", qPrintable(race));
    return 0;
}
