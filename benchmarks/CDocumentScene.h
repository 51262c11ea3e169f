// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CRelayModel.h"

#include <Halvex/scene/CNodeScene.h>

#include <memory>
#include <vector>

/// A registry of the model that the scene's nodes have.
inline std::shared_ptr<Plugin::Halvex::CNodeDataModelRegistry> makeRelayRegistry()
{
    auto registry = std::make_shared<Plugin::Halvex::CNodeDataModelRegistry>();
    registry->registerModel<CRelayModel>(QString());
    return registry;
}

/// A scene that holds a closed chain, with as many connections as nodes.
class CDocumentScene
{
public:
    explicit CDocumentScene(int nodes = 0)
        : scene(makeRelayRegistry(), nullptr, nullptr)
    {
        std::vector<Plugin::Halvex::CNodeBase*> made;
        made.reserve(std::size_t(nodes));
        for (int i = 0; i < nodes; ++i)
            made.push_back(&scene.createNode(std::make_unique<CRelayModel>()));
        for (std::size_t i = 0; i < made.size(); ++i)
            scene.createConnection(*made[(i + 1) % made.size()], 0, *made[i], 0, {});
    }

    Plugin::Halvex::CNodeScene scene;
};
