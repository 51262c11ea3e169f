// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a decoupler costs whoever pushes, and how long a single frame is on its way.

#include "CMailbox.h"
#include "Measuring.h"
#include "models/CDecoupler.h"
#include "models/CGenericNodeDecouplerDataModel.h"

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

template <typename Channel>
std::string addIsolatedFrame(const std::string& name)
{
    const auto measure = [](benchmark::State& state) {
        const CNodeDataPtr frame = makeFrame();
        Channel channel;
        channel.tick();
        sendOne(channel, frame);

        std::vector<double> latencies;
        for ([[maybe_unused]] auto iteration : state) {
            channel.tick();
            std::this_thread::sleep_for(std::chrono::microseconds(200)); // for the worker to fall asleep
            const auto start = std::chrono::steady_clock::now();
            sendOne(channel, frame);
            latencies.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
            state.SetIterationTime(latencies.back());
        }
        std::sort(latencies.begin(), latencies.end());
        state.counters[Counters::p50] = latencies[latencies.size() / 2];
        state.counters[Counters::p99] = latencies[latencies.size() * 99 / 100];
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)->UseManualTime()->Iterations(1000);
    return name;
}

} // namespace

void registerDecoupler(CRatioTable& table)
{
    qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr");

    const std::string push = addPush<CMailboxChannel>("push/H");
    table.add({"push into a decoupler's full slot", addPush<CDecouplerChannel>("push/CDecoupler"), {push}, 1.5});
    table.add({"the same through its model", addPush<CModelChannel>("push/model"), {push}, 1.5});

    const std::string floor = addIsolatedFrame<CMailboxChannel>("isolated frame/H");
    const std::string engine = addIsolatedFrame<CModelChannel>("isolated frame/Halvex");
    table.add({"isolated frame through a decoupler, p50", engine, {floor}, 1.15, Counters::p50});
    table.add({"isolated frame through a decoupler, p99", engine, {floor}, 1.15, Counters::p99});
}
