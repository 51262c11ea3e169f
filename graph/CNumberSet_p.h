// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

#include <cstddef>
#include <new>
#include <vector>

namespace Plugin {
namespace Halvex {

/**
 * A set of numbers other than 0, in one array: made for addresses.
 *
 * Why not std::unordered_set: it asks for memory with every number, and making a node and its connection would do so
 * twice more.
 */
class CNumberSet
{
public:
    /// Takes in \a number, which is neither 0 nor in the set. Throws std::bad_alloc; the set is then as before.
    void insert(quintptr number)
    {
        if (2 * (m_size + 1) > m_slots.size())
            resize(m_slots.empty() ? fewest : 2 * m_slots.size());
        m_slots[place(number)] = number;
        ++m_size;
    }

    /// Does nothing for a number that is not in the set. Memory is given back as the set gets smaller.
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
        if (8 * m_size < m_slots.size() && m_slots.size() > fewest)
            shrink();
    }

    bool contains(quintptr number) const noexcept
    {
        return number != 0 && m_size > 0 && m_slots[place(number)] == number;
    }

    /// How many numbers a look-up of one that is there passes on its way.
    std::size_t distance(quintptr number) const noexcept
    {
        return (place(number) - firstPlace(number)) & (m_slots.size() - 1);
    }

    /// How many numbers there is room for.
    std::size_t capacity() const noexcept { return m_slots.size() / 2; }

private:
    static constexpr std::size_t fewest = 64; // a power of two, like all sizes

    // Where the number is, or else where it belongs. There is always a free place.
    std::size_t place(quintptr number) const noexcept
    {
        std::size_t slot = firstPlace(number);
        while (m_slots[slot] != 0 && m_slots[slot] != number)
            slot = after(slot);
        return slot;
    }

    // Addresses lie at regular distances, which one multiplication leaves regular: they would pile up in places.
    std::size_t firstPlace(quintptr number) const noexcept
    {
        constexpr quint64 factor = Q_UINT64_C(0xd6e8feb86659fd93); // odd, and its bits look random
        quint64 mixed = number * factor;
        mixed = (mixed ^ (mixed >> 32)) * factor;
        return std::size_t(mixed ^ (mixed >> 32)) & (m_slots.size() - 1);
    }

    std::size_t after(std::size_t slot) const noexcept { return (slot + 1) & (m_slots.size() - 1); }

    void shrink() noexcept
    {
        try {
            resize(m_slots.size() / 2);
        } catch (const std::bad_alloc&) {
            // A smaller array has to be asked for. The larger one does as well.
        }
    }

    void resize(std::size_t size)
    {
        std::vector<quintptr> slots(size);
        slots.swap(m_slots);
        for (const quintptr number : slots) {
            if (number != 0)
                m_slots[place(number)] = number;
        }
    }

    std::vector<quintptr> m_slots; // at most half of them taken; 0 is a free one
    std::size_t m_size = 0;
};

} // namespace Halvex
} // namespace Plugin
