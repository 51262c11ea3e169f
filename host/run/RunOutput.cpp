// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/RunOutput.h"

#include "host/base/Counted.h"
#include "host/base/InputFile.h"
#include "host/base/RunFiles.h"
#include "host/check/CDocumentCheck.h"
#include "host/documents/DocumentFile.h"
#include "host/plugins/CHostServices.h"
#include "host/report/CGraphText.h"
#include "host/report/SRunReport.h"
#include "host/report/Terminal.h"
#include "host/run/CCameraStream.h"
#include "host/run/CStreamGraph.h"
#include "host/run/CTraceFile.h"
#include "host/run/Output.h"
#include "host/run/SRunOptions.h"
#include "host/run/SceneFile.h"

#include <Halvex/Halvex.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStringList>

#include <cerrno>
#include <cstring>
#include <limits>

#include <unistd.h>

namespace Host {

namespace {

// "30/300 frames, 10 %" or, without an end, "30 frames".
QString share(quint64 complete, quint64 all)
{
    if (all == 0)
        return counted(complete, "frame");
    return QStringLiteral("%1/%2, %3 %").arg(complete).arg(counted(all, "frame")).arg(complete * 100 / all);
}

// What a reader should know of cameras that go away; empty if none did.
QString absenceText(const std::vector<std::unique_ptr<CCameraStream>>& streams)
{
    quint64 count = 0;
    QStringList away;
    for (const auto& stream : streams) {
        const SAbsences absences = stream->isStarted() ? stream->report().absences : SAbsences();
        count += quint64(absences.count);
        if (absences.isAway)
            away << QStringLiteral("'%1'").arg(stream->camera());
    }
    QString text = count == 0 ? QString() : QStringLiteral(", came back %1").arg(counted(count, "time"));
    if (!away.isEmpty())
        text += QStringLiteral(", waiting for %1").arg(away.join(QStringLiteral(" and ")));
    return text;
}

} // namespace

QString runOutText(const std::vector<std::unique_ptr<CCameraStream>>& streams)
{
    for (const auto& stream : streams) {
        if (!stream->endText().isEmpty())
            return stream->endText();
    }
    return {};
}

QString runProgress(const std::vector<std::unique_ptr<CCameraStream>>& streams, int frames)
{
    SGrabStatistics sum;
    QStringList rates;
    for (const auto& stream : streams) {
        if (!stream->isStarted())
            continue;
        const SRunReport now = stream->report();
        sum.complete += now.frames.complete;
        sum.incomplete += now.frames.incomplete;
        sum.underruns += now.frames.underruns;
        sum.grabbed += now.frames.grabbed;
        if (const auto rate = now.framesPerSecond())
            rates << QString::number(*rate, 'f', 1);
    }
    if (sum.grabbed == 0)
        return {};
    const QString rateText =
        rates.isEmpty() ? QString() : QStringLiteral(", %1 per second").arg(rates.join(QStringLiteral(" and ")));
    return QStringLiteral("%1%2, %3 incomplete, %4%5")
        .arg(share(sum.complete, streams.size() * quint64(frames)), rateText)
        .arg(sum.incomplete)
        .arg(counted(sum.underruns, "underrun"), absenceText(streams));
}

QString lastProgress(const std::vector<std::unique_ptr<CCameraStream>>& streams, int frames, const QString& end)
{
    const QString progress = runProgress(streams, frames);
    return progress.isEmpty() || end.isEmpty() ? progress : QStringLiteral("%1, ended %2").arg(progress, end);
}

QString runEnding(const SRunOptions& options, const QString& error, int signal, bool isTimeUp)
{
    if (!error.isEmpty())
        return QStringLiteral("by an error");
    if (signal != 0)
        return QStringLiteral("by signal %1").arg(signal);
    if (isTimeUp)
        return QStringLiteral("after %1 s, as asked").arg(double(options.duration.count()) / 1000.0);
    return QStringLiteral("after %1, as asked").arg(counted(quint64(options.frames), "frame"));
}

QString runText(const std::vector<SRunReport>& reports, bool hasFailed)
{
    QStringList texts;
    // What is no terminal may be read by a program: a row stays a row.
    const int width = isatty(fileno(stdout)) == 1 ? columnsOf(stdout) : std::numeric_limits<int>::max();
    for (const SRunReport& report : reports) {
        // A table of dashes would only hide the message.
        if (hasFailed && report.frames.grabbed == 0)
            continue;
        texts << report.text(width, takesColors(stdout));
    }
    return texts.join(QLatin1Char('\n'));
}

QString tryDocuments(const SRunOptions& options)
{
    const QStringList files = options.writtenFiles();
    for (const QString& file : files) {
        const QString error = tryOutput(file);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

QString saveScene(const QString& file, const CHostServices& services,
                  const std::vector<std::unique_ptr<CCameraStream>>& streams)
{
    if (file.isEmpty())
        return {};
    const CCameraStream& first = *streams.front();
    const QByteArray document = orderedScene(first.graph().scene().saveToMemory());
    CDocumentCheck check(services.nodes(), services.models(), {EDocumentKind::Scene, {first.camera()}});
    const QString faults = faultsText(QStringLiteral("cannot save '%1'"), inputName(file), check.check(document));
    return faults.isEmpty() ? writeOutput(file, document) : faults;
}

std::shared_ptr<CTraceFile> openTrace(const QString& file, const std::vector<std::unique_ptr<CCameraStream>>& streams,
                                      QString* error)
{
    if (file.isEmpty())
        return nullptr;
    auto trace = std::make_shared<CTraceFile>(file);
    *error = trace->open();
    int process = 0;
    for (const auto& stream : streams) {
        if (stream->graph().isIntact())
            stream->graph().traceInto(trace, ++process, stream->camera());
    }
    return trace;
}

QString writeGraphFiles(const Plugin::Halvex::CNodeScene& scene, const QString& folder)
{
    const CGraphText graph(scene);
    const QDir output(folder);
    const QString error = writeTextFile(output.filePath(RunFiles::graphText()), graph.text());
    return error.isEmpty() ? writeTextFile(output.filePath(RunFiles::graphPicture()), graph.dot()) : error;
}

QString writeRunJson(const QString& file, const std::vector<SRunReport>& reports, const QJsonArray& liveSettings,
                     const QString& error)
{
    QJsonArray cameras;
    for (const SRunReport& report : reports)
        cameras.append(report.json());
    const QJsonObject root{{"version", HALVEX_VERSION_STR},
                           {"error", error.isEmpty() ? QJsonValue() : QJsonValue(error)},
                           {"live_settings", liveSettings},
                           {"cameras", cameras}};
    // The folder may have been an earlier run's, and have gone with its files.
    const QString fault = makeFolder(QFileInfo(file).path());
    return fault.isEmpty() ? writeOutput(file, QJsonDocument(root).toJson()) : fault;
}

} // namespace Host
