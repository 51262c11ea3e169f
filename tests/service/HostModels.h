// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestModel.h"

#include <Halvex/scene/CNodeScene.h>

#include <memory>
#include <utility>
#include <vector>

// Models with an identity and two ports on each side, as a host hands them to the service.

/// \a uniqueName: given as the second of two names, or none.
template <typename... UniqueName>
std::unique_ptr<CNamedTestModel> makeModel(Plugin::Halvex::ENodeDataModelType type,
                                           const QString& name = QStringLiteral("Model"), UniqueName&&... uniqueName)
{
    auto model = std::make_unique<CNamedTestModel>(2u, 2u, name, std::forward<UniqueName>(uniqueName)...);
    model->setType(type);
    return model;
}

/// A source that is unique by its name, as a camera's would be.
inline std::unique_ptr<CNamedTestModel> makeSource(const QString& name = QStringLiteral("cam"))
{
    auto source = makeModel(Plugin::Halvex::ENodeDataModelType::Source, name, name);
    source->unique = true;
    return source;
}

/// The registry makes such models under that name.
inline void registerModel(Plugin::Halvex::CNodeDataModelRegistry& registry, Plugin::Halvex::ENodeDataModelType type,
                          const QString& name)
{
    registry.registerModel([type, name] { return makeModel(type, name); }, QStringLiteral("Test"));
}

/// The first in \a scene that has that name; null if there is none, or no scene.
inline CNamedTestModel* modelNamed(const Plugin::Halvex::CNodeScene* scene, const QString& name)
{
    if (!scene)
        return nullptr;
    for (const auto& entry : scene->nodes()) {
        if (entry.second->nodeDataModel()->name() == name)
            return dynamic_cast<CNamedTestModel*>(entry.second->nodeDataModel());
    }
    return nullptr;
}

/// The node that owns \a model, null if none in \a scene does.
inline Plugin::Halvex::CNodeBase* nodeOf(const Plugin::Halvex::CNodeScene& scene,
                                         const Plugin::Halvex::CNodeDataModel* model)
{
    for (const auto& entry : scene.nodes()) {
        if (entry.second->nodeDataModel() == model)
            return entry.second.get();
    }
    return nullptr;
}

using Deliveries = std::vector<std::pair<int, int>>;

/// What \a model received: the number, -1 for empty data, and the port.
inline Deliveries deliveriesTo(const CNamedTestModel& model)
{
    Deliveries deliveries;
    for (const auto& entry : model.received)
        deliveries.emplace_back(CTestData::valueOf(entry.data), entry.index);
    return deliveries;
}
