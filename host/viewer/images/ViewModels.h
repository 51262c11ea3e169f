// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Plugin::Halvex {
class INodeService;
}

namespace Host {

class IHostModels;

/// Registers the models whose images a window shows. \a models is the service of the plugin with the host's models: it
/// has registered the converter by which a camera's port can be connected to a view.
void registerViewModels(Plugin::Halvex::INodeService& service, const IHostModels& models);

} // namespace Host
