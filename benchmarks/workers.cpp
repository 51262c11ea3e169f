// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What it costs to move a frame to another core and back, and what a worker keeps of frames that come too fast.

#include "CLatencies.h"
#include "CWorkerChannel.h"
#include "Measuring.h"

#include <QCoreApplication>

#include <algorithm>
#include <string>
#include <vector>

using namespace Plugin::Halvex;

namespace {

template <typename Channel>
std::string addSingleFrames(const std::string& name)
{
    const auto measure = [](benchmark::State& state) {
        const CNodeDataPtr frame = makeFrame();
        Channel channel;
        for ([[maybe_unused]] auto iteration : state)
            sendOne(channel, frame);
        setItems(state, 1);
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)->MeasureProcessCPUTime(); // of both threads
    return name;
}

/// A frame with some bytes: that it is kept is seen.
class CHeavyFrame : public CFrame
{
private:
    std::vector<char> m_pixels = std::vector<char>(4096);
};

/// A worker with a camera before it that sends three frames for each that comes out.
class CTooFastCamera
{
public:
    /// Sends until so many have been sent since the object was made.
    void sendUntil(int frames)
    {
        while (m_sent < frames) {
            if (m_sent < 3 * (m_channel.received + 1)) {
                m_channel.push(QSharedPointer<CHeavyFrame>::create());
                ++m_sent;
            } else {
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
        }
    }

private:
    CWorkerChannel m_channel;
    int m_sent = 0;
};

std::string addTooFastCamera(const std::string& name, int frames)
{
    const auto measure = [frames](benchmark::State& state) {
        CTooFastCamera camera;
        const int first = frames / 10; // while the pool's threads are made, and the heap has not settled
        camera.sendUntil(first);
        const double before = bytesInUse();
        for ([[maybe_unused]] auto iteration : state)
            camera.sendUntil(frames);
        // It may have become less.
        state.counters[Counters::bytes] = std::max(0.0, bytesInUse() - before) / (frames - first);
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)->UseRealTime()->Iterations(1)->Repetitions(1);
    return name;
}

} // namespace

void registerWorkers(CRatioTable& table, bool isQuick)
{
    const std::string floor = addSingleFrames<CPoolChannel>("worker/QRunnable");
    table.add({"a frame through an empty worker", addSingleFrames<CWorkerChannel>("worker/model"), {floor}, 1.25});
    const std::string frame = "worker/isolated frame";
    addIsolatedFrames<CPoolChannel, CWorkerChannel>(frame);
    table.add({"isolated frame through a worker, p50", frame, {frame}, 1.15, Counters::p50, Counters::floorP50});

    const int frames = isQuick ? 3000 : 300000;
    table.add({"heap that each of " + std::to_string(frames) + " frames leaves, three times too many for a worker",
               addTooFastCamera("worker/camera too fast", frames),
               {},
               1,
               Counters::bytes});
}
