// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CStackGauge_p.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#ifdef Q_OS_LINUX
#include <pthread.h>
#endif

namespace Plugin {
namespace Halvex {

bool CStackGauge::hasRoomOnceMeasured(quintptr here)
{
    if (m_mostVisits == 0)
        measure();
    return here >= m_lowest && m_visits <= m_mostVisits;
}

void CStackGauge::measure()
{
    m_mostVisits = mostVisits;
#ifdef Q_OS_LINUX
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return;
    void* bottom = nullptr;
    std::size_t size = 0;
    const bool isKnown = pthread_attr_getstack(&attributes, &bottom, &size) == 0;
    pthread_attr_destroy(&attributes);
    if (!isKnown)
        return;

    constexpr std::size_t smallestReserve = 64 * 1024;
    constexpr std::size_t greatestUse = 256 * 1024 * 1024;
    const std::size_t reserve = std::min(std::max(size / 8, smallestReserve), size / 2);
    m_lowest = reinterpret_cast<quintptr>(bottom) + size - std::min(size - reserve, greatestUse);
    m_mostVisits = std::numeric_limits<int>::max();
#endif
}

} // namespace Halvex
} // namespace Plugin
