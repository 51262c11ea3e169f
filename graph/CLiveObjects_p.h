// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>

#include <QtGlobal>

#include <atomic>
#include <functional>

namespace Plugin {
namespace Halvex {

/**
 * Which nodes and connections exist in this process.
 *
 * Graph objects keep track of each other through links. But some of their pointers can be overwritten by a host (a
 * connection's end, a port table), and of a pointer that came in that way nothing is known: it is used only after
 * it was found here. Exported for the tests.
 *
 * Threads: any. Scenes of different threads share it.
 */
class HALVEX_EXPORT CLiveObjects
{
public:
    /// Fits into the lowest bit of an address, which no address of these objects uses.
    enum class EKind
    {
        Node = 0,
        Connection = 1
    };

    static void add(const void* object, EKind kind);
    static void remove(const void* object, EKind kind) noexcept;

    /// Whether such an object is there, and not one of the other kind that came to lie where it lay.
    static bool contains(const void* object, EKind kind);

    /// The same, if \a isMeant says so too: it may read the object, which cannot be destroyed meanwhile in any thread.
    static bool contains(const void* object, EKind kind, const std::function<bool()>& isMeant);

    /// How many connections were removed so far. As long as that does not change, those that are there stay.
    static quint64 removals() { return s_removals.load(std::memory_order_relaxed); }

private:
    HALVEX_NO_EXPORT static std::atomic<quint64> s_removals;
};

} // namespace Halvex
} // namespace Plugin
