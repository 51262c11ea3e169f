// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CFrame.h"

#include <Halvex/models/AWorkerNodeDataModel.h>

#include <QMetaObject>
#include <QRunnable>
#include <QThreadPool>

#include <utility>

/// The floor: a runnable started on the pool, and one queued call back.
class CPoolChannel
{
public:
    void push(const Plugin::Halvex::CNodeDataPtr& data)
    {
        QThreadPool::globalInstance()->start(new CTask(*this, data));
    }
    void tick() {}

    int received = 0;

private:
    class CTask : public QRunnable
    {
    public:
        CTask(CPoolChannel& channel, Plugin::Halvex::CNodeDataPtr data)
            : m_channel(channel)
            , m_data(std::move(data))
        {
        }
        void run() override
        {
            const auto take = [channel = &m_channel, result = m_data] {
                channel->m_data = result;
                ++channel->received;
            };
            QMetaObject::invokeMethod(&m_channel.m_receiver, take, Qt::QueuedConnection);
        }

    private:
        CPoolChannel& m_channel;
        Plugin::Halvex::CNodeDataPtr m_data;
    };

    QObject m_receiver;
    Plugin::Halvex::CNodeDataPtr m_data;
};

/// A worker with one input. Its work is a function.
class CFunctionModel : public Plugin::Halvex::AWorkerNodeDataModel
{
public:
    using Function = Plugin::Halvex::CNodeDataPtr (*)(const Plugin::Halvex::CNodeDataPtr&);

    explicit CFunctionModel(Function function)
        : m_function(function)
    {
    }
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Function"); }
    bool isUnique() override { return false; }
    unsigned int nPorts(Plugin::Halvex::ENodePortType) const override { return 1; }
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType, Plugin::Halvex::NodePortIndex) const override
    {
        return CFrame().type();
    }

protected:
    Work makeWork() const override
    {
        return [function = m_function](const Inputs& inputs) { return function(inputs.front()); };
    }

private:
    Function m_function;
};

class CWorkerChannel
{
public:
    CWorkerChannel()
    {
        QObject::connect(&m_model, &Plugin::Halvex::CNodeDataModel::dataUpdated, &m_model, [this] { ++received; });
    }

    void push(const Plugin::Halvex::CNodeDataPtr& data) { m_model.setInData(data, 0); }
    void tick() {}

    int received = 0;

private:
    CFunctionModel m_model{[](const Plugin::Halvex::CNodeDataPtr& data) { return data; }};
};
