// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestData.h"

#include <Halvex/models/ANodeDataModel.h>

#include <QJsonObject>

#include <utility>

/// What a CFuzzModel is like.
struct SFuzzModelKind
{
    QString name;
    unsigned int inPorts = 1;
    unsigned int outPorts = 1;
    bool hasOutput = false; ///< From the beginning.
    bool isUnique = false;
    QString uniqueName = Plugin::Halvex::ANodeDataModel::noUniqueName();
    Plugin::Halvex::ENodeDataModelType type = Plugin::Halvex::ENodeDataModelType::Sink;
};

/**
 * A model for inputs that nobody thought of: it passes data on, and has a setting that it saves and restores.
 *
 * A graph may have more ways than anybody can wait for. What a model takes while deliveriesLeft is 0 ends with it.
 */
class CFuzzModel : public Plugin::Halvex::ANodeDataModel
{
public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using ENodePortType = Plugin::Halvex::ENodePortType;
    using NodePortIndex = Plugin::Halvex::NodePortIndex;

    explicit CFuzzModel(SFuzzModelKind kind)
        : ANodeDataModel(kind.uniqueName)
        , m_kind(std::move(kind))
        , m_data(m_kind.hasOutput ? CTestData::make(1) : CNodeDataPtr())
    {
        m_modelType = m_kind.type;
        ++s_alive;
    }
    ~CFuzzModel() override { --s_alive; }

    static int alive() { return s_alive; }
    static inline int deliveriesLeft = 0;

    QString caption() override { return m_kind.name; }
    QString name() override { return m_kind.name; }
    bool isUnique() override { return m_kind.isUnique; }
    unsigned int nPorts(ENodePortType side) const override
    {
        return side == ENodePortType::In ? m_kind.inPorts : side == ENodePortType::Out ? m_kind.outPorts : 0;
    }
    Plugin::Halvex::SNodeDataType dataType(ENodePortType side, NodePortIndex index) const override
    {
        // The second port of either side is of another type.
        const QString id = index == 1 ? QStringLiteral("Other data") : CTestData::defaultType().id;
        return {id, side == ENodePortType::In ? QStringLiteral("I") : QStringLiteral("O")};
    }

    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        if (deliveriesLeft == 0)
            return;
        --deliveriesLeft;
        if (data)
            offer(data);
    }
    CNodeDataPtr outData(NodePortIndex) override { return m_data; }

    QJsonObject save() const override
    {
        QJsonObject json = ANodeDataModel::save();
        json.insert(QStringLiteral("property"), QJsonObject{{QStringLiteral("setting"), m_setting}});
        return json;
    }
    void restore(const QJsonObject& json) override
    {
        m_setting = json[QLatin1String("property")][QLatin1String("setting")].toInt();
    }

    void offer(const CNodeDataPtr& data)
    {
        m_data = data;
        Q_EMIT dataUpdated(0);
    }

private:
    SFuzzModelKind m_kind;
    CNodeDataPtr m_data;
    int m_setting = 0;
    static inline int s_alive = 0;
};
