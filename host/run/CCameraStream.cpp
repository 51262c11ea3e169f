// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CCameraStream.h"

#include "host/camera/CGrabThread.h"
#include "host/models/CGrabResultData.h"
#include "host/models/IHostModels.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Output.h"
#include "host/sinks/IFrameSink.h"
#include "host/sources/IFrameSource.h"

#include <Halvex/models/CNodeDataEntry.h>

#include <QDir>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

CCameraStream::CCameraStream(SourceOptions options, std::unique_ptr<CStreamGraph> graph)
    : m_options(std::move(options))
    , m_graph(std::move(graph))
    , m_stallWatch([this] { return m_graph->workDone(); })
{
    // The account then tells what is left.
    connect(&m_stallWatch, &CStallWatch::stalled, this, &CCameraStream::end);
    connect(m_graph.get(), &CStreamGraph::changed, this, &CCameraStream::onGraphChanged);
}

CCameraStream::~CCameraStream() = default;

QString CCameraStream::open(const IHostModels& models)
{
    QString error;
    m_source = openSource(m_options, &error);
    if (m_source && !models.supports(m_source->pixelFormat()))
        error = QStringLiteral("camera '%1' sends pixels as %2, which has no conversion to an image")
                    .arg(camera(), m_source->pixelFormat());
    return error;
}

QString CCameraStream::prepareSinks(const QString& folder, int writeEvery)
{
    for (IFrameSink* sink : m_graph->sinks()) {
        const QString sinkFolder = QDir(folder).filePath(sink->sinkName());
        const QString error = makeFolder(sinkFolder);
        if (!error.isEmpty())
            return error;
        sink->setOutput(sinkFolder, writeEvery);
        sink->notifyFailure(this, [this](const QString& reason) {
            requestEnd();
            Q_EMIT failed(reason);
        });
    }
    // A graph without sinks has made no folder.
    return makeFolder(folder);
}

QString CCameraStream::start(int frames, std::chrono::milliseconds silence, std::chrono::milliseconds timeout)
{
    if (!m_graph->isIntact())
        return CStreamGraph::changedText(camera());
    QString error;
    if (!m_source->start(&error))
        return error;
    m_graph->startCounting();
    const auto handOn = [entry = m_graph->entry()](const CGrabThread::SFrame& frame) {
        const SFrameInfo info{frame.result->frameNumber, frame.grabbed, frame.result->timestampNs, frame.claim,
                              frame.origin};
        entry.setData(QSharedPointer<CGrabResultData>::create(frame.result, info));
    };
    m_thread = std::make_unique<CGrabThread>(*m_source, quint64(frames), silence, handOn);
    m_thread->setTimeout(timeout);
    // Queued behind the frames that the thread has handed on: when it arrives, all of them are through the graph.
    connect(m_thread.get(), &CGrabThread::ended, this, &CCameraStream::onGrabbed, Qt::QueuedConnection);
    m_thread->start();
    return {};
}

void CCameraStream::requestEnd()
{
    if (m_thread)
        m_thread->requestInterruption();
}

void CCameraStream::onGraphChanged()
{
    // The entry takes frames as long as anybody sends some, but nothing is counted any more once the stream has ended.
    if (m_thread) {
        m_thread->requestInterruption();
        m_thread->wait();
    }
    Q_EMIT failed(CStreamGraph::changedText(camera()));
    if (m_thread)
        end();
}

void CCameraStream::onGrabbed(const QString& error)
{
    if (m_hasEnded)
        return;
    m_thread->wait();
    if (!error.isEmpty())
        Q_EMIT failed(error);
    connect(m_graph.get(), &CStreamGraph::cameThrough, this, &CCameraStream::endWhenDrained);
    // Before loops are held, whose decouplers then do not tick any more.
    m_stallWatch.start(m_graph->patience());
    m_graph->holdLoops();
    endWhenDrained();
}

void CCameraStream::endWhenDrained()
{
    if (m_hasEnded || !m_graph->isDrained() || m_graph->releaseLoop())
        return;
    m_graph->finishSinks();
    if (!m_graph->isDrained())
        return;
    m_areFilesWritten = true;
    end();
}

void CCameraStream::end()
{
    if (m_hasEnded)
        return;
    m_hasEnded = true;
    m_stallWatch.stop();
    Q_EMIT ended();
}

QString CCameraStream::endText() const
{
    return m_thread && m_thread->hasRunOut() ? m_source->endText() : QString();
}

SRunReport CCameraStream::report() const
{
    SRunReport report;
    report.address = camera();
    report.camera = m_source->description();
    report.ending = endText();
    report.absences = m_source->absences();
    report.frames = m_thread->statistics();
    report.span = m_thread->span();
    return report;
}

SRunReport CCameraStream::account() const
{
    SRunReport full = report();
    m_graph->account(&full);
    return full;
}

} // namespace Host
