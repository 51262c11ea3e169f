// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestData.h"

#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/models/ENodeDataModelType.h>

#include <QPointer>

#include <atomic>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// What all test models have in common, whatever they derive from.
class CTestModels
{
public:
    static int alive() { return s_alive; }

    /// Runs whenever the library calls something virtual of any test model.
    static inline std::function<void()> onCalled;

protected:
    CTestModels() { ++s_alive; }
    ~CTestModels() { --s_alive; }
    Q_DISABLE_COPY(CTestModels)

    // Copies, because the test's code may destroy the model.
    template <typename... Arguments>
    static void run(std::function<void(Arguments...)> code, Arguments... arguments)
    {
        const auto called = onCalled;
        if (called)
            called();
        if (code)
            code(std::move(arguments)...);
    }

private:
    static inline std::atomic<int> s_alive{0};
};

/**
 * A model with as many ports as the test wants, which remembers what it received and runs the test's code in each of
 * its operations. Unless told otherwise it passes what it receives on to output 0.
 *
 * \a Base is the class of the library that it derives from.
 */
template <typename Base>
class CTestModelOf : public Base, public CTestModels
{
public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using ENodePortType = Plugin::Halvex::ENodePortType;
    using NodePortIndex = Plugin::Halvex::NodePortIndex;
    using SNodeDataType = Plugin::Halvex::SNodeDataType;

    struct SReceived
    {
        CNodeDataPtr data;
        NodePortIndex index = 0;
    };

    /// What follows the name goes to the constructor of the base.
    template <typename... Arguments>
    explicit CTestModelOf(unsigned int inPorts = 1, unsigned int outPorts = 1, QString name = QStringLiteral("Test"),
                          Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...)
        , m_inPorts(inPorts)
        , m_outPorts(outPorts)
        , m_name(std::move(name))
    {
    }
    ~CTestModelOf() override { run(onDestroyed); }

    QString caption() override { return m_name; }
    QString name() override
    {
        const QString name = m_name;
        run(onName);
        return name;
    }
    unsigned int nPorts(ENodePortType side) const override
    {
        const unsigned int count = side == ENodePortType::In ? m_inPorts : side == ENodePortType::Out ? m_outPorts : 0;
        run(onPorts);
        return count;
    }
    SNodeDataType dataType(ENodePortType side, NodePortIndex index) const override
    {
        const auto answer = onDataType;
        run<>({});
        return answer ? answer(side, index) : CTestData::defaultType();
    }

    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        received.push_back({data, index});
        const bool passesOn = data && !onSetInData;
        const QPointer<CTestModelOf> self(this);
        run(onSetInData, data, index);
        if (self && passesOn)
            offer(data);
    }
    CNodeDataPtr outData(NodePortIndex index) override
    {
        ++outDataCalls;
        const auto answer = onOutData;
        const CNodeDataPtr data = out;
        run<>({});
        return answer ? answer(index) : data;
    }

    QJsonObject save() const override
    {
        const QJsonObject json = Base::save();
        run(onSave);
        return json;
    }
    void restore(const QJsonObject& json) override
    {
        restored.push_back(json);
        run(onRestore);
    }

    /// Stores \a data as the output and announces it on port \a index.
    void offer(const CNodeDataPtr& data, NodePortIndex index = 0)
    {
        out = data;
        Q_EMIT this->dataUpdated(index);
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

    std::function<void(CNodeDataPtr, NodePortIndex)> onSetInData; ///< Instead of passing on.
    std::function<CNodeDataPtr(NodePortIndex)> onOutData;         ///< Instead of giving out.
    std::function<SNodeDataType(ENodePortType, NodePortIndex)> onDataType;
    std::function<void()> onName;
    std::function<void()> onPorts;
    std::function<void()> onSave;
    std::function<void()> onRestore;
    std::function<void()> onDestroyed; ///< Runs in the destructor, when this class's part is still whole.

private:
    unsigned int m_inPorts = 0;
    unsigned int m_outPorts = 0;
    QString m_name;
};

using CTestModel = CTestModelOf<Plugin::Halvex::CNodeDataModel>;

/// A test model with an identity: \a Base is ANodeDataModel or derives from it.
template <typename Base>
class CNamedTestModelOf : public CTestModelOf<Base>
{
public:
    using ENodeDataModelType = Plugin::Halvex::ENodeDataModelType;

    using CTestModelOf<Base>::CTestModelOf;

    bool isUnique() override
    {
        const bool result = unique;
        this->run(onIsUnique);
        return result;
    }
    void setType(ENodeDataModelType type) { this->m_modelType = type; }

    bool unique = false;
    std::function<void()> onIsUnique;
};

using CNamedTestModel = CNamedTestModelOf<Plugin::Halvex::ANodeDataModel>;
