// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What it costs to move work to other cores, and what it gains.

#include "CLatencies.h"
#include "CWorkerChannel.h"
#include "Measuring.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CNodeDataFlowProxy.h>
#include <Halvex/scene/CNodeScene.h>

#include <QCoreApplication>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <array>
#include <thread>

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

class CImage : public CNodeData
{
public:
    explicit CImage(cv::Mat image)
        : m_image(std::move(image))
    {
    }
    SNodeDataType type() const override { return CFrame().type(); }
    const cv::Mat& image() const { return m_image; }

private:
    cv::Mat m_image;
};

cv::Mat blurred(const cv::Mat& image)
{
    cv::Mat result;
    cv::GaussianBlur(image, result, cv::Size(15, 15), 0);
    return result;
}

cv::Mat edges(const cv::Mat& image)
{
    cv::Mat result;
    cv::Canny(image, result, 50, 150);
    return result;
}

template <cv::Mat (*filter)(const cv::Mat&)>
CNodeDataPtr filtered(const CNodeDataPtr& data)
{
    return QSharedPointer<CImage>::create(filter(data.staticCast<CImage>()->image()));
}

/// The same at once, in the thread of the graph.
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

class CDisplay : public CInlineModel
{
public:
    explicit CDisplay(int& received)
        : CInlineModel(nullptr)
        , m_received(received)
    {
    }
    void setInData(CNodeDataPtr, NodePortIndex) override { ++m_received; }

private:
    int& m_received;
};

constexpr int cameras = 2;
constexpr int framesEach = 8;

CNodeDataPtr makeImage()
{
    cv::Mat image(1080, 1920, CV_8UC1);
    cv::randu(image, 0, 256);
    return QSharedPointer<CImage>::create(image);
}

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
            CNodeBase& edge = m_scene.createNode(std::make_unique<Model>(&filtered<edges>));
            CNodeBase& last = m_scene.createNode(std::make_unique<CDisplay>(m_received));
            m_scene.createConnection(blur, 0, first, 0, {});
            m_scene.createConnection(edge, 0, blur, 0, {});
            m_scene.createConnection(last, 0, edge, 0, {});
        }
    }

    void run(const CNodeDataPtr& image)
    {
        m_received = 0;
        for (int frame = 0; frame < framesEach; ++frame) {
            for (CCamera* const camera : m_cameras)
                camera->getDataFlowProxy()->setData(image);
        }
        while (m_received < cameras * framesEach)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    CNodeScene m_scene;
    std::array<CCamera*, cameras> m_cameras{};
    int m_received = 0;
};

/// Takes every frame.
class CPatientModel : public CFunctionModel
{
public:
    explicit CPatientModel(Function function)
        : CFunctionModel(function)
    {
        setPolicy(EPolicy::DropNewest);
        setMostWaiting(framesEach);
    }
};

/// The floor: a thread for each camera.
class CBareThreads
{
public:
    void run(const CNodeDataPtr& image)
    {
        std::array<std::thread, cameras> threads;
        for (std::thread& thread : threads) {
            thread = std::thread([&image] {
                for (int frame = 0; frame < framesEach; ++frame)
                    filtered<edges>(filtered<blurred>(image));
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    }
};

template <typename Graph>
std::string addFilters(const std::string& name)
{
    const auto measure = [](benchmark::State& state) {
        cv::setNumThreads(1);
        const CNodeDataPtr image = makeImage();
        Graph graph;
        for ([[maybe_unused]] auto iteration : state)
            graph.run(image);
        setItems(state, cameras * framesEach);
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)->UseRealTime()->Iterations(1);
    return name;
}

} // namespace

void registerWorkers(CRatioTable& table)
{
    const std::string floor = addSingleFrames<CPoolChannel>("worker/QRunnable");
    table.add({"a frame through an empty worker", addSingleFrames<CWorkerChannel>("worker/model"), {floor}, 1.25});
    const std::string frame = "worker/isolated frame";
    addIsolatedFrames<CPoolChannel, CWorkerChannel>(frame);
    table.add({"isolated frame through a worker, p50", frame, {frame}, 1.15, Counters::p50, Counters::floorP50});

    const std::string workers = addFilters<CFilterGraph<CPatientModel>>("worker/filters in workers");
    const std::string threads = addFilters<CBareThreads>("worker/filters in bare threads");
    const std::string alone = addFilters<CFilterGraph<CInlineModel>>("worker/filters in the graph's thread");
    table.add({"a frame through two filters, two cameras, in workers", workers, {alone}, 1 / 1.8});
    table.add({"the same, against two bare threads", workers, {threads}, 1 / 0.95});
    table.add({"two bare threads, against the graph's thread", threads, {alone}});
}
