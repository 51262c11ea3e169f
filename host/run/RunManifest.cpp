// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/RunManifest.h"

#include "host/base/RunFiles.h"
#include "host/camera/Device.h"
#include "host/models/IHostModels.h"
#include "host/report/SRunReport.h"
#include "host/run/CCameraStream.h"
#include "host/run/CStreamGraph.h"
#include "host/run/RunGraphs.h"
#include "host/run/SRunOptions.h"
#include "host/sinks/IFrameSink.h"

#include <Halvex/Halvex.h>

#include <QCoreApplication>

#include <algorithm>

namespace Host {

namespace {

QJsonValue textOrNull(const QString& text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

} // namespace

QStringList runClaims(const SRunOptions& options, const std::vector<std::unique_ptr<CCameraStream>>& streams)
{
    QStringList claims;
    if (options.load.isEmpty())
        claims << chainFiles(std::max(std::size_t(options.chains.size()), std::size_t(1)));
    for (const auto& stream : streams) {
        const QString folder = stream->camera() + QLatin1Char('/');
        claims << folder + RunFiles::graphText() << folder + RunFiles::graphPicture();
        for (const IFrameSink* sink : stream->graph().sinks()) {
            const QStringList files = sink->fileNames();
            for (const QString& names : files)
                claims << folder + sink->sinkName() + QLatin1Char('/') + names;
        }
    }
    return claims;
}

bool areFilesWritten(const std::vector<std::unique_ptr<CCameraStream>>& streams)
{
    return std::all_of(streams.begin(), streams.end(), [](const auto& stream) { return stream->areFilesWritten(); });
}

QJsonObject runFacts(const SRunOptions& options, const IHostModels& models)
{
    const QJsonObject versions{{"program", HALVEX_VERSION_STR},
                               {"library", HALVEX_VERSION_STR},
                               {"qt", qVersion()},
                               {"aravis", aravisVersion()},
                               {"opencv", models.imageLibraryVersion()}};
    const bool hasDefaultChain = options.chains.isEmpty() && options.load.isEmpty();
    return {{"command", QJsonArray::fromStringList(QCoreApplication::arguments())},
            {"versions", versions},
            {"chains", QJsonArray::fromStringList(hasDefaultChain ? QStringList("the default one") : options.chains)},
            {"scene", textOrNull(options.load)}};
}

QJsonObject runOutcome(const std::vector<SRunReport>& reports, const QJsonArray& liveSettings, const QString& error)
{
    const QString ending = reports.empty() ? QString() : reports.front().ending;
    QJsonArray cameras;
    for (const SRunReport& report : reports) {
        QJsonObject camera = report.json();
        camera.remove(QStringLiteral("nodes"));
        QJsonArray sinks;
        for (const SSinkReport& sink : report.sinks)
            sinks.append(QJsonObject{
                {"name", sink.name}, {"delivered", double(sink.delivered)}, {"written", double(sink.written)}});
        camera.insert(QStringLiteral("sinks"), sinks);
        cameras.append(camera);
    }
    return {{"cameras", cameras},
            {"live_settings", liveSettings},
            {"ending", textOrNull(ending)},
            {"error", textOrNull(error)}};
}

} // namespace Host
