// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStallWatch.h"

#include <utility>

namespace Host {

namespace {

// Asked for, and not waited for by signals: not all that works says each time that it got something done.
constexpr std::chrono::milliseconds lookInterval(100);

} // namespace

CStallWatch::CStallWatch(std::function<quint64()> workDone)
    : m_workDone(std::move(workDone))
{
    connect(&m_timer, &QTimer::timeout, this, &CStallWatch::check);
}

void CStallWatch::start(std::chrono::milliseconds patience)
{
    m_patience = patience;
    m_seen = m_workDone();
    m_sinceProgress.start();
    m_timer.start(lookInterval);
}

void CStallWatch::check()
{
    const quint64 done = m_workDone();
    if (std::exchange(m_seen, done) != done)
        m_sinceProgress.restart();
    if (!m_sinceProgress.hasExpired(m_patience.count()))
        return;
    m_timer.stop();
    Q_EMIT stalled();
}

} // namespace Host
