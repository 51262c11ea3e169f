// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "models/CDecoupler.h"

#include "models/CDecouplerWorker_p.h"

#include <climits>

namespace Plugin {
namespace Halvex {

CDecoupler::CDecoupler()
    : m_worker(std::make_shared<CDecouplerWorker>(this))
{
    // The first slot of all, so that the worker knows when an emission is under way.
    connect(this, &CDecoupler::nodeDataAvailable, [worker = m_worker.get()] { worker->onEmissionEntered(); });
}

CDecoupler::~CDecoupler()
{
    m_worker->shutDown();
    m_worker->leaveOwner();
    QThread::wait(ULONG_MAX); // for somebody's start(): run() returns at once
}

void CDecoupler::deleteWhenEnded()
{
    m_worker->shutDown();
    if (!m_worker->takeOver(this))
        delete this;
}

bool CDecoupler::isRunning() const
{
    return m_worker->isRunning();
}

bool CDecoupler::isFinished() const
{
    return m_worker->isFinished();
}

bool CDecoupler::wait(unsigned long milliseconds)
{
    return m_worker->wait(milliseconds);
}

void CDecoupler::startForWaitingData()
{
    m_worker->startForWaitingData();
}

SDecouplerStatistics CDecoupler::statistics() const
{
    return m_worker->statistics();
}

void CDecoupler::setNodeData(CNodeDataPtr ptrNodeData)
{
    m_worker->setNodeData(std::move(ptrNodeData));
}

void CDecoupler::shutDown()
{
    m_worker->shutDown();
}

void CDecoupler::enableThrottle(bool enable)
{
    m_worker->enableThrottle(enable);
}

void CDecoupler::throttleTimerTick()
{
    m_worker->tick();
}

void CDecoupler::run() {}

} // namespace Halvex
} // namespace Plugin
