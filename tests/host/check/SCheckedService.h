// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SHostService.h"
#include "ThrowingModels.h"
#include "host/check/CDocumentCheck.h"

#include <utility>

/// Two images in, one out.
class CJoinModel : public Host::CBlurModel
{
public:
    QString name() override { return QStringLiteral("Join"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType side) const override
    {
        return side == Plugin::Halvex::ENodePortType::In ? 2 : CBlurModel::nPorts(side);
    }
};

/// The host's models, some more, and a check of what they may make.
struct SCheckedService
{
    explicit SCheckedService(Host::SCheckOptions options = {})
        : check(host.nodes, host.models, std::move(options))
    {
        registerThrowingModels(*host.nodes.registry(), 0);
        host.nodes.registry()->registerModel<CJoinModel>(QStringLiteral("Tests"));
    }

    SHostService host;
    Host::CDocumentCheck check;
};

inline Host::SCheckOptions withCameras(const QStringList& cameras, const QString& anyCamera = {})
{
    Host::SCheckOptions options;
    options.cameras = cameras;
    options.anyCamera = anyCamera;
    return options;
}
