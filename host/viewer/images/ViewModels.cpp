// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/ViewModels.h"

#include "host/viewer/images/CViewModel.h"

#include <Halvex/service/INodeService.h>

namespace Host {

void registerViewModels(Plugin::Halvex::INodeService& service, const IHostModels&)
{
    service.registry()->registerModel<CViewModel>(QStringLiteral("Sinks"));
}

} // namespace Host
