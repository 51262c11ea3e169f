// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CBlurModel.h"

#include <Halvex/scene/CNodeDataModelRegistry.h>

#include <stdexcept>

/// Cannot be restored from a document.
class CUnreadableModel : public Host::CBlurModel
{
public:
    QString name() override { return QStringLiteral("Unreadable"); }
    void restore(const QJsonObject&) override { throw std::runtime_error("no such setting"); }
};

/// Does not tell its ports.
class CPortlessModel : public Host::CBlurModel
{
public:
    QString name() override { return QStringLiteral("Portless"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType) const override { throw std::runtime_error("no such port"); }
};

/// Can be made, but only so many times.
class CScarceModel : public Host::CBlurModel
{
public:
    QString name() override { return QStringLiteral("Scarce"); }
};

/// Registers "Unreadable", "Portless", and "Scarce", which can be made \a count times and throws then.
inline void registerThrowingModels(Plugin::Halvex::CNodeDataModelRegistry& registry, int count)
{
    registry.registerModel<CUnreadableModel>(QStringLiteral("Tests"));
    registry.registerModel<CPortlessModel>(QStringLiteral("Tests"));
    // One more is made to learn the name.
    const auto left = std::make_shared<int>(count + 1);
    const auto create = [left]() -> std::unique_ptr<Plugin::Halvex::CNodeDataModel> {
        if ((*left)-- <= 0)
            throw std::runtime_error("no more of them");
        return std::make_unique<CScarceModel>();
    };
    registry.registerModel(create, QStringLiteral("Tests"));
}
