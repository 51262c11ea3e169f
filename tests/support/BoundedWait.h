// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QDeadlineTimer>
#include <QSemaphore>
#include <QThread>

#include <memory>
#include <utility>

// Waits for other threads. What does not come ends the process and says what was waited for: a thread that hangs uses
// what the test owns, so the test cannot return.

/// In milliseconds. Long enough for the sanitizers, and less than the test runner allows.
constexpr int longestWait = 60000;

inline void waitForEnd(QThread& thread)
{
    if (!thread.wait(static_cast<unsigned long>(longestWait)))
        qFatal("A thread has not ended within %d ms.", longestWait);
}

inline void acquireSoon(QSemaphore& semaphore)
{
    if (!semaphore.tryAcquire(1, longestWait))
        qFatal("A semaphore was not released within %d ms.", longestWait);
}

/// For threads that run no event loop; others have QTRY_VERIFY(). \a what: the condition in words.
template <typename Condition>
void waitUntil(const char* what, const Condition& isMet)
{
    const QDeadlineTimer deadline(longestWait);
    while (!isMet()) {
        if (deadline.hasExpired())
            qFatal("Not within %d ms: %s.", longestWait, what);
        QThread::yieldCurrentThread();
    }
}

/// A thread that runs \a work at once. join() it before it goes.
class CTestThread
{
public:
    template <typename Work>
    explicit CTestThread(Work work)
        : m_thread(QThread::create(std::move(work)))
    {
        m_thread->start();
    }

    void join() { waitForEnd(*m_thread); }

private:
    std::unique_ptr<QThread> m_thread;
};
