// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamRun.h"

#include "host/base/EExitCode.h"
#include "host/report/CProgressLine.h"
#include "host/run/CCameraStream.h"
#include "host/run/CLineReader.h"
#include "host/run/CSignalWatcher.h"
#include "host/run/CStreamGraph.h"
#include "host/run/CTraceFile.h"
#include "host/run/Output.h"
#include "host/run/RunGraphs.h"
#include "host/run/RunManifest.h"
#include "host/run/RunOutput.h"
#include "host/run/RunSettings.h"

#include <QDir>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace Host {

namespace {

constexpr std::chrono::milliseconds progressInterval(100);

} // namespace

CStreamRun::CStreamRun(SRunOptions options)
    : m_options(std::move(options))
    , m_services(m_options.plugins)
{
}

CStreamRun::~CStreamRun() = default;

int CStreamRun::exec()
{
    if (loadPlugins() && buildGraphs() && applySettings() && openCameras() && openFolder() && openFiles() &&
        prepareSinks() && writeGraphFiles() && stream())
        printReport();
    closeFiles();
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
    QString error;
    SRunGraphs built = buildRunGraphs(m_options, m_services, &error);
    fail(error);
    if (!m_error.isEmpty())
        return false;

    m_chains = built.chains;
    const std::vector<SourceOptions> sources = m_options.sources();
    for (std::size_t i = 0; i < built.graphs.size(); ++i) {
        m_streams.push_back(std::make_unique<CCameraStream>(sources[i], std::move(built.graphs[i])));
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

bool CStreamRun::applySettings()
{
    return forEachStream(
        [this](CCameraStream& stream) { return Host::applySettings(stream.graph(), m_options.settings); });
}

bool CStreamRun::openCameras()
{
    return forEachStream([this](CCameraStream& stream) { return stream.open(m_services.models()); });
}

bool CStreamRun::openFolder()
{
    fail(m_folder.open(m_options.output, m_options.isKept));
    if (m_error.isEmpty())
        fail(m_folder.conflict(runClaims(m_options, m_streams), m_options.filesInUse(), m_options.chains));
    return m_error.isEmpty();
}

// Before anything is replaced all of it is tried. What no trial shows may still go wrong then, such as a full disk.
bool CStreamRun::openFiles()
{
    QString error = tryDocuments(m_options);
    if (error.isEmpty())
        error = saveScene(m_options.save, m_services, m_streams);
    if (error.isEmpty())
        m_trace = openTrace(m_options.trace, m_streams, &error);
    if (error.isEmpty())
        error = m_folder.begin(runClaims(m_options, m_streams), runFacts(m_options, m_services.models()));
    if (error.isEmpty())
        error = writeChains(m_chains, m_folder.path());
    fail(error);
    return m_error.isEmpty();
}

void CStreamRun::closeFiles()
{
    if (m_trace)
        fail(m_trace->close());
    fail(m_folder.finish(runOutcome(m_reports, m_liveSettings, m_error), areFilesWritten(m_streams)));
}

bool CStreamRun::prepareSinks()
{
    return forEachStream(
        [this](CCameraStream& stream) { return stream.prepareSinks(folder(stream), m_options.writeEvery); });
}

bool CStreamRun::writeGraphFiles()
{
    return forEachStream(
        [this](CCameraStream& stream) { return Host::writeGraphFiles(stream.graph().scene(), folder(stream)); });
}

bool CStreamRun::stream()
{
    CSignalWatcher signalWatcher;
    connect(&signalWatcher, &CSignalWatcher::received, this, &CStreamRun::onSignal);
    if (!forEachStream(
            [this](CCameraStream& each) { return each.start(m_options.frames, m_options.silence, m_options.timeout); }))
        requestEnd();
    if (!isStreaming())
        return false;
    m_hasStreamed = true;

    if (m_options.duration.count() > 0)
        QTimer::singleShot(m_options.duration, this, &CStreamRun::onTimeUp);
    std::unique_ptr<CLineReader> commands;
    if (!m_options.readsStandardInput())
        commands = obeyStandardInput(m_streams, &m_liveSettings);
    CProgressLine line(stderr);
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { line.show(runProgress(m_streams, m_options.frames)); });
    timer.start(progressInterval);
    m_loop.exec();
    const QString end = m_error.isEmpty() && m_signal == 0 && !m_isTimeUp ? runOutText(m_streams) : ending();
    line.showLast(lastProgress(m_streams, m_options.frames, end));
    // The cameras are stopped with this object, after the report: one that has gone takes seconds not to answer.
    return true;
}

void CStreamRun::onTimeUp()
{
    m_isTimeUp = true;
    requestEnd();
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

void CStreamRun::printReport()
{
    const QString ended = ending(); // as it did, whatever is found now
    for (const auto& stream : m_streams) {
        if (!stream->isStarted() || !stream->graph().isIntact())
            continue;
        m_reports.push_back(stream->account());
        SRunReport& report = m_reports.back();
        report.askedForPerSecond = m_options.askedForPerSecond;
        if (report.ending.isEmpty())
            report.ending = ended;
        else // it ran out
            report.askedForFrames = quint64(m_options.frames);
        report.failed = report.failure(m_options.isStrict);
        if (!report.failed.isEmpty())
            fail(QStringLiteral("camera '%1': %2").arg(stream->camera(), report.failed));
    }
    if (!m_options.json.isEmpty())
        fail(writeRunJson(m_options.json, m_reports, m_liveSettings, m_error));
    if (!m_options.hasStandardOutput())
        fail(printText(runText(m_reports, !m_error.isEmpty())));
}

QString CStreamRun::ending() const
{
    return runEnding(m_options, m_error, m_signal, m_isTimeUp);
}

QString CStreamRun::folder(const CCameraStream& stream) const
{
    return QDir(m_folder.path()).filePath(stream.camera());
}

} // namespace Host
