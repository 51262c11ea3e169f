// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "models/RemovedWork_p.h"

#include <QDeadlineTimer>
#include <QMutex>
#include <QMutexLocker>
#include <QThread>
#include <QWaitCondition>

namespace Plugin::Halvex::RemovedWork {
namespace {

struct SCount
{
    QMutex mutex;
    QWaitCondition hasEnded;
    int running = 0;
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
    const QMutexLocker lock(&all.mutex);
    all.running += count;
}

void end()
{
    SCount& all = theCount();
    const QMutexLocker lock(&all.mutex);
    if (--all.running == 0)
        all.hasEnded.wakeAll();
}

bool wait(unsigned long milliseconds)
{
    const QDeadlineTimer deadline(qint64(milliseconds) < 0 ? -1 : qint64(milliseconds));
    {
        SCount& all = theCount();
        const QMutexLocker lock(&all.mutex);
        while (all.running > 0) {
            if (!all.hasEnded.wait(&all.mutex, deadline))
                return false;
        }
    }
    // Who has ended the last work may still have to return from end(), which is code of this library.
    QThread::msleep(1);
    return true;
}

} // namespace Plugin::Halvex::RemovedWork
