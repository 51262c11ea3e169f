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

/// Keeps a setting as a float, and some in an object of its own.
class CTunedModel : public Host::CBlurModel
{
public:
    QString name() override { return QStringLiteral("Tuned"); }
    QJsonObject save() const override
    {
        QJsonObject json = CBlurModel::save();
        json.insert(QStringLiteral("property"), QJsonObject{{"gain", double(m_gain)}});
        json.insert(QStringLiteral("lens"), QJsonObject{{"focus", m_focus}, {"zoom", 1}});
        return json;
    }
    void restore(const QJsonObject& json) override
    {
        m_gain = float(json["property"]["gain"].toDouble(double(m_gain)));
        m_focus = json["lens"]["focus"].toInt(m_focus);
    }

private:
    float m_gain = 1;
    int m_focus = 1;
};

/// The host's models, some more, and a check of what they may make.
struct SCheckedService
{
    explicit SCheckedService(Host::SCheckOptions options = {})
        : check(host.nodes, host.models, std::move(options))
    {
        registerThrowingModels(*host.nodes.registry(), 0);
        host.nodes.registry()->registerModel<CJoinModel>(QStringLiteral("Tests"));
        host.nodes.registry()->registerModel<CTunedModel>(QStringLiteral("Tests"));
    }

    SHostService host;
    Host::CDocumentCheck check;
};

inline Host::SCheckOptions withCameras(const QStringList& cameras)
{
    Host::SCheckOptions options;
    options.cameras = cameras;
    return options;
}
