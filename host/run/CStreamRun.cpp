// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamRun.h"

#include "host/base/EExitCode.h"
#include "host/base/Shown.h"
#include "host/report/CGraphText.h"
#include "host/report/CProgressLine.h"
#include "host/run/CCameraStream.h"
#include "host/run/CGraphBuilder.h"
#include "host/run/CSignalWatcher.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Chain.h"
#include "host/run/Output.h"

#include <QDir>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace Host {

namespace {

constexpr std::chrono::milliseconds progressInterval(100);

QStringList addresses(const std::vector<SCameraOptions>& cameras)
{
    QStringList list;
    for (const SCameraOptions& camera : cameras)
        list << camera.address;
    return list;
}

} // namespace

CStreamRun::CStreamRun(SRunOptions options)
    : m_options(std::move(options))
    , m_services(m_options.plugins)
{
}

CStreamRun::~CStreamRun() = default;

int CStreamRun::exec()
{
    if (loadPlugins() && buildGraphs() && openCameras() && prepareSinks() && saveScene() && writeGraphFiles() &&
        stream() && !printReport())
        fail(QStringLiteral("cannot write to standard output: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    if (!m_error.isEmpty()) {
        printErrorLine(m_error);
        return m_hasStreamed ? Failed : Refused;
    }
    return m_signal == 0 ? int(Done) : InterruptedBase + m_signal;
}

bool CStreamRun::loadPlugins()
{
    fail(m_services.load());
    return m_error.isEmpty();
}

bool CStreamRun::buildGraphs()
{
    CGraphBuilder builder(m_services.nodes(), m_services.models());
    const QStringList cameras = addresses(m_options.cameras);
    std::vector<std::unique_ptr<CStreamGraph>> graphs;
    QString error;
    if (m_options.load.isEmpty()) {
        const SChain chain = m_options.chain.isEmpty() ? defaultChain(cameras) : readChain(m_options.chain, &error);
        if (error.isEmpty())
            graphs = builder.import(chain, cameras, &error);
        m_chain = chain.text;
    } else {
        graphs.push_back(builder.load(m_options.load, cameras.first(), &error));
    }
    fail(error);
    if (!m_error.isEmpty())
        return false;

    for (std::size_t i = 0; i < graphs.size(); ++i) {
        m_streams.push_back(std::make_unique<CCameraStream>(m_options.cameras[i], std::move(graphs[i])));
        connect(m_streams.back().get(), &CCameraStream::failed, this, &CStreamRun::onFailed);
        connect(m_streams.back().get(), &CCameraStream::ended, this, &CStreamRun::onEnded);
    }
    return true;
}

bool CStreamRun::forEachStream(const Step& step)
{
    for (const auto& stream : m_streams) {
        // A graph may be gone since the last step.
        if (m_error.isEmpty())
            fail(step(*stream));
    }
    return m_error.isEmpty();
}

bool CStreamRun::openCameras()
{
    return forEachStream([this](CCameraStream& stream) { return stream.open(m_services.models()); });
}

bool CStreamRun::prepareSinks()
{
    return forEachStream(
        [this](CCameraStream& stream) { return stream.prepareSinks(folder(stream), m_options.writeEvery); });
}

bool CStreamRun::saveScene()
{
    // Before the first frame: the graph does not change any more, and who cannot save learns it at once.
    if (!m_options.save.isEmpty())
        fail(replaceFile(m_options.save, m_streams.front()->graph().scene().saveToMemory()));
    return m_error.isEmpty();
}

bool CStreamRun::writeGraphFiles()
{
    if (m_options.load.isEmpty())
        // It may be the very file that was read.
        fail(replaceFile(QDir(m_options.output).filePath(QStringLiteral("chain.json")), m_chain));
    return m_error.isEmpty() && forEachStream([this](CCameraStream& stream) {
               const CGraphText graph(stream.graph().scene());
               const QDir output(folder(stream));
               const QString error = writeTextFile(output.filePath(QStringLiteral("graph.txt")), graph.text());
               return error.isEmpty() ? writeTextFile(output.filePath(QStringLiteral("graph.dot")), graph.dot())
                                      : error;
           });
}

bool CStreamRun::stream()
{
    CSignalWatcher signalWatcher;
    connect(&signalWatcher, &CSignalWatcher::received, this, &CStreamRun::onSignal);
    if (!forEachStream([this](CCameraStream& each) { return each.start(m_options.frames, m_options.silence); }))
        requestEnd();
    if (!isStreaming())
        return false;
    m_hasStreamed = true;

    CProgressLine line(stderr);
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { showProgress(line); });
    timer.start(progressInterval);
    m_loop.exec();
    showProgress(line);
    // The cameras are stopped with this object, after the report: one that has gone takes seconds not to answer.
    return true;
}

bool CStreamRun::isStreaming() const
{
    return std::any_of(m_streams.begin(), m_streams.end(), [](const auto& stream) { return stream->isStreaming(); });
}

void CStreamRun::onFailed(const QString& error)
{
    fail(error);
    requestEnd();
}

void CStreamRun::onEnded()
{
    if (!isStreaming())
        m_loop.quit();
}

void CStreamRun::onSignal(int number)
{
    m_signal = number;
    requestEnd();
}

void CStreamRun::requestEnd()
{
    for (const auto& stream : m_streams)
        stream->requestEnd();
}

void CStreamRun::fail(const QString& error)
{
    if (m_error.isEmpty())
        m_error = error;
}

void CStreamRun::showProgress(CProgressLine& line) const
{
    SGrabStatistics sum;
    double rate = 0.0;
    for (const auto& stream : m_streams) {
        if (!stream->isStarted())
            continue;
        const SRunReport now = stream->report();
        sum.grabbed += now.frames.grabbed;
        sum.complete += now.frames.complete;
        sum.incomplete += now.frames.incomplete;
        sum.underruns += now.frames.underruns;
        rate += now.framesPerSecond();
    }
    if (sum.grabbed == 0)
        return;
    line.show(QStringLiteral("%1/%2 frames, %3 per second, %4 incomplete, %5 underruns")
                  .arg(sum.complete)
                  .arg(m_streams.size() * std::size_t(m_options.frames))
                  .arg(rate, 0, 'f', 1)
                  .arg(sum.incomplete)
                  .arg(sum.underruns));
}

bool CStreamRun::printReport()
{
    QStringList texts;
    for (const auto& stream : m_streams) {
        if (!stream->isStarted() || !stream->graph().isIntact())
            continue;
        SRunReport report = stream->account();
        const QString mismatch = report.mismatch();
        if (!mismatch.isEmpty())
            fail(QStringLiteral("camera '%1': %2").arg(stream->camera(), mismatch));
        report.ending = ending();
        texts << report.text();
    }
    return printText(texts.join(QLatin1Char('\n')));
}

QString CStreamRun::ending() const
{
    if (!m_error.isEmpty())
        return QStringLiteral("by an error");
    if (m_signal != 0)
        return QStringLiteral("by signal %1").arg(m_signal);
    return QStringLiteral("after %1 frames, as asked").arg(m_options.frames);
}

QString CStreamRun::folder(const CCameraStream& stream) const
{
    return QDir(m_options.output).filePath(stream.camera());
}

} // namespace Host
