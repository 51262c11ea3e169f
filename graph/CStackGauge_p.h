// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

namespace Plugin::Halvex {

/**
 * How far the walks of one thread may go: tells whether its stack has room for one more walk within the others, and
 * counts what was dropped.
 *
 * A walk is as deep as its chain is long. The last eighth of the stack (at least 64 KiB, at most half) is kept free for
 * what models and message handlers need at the deepest point. Of a stack without a limit, 256 MiB are used. Where the
 * system does not tell how large a stack is, mostWalks walks may be nested.
 *
 * Threads: each has its own.
 */
class CStackGauge
{
public:
    static constexpr int mostWalks = 500;

    static CStackGauge& ofThisThread() { return s_gauge; }

    /// Reading a stack's bounds allocates, so it is done before any walk.
    void measureOnce()
    {
        if (m_lowest == notMeasured)
            measure();
    }

    /// Whether a walk may begin without further questions. \a here: any object on the stack, not far above the caller.
    // Survives exchanged operator: one byte more or less.
    bool hasRoom(const void* here) const { return Q_LIKELY(reinterpret_cast<quintptr>(here) >= m_lowest); }

    /// For a walk that begins where hasRoom() says no: whether it may begin even so. If it may, end it with
    /// endFarWalk().
    bool beginFarWalk();
    void endFarWalk();

    // Survives counted the other way: it is only asked whether the number has changed.
    void countDrop() { ++m_drops; }
    quint64 drops() const { return m_drops; }

private:
    constexpr CStackGauge() = default;
    void measure();

    // Survives number off by one: it is no place where a walk may begin.
    static constexpr quintptr notMeasured = ~quintptr(0);
    // Survives number off by one: the same.
    static constexpr quintptr unknown = notMeasured - 1;

    quintptr m_lowest = notMeasured; // where a walk may begin; a stack grows downwards
    int m_farWalks = 0;              // under way, one within the other, if the bounds are unknown
    // Survives number off by one: it is only asked whether it has changed.
    quint64 m_drops = 0;

    static thread_local CStackGauge s_gauge;
};

inline thread_local CStackGauge CStackGauge::s_gauge;

} // namespace Plugin::Halvex
