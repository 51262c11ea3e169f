// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CBackgroundPool.h"

#include <QGlobalStatic>
#include <QRunnable>
#include <QSemaphore>
#include <QThread>

#include <memory>

namespace Host {

namespace {

struct SGate
{
    QSemaphore lowered;
    QSemaphore open;
};

// Lowers the thread that runs it, and keeps it until the gate is open.
class CLowering : public QRunnable
{
public:
    explicit CLowering(std::shared_ptr<SGate> gate)
        : m_gate(std::move(gate))
    {
    }

    void run() override
    {
        QThread::currentThread()->setPriority(QThread::IdlePriority);
        m_gate->lowered.release();
        m_gate->open.acquire();
    }

private:
    std::shared_ptr<SGate> m_gate;
};

} // namespace

// A pool starts its threads as it needs them and with the priority of whoever needs them. So all are started here, and
// none ends before the pool does.
CBackgroundPool::CBackgroundPool()
{
    setExpiryTimeout(-1);
    const auto gate = std::make_shared<SGate>();
    for (int i = 0; i < maxThreadCount(); ++i)
        start(new CLowering(gate));
    gate->lowered.acquire(maxThreadCount());
    gate->open.release(maxThreadCount());
}

Q_GLOBAL_STATIC(CBackgroundPool, backgroundPool)

CBackgroundPool& CBackgroundPool::instance()
{
    return *backgroundPool();
}

} // namespace Host
