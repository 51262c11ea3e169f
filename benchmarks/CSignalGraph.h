// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SShape.h"

#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/NodeDataConverter.h>

#include <QObject>

#include <memory>
#include <utility>
#include <vector>

/// The model of a stage of CSignalGraph that feeds others.
class CSignalModel : public QObject
{
    Q_OBJECT

public:
    virtual void setInData(Plugin::Halvex::CNodeDataPtr data, int index);
    virtual Plugin::Halvex::CNodeDataPtr outData(int index);

Q_SIGNALS:
    void dataUpdated(int index);

protected:
    Plugin::Halvex::CNodeDataPtr m_data;
};

/// The same with several inputs; the last one to come is passed on.
class CJoiningSignalModel : public CSignalModel
{
    Q_OBJECT

public:
    explicit CJoiningSignalModel(int inputs)
        : m_inputs(inputs)
    {
    }
    void setInData(Plugin::Halvex::CNodeDataPtr data, int index) override;

private:
    int m_inputs;
    int m_arrived = 0;
};

/// The model of a sink: stores what comes, emits nothing.
class CStoringSignalModel : public CSignalModel
{
    Q_OBJECT

public:
    void setInData(Plugin::Halvex::CNodeDataPtr data, int index) override;
};

std::unique_ptr<CSignalModel> makeSignalModel(const SShape::SDegree& degree);

struct SPlainConnection
{
    CSignalModel* in;
    int index;

    void deliver(Plugin::Halvex::CNodeDataPtr data) const { in->setInData(std::move(data), index); }
};

struct SConvertingConnection
{
    CSignalModel* in;
    int index;
    Plugin::Halvex::NodeDataConverter converter;

    void deliver(Plugin::Halvex::CNodeDataPtr data) const { in->setInData(converter(std::move(data)), index); }
};

/// The node of a stage of CSignalGraph.
template <typename Connection>
class CSignalNode : public QObject
{
public:
    explicit CSignalNode(CSignalModel& model)
        : m_model(model)
    {
        connect(&model, &CSignalModel::dataUpdated, this, &CSignalNode::onDataUpdated);
    }

    void add(const Connection* connection) { m_connections.push_back(connection); }

private:
    void onDataUpdated(int index)
    {
        Plugin::Halvex::CNodeDataPtr data = m_model.outData(index);
        const std::size_t count = m_connections.size();
        if (count == 0)
            return;
        for (std::size_t i = 0; i + 1 < count; ++i)
            m_connections[i]->deliver(data);
        m_connections[count - 1]->deliver(std::move(data));
    }

    CSignalModel& m_model;
    std::vector<const Connection*> m_connections;
};

/**
 * The floor F2, written by hand: each stage is two QObjects, a model that stores the data and emits a directly
 * connected signal, and a node that asks for the data and delivers it along a plain vector of connections. The model of
 * a sink only stores.
 */
template <typename Connection>
class CSignalGraph
{
public:
    explicit CSignalGraph(const SShape& shape, const Plugin::Halvex::NodeDataConverter& converter = {})
    {
        for (const SShape::SDegree& degree : shape.degrees()) {
            m_models.push_back(makeSignalModel(degree));
            m_nodes.push_back(std::make_unique<CSignalNode<Connection>>(*m_models.back()));
        }
        std::vector<int> usedPorts(m_nodes.size(), 0);
        for (const SShape::SEdge& edge : shape.edges) {
            const auto to = std::size_t(edge.to);
            m_connections.push_back(makeConnection(*m_models[to], usedPorts[to]++, converter));
            m_nodes[std::size_t(edge.from)]->add(m_connections.back().get());
        }
    }

    void walk(const Plugin::Halvex::CNodeDataPtr& data) { m_models.front()->setInData(data, 0); }

private:
    static std::unique_ptr<Connection> makeConnection(CSignalModel& in, int index,
                                                      const Plugin::Halvex::NodeDataConverter& converter)
    {
        if constexpr (std::is_same_v<Connection, SConvertingConnection>)
            return std::make_unique<Connection>(Connection{&in, index, converter});
        else
            return std::make_unique<Connection>(Connection{&in, index});
    }

    std::vector<std::unique_ptr<CSignalModel>> m_models;
    std::vector<std::unique_ptr<CSignalNode<Connection>>> m_nodes;
    std::vector<std::unique_ptr<Connection>> m_connections;
};
