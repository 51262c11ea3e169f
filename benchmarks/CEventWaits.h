// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QMetaObject>
#include <QObject>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

/// How long events wait for the thread that makes this object: another thread posts one every millisecond.
class CEventWaits
{
public:
    CEventWaits()
        : m_poster([this] { postAll(); })
    {
    }
    ~CEventWaits()
    {
        m_isEnding = true;
        m_poster.join();
    }
    Q_DISABLE_COPY(CEventWaits)

    /// The longest that one has waited so far, in seconds.
    double longest() const { return std::chrono::duration<double>(m_longest).count(); }

private:
    using Clock = std::chrono::steady_clock;

    void postAll()
    {
        while (!m_isEnding) {
            const auto arrive = [this, posted = Clock::now()] {
                m_longest = std::max(m_longest, Clock::now() - posted);
            };
            QMetaObject::invokeMethod(&m_receiver, arrive, Qt::QueuedConnection);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    QObject m_receiver;
    Clock::duration m_longest{0};
    std::atomic<bool> m_isEnding{false};
    std::thread m_poster;
};
