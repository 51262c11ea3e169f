// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// How long frames take to the sink of the demo's chain that records, while the previews of eight cameras are filtered.
// Chain, models and service are the host's. The cameras are simulated: threads that send one image again and again.

#include "Measuring.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeConnection.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>
#include <Halvex/service/CVeltraGrabResultData.h>

#include "host/models/CGrabResultData.h"
#include "host/models/CHostModelService.h"
#include "host/models/HostModels.h"
#include "host/models/IFrameInfo.h"
#include "host/sinks/IFrameSink.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <opencv2/core.hpp>

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

using namespace Plugin::Halvex;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int cameras = 8;
constexpr std::chrono::milliseconds interval(20); // between two frames of one camera

QString cameraName(int camera)
{
    return QStringLiteral("camera-%1").arg(camera);
}

/// The demo's chain, all of it or the branch that records alone, behind the cameras of this run.
QString chainDocument(bool hasPreviews)
{
    QFile file(QStringLiteral(HALVEX_DEMO_CHAIN));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("there is no %s", HALVEX_DEMO_CHAIN);
    const QString sourcesKey = QStringLiteral("unique_sources");
    QJsonArray names;
    for (int camera = 0; camera < cameras; ++camera)
        names.append(cameraName(camera));

    QJsonArray chain;
    const QJsonArray whole = QJsonDocument::fromJson(file.readAll()).array();
    for (const auto& value : whole) {
        QJsonObject element = value.toObject();
        const QString name = element.value(QStringLiteral("name")).toString();
        if (!hasPreviews && name != QLatin1String("recording") && name != QLatin1String("frames"))
            continue;
        if (element.contains(sourcesKey))
            element.insert(sourcesKey, QJsonArray{QJsonValue(names)});
        chain.append(element);
    }
    return QString::fromUtf8(QJsonDocument(chain).toJson());
}

/// 512 x 512 grey pixels with slanting stripes, much as Aravis' simulated camera sends.
Veltra::CGrabResultPtr makeGrabResult()
{
    auto image = std::make_shared<cv::Mat>(512, 512, CV_8UC1);
    for (int y = 0; y < image->rows; ++y) {
        for (int x = 0; x < image->cols; ++x)
            image->at<uchar>(y, x) = uchar((x + y) % 255);
    }
    Veltra::SGrabResult result;
    result.pixels = reinterpret_cast<const std::byte*>(image->data);
    result.size = image->total();
    result.width = image->cols;
    result.height = image->rows;
    result.stride = image->cols;
    result.pixelFormat = QStringLiteral("Mono8");
    result.complete = true;
    result.owner = image;
    return Veltra::CGrabResultPtr(std::move(result));
}

/// What is done beside recording.
struct SBeside
{
    bool hasPreviews = true;
    bool writesFiles = false; ///< As the demo does: of each sink, every 30th image.
};

/// Eight cameras in a service, each with a scene and a chain of its own.
class CCameraWall
{
public:
    explicit CCameraWall(const SBeside& beside)
        : m_service(nullptr)
    {
        using Decoupler = CGenericNodeDecouplerDataModel<CVeltraGrabResultData>;
        m_service.registry()->registerModel<Decoupler>(QStringLiteral("Tools")); // as the plugin does
        Host::registerHostModels(m_service);
        const QString document = chainDocument(beside.hasPreviews);
        for (int camera = 0; camera < cameras; ++camera) {
            auto source = Host::CHostModelService().createCameraSource(cameraName(camera));
            m_entries.push_back(static_cast<ASourceNodeDataModel&>(*source).dataEntry());
            m_service.addNode(std::move(source), Core::AppCoreComponents::BaseInfoPtr::create());
            if (!m_service.importDocument(document))
                qFatal("the chain cannot be imported");
            prepareSinks(camera, *m_service.getActiveScene(), beside.writesFiles);
        }
    }

