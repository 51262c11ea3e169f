// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/ModelNames.h"

#include <Halvex/scene/CNodeDataModelRegistry.h>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// A copy of a QString would share the text, which may lie in the code of a plugin.
QString copyOf(const QString& text)
{
    return QString(text.constData(), text.size());
}

} // namespace

std::vector<std::pair<QString, QString>> modelNames(const CNodeDataModelRegistry& registry)
{
    std::vector<std::pair<QString, QString>> names;
    for (const auto& model : registry.registeredModelsCategoryAssociation())
        names.emplace_back(copyOf(model.second), copyOf(model.first));
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace Host
