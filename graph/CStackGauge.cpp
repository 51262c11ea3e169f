// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CStackGauge_p.h"

#include <QtGlobal>

#include <algorithm>

#ifdef Q_OS_LINUX
#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace Plugin {
namespace Halvex {
namespace {

// The part of a thread's stack in which a delivery may begin, and all of the stack below it.
struct SBounds
{
    bool known = false;
    quintptr end = 0; // the first address above
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
        bounds.end = reinterpret_cast<quintptr>(lowest) + size;
        bounds.usable = reinterpret_cast<quintptr>(lowest) + bounds.reserve;
    }
    pthread_attr_destroy(&attributes);
    return bounds;
}

bool isMainThread()
{
    return syscall(SYS_gettid) == getpid();
}
#else
SBounds readBounds()
{
    SBounds bounds;
    bounds.known = true;
    return bounds;
}

bool isMainThread()
{
    return false; // its bounds are not known either
}
#endif

constexpr quintptr greatestMainExtent = quintptr(1) << 30;

thread_local SBounds t_bounds;

} // namespace

std::atomic<quint64> CStackGauge::s_drops{0};

void CStackGauge::countDrop()
{
    t_bounds.lastDrop = ++s_drops;
}

quint64 CStackGauge::lastDropHere()
{
    return t_bounds.lastDrop;
}

bool CStackGauge::hasRoomAt(quintptr position, EFor purpose)
{
    if (!t_bounds.known) {
        t_bounds = readBounds();
        // A stack without a limit reaches down to where other threads have theirs.
        if (isMainThread())
            s_mainLowest = t_bounds.end - std::min(t_bounds.end - t_bounds.usable, greatestMainExtent);
    }
    const quintptr depthInReserve = t_bounds.usable - position; // a huge one above the reserve
    if (depthInReserve > t_bounds.reserve)
        return true; // with room, or on another stack
    return purpose == EFor::Update && depthInReserve <= t_bounds.reserve / 2;
}

} // namespace Halvex
} // namespace Plugin
