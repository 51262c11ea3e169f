// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

#include <atomic>

namespace Plugin {
namespace Halvex {

/**
 * Tells whether this thread's stack has room for one more delivery.
 *
 * A walk is as deep as its chain is long, and a feedback loop has no end. The last eighth of the stack (at least
 * 64 KiB, at most half) is kept free for what models and message handlers need at the deepest point.
 *
 * On a stack that is not the thread's own (a coroutine's) nothing is known, and there is always room. The bounds come
 * from pthread_getattr_np(3), which Linux has; elsewhere there is always room, too.
 */
class CStackGauge
{
public:
    static bool hasRoom();

    /// Says that a delivery was dropped in this thread.
    static void countDrop();

private:
    friend class CDropWatch;
    static quint64 lastDropHere();
    static std::atomic<quint64> s_drops;
};

/// Tells whether a delivery was dropped in this thread since the object was made.
class CDropWatch
{
public:
    bool hasSeenDrop() const
    {
        // The count of all threads first: it hardly ever changes, and asking for this thread's costs more.
        return CStackGauge::s_drops.load(std::memory_order_relaxed) != m_dropsBefore &&
               CStackGauge::lastDropHere() > m_dropsBefore;
    }

private:
    quint64 m_dropsBefore = CStackGauge::s_drops.load(std::memory_order_relaxed);
};

} // namespace Halvex
} // namespace Plugin
