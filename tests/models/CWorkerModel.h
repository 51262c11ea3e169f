// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/BoundedWait.h"
#include "support/COverwritten.h"
#include "support/CTestData.h"

#include <Halvex/models/AWorkerNodeDataModel.h>

#include <QSemaphore>

#include <array>
#include <memory>
#include <utility>
#include <vector>

/// A worker whose work is the test's code. Unless told otherwise, that adds the numbers of the inputs up.
/// Overwritten with zeros: it has no queue then.
class CWorkerModel : public Plugin::Halvex::AWorkerNodeDataModel, public COverwritten<0>
{
public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using ENodePortType = Plugin::Halvex::ENodePortType;
    using NodePortIndex = Plugin::Halvex::NodePortIndex;

    explicit CWorkerModel(unsigned int inputs = 1, EGathering gathering = EGathering::NewestOfEach)
        : m_inputs(inputs)
    {
        m_gathering = gathering;
        connect(this, &CNodeDataModel::dataUpdated, [this] { values.push_back(CTestData::valueOf(outData(0))); });
        connect(this, &CNodeDataModel::dataInvalidated, [this] { values.push_back(CTestData::valueOf(outData(0))); });
    }

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Worker"); }
    bool isUnique() override { return false; }
    unsigned int nPorts(ENodePortType side) const override
    {
        const unsigned int ports = side == ENodePortType::In ? m_inputs : side == ENodePortType::Out ? 1 : 0;
        call(onPorts);
        return ports;
    }
    Plugin::Halvex::SNodeDataType dataType(ENodePortType, NodePortIndex) const override
    {
        return CTestData::defaultType();
    }

    void setWork(Work work)
    {
        m_testWork = std::move(work);
        renewWork();
    }
    void send(int value, NodePortIndex port = 0) { setInData(CTestData::make(value), port); }

    static CNodeDataPtr addUp(const Inputs& inputs)
    {
        int sum = 0;
        for (const CNodeDataPtr& input : inputs)
            sum += CTestData::valueOf(input);
        return CTestData::make(sum);
    }

    std::vector<int> values; ///< What went out, -1 for empty data.
    bool hasNumbers = true;

    // Each may destroy the model.
    std::function<void()> onPorts;
    std::function<void()> onMakeWork;
    std::function<void()> onNumber;

protected:
    Work makeWork() const override
    {
        Work work = m_testWork;
        call(onMakeWork);
        return work;
    }
    /// Data belongs together if it has the same tens; without them it is up to the base.
    qint64 number(const CNodeDataPtr& data) const override
    {
        if (!hasNumbers)
            return AWorkerNodeDataModel::number(data);
        call(onNumber);
        return CTestData::valueOf(data) / 10;
    }

private:
    // NOLINTNEXTLINE(performance-unnecessary-value-param): what runs may replace it, or destroy the model
    static void call(std::function<void()> code)
    {
        if (code)
            code();
    }

    unsigned int m_inputs;
    Work m_testWork = &addUp;
};

/// Work that waits until the test lets it go on, frame by frame. A value; what it shares outlives the model.
class CGatedWork
{
public:
    Plugin::Halvex::CNodeDataPtr operator()(const CWorkerModel::Inputs& inputs) const
    {
        const int value = CTestData::valueOf(inputs.front());
        m_shared->begun.release();
        acquireSoon(m_shared->gates[std::size_t(value)]);
        return CWorkerModel::addUp(inputs);
    }

    void open(int value) const { m_shared->gates[std::size_t(value)].release(); }
    void waitForBegin() const { acquireSoon(m_shared->begun); }

private:
    struct SShared
    {
        QSemaphore begun;
        std::array<QSemaphore, 20> gates;
    };
    std::shared_ptr<SShared> m_shared = std::make_shared<SShared>();
};
