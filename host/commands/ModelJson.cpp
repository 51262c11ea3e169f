// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/ModelJson.h"

#include "host/models/ModelSettings.h"

#include <Halvex/graph/CNodeDataModel.h>

#include <QJsonArray>

namespace Host {

using namespace Plugin::Halvex;

namespace {

QJsonArray portsJson(const CNodeDataModel& model, ENodePortType side)
{
    QJsonArray ports;
    for (unsigned int i = 0; i < model.nPorts(side); ++i) {
        const SNodeDataType type = model.dataType(side, NodePortIndex(i));
        ports.append(QJsonObject{
            {"type", type.id}, {"type_name", type.name}, {"caption", model.portCaption(side, NodePortIndex(i))}});
    }
    return ports;
}

QJsonArray settingsJson(const CNodeDataModel& model)
{
    QJsonArray settings;
    for (const SModelSetting& setting : settingsOf(model))
        settings.append(QJsonObject{{"name", setting.name},
                                    {"type", setting.type},
                                    {"default", setting.value},
                                    {"range", setting.range},
                                    {"help", setting.help}});
    return settings;
}

} // namespace

QJsonObject modelJson(const CNodeDataModel& model, const QString& name, const QString& category, const QString& plugin)
{
    return {{"name", name},
            {"category", category},
            {"plugin", plugin},
            {"inputs", portsJson(model, ENodePortType::In)},
            {"outputs", portsJson(model, ENodePortType::Out)},
            {"settings", settingsJson(model)}};
}

} // namespace Host
