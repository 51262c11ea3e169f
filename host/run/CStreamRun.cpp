// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamRun.h"

#include "host/base/EExitCode.h"
#include "host/report/CProgressLine.h"
#include "host/report/Counted.h"
#include "host/run/CCameraStream.h"
#include "host/run/CLineReader.h"
#include "host/run/CSignalWatcher.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Output.h"
#include "host/run/RunGraphs.h"
#include "host/run/RunOutput.h"
#include "host/run/RunSettings.h"
#include "host/run/SceneFile.h"

#include <QDir>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <cstring>
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
    if (loadPlugins() && buildGraphs() && applySettings() && openCameras() && prepareSinks() && saveScene() &&
        writeGraphFiles() && stream() && !printReport())
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

bool CStreamRun::prepareSinks()
{
    return forEachStream(
        [this](CCameraStream& stream) { return stream.prepareSinks(folder(stream), m_options.writeEvery); });
}

bool CStreamRun::saveScene()
{
    // Before the first frame: the graph does not change any more, and who cannot save learns it at once.
    if (!m_options.save.isEmpty())
        fail(writeOutput(m_options.save, orderedScene(m_streams.front()->graph().scene().saveToMemory())));
    return m_error.isEmpty();
}

bool CStreamRun::writeGraphFiles()
{
    fail(writeChains(m_chains, m_options.output));
    return m_error.isEmpty() && forEachStream([this](CCameraStream& stream) {
               return Host::writeGraphFiles(stream.graph().scene(), folder(stream));
           });
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
    if (!m_options.readsStandardInput()) {
        commands = std::make_unique<CLineReader>(stdin);
        connect(commands.get(), &CLineReader::lineRead, this, &CStreamRun::onCommand);
    }
    CProgressLine line(stderr);
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { line.show(runProgress(m_streams, m_options.frames)); });
    timer.start(progressInterval);
    m_loop.exec();
    const bool isUndisturbed = m_error.isEmpty() && m_signal == 0;
    const QString end = isUndisturbed ? runOutText() : ending();
    line.showLast(runProgress(m_streams, m_options.frames) + (end.isEmpty() ? QString() : ", ended " + end));
    // The cameras are stopped with this object, after the report: one that has gone takes seconds not to answer.
    return true;
}

void CStreamRun::onTimeUp()
{
    m_isTimeUp = true;
    requestEnd();
}

void CStreamRun::onCommand(const QString& line)
{
    // What is mistyped is told, and the run goes on: frames are being recorded.
    for (const auto& stream : m_streams) {
        const QString error = stream->graph().isIntact() ? obey(stream->graph(), line) : QString();
        if (!error.isEmpty())
            return printErrorLine(error);
    }
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

bool CStreamRun::printReport()
{
    std::vector<SRunReport> reports;
    for (const auto& stream : m_streams) {
        if (!stream->isStarted() || !stream->graph().isIntact())
            continue;
        reports.push_back(stream->account());
        reports.back().askedForPerSecond = m_options.askedForPerSecond;
        const QString failure = reports.back().failure(m_options.isStrict);
        if (!failure.isEmpty())
            fail(QStringLiteral("camera '%1': %2").arg(stream->camera(), failure));
    }
    for (SRunReport& report : reports) {
        if (report.ending.isEmpty())
            report.ending = ending();
    }
    if (!m_options.json.isEmpty())
        fail(writeRunJson(m_options.json, reports, m_error));
    return m_options.hasStandardOutput() || printText(runText(reports));
}

QString CStreamRun::runOutText() const
{
    for (const auto& stream : m_streams) {
        if (!stream->endText().isEmpty())
            return stream->endText();
    }
    return {};
}

QString CStreamRun::ending() const
{
    if (!m_error.isEmpty())
        return QStringLiteral("by an error");
    if (m_signal != 0)
        return QStringLiteral("by signal %1").arg(m_signal);
    if (m_isTimeUp)
        return QStringLiteral("after %1 s, as asked").arg(double(m_options.duration.count()) / 1000.0);
    return QStringLiteral("after %1, as asked").arg(counted(quint64(m_options.frames), "frame"));
}

QString CStreamRun::folder(const CCameraStream& stream) const
{
    return QDir(m_options.output).filePath(stream.camera());
}

} // namespace Host
