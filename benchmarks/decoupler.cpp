// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a decoupler costs whoever pushes, and how long a single frame is on its way.

#include "CLatencies.h"
#include "CMailbox.h"
#include "Measuring.h"

#include <Halvex/models/CDecoupler.h>
#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/models/CNodeDataFlowProxy.h>

#include <QCoreApplication>
#include <QTimer>

using namespace Plugin::Halvex;

namespace {

/// The floor H.
class CMailboxChannel
{
public:
    CMailboxChannel()
    {
        QObject::connect(&m_mailbox, &CMailbox::taken, &m_receiver, [this](const CNodeDataPtr& data) {
            m_data = data;
            ++received;
        });
    }

    void push(const CNodeDataPtr& data) { m_mailbox.push(data); }
    void tick() { m_mailbox.open(); }

    int received = 0;

private:
    QObject m_receiver;
    CNodeDataPtr m_data;
    CMailbox m_mailbox; // its worker ends before what it sends to
};

/// The floor H behind a directly connected signal, which a model owes its listeners.
class CSignalledMailboxChannel : public CMailboxChannel
{
public:
    CSignalledMailboxChannel()
    {
        QObject::connect(&m_input, &CNodeDataFlowProxy::newDataAvailable, &m_input,
                         [this](const CNodeDataPtr& data) { CMailboxChannel::push(data); });
    }

    void push(const CNodeDataPtr& data) { m_input.setData(data); }

private:
    CNodeDataFlowProxy m_input;
};

/// The worker of a decoupler alone.
class CDecouplerChannel
{
public:
    CDecouplerChannel()
    {
        m_decoupler.enableThrottle(true);
        QObject::connect(&m_decoupler, &CDecoupler::nodeDataAvailable, &m_receiver, [this](const CNodeDataPtr& data) {
            m_data = data;
            ++received;
        });
    }

    void push(const CNodeDataPtr& data) { m_decoupler.setNodeData(data); }
    void tick() { m_decoupler.throttleTimerTick(); }

    int received = 0;

private:
    QObject m_receiver;
    CNodeDataPtr m_data;
    CDecoupler m_decoupler;
};

/// The model of a decoupler node. Its timer is stopped and ticks by hand, so that nothing but the frame is on its way.
class CModelChannel
{
public:
    CModelChannel()
        : m_timer(m_model.findChild<QTimer*>())
    {
        m_timer->stop();
        QObject::connect(&m_model, &CNodeDataModel::dataUpdated, &m_model, [this] { ++received; });
    }

    void push(const CNodeDataPtr& data) { m_model.setInData(data, 0); }
    void tick() { QMetaObject::invokeMethod(m_timer, "timeout", Qt::DirectConnection); }

    int received = 0;

private:
    CGenericNodeDecouplerDataModel<CFrame> m_model;
    QTimer* m_timer;
};

template <typename Channel>
std::string addPush(const std::string& name)
{
    benchmark::RegisterBenchmark(name.c_str(), [](benchmark::State& state) {
        const CNodeDataPtr frames[] = {makeFrame(), makeFrame()};
        Channel channel;
        channel.tick();
        sendOne(channel, frames[0]); // from here on the worker runs and waits
        channel.push(frames[1]);
        unsigned int turn = 0;
        for ([[maybe_unused]] auto iteration : state)
            channel.push(frames[turn++ % 2]);
        setItems(state, 1);
    });
    return name;
}

} // namespace

void registerDecoupler(CRatioTable& table)
{
    qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr");

    const std::string push = addPush<CMailboxChannel>("push/H");
    table.add({"push into a decoupler's full slot", addPush<CDecouplerChannel>("push/CDecoupler"), {push}, 1.5});
    const std::string model = addPush<CModelChannel>("push/model");
    table.add({"the same through its model", model, {push}, 1.5});
    const std::string signal = addPush<CSignalledMailboxChannel>("push/signal and H");
    table.add({"the same, against a signal and H", model, {signal}});

    const std::string frame = "isolated frame";
    addIsolatedFrames<CMailboxChannel, CModelChannel>(frame);
    const std::string work = "isolated frame through a decoupler, ";
    table.add({work + "p50", frame, {frame}, 1.15, Counters::p50, Counters::floorP50});
    table.add({work + "p99", frame, {frame}, 1.15, Counters::p99, Counters::floorP99});
}
