// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What is gained when the filters of two cameras are workers, and how free the graph's thread is meanwhile.

#include "CEventWaits.h"
#include "CPooledFilters.h"
#include "CWorkerChannel.h"
#include "ImageFilters.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CNodeDataFlowProxy.h>
#include <Halvex/scene/CNodeScene.h>

#include <QCoreApplication>

#include <array>
#include <atomic>
#include <chrono>
#include <thread>

using namespace Plugin::Halvex;

namespace {

/// A filter in the graph's thread.
class CInlineModel : public CNodeDataModel
{
public:
    explicit CInlineModel(CFunctionModel::Function function)
        : m_function(function)
    {
    }
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Inline"); }
    unsigned int nPorts(ENodePortType) const override { return 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrame().type(); }
    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        m_output = data ? m_function(data) : CNodeDataPtr();
        Q_EMIT dataUpdated(0);
    }
    CNodeDataPtr outData(NodePortIndex) override { return m_output; }

private:
    CFunctionModel::Function m_function;
    CNodeDataPtr m_output;
};

/// The same in the pool. Takes every frame: the room is for those of all cameras.
class CPatientModel : public CFunctionModel
{
public:
    explicit CPatientModel(Function function)
        : CFunctionModel(function)
    {
        setPolicy(EPolicy::DropNewest);
        setMostWaiting(filterCameras * filterFramesEach);
    }
};

class CCamera : public ASourceNodeDataModel
{
public:
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Camera"); }
    bool isUnique() override { return false; }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::Out ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrame().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
};

class CDisplay : public CNodeDataModel
{
public:
    explicit CDisplay(int& received)
        : m_received(received)
    {
    }
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Display"); }
    unsigned int nPorts(ENodePortType side) const override { return side == ENodePortType::In ? 1 : 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrame().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override { ++m_received; }
    CNodeDataPtr outData(NodePortIndex) override { return {}; }

private:
    int& m_received;
};

/// Cameras, each with a chain of two filters behind it.
template <typename Model>
class CFilterGraph
{
public:
    CFilterGraph()
        : m_scene(nullptr, nullptr)
    {
        for (CCamera*& camera : m_cameras) {
            auto owned = std::make_unique<CCamera>();
            camera = owned.get();
            CNodeBase& first = m_scene.createNode(std::move(owned));
            CNodeBase& blur = m_scene.createNode(std::make_unique<Model>(&filtered<blurred>));
            CNodeBase& edges = m_scene.createNode(std::make_unique<Model>(&filtered<edgesOf>));
            CNodeBase& last = m_scene.createNode(std::make_unique<CDisplay>(m_received));
            m_scene.createConnection(blur, 0, first, 0, {});
            m_scene.createConnection(edges, 0, blur, 0, {});
            m_scene.createConnection(last, 0, edges, 0, {});
        }
    }

    void run(const CNodeDataPtr& image, int framesEach)
    {
        m_received = 0;
        for (int sent = 0; m_received < filterCameras * framesEach;) {
            if (sent < filterCameras * framesEach && sent - m_received < filterCameras * filterFramesEach)
                m_cameras[std::size_t(sent++ % filterCameras)]->getDataFlowProxy()->setData(image);
            else
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

private:
    int m_received = 0; // the displays count here, until the scene is gone
    CNodeScene m_scene;
    std::array<CCamera*, filterCameras> m_cameras{};
};

using CWorkerGraph = CFilterGraph<CPatientModel>;

/// The floor B: a thread for each camera.
class CBareThreads
{
public:
    void run(const CNodeDataPtr& image, int framesEach)
    {
        std::array<std::thread, filterCameras> threads;
        for (std::thread& thread : threads) {
            thread = std::thread([&image, framesEach] {
                for (int frame = 0; frame < framesEach; ++frame)
                    filtered<edgesOf>(filtered<blurred>(image));
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    }
};

/// The same beside a thread that does nothing but wait for events, which must come: nothing else wakes it.
class CWatchedThreads
{
public:
    void run(const CNodeDataPtr& image, int framesEach)
    {
        std::atomic<bool> isDone{false};
        std::thread work([&] {
            CBareThreads().run(image, framesEach);
            isDone = true;
        });
        while (!isDone)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        work.join();
    }
};

/// No load, for about as long.
class CIdleThread
{
public:
    void run(const CNodeDataPtr&, int framesEach)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(10) * filterCameras * framesEach;
        while (std::chrono::steady_clock::now() < end)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
};

/// Registers what has the thread wait for events beside that load. One long run: what counts is the longest of all.
template <typename Load>
std::string addWait(const std::string& name, int framesEach)
{
    const auto measure = [framesEach](benchmark::State& state) {
        cv::setNumThreads(1);
        const CNodeDataPtr image = makeNoise();
        Load load;
        CEventWaits waits;
        for ([[maybe_unused]] auto iteration : state)
            load.run(image, framesEach);
        QCoreApplication::processEvents(); // what waits by now has waited too
        state.counters[Counters::longest] = waits.longest();
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)->UseRealTime()->Iterations(1)->Repetitions(1);
    return name;
}

} // namespace

void registerFilters(CRatioTable& table, bool isQuick)
{
    const std::string workers = addFilters<CWorkerGraph>(filtersInWorkers);
    const std::string threads = addFilters<CBareThreads>("filters/bare threads");
    const std::string alone = addFilters<CFilterGraph<CInlineModel>>("filters/graph's thread");
    table.add({"a frame through two filters, two cameras, in workers", workers, {alone}, 1 / 1.8});
    table.add({"the same, against two bare threads", workers, {threads}, 1 / 0.95});
    table.add({"the same, against bare work in the pool that returns to the graph's thread",
               workers,
               {addFilters<CPooledFilters>("filters/pool")}});
    table.add({"two bare threads, against the graph's thread", threads, {alone}});

    const int framesEach = isQuick ? filterFramesEach : 200;
    const std::string wait = addWait<CWorkerGraph>("longest wait/workers", framesEach);
    table.add({"longest wait of an event meanwhile", wait, {}, 5e-3, Counters::longest});
    table.add({"the same, against two bare threads beside an idle one",
               wait,
               {addWait<CWatchedThreads>("longest wait/bare threads", framesEach)},
               SRatioRow::none,
               Counters::longest});
    table.add({"the same, against no load",
               wait,
               {addWait<CIdleThread>("longest wait/no load", framesEach)},
               SRatioRow::none,
               Counters::longest});
}
