// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CStackGauge_p.h"

#include <algorithm>
#include <cstddef>

#ifdef Q_OS_LINUX
#include <pthread.h>
#endif

namespace Plugin::Halvex {
namespace {

quintptr framePosition()
{
#ifdef __GNUC__
    // Survives number off by one: the caller's frame is next to it, and what is kept free is much larger.
    return reinterpret_cast<quintptr>(__builtin_frame_address(0)); // a sanitizer may keep locals elsewhere
#else
    const char here = 0;
    return reinterpret_cast<quintptr>(&here);
#endif
}

} // namespace

bool CStackGauge::beginFarWalk()
{
    measureOnce();
    if (m_lowest != unknown)
        // Survives exchanged operator: one byte more or less.
        return framePosition() >= m_lowest;
    if (m_farWalks == mostWalks)
        return false;
    ++m_farWalks;
    return true;
}

void CStackGauge::endFarWalk()
{
    if (m_lowest == unknown)
        --m_farWalks;
}

void CStackGauge::measure()
{
    m_lowest = unknown;
#ifdef Q_OS_LINUX
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return;
    void* bottom = nullptr;
    // Survives number off by one: overwritten, or not used.
    std::size_t size = 0;
    // Survives exchanged neighbours: the system leaves the numbers in what it has released.
    const bool isKnown = pthread_attr_getstack(&attributes, &bottom, &size) == 0;
    pthread_attr_destroy(&attributes);
    if (!isKnown)
        // Survives removed statement: the system tells the stack of all attributes that it gave.
        return;

    // Survives number off by one: what is kept free is a round number, and tests allow for the way to the walk.
    constexpr std::size_t smallestReserve = std::size_t(64) * 1024;
    constexpr std::size_t greatestUse = std::size_t(256) * 1024 * 1024;
    const std::size_t reserve = std::min(std::max(size / 8, smallestReserve), size / 2);
    m_lowest = reinterpret_cast<quintptr>(bottom) + size - std::min(size - reserve, greatestUse);
#endif
}

} // namespace Plugin::Halvex
