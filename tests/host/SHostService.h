// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CHostModelService.h"
#include "host/models/HostModels.h"
#include "models/CGenericNodeDecouplerDataModel.h"
#include "service/CNodeService.h"
#include "service/CVeltraGrabResultData.h"

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
