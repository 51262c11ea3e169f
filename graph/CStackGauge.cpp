// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CStackGauge_p.h"

#include <QtGlobal>

#include <algorithm>

#ifdef Q_OS_LINUX
#include <pthread.h>
#endif

namespace Plugin {
namespace Halvex {
namespace {

// The part of a thread's stack in which a delivery may begin, and all of the stack below it.
struct SBounds
{
    bool known = false;
    quintptr usable = 0;
    quintptr reserve = 0;
    quint64 lastDrop = 0; // the count of all drops when this thread's last one was counted
};

#ifdef Q_OS_LINUX
constexpr std::size_t smallestReserve = 65536;

SBounds readBounds()
{
    SBounds bounds;
    bounds.known = true;

    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return bounds;
    void* lowest = nullptr;
    std::size_t size = 0;
    if (pthread_attr_getstack(&attributes, &lowest, &size) == 0) {
        bounds.reserve = std::min(std::max(size / 8, smallestReserve), size / 2);
        bounds.usable = reinterpret_cast<quintptr>(lowest) + bounds.reserve;
    }
    pthread_attr_destroy(&attributes);
    return bounds;
}
#else
SBounds readBounds()
{
    SBounds bounds;
    bounds.known = true;
    return bounds;
}
#endif

thread_local SBounds t_bounds;

} // namespace

std::atomic<quint64> CStackGauge::s_drops{0};

void CStackGauge::countDrop()
{
    t_bounds.lastDrop = s_drops.fetch_add(1, std::memory_order_relaxed) + 1;
}

quint64 CStackGauge::lastDropHere()
{
    return t_bounds.lastDrop;
}

bool CStackGauge::hasReserve(EFor purpose, quintptr position)
{
    if (!t_bounds.known) {
        t_bounds = readBounds();
        s_lowest = t_bounds.usable;
        return hasRoom(purpose);
    }
    const quintptr depthInReserve = t_bounds.usable - position;
    if (depthInReserve > t_bounds.reserve)
        return true; // another stack
    return purpose == EFor::Update && depthInReserve <= t_bounds.reserve / 2;
}

} // namespace Halvex
} // namespace Plugin
