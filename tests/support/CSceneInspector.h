// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/support/CDeferredQueue_p.h"

#include <Halvex/scene/CNodeScene.h>

namespace Plugin::Halvex {

/// What a scene keeps to itself, for the tests: both numbers are zero whenever no operation is under way.
class CSceneInspector
{
public:
    /// How many announcements are nested in each other.
    static unsigned int depth(const CNodeScene& scene) { return scene.m_queue->depth(); }

    /// How many deferred actions wait.
    static std::size_t queueLength(const CNodeScene& scene) { return scene.m_queue->size(); }
};

} // namespace Plugin::Halvex
