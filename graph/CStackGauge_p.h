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
        const quintptr here = position();
        return Q_LIKELY(here >= s_mainLowest.load(std::memory_order_relaxed)) || hasRoomAt(here, purpose);
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

    /// Where the caller stands on its stack, as an address.
    static quintptr position()
    {
        // The address of a local costs less than that of the frame, but a sanitizer may keep locals elsewhere.
#if defined(__SANITIZE_ADDRESS__) || defined(__clang__)
        return reinterpret_cast<quintptr>(__builtin_frame_address(0));
#else
        const void* here; // not to be read
        return reinterpret_cast<quintptr>(&here);
#endif
    }

private:
    static bool hasRoomAt(quintptr position, EFor purpose);
    static quint64 lastDropHere();

    // Where a delivery may begin on the main thread's stack, at the lowest. Nothing lies above that stack, and most
    // walks are on it; another thread's bounds are found through a call. The highest address as long as that thread
    // has not asked. Why not thread-local storage that needs no call: of that, a process has little to give to plugins,
    // and one that finds none left cannot be loaded.
    static inline std::atomic<quintptr> s_mainLowest{~quintptr(0)};
    static std::atomic<quint64> s_drops;
};

} // namespace Halvex
} // namespace Plugin
