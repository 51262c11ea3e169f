// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/IHostModels.h"

#include <Halvex/platform/IService.h>

namespace Host {

/// The service that the plugin with the host's models publishes.
class CHostModelService : public Core::Service::IService, public IHostModels
{
    Q_OBJECT
    Q_INTERFACES(Host::IHostModels)

public:
    CHostModelService();

    std::unique_ptr<Plugin::Halvex::ANodeDataModel> createCameraSource(const QString& camera) const override;
    bool supports(const QString& pixelFormat) const override;
    QString imageLibraryVersion() const override;
};

} // namespace Host
