// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A race on purpose: one thread takes the mutex around a counter, the other forgets to.

#include <QMutex>
#include <QMutexLocker>
#include <QThread>

namespace {

// Not inlined, or the report may give the line of whatever stands around it.
[[gnu::noinline]] void count(int& counter)
{
    ++counter;
}

} // namespace

int main()
{
    QMutex mutex;
    int counter = 0;
    QThread* const thread = QThread::create([&mutex, &counter] {
        for (int i = 0; i < 1000; ++i) {
            const QMutexLocker lock(&mutex);
            count(counter);
        }
    });
    thread->start();
    for (int i = 0; i < 1000; ++i)
        count(counter);
    thread->wait();
    delete thread;
    return counter > 0 ? 0 : 1;
}
