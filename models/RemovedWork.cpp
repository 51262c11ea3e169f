// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "models/RemovedWork_p.h"

#include <QDeadlineTimer>
#include <QMutex>
#include <QMutexLocker>
#include <QPointer>
#include <QThreadPool>
#include <QWaitCondition>

#include <algorithm>
#include <vector>

namespace Plugin::Halvex::RemovedWork {
namespace {

struct SCount
{
    QMutex mutex;
    QWaitCondition hasEnded;
    int running = 0;
    std::vector<QPointer<QThreadPool>> pools;
};

SCount& theCount()
{
    static SCount count;
    return count;
}

} // namespace

void begin(int count)
{
    SCount& all = theCount();
    // Survives removed statement: only the race detector sees it.
    const QMutexLocker lock(&all.mutex);
    all.running += count;
}

void end()
{
    SCount& all = theCount();
    // Survives removed statement: only the race detector sees it.
    const QMutexLocker lock(&all.mutex);
    if (--all.running == 0)
        all.hasEnded.wakeAll();
}

bool wait(unsigned long milliseconds)
{
    const QDeadlineTimer deadline(qint64(milliseconds) < 0 ? -1 : qint64(milliseconds));
    SCount& all = theCount();
    const QMutexLocker lock(&all.mutex);
    while (all.running > 0) {
        if (!all.hasEnded.wait(&all.mutex, deadline))
            return false;
    }
    return true;
}

void addPool(QThreadPool& pool)
{
    SCount& all = theCount();
    // Survives removed statement: only the race detector sees it.
    const QMutexLocker lock(&all.mutex);
    auto& pools = all.pools;
    pools.erase(std::remove_if(pools.begin(), pools.end(), [](const auto& known) { return known.isNull(); }),
                pools.end());
    if (std::find(pools.cbegin(), pools.cend(), &pool) == pools.cend())
        pools.emplace_back(&pool);
}

void waitForThreads(unsigned long milliseconds)
{
    const QDeadlineTimer deadline{qint64(milliseconds)};
    std::vector<QPointer<QThreadPool>> pools;
    {
        SCount& all = theCount();
        // Survives removed statement: only the race detector sees it.
        const QMutexLocker lock(&all.mutex);
        pools = all.pools; // which another plugin in this process may wait for as well
    }
    for (const auto& pool : pools) {
        if (pool)
            pool->waitForDone(int(deadline.remainingTime()));
    }
}

} // namespace Plugin::Halvex::RemovedWork
