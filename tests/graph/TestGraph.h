// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/STestNode.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

/// Lets its data go before it returns, and notes how many data objects there are then.
class CConsumer : public CTestModel
{
public:
    explicit CConsumer(std::vector<int>& left)
        : m_left(left)
    {
    }
    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex) override
    {
        data.reset();
        m_left.push_back(CTestData::alive());
    }

private:
    std::vector<int>& m_left;
};

/// A source, several sinks, and a connection from the source's output to each of them.
struct SFan
{
    explicit SFan(int count, const Plugin::Halvex::NodeDataConverter& converter = {})
    {
        for (int i = 0; i < count; ++i) {
            sinks.push_back(std::make_unique<STestNode>());
            connections.push_back(join(source, *sinks.back(), converter));
        }
    }

    /// Runs \a handler with the sink's position whenever a sink receives data that is not empty.
    void onDelivery(const std::function<void(std::size_t)>& handler)
    {
        for (std::size_t i = 0; i < sinks.size(); ++i) {
            sinks[i]->model->onSetInData = [handler, i](const Plugin::Halvex::CNodeDataPtr& data, int) {
                if (data)
                    handler(i);
            };
        }
    }

    /// How many deliveries of \a value the sinks had that are still there.
    int deliveries(int value) const
    {
        int count = 0;
        for (const auto& sink : sinks) {
            const bool isThere = sink && sink->node;
            const std::vector<int> values = isThere ? sink->model->values() : std::vector<int>();
            count += int(std::count(values.begin(), values.end(), value));
        }
        return count;
    }

    STestNode source;
    std::vector<std::unique_ptr<STestNode>> sinks;
    std::vector<std::unique_ptr<Plugin::Halvex::CNodeConnection>> connections;
};

/// A connection from the source's output 1 to the sink's input 2, in the tables of both, and a node that is free.
struct SPair
{
    explicit SPair(Plugin::Halvex::NodeDataConverter converter = {})
        : connection(join(source, sink, std::move(converter), 1, 2))
    {
    }

    void deliver(int value) const { connection->propagateData(CTestData::make(value)); }
    std::vector<int> values() const { return sink.model->values(); }

    STestNode source{0, 2, QStringLiteral("source")};
    STestNode sink{3, 1, QStringLiteral("sink")};
    STestNode other{9, 9, QStringLiteral("other")};
    std::unique_ptr<Plugin::Halvex::CNodeConnection> connection;
};
