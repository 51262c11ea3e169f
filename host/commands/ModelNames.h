// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace Plugin::Halvex {
class CNodeDataModelRegistry;
}

namespace Host {

/// Category and name of each model that \a registry offers, sorted. The texts are copies, which stay when the plugins
/// go that registered the models.
std::vector<std::pair<QString, QString>> modelNames(const Plugin::Halvex::CNodeDataModelRegistry& registry);

} // namespace Host
