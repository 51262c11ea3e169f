// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CLiveObjects_p.h"

#include "graph/CNumberSet_p.h"

#include <QGlobalStatic>

#include <mutex>

namespace Plugin {
namespace Halvex {
namespace {

struct SLiveObjects
{
    std::mutex mutex;
    CNumberSet objects;
};

quintptr numberOf(const void* object, CLiveObjects::EKind kind)
{
    return reinterpret_cast<quintptr>(object) | quintptr(kind);
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
        ++s_removals;
    SLiveObjects* const live = liveObjects();
    if (!live)
        return;
    const std::lock_guard<std::mutex> lock(live->mutex);
    live->objects.erase(numberOf(object, kind));
}

bool CLiveObjects::contains(const void* object, EKind kind)
{
    return contains(object, kind, [] { return true; });
}

bool CLiveObjects::contains(const void* object, EKind kind, const std::function<bool()>& isMeant)
{
    SLiveObjects* const live = liveObjects();
    if (!live)
        return false;
    const std::lock_guard<std::mutex> lock(live->mutex);
    return live->objects.contains(numberOf(object, kind)) && isMeant();
}

} // namespace Halvex
} // namespace Plugin
