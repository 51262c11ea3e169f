// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QMutex>
#include <QObject>
#include <QThread>

#include <deque>
#include <functional>
#include <utility>

namespace Host {

/**
 * A thread that does one thing after the other, for what may wait, such as for a camera.
 *
 * \code
 * m_work.run([camera] { return camera->open(); }, this, [this](const QString& error) { onOpened(error); });
 * \endcode
 *
 * The destructor drops what waits, and then waits for what is being done.
 *
 * Threads: post(), run() and the destructor in one, in which whoever is told of results lives, too: the receiver owns
 * this object, or lives longer.
 */
class CWorkThread
{
public:
    CWorkThread();
    ~CWorkThread();
    Q_DISABLE_COPY(CWorkThread)

    void post(std::function<void()> task);

    /// Does \a work here and hands what it returns to \a done in the thread of \a receiver. The result is moved:
    /// nothing here keeps a part of it.
    template <typename Work, typename Done>
    void run(Work work, QObject* receiver, Done done)
    {
        post([work = std::move(work), receiver, done = std::move(done)]() mutable {
            auto result = work();
            QMetaObject::invokeMethod(
                receiver, [done, result = std::move(result)]() mutable { done(std::move(result)); },
                Qt::QueuedConnection);
        });
    }

private:
    void runNext();

    QMutex m_mutex;
    std::deque<std::function<void()>> m_tasks; // guarded by m_mutex
    QThread m_thread;
    QObject* const m_worker; // lives in the thread, and goes with it
};

} // namespace Host
