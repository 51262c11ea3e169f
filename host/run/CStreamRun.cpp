// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamRun.h"

#include "host/camera/CAravisCamera.h"
#include "host/camera/CGrabThread.h"
#include "host/models/CGrabResultConverter.h"
#include "host/models/CGrabResultData.h"
#include "host/models/CPngSinkModel.h"
#include "host/run/CGraphText.h"
#include "host/run/CProgressLine.h"
#include "host/run/CSignalWatcher.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Output.h"
#include "models/CNodeDataFlowProxy.h"

#include <QDir>
#include <QTimer>

#include <cerrno>
#include <cstring>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr std::chrono::milliseconds progressInterval(100);

} // namespace

CStreamRun::CStreamRun(SRunOptions options)
    : m_options(std::move(options))
{
}

CStreamRun::~CStreamRun() = default;

int CStreamRun::exec()
{
    if (buildGraph() && openCamera() && prepareSinks() && saveScene() && writeGraphFiles() && stream() &&
        !printReport())
        fail(QStringLiteral("cannot write to standard output: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    if (!m_error.isEmpty()) {
        printErrorLine(m_error);
        return Failure;
    }
    return m_signal == 0 ? int(Success) : InterruptedBase + m_signal;
}

bool CStreamRun::buildGraph()
{
    QString error;
    m_graph = m_options.load.isEmpty() ? CStreamGraph::demo() : CStreamGraph::load(m_options.load, &error);
    fail(error);
    return error.isEmpty();
}

bool CStreamRun::openCamera()
{
    QString error;
    m_camera = CAravisCamera::open(m_options.camera, &error);
    if (m_camera && !CGrabResultConverter::supports(m_camera->pixelFormat()))
        error = QStringLiteral("camera '%1' sends pixels as %2, which has no conversion to an image")
                    .arg(m_camera->address(), m_camera->pixelFormat());
    fail(error);
    return error.isEmpty();
}

bool CStreamRun::prepareSinks()
{
    const QDir output(m_options.output);
    for (CPngSinkModel* sink : m_graph->sinks()) {
        const QString folder = output.filePath(sink->sinkName());
        const QString error = makeFolder(folder);
        if (!error.isEmpty()) {
            fail(error);
            return false;
        }
        sink->setOutput(folder, m_options.writeEvery);
        connect(sink, &CPngSinkModel::failed, this, [this](const QString& reason) {
            fail(reason);
            m_thread->requestInterruption();
        });
    }
    // A graph without sinks has made no folder.
    fail(makeFolder(m_options.output));
    return m_error.isEmpty();
}

bool CStreamRun::saveScene()
{
    // Before the first frame: the graph does not change any more, and who cannot save learns it at once.
    if (!m_options.save.isEmpty())
        fail(replaceFile(m_options.save, m_graph->scene().saveToMemory()));
    return m_error.isEmpty();
}

bool CStreamRun::writeGraphFiles()
{
    const CGraphText graph(m_graph->scene());
    const QDir output(m_options.output);
    fail(writeTextFile(output.filePath(QStringLiteral("graph.txt")), graph.text()));
    fail(writeTextFile(output.filePath(QStringLiteral("graph.dot")), graph.dot()));
    return m_error.isEmpty();
}

bool CStreamRun::stream()
{
    CSignalWatcher signalWatcher;
    connect(&signalWatcher, &CSignalWatcher::received, this, &CStreamRun::onSignal);
    if (!startGrabbing())
        return false;

    CProgressLine line(stderr);
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { showProgress(line); });
    timer.start(progressInterval);
    m_loop.exec();
    showProgress(line);
    // The camera is stopped with this object, after the report: one that has gone takes seconds not to answer.
    return true;
}

bool CStreamRun::startGrabbing()
{
    QString error;
    if (!m_camera->start(&error)) {
        fail(error);
        return false;
    }
    CNodeDataFlowProxy* entry = m_graph->entry();
    const auto handOn = [entry](const CGrabThread::SFrame& frame) {
        const SFrameInfo info{frame.result->frameNumber, frame.grabbed};
        entry->setData(QSharedPointer<CGrabResultData>::create(frame.result, info));
    };
    m_thread = std::make_unique<CGrabThread>(*m_camera, quint64(m_options.frames), m_options.silence, handOn);
    // Queued behind the frames that the thread has handed on: when it arrives, all of them are through the graph.
    connect(m_thread.get(), &CGrabThread::ended, this, &CStreamRun::onEnded, Qt::QueuedConnection);
    m_thread->start();
    return true;
}

void CStreamRun::onEnded(const QString& error)
{
    fail(error);
    m_thread->wait();
    connect(m_graph.get(), &CStreamGraph::cameThrough, this, &CStreamRun::endWhenDrained);
    // The report tells when there is something left by then.
    QTimer::singleShot(m_graph->drainTime(), &m_loop, [this] { m_loop.quit(); });
    endWhenDrained();
}

void CStreamRun::endWhenDrained()
{
    if (m_graph->isDrained())
        m_loop.quit();
}

void CStreamRun::onSignal(int number)
{
    m_signal = number;
    m_thread->requestInterruption();
}

void CStreamRun::fail(const QString& error)
{
    if (m_error.isEmpty())
        m_error = error;
}

void CStreamRun::showProgress(CProgressLine& line) const
{
    const SRunReport now = report();
    if (now.frames.grabbed == 0)
        return;
    line.show(QStringLiteral("%1/%2 frames, %3 per second, %4 incomplete, %5 underruns")
                  .arg(now.frames.complete)
                  .arg(m_options.frames)
                  .arg(now.framesPerSecond(), 0, 'f', 1)
                  .arg(now.frames.incomplete)
                  .arg(now.frames.underruns));
}

SRunReport CStreamRun::report() const
{
    SRunReport report;
    report.camera = QStringLiteral("%1, %2 x %3 %4")
                        .arg(m_camera->name())
                        .arg(m_camera->width())
                        .arg(m_camera->height())
                        .arg(m_camera->pixelFormat());
    report.ending = ending();
    report.frames = m_thread->statistics();
    report.span = m_thread->span();
    return report;
}

bool CStreamRun::printReport()
{
    SRunReport full = report();
    m_graph->account(&full);
    fail(full.mismatch());
    return printText(full.text());
}

QString CStreamRun::ending() const
{
    if (!m_error.isEmpty())
        return QStringLiteral("by an error");
    if (m_signal != 0)
        return QStringLiteral("by signal %1").arg(m_signal);
    return QStringLiteral("after %1 frames, as asked").arg(m_options.frames);
}

} // namespace Host
