// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/SceneConsistency.h"

#include <Halvex/service/CNodeService.h>

/// The scenes of \a service.
inline SceneWorld scenesOf(const Plugin::Halvex::CNodeService& service)
{
    const QList<Plugin::Halvex::CNodeScene*> scenes = service.scenes();
    return SceneWorld(scenes.begin(), scenes.end());
}

/// Proves the scenes of a service sound, between operations. Returns an empty text, or what is wrong.
inline QString inconsistencyOfScenes(Plugin::Halvex::CNodeService& service)
{
    const QPointer<Plugin::Halvex::CNodeScene> active = service.getActiveScene();
    if (active && !service.scenes().contains(active))
        return QStringLiteral("the active scene is none of the service's");
    return inconsistencyOf(scenesOf(service));
}
