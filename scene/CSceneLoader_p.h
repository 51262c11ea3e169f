// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/scene/CNodeScene.h>

namespace Plugin::Halvex {

/// CNodeScene::loadFromMemory() with a document that was made here: writing it out and reading it back would take
/// longer than making the nodes.
class CSceneLoader
{
public:
    static void load(CNodeScene& scene, const QJsonObject& document) { scene.load(document); }
};

} // namespace Plugin::Halvex
