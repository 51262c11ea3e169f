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
    /// An update that follows a delivery needs no room of its own: it has half of the reserve.
    enum class EFor
    {
        Delivery,
        Update
    };

    static bool hasRoom(EFor purpose)
    {
        const void* here; // not to be read
        const auto position = reinterpret_cast<quintptr>(&here);
        return Q_LIKELY(position >= s_lowest) || hasReserve(purpose, position);
    }

    /// Says that a delivery was dropped in this thread.
    static void countDrop();

    /// How many deliveries were dropped so far, in any thread.
    static quint64 drops() { return s_drops.load(std::memory_order_relaxed); }

    /// Whether one was dropped in this thread since drops() returned \a before.
    static bool hasDroppedSince(quint64 before)
    {
        // The count of all threads first: it hardly ever changes, and asking for this thread's costs more.
        return drops() != before && lastDropHere() > before;
    }

private:
    [[gnu::cold]] static bool hasReserve(EFor purpose, quintptr position);
    static quint64 lastDropHere();

    // Where a delivery may begin in this thread, at the lowest: a stack grows downwards, and what is above is on
    // another one. The highest address as long as nobody asked. Every delivery reads it: with the other models of
    // thread-local storage, through a call.
    [[gnu::tls_model("initial-exec")]] static inline thread_local quintptr s_lowest = ~quintptr(0);
    static std::atomic<quint64> s_drops;
};

} // namespace Halvex
} // namespace Plugin
