// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/RunSettings.h"

#include "host/base/Shown.h"
#include "host/run/CCameraStream.h"
#include "host/run/CLineReader.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Output.h"

#include <QElapsedTimer>
#include <QJsonObject>

namespace Host {

namespace {

using Streams = std::vector<std::unique_ptr<CCameraStream>>;

// Whether it was taken.
bool obey(const Streams& streams, const SNodeSetting& setting)
{
    for (const auto& stream : streams) {
        const QString error = stream->graph().isIntact() ? stream->graph().set(setting) : QString();
        if (!error.isEmpty()) {
            printErrorLine(QStringLiteral("set %1: %2").arg(printable(setting.text()), error));
            return false;
        }
    }
    printErrorLine(
        QStringLiteral("set %1.%2: %3").arg(printable(setting.node), printable(setting.key), printable(setting.value)));
    return true;
}

SNodeSetting readCommand(const QString& line)
{
    const QString set = QStringLiteral("set ");
    const SNodeSetting setting = line.startsWith(set) ? SNodeSetting::read(line.mid(set.size())) : SNodeSetting();
    if (setting.key.isEmpty())
        printErrorLine(QStringLiteral("'set NODE.key=value' is all that can be said now, not %1").arg(shown(line)));
    return setting;
}

QJsonObject liveSettingJson(const SNodeSetting& setting, qint64 milliseconds)
{
    return {{"seconds", double(milliseconds) / 1000.0},
            {"node", setting.node},
            {"key", setting.key},
            {"value", setting.value}};
}

void tellLeftOut(const QString& beginning)
{
    printErrorLine(QStringLiteral("a line on standard input has more than %1 KiB and is left out: %2")
                       .arg(CLineReader::mostBytes / 1024)
                       .arg(shown(beginning)));
}

} // namespace

QString applySettings(CStreamGraph& graph, const std::vector<SNodeSetting>& settings)
{
    QStringList errors;
    for (const SNodeSetting& setting : settings) {
        // Who hears of a setting may change the graph, whose stream then says so.
        const QString error = graph.isIntact() ? graph.set(setting) : QString();
        if (!error.isEmpty())
            errors << QStringLiteral("--set %1: %2").arg(printable(setting.text()), error);
    }
    return errors.join(QLatin1Char('\n'));
}

std::unique_ptr<CLineReader> obeyStandardInput(const Streams& streams, QJsonArray* taken)
{
    auto reader = std::make_unique<CLineReader>(stdin);
    QElapsedTimer sinceStart;
    sinceStart.start();
    QObject::connect(reader.get(), &CLineReader::lineRead, reader.get(),
                     [&streams, taken, sinceStart](const QString& line) {
                         const SNodeSetting setting = readCommand(line);
                         if (!setting.key.isEmpty() && obey(streams, setting))
                             taken->append(liveSettingJson(setting, sinceStart.elapsed()));
                     });
    QObject::connect(reader.get(), &CLineReader::lineLeftOut, &tellLeftOut);
    return reader;
}

} // namespace Host
