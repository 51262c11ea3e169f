// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/NodeDataConverter.h"

#include <utility>

namespace Plugin {
namespace Halvex {

/**
 * Internal to CNodeConnection, of which it is a member.
 *
 * A share of a converter: it is released by the last one. Why not std::shared_ptr: it counts atomically, which a walk
 * would pay for at every hop.
 *
 * Threads: the graph's thread.
 */
class CConverterShare
{
public:
    CConverterShare() = default;

    /// No converter, if \a converter is empty.
    explicit CConverterShare(NodeDataConverter converter)
        : m_held(converter ? new SHeld{std::move(converter)} : nullptr)
    {
    }
    CConverterShare(const CConverterShare& other) noexcept
        : m_held(other.m_held)
    {
        if (m_held)
            ++m_held->shares;
    }
    CConverterShare(CConverterShare&& other) noexcept
        : m_held(std::exchange(other.m_held, nullptr))
    {
    }
    CConverterShare& operator=(CConverterShare other) noexcept
    {
        std::swap(m_held, other.m_held);
        return *this;
    }
    ~CConverterShare()
    {
        if (m_held && --m_held->shares == 0)
            delete m_held;
    }

    explicit operator bool() const { return m_held != nullptr; }
    const NodeDataConverter& operator*() const { return m_held->converter; }

private:
    struct SHeld
    {
        NodeDataConverter converter;
        int shares = 1;
    };

    SHeld* m_held = nullptr;
};

} // namespace Halvex
} // namespace Plugin
