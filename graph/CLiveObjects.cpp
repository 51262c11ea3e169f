// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CLiveObjects_p.h"

#include <QGlobalStatic>

#include <mutex>
#include <vector>

namespace Plugin {
namespace Halvex {
namespace {

/// A set of numbers other than 0. Why not std::unordered_set: it asks for memory with every number, and making a node
/// and its connection would do so twice more.
class CNumberSet
{
public:
    void insert(quintptr number)
    {
        if (2 * (m_size + 1) > m_slots.size())
            grow();
        m_slots[place(number)] = number;
        ++m_size;
    }

    void erase(quintptr number) noexcept
    {
        if (!contains(number))
            return;
        std::size_t gap = place(number);
        m_slots[gap] = 0;
        --m_size;
        // Whatever comes next may have found its own place taken by what is gone.
        for (std::size_t next = after(gap); m_slots[next] != 0; next = after(next)) {
            const quintptr moved = m_slots[next];
            m_slots[next] = 0;
            m_slots[place(moved)] = moved;
        }
    }

    bool contains(quintptr number) const noexcept
    {
        return number != 0 && m_size > 0 && m_slots[place(number)] == number;
    }

private:
    // Where the number is, or else where it belongs. There is always a free place.
    std::size_t place(quintptr number) const noexcept
    {
        // Addresses are multiples of 16 mostly: the product's upper half depends on all of their bits.
        std::size_t slot = std::size_t(number * Q_UINT64_C(0x9e3779b97f4a7c15) >> 32) & (m_slots.size() - 1);
        while (m_slots[slot] != 0 && m_slots[slot] != number)
            slot = after(slot);
        return slot;
    }
    std::size_t after(std::size_t slot) const noexcept { return (slot + 1) & (m_slots.size() - 1); }

    void grow()
    {
        std::vector<quintptr> slots(m_slots.empty() ? 64 : 2 * m_slots.size()); // a power of two
        slots.swap(m_slots);
        for (const quintptr number : slots) {
            if (number != 0)
                m_slots[place(number)] = number;
        }
    }

    std::vector<quintptr> m_slots; // at most half of them taken; 0 is a free one
    std::size_t m_size = 0;
};

struct SLiveObjects
{
    std::mutex mutex;
    CNumberSet objects;
};

// The address, with the kind in a bit that no address of an object has.
quintptr numberOf(const void* object, CLiveObjects::EKind kind)
{
    return reinterpret_cast<quintptr>(object) | (kind == CLiveObjects::EKind::Connection ? 1 : 0);
}

// Null once the process tears its statics down, which a host's static scene may outlive.
Q_GLOBAL_STATIC(SLiveObjects, liveObjects)

} // namespace

std::atomic<quint64> CLiveObjects::s_removals{0};

void CLiveObjects::add(const void* object, EKind kind)
{
    SLiveObjects* const live = liveObjects();
    if (!live)
        return;
    const std::lock_guard<std::mutex> lock(live->mutex);
    live->objects.insert(numberOf(object, kind));
}

void CLiveObjects::remove(const void* object, EKind kind) noexcept
{
    if (kind == EKind::Connection)
        s_removals.fetch_add(1, std::memory_order_relaxed);
    SLiveObjects* const live = liveObjects();
    if (!live)
        return;
    const std::lock_guard<std::mutex> lock(live->mutex);
    live->objects.erase(numberOf(object, kind));
}

bool CLiveObjects::contains(const void* object, EKind kind)
{
    SLiveObjects* const live = liveObjects();
    if (!live)
        return false;
    const std::lock_guard<std::mutex> lock(live->mutex);
    return live->objects.contains(numberOf(object, kind));
}

} // namespace Halvex
} // namespace Plugin