    /// Returns how long each frame took to the sink that records, in seconds.
    std::vector<double> run(int framesEach)
    {
        std::vector<std::thread> threads;
        threads.reserve(cameras);
        for (int camera = 0; camera < cameras; ++camera)
            threads.emplace_back([=] { sendFrames(m_entries[std::size_t(camera)], camera, framesEach); });
        const quint64 all = quint64{cameras} * quint64(framesEach);
        m_delays.reserve(all);
        while (m_delays.size() < all)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        for (std::thread& thread : threads)
            thread.join();

        return std::move(m_delays);
    }

private:
    void prepareSinks(int camera, const CNodeScene& scene, bool writesFiles)
    {
        for (const auto& entry : scene.nodes()) {
            auto* const sink = qobject_cast<Host::IFrameSink*>(entry.second->nodeDataModel());
            if (sink == nullptr)
                continue;
            if (writesFiles) {
                const QString folder = m_folder.filePath(cameraName(camera) + QLatin1Char('/') + sink->sinkName());
                if (!QDir().mkpath(folder))
                    qFatal("cannot make %s", qUtf8Printable(folder));
                sink->setOutput(folder, 30);
            }
            if (sink->sinkName() == QLatin1String("frames"))
                recordDelays(scene, *entry.second);
        }
    }

    /// Of what is delivered to \a sink. A converter sees it just before.
    void recordDelays(const CNodeScene& scene, const CNodeBase& sink)
    {
        for (const auto& entry : scene.connections()) {
            if (entry.second->getNode(ENodePortType::In) != &sink)
                continue;
            entry.second->setTypeConverter([this](CNodeDataPtr data) {
                if (const auto* frame = dynamic_cast<const Host::IFrameInfo*>(data.data()))
                    m_delays.push_back(std::chrono::duration<double>(Clock::now() - frame->info().grabbed).count());
                return data;
            });
        }
    }

    void sendFrames(const CNodeDataEntry& entry, int camera, int frames) const
    {
        // Spread over the interval, as frames of cameras that nobody synchronises are.
        auto due = Clock::now() + interval * camera / cameras;
        for (int frame = 0; frame < frames; ++frame, due += interval) {
            std::this_thread::sleep_until(due);
            const Host::SFrameInfo info{quint64(frame), Clock::now()};
            entry.setData(QSharedPointer<Host::CGrabResultData>::create(m_frame, info));
        }
    }

    const Veltra::CGrabResultPtr m_frame = makeGrabResult();
    const QTemporaryDir m_folder;
    std::vector<CNodeDataEntry> m_entries;
    std::vector<double> m_delays; // in seconds
    CNodeService m_service;
};

double percentile(std::vector<double>& values, std::size_t percent)
{
    std::sort(values.begin(), values.end());
    return values[values.size() * percent / 100];
}

/// One long run: few frames are late.
std::string addRecording(const std::string& name, const SBeside& beside, int framesEach)
{
    const auto measure = [=](benchmark::State& state) {
        cv::setNumThreads(-1); // the host leaves OpenCV its threads
        CCameraWall wall(beside);
        std::vector<double> delays;
        for ([[maybe_unused]] auto iteration : state)
            delays = wall.run(framesEach);
        state.counters[Counters::p50] = percentile(delays, 50);
        state.counters[Counters::p99] = percentile(delays, 99);
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)->UseRealTime()->Iterations(1)->Repetitions(1);
    return name;
}

} // namespace

void registerRecording(CRatioTable& table, bool isQuick)
{
    const int framesEach = isQuick ? 10 : 500;
    const std::string files = addRecording("recording/with files", {true, true}, framesEach);
    const std::string previews = addRecording("recording/with previews", {true, false}, framesEach);
    const std::string alone = addRecording("recording/alone", {false, false}, framesEach);
    constexpr double most = 2e-3;
    const std::string work = "grab to the sink that records, eight cameras, p99";
    table.add({work + ", with the demo's files", files, {}, most, Counters::p99});
    table.add({work + ", without files", previews, {}, most, Counters::p99});
    table.add({"the same, against no previews", previews, {alone}, SRatioRow::none, Counters::p99});
    table.add({"the same, p50", previews, {alone}, SRatioRow::none, Counters::p50});
}
