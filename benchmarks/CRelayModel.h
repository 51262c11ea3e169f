// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CFrame.h"
#include "SShape.h"

#include <Halvex/graph/CNodeDataModel.h>

#include <memory>
#include <utility>

/// The least that a model between others can do: stores what it receives and announces it.
class CRelayModel : public Plugin::Halvex::CNodeDataModel
{
public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using ENodePortType = Plugin::Halvex::ENodePortType;
    using NodePortIndex = Plugin::Halvex::NodePortIndex;

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Relay"); }
    unsigned int nPorts(ENodePortType) const override { return 1; }
    Plugin::Halvex::SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrame().type(); }
    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        m_data = std::move(data);
        Q_EMIT dataUpdated(0);
    }
    CNodeDataPtr outData(NodePortIndex) override { return m_data; }

private:
    CNodeDataPtr m_data;
};

/// The same with several inputs; the last one to come is passed on.
class CJoiningModel : public CRelayModel
{
public:
    explicit CJoiningModel(int inputs)
        : m_inputs(inputs)
    {
    }

    unsigned int nPorts(ENodePortType side) const override
    {
        return side == ENodePortType::In ? unsigned(m_inputs) : 1;
    }
    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        if (++m_arrived < m_inputs)
            return;
        m_arrived = 0;
        CRelayModel::setInData(std::move(data), index);
    }

private:
    int m_inputs;
    int m_arrived = 0;
};

/// The least that a model at an end can do: stores what it receives.
class CStoringModel : public Plugin::Halvex::CNodeDataModel
{
public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using ENodePortType = Plugin::Halvex::ENodePortType;
    using NodePortIndex = Plugin::Halvex::NodePortIndex;

    explicit CStoringModel(int inputs)
        : m_inputs(inputs)
    {
    }

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Store"); }
    unsigned int nPorts(ENodePortType side) const override
    {
        return side == ENodePortType::In ? unsigned(m_inputs) : 0;
    }
    Plugin::Halvex::SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrame().type(); }
    void setInData(CNodeDataPtr data, NodePortIndex) override { m_data = std::move(data); }
    CNodeDataPtr outData(NodePortIndex) override { return {}; }

private:
    int m_inputs;
    CNodeDataPtr m_data;
};

inline std::unique_ptr<Plugin::Halvex::CNodeDataModel> makeModel(const SShape::SDegree& degree)
{
    if (degree.outputs == 0)
        return std::make_unique<CStoringModel>(degree.inputs);
    if (degree.inputs > 1)
        return std::make_unique<CJoiningModel>(degree.inputs);
    return std::make_unique<CRelayModel>();
}
