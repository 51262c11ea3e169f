// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CLiveObjects_p.h"

#include <QGlobalStatic>

#include <mutex>
#include <unordered_map>

namespace Plugin {
namespace Halvex {
namespace {

struct SLiveObjects
{
    std::mutex mutex;
    std::unordered_map<const void*, CLiveObjects::EKind> objects;
};

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
    live->objects.emplace(object, kind);
}

void CLiveObjects::remove(const void* object, EKind kind) noexcept
{
    if (kind == EKind::Connection)
        s_removals.fetch_add(1, std::memory_order_relaxed);
    SLiveObjects* const live = liveObjects();
    if (!live)
        return;
    const std::lock_guard<std::mutex> lock(live->mutex);
    live->objects.erase(object);
}

bool CLiveObjects::contains(const void* object, EKind kind)
{
    SLiveObjects* const live = liveObjects();
    if (!live)
        return false;
    const std::lock_guard<std::mutex> lock(live->mutex);
    const auto found = live->objects.find(object);
    return found != live->objects.end() && found->second == kind;
}

} // namespace Halvex
} // namespace Plugin
