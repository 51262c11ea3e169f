// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a decoupler costs whoever pushes, and how long a single frame is on its way.

#include "CMailbox.h"
#include "Measuring.h"

#include <Halvex/models/CDecoupler.h>
#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/models/CNodeDataFlowProxy.h>

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <thread>

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

/// Sends a frame that may go out and waits until it is there.
template <typename Channel>
void sendOne(Channel& channel, const CNodeDataPtr& frame)
{
    const int before = channel.received;
    channel.push(frame);
    while (channel.received == before)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

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

/// How long single frames take through a channel.
template <typename Channel>
class CLatencies
{
public:
    CLatencies()
    {
        m_channel.tick();
        sendOne(m_channel, m_frame);
    }

    void add()
    {
        m_channel.tick();
        std::this_thread::sleep_for(std::chrono::microseconds(200)); // for the worker to fall asleep
        const auto start = std::chrono::steady_clock::now();
        sendOne(m_channel, m_frame);
        m_seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }

    double last() const { return m_seconds.back(); }
    double percentile(std::size_t percent)
    {
        std::sort(m_seconds.begin(), m_seconds.end());
        return m_seconds[m_seconds.size() * percent / 100];
    }

private:
    const CNodeDataPtr m_frame = makeFrame();
    Channel m_channel;
    std::vector<double> m_seconds;
};

/// Frames through the floor and the model by turns: what disturbs the machine makes few frames late, and a p99 shows
/// little else. Neither always goes first: the floor against itself is some percent slower in the second place.
void measureIsolatedFrames(benchmark::State& state)
{
    CLatencies<CMailboxChannel> floor;
    CLatencies<CModelChannel> engine;
    bool isFloorFirst = false;
    for ([[maybe_unused]] auto iteration : state) {
        isFloorFirst = !isFloorFirst;
        if (isFloorFirst)
            floor.add();
        engine.add();
        if (!isFloorFirst)
            floor.add();
        state.SetIterationTime(engine.last());
    }
    state.counters[Counters::p50] = engine.percentile(50);
    state.counters[Counters::p99] = engine.percentile(99);
    state.counters[Counters::floorP50] = floor.percentile(50);
    state.counters[Counters::floorP99] = floor.percentile(99);
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
    benchmark::RegisterBenchmark(frame.c_str(), measureIsolatedFrames)->UseManualTime()->Iterations(1000);
    const std::string work = "isolated frame through a decoupler, ";
    table.add({work + "p50", frame, {frame}, 1.15, Counters::p50, Counters::floorP50});
    table.add({work + "p99", frame, {frame}, 1.15, Counters::p99, Counters::floorP99});
}
