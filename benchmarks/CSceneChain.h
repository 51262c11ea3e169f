// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CRelayModel.h"

#include <Halvex/scene/CNodeScene.h>

#include <memory>

/// A chain in a scene: one connection per node.
class CSceneChain
{
public:
    explicit CSceneChain(int nodes)
        : scene(nullptr, nullptr)
    {
        Plugin::Halvex::CNodeBase* last = nullptr;
        for (int i = 0; i < nodes; ++i) {
            Plugin::Halvex::CNodeBase& node = scene.createNode(std::make_unique<CRelayModel>());
            if (last)
                scene.createConnection(node, 0, *last, 0, {});
            last = &node;
        }
    }

    Plugin::Halvex::CNodeScene scene;
};
