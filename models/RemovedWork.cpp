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

QMutex mutex;
QWaitCondition hasEnded;
int running = 0;

} // namespace

void begin(int count)
{
    const QMutexLocker lock(&mutex);
    running += count;
}

void end()
{
    const QMutexLocker lock(&mutex);
    if (--running == 0)
        hasEnded.wakeAll();
}

bool wait(unsigned long milliseconds)
{
    const QDeadlineTimer deadline(qint64(milliseconds) < 0 ? -1 : qint64(milliseconds));
    {
        const QMutexLocker lock(&mutex);
        while (running > 0) {
            if (!hasEnded.wait(&mutex, deadline))
                return false;
        }
    }
    // Who has ended the last work may still have to return from end(), which is code of this library.
    QThread::msleep(1);
    return true;
}

} // namespace Plugin::Halvex::RemovedWork
