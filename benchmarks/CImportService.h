// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CRelayModel.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

/// A source that lives in a scene once, under its name.
class CUniqueSource : public Plugin::Halvex::ASourceNodeDataModel
{
public:
    using ASourceNodeDataModel::ASourceNodeDataModel;

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Unique source"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType side) const override
    {
        return side == Plugin::Halvex::ENodePortType::Out ? 1 : 0;
    }
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType, Plugin::Halvex::NodePortIndex) const override
    {
        return CFrame().type();
    }
    void setInData(Plugin::Halvex::CNodeDataPtr, Plugin::Halvex::NodePortIndex) override {}
    bool isUnique() override { return true; }
};

constexpr int importSources = 100;

inline QString sourceName(int source)
{
    return QStringLiteral("source-%1").arg(source);
}

/// A service with one scene, which holds the sources.
class CImportService
{
public:
    CImportService()
        : service(nullptr)
    {
        service.registry()->registerModel<CRelayModel>(QString());
        service.addNode(std::make_unique<CUniqueSource>(sourceName(0)), {});
        for (int source = 1; source < importSources; ++source)
            service.getActiveScene()->createNode(std::make_unique<CUniqueSource>(sourceName(source)));
    }

    Plugin::Halvex::CNodeService service;
};

/// Elements that stand behind the sources of such a service, in turn.
inline QString importDocument(int elements)
{
    QJsonArray array;
    for (int i = 0; i < elements; ++i) {
        array.append(QJsonObject{
            {QStringLiteral("name"), QStringLiteral("element-%1").arg(i)},
            {QStringLiteral("model"), QJsonObject{{QStringLiteral("name"), QStringLiteral("Relay")}}},
            {QStringLiteral("unique_sources"), QJsonArray{QJsonValue(QJsonArray{sourceName(i % importSources)})}}});
    }
    return QString::fromUtf8(QJsonDocument(array).toJson());
}
