// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CHostModelService.h"
#include "host/models/HostModels.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>
#include <Halvex/service/CNodeService.h>
#include <Halvex/service/CVeltraGrabResultData.h>

/// The services as the plugins publish them, without the plugins.
struct SHostService
{
    SHostService()
    {
        using Plugin::Halvex::CVeltraGrabResultData;
        using Decoupler = Plugin::Halvex::CGenericNodeDecouplerDataModel<CVeltraGrabResultData>;
        nodes.registry()->registerModel<Decoupler>(QStringLiteral("Tools"));
        Host::registerHostModels(nodes);
    }

    Plugin::Halvex::CNodeService nodes{nullptr};
    Host::CHostModelService models;
};

/// The source in a scene that has one.
inline Plugin::Halvex::ASourceNodeDataModel* sourceIn(const Plugin::Halvex::CNodeScene& scene)
{
    for (const auto& node : scene.nodes()) {
        if (auto* const source = qobject_cast<Plugin::Halvex::ASourceNodeDataModel*>(node.second->nodeDataModel()))
            return source;
    }
    return nullptr;
}

/// The rate of all decouplers in a scene.
inline void setDecouplerRate(const Plugin::Halvex::CNodeScene& scene, double rate)
{
    using Plugin::Halvex::CNodeDecouplerDataModelBase;
    for (const auto& node : scene.nodes()) {
        if (auto* const decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(node.second->nodeDataModel()))
            decoupler->setFramesPerSecond(rate);
    }
}
