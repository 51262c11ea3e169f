// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/RunSettings.h"

#include "host/base/Shown.h"
#include "host/run/CCameraStream.h"
#include "host/run/CLineReader.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Output.h"

namespace Host {

namespace {

using Streams = std::vector<std::unique_ptr<CCameraStream>>;

void obey(const Streams& streams, const QString& line)
{
    const QString set = QStringLiteral("set ");
    const SNodeSetting setting = SNodeSetting::read(line.mid(set.size()));
    if (!line.startsWith(set) || setting.key.isEmpty())
        return printErrorLine(
            QStringLiteral("'set NODE.key=value' is all that can be said now, not %1").arg(shown(line)));
    for (const auto& stream : streams) {
        const QString error = stream->graph().isIntact() ? stream->graph().set(setting) : QString();
        if (!error.isEmpty())
            return printErrorLine(QStringLiteral("set %1: %2").arg(printable(setting.text()), error));
    }
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

std::unique_ptr<CLineReader> obeyStandardInput(const Streams& streams)
{
    auto reader = std::make_unique<CLineReader>(stdin);
    QObject::connect(reader.get(), &CLineReader::lineRead, reader.get(),
                     [&streams](const QString& line) { obey(streams, line); });
    QObject::connect(reader.get(), &CLineReader::lineLeftOut, &tellLeftOut);
    return reader;
}

} // namespace Host
