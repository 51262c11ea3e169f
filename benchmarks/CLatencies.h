// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "Measuring.h"
#include "SendOne.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

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
    const Plugin::Halvex::CNodeDataPtr m_frame = makeFrame();
    Channel m_channel;
    std::vector<double> m_seconds;
};

/// Frames through the floor and the model by turns: what disturbs the machine makes few frames late, and a p99 shows
/// little else. Neither always goes first: the floor against itself is some percent slower in the second place.
template <typename Floor, typename Engine>
void measureIsolatedFrames(benchmark::State& state)
{
    CLatencies<Floor> floor;
    CLatencies<Engine> engine;
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

template <typename Floor, typename Engine>
void addIsolatedFrames(const std::string& name)
{
    benchmark::RegisterBenchmark(name.c_str(), &measureIsolatedFrames<Floor, Engine>)
        ->UseManualTime()
        ->Iterations(1000);
}
