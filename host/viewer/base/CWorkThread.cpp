// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CWorkThread.h"

#include <QMutexLocker>

namespace Host {

CWorkThread::CWorkThread()
    : m_worker(new QObject)
{
    m_worker->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread.start();
}

CWorkThread::~CWorkThread()
{
    std::deque<std::function<void()>> dropped;
    {
        const QMutexLocker lock(&m_mutex);
        dropped.swap(m_tasks);
    }
    dropped.clear();
    m_thread.quit();
    m_thread.wait();
}

void CWorkThread::post(std::function<void()> task)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_tasks.push_back(std::move(task));
    }
    QMetaObject::invokeMethod(
        m_worker, [this] { runNext(); }, Qt::QueuedConnection);
}

// The tasks are not the events themselves: a thread that is told to quit still handles all events that wait.
void CWorkThread::runNext()
{
    std::function<void()> task;
    {
        const QMutexLocker lock(&m_mutex);
        if (m_tasks.empty())
            return; // dropped
        task = std::move(m_tasks.front());
        m_tasks.pop_front();
    }
    task();
}

} // namespace Host
