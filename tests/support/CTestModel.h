// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestData.h"

#include <Halvex/graph/CNodeDataModel.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

/**
 * A model with as many ports as the test wants, which remembers what it received and runs the test's code in each of
 * its operations. Unless told otherwise it passes what it receives on to output 0.
 */
class CTestModel : public Plugin::Halvex::CNodeDataModel
{
public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using ENodePortType = Plugin::Halvex::ENodePortType;
    using NodePortIndex = Plugin::Halvex::NodePortIndex;

    struct SReceived
    {
        CNodeDataPtr data;
        NodePortIndex index;
    };

    explicit CTestModel(unsigned int inPorts = 1, unsigned int outPorts = 1, QString name = QStringLiteral("Test"))
        : m_inPorts(inPorts)
        , m_outPorts(outPorts)
        , m_name(std::move(name))
    {
        ++s_alive;
    }
    ~CTestModel() override
    {
        --s_alive;
        if (onDestroyed)
            onDestroyed();
    }

    static int alive() { return s_alive; }

    QString caption() override { return m_name; }
    QString name() override { return m_name; }
    unsigned int nPorts(ENodePortType portType) const override
    {
        switch (portType) {
        case ENodePortType::In:
            return m_inPorts;
        case ENodePortType::Out:
            return m_outPorts;
        case ENodePortType::None:
            break;
        }
        return 0;
    }
    Plugin::Halvex::SNodeDataType dataType(ENodePortType portType, NodePortIndex index) const override
    {
        return onDataType ? onDataType(portType, index) : CTestData::defaultType();
    }

    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        received.push_back({data, index});
        if (onSetInData) {
            // A copy, because the test's code may destroy this model.
            const auto handler = onSetInData;
            handler(data, index);
            return;
        }
        if (data)
            offer(data);
    }

    CNodeDataPtr outData(NodePortIndex index) override
    {
        ++outDataCalls;
        if (onOutData) {
            const auto handler = onOutData;
            return handler(index);
        }
        return out;
    }

    QJsonObject save() const override
    {
        if (onSave)
            onSave();
        return CNodeDataModel::save();
    }
    void restore(const QJsonObject& json) override
    {
        restored.push_back(json);
        if (onRestore)
            onRestore();
    }

    /// Stores \a data as the output and announces it on port \a index.
    void offer(const CNodeDataPtr& data, NodePortIndex index = 0)
    {
        out = data;
        Q_EMIT dataUpdated(index);
    }

    /// The numbers received so far, -1 for empty data.
    std::vector<int> values() const
    {
        std::vector<int> numbers;
        for (const SReceived& entry : received)
            numbers.push_back(CTestData::valueOf(entry.data));
        return numbers;
    }

    std::vector<SReceived> received;
    std::vector<QJsonObject> restored;
    CNodeDataPtr out;
    int outDataCalls = 0;

    std::function<void(CNodeDataPtr, NodePortIndex)> onSetInData;
    std::function<CNodeDataPtr(NodePortIndex)> onOutData;
    std::function<Plugin::Halvex::SNodeDataType(ENodePortType, NodePortIndex)> onDataType;
    std::function<void()> onSave;
    std::function<void()> onRestore;
    std::function<void()> onDestroyed; ///< Runs in the destructor, when this class's part is still whole.

private:
    unsigned int m_inPorts;
    unsigned int m_outPorts;
    QString m_name;
    static inline int s_alive = 0;
};
