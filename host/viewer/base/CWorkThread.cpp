// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CWorkThread.h"

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
    m_thread.quit();
    m_thread.wait();
}

void CWorkThread::post(std::function<void()> task)
{
    QMetaObject::invokeMethod(m_worker, std::move(task), Qt::QueuedConnection);
}

} // namespace Host
