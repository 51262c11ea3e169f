// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

namespace Plugin {
namespace Halvex {

/**
 * How far the walks of one thread may go: tells whether its stack has room for one more delivery, and counts those that
 * were dropped.
 *
 * A walk is as deep as its chain is long. The last eighth of the stack (at least 64 KiB, at most half) is kept free for
 * what models and message handlers need at the deepest point. Of a stack without a limit, 256 MiB are used. Where the
 * system does not tell how large a stack is, mostVisits may be nested.
 *
 * Threads: each has its own.
 */
class CStackGauge
{
public:
    static constexpr int mostVisits = 500;

    static CStackGauge& ofThisThread() { return s_gauge; }

    void enterVisit() { ++m_visits; }
    void leaveVisit() { --m_visits; }

    /// Whether the caller may go deeper.
    bool hasRoom()
    {
        const quintptr here = position();
        return Q_LIKELY(here >= m_lowest && m_visits <= m_mostVisits) || hasRoomOnceMeasured(here);
    }

    void countDrop() { ++m_drops; }
    quint64 drops() const { return m_drops; }

private:
    constexpr CStackGauge() = default;
    bool hasRoomOnceMeasured(quintptr here);
    void measure();

    static quintptr position()
    {
#ifdef __GNUC__
        return reinterpret_cast<quintptr>(__builtin_frame_address(0)); // a sanitizer may keep locals elsewhere
#else
        const char here = 0;
        return reinterpret_cast<quintptr>(&here);
#endif
    }

    quintptr m_lowest = 0; // where a delivery may begin; a stack grows downwards
    int m_mostVisits = 0;  // 0 before the stack was measured
    int m_visits = 0;
    quint64 m_drops = 0;

    static thread_local CStackGauge s_gauge;
};

inline thread_local CStackGauge CStackGauge::s_gauge;

} // namespace Halvex
} // namespace Plugin
