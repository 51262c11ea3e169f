// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Plugin::Halvex {
class INodeService;
}

namespace Host {

/// Registers every model of the host by its name, and the converter from camera frame to image by its types.
void registerHostModels(Plugin::Halvex::INodeService& service);

} // namespace Host
