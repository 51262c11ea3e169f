// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SRunReport.h"

#include <QFileInfo>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace Host {

namespace {

QString milliseconds(std::chrono::nanoseconds time)
{
    return QStringLiteral("%1 ms").arg(double(time.count()) / 1e6, 0, 'f', 2);
}

// "a/frame-000000.png to frame-000270.png"
QString fileRange(const std::vector<QString>& files)
{
    if (files.empty())
        return QStringLiteral("none");
    if (files.size() == 1)
        return files.front();
    return QStringLiteral("%1 to %2").arg(files.front(), QFileInfo(files.back()).fileName());
}

void writeRow(QTextStream& out, const QString& sink, const QString& delivered, const QString& median,
              const QString& percentile99, const QString& written, const QString& files)
{
    out << sink.leftJustified(12) << delivered.rightJustified(9) << median.rightJustified(18)
        << percentile99.rightJustified(11) << written.rightJustified(9) << "  " << files << '\n';
}

void writeDecouplers(QTextStream& out, const std::vector<SDecouplerReport>& decouplers)
{
    const auto row = [&out](const QString& name, std::initializer_list<QString> cells) {
        out << name.leftJustified(26);
        for (const QString& cell : cells)
            out << cell.rightJustified(11);
        out << '\n';
    };
    row(QStringLiteral("Decoupler"),
        {QStringLiteral("per second"), QStringLiteral("received"), QStringLiteral("emitted"), QStringLiteral("dropped"),
         QStringLiteral("cancelled"), QStringLiteral("pending")});
    for (const SDecouplerReport& decoupler : decouplers) {
        const auto& counts = decoupler.counts;
        row(decoupler.name, {QString::number(decoupler.framesPerSecond), QString::number(counts.received),
                             QString::number(counts.emitted), QString::number(counts.dropped),
                             QString::number(counts.cancelled), QString::number(counts.pending)});
    }
    out << '\n';
}

QString decouplerMismatch(const SDecouplerReport& decoupler)
{
    const auto& counts = decoupler.counts;
    if (counts.received != decoupler.expected)
        return QStringLiteral("the decoupler '%1' received %2 frames, not the %3 that went its way")
            .arg(decoupler.name)
            .arg(counts.received)
            .arg(decoupler.expected);
    if (counts.received != counts.emitted + counts.dropped + counts.cancelled + counts.pending)
        return QStringLiteral("the counts of the decoupler '%1' do not add up").arg(decoupler.name);
    if (counts.pending != 0 || counts.emitted != decoupler.delivered)
        return QStringLiteral("the decoupler '%1' let its last frame not through in time").arg(decoupler.name);
    return {};
}

} // namespace

double SRunReport::framesPerSecond() const
{
    if (frames.complete < 2 || span.count() <= 0)
        return 0.0;
    return double(frames.complete - 1) * 1e9 / double(span.count());
}

QString SRunReport::mismatch() const
{
    for (const SDecouplerReport& decoupler : decouplers) {
        const QString error = decouplerMismatch(decoupler);
        if (!error.isEmpty())
            return error;
    }
    const auto found = std::find_if(sinks.begin(), sinks.end(),
                                    [](const SSinkReport& sink) { return sink.delivered != sink.expected; });
    if (found == sinks.end())
        return {};
    return QStringLiteral("the sink '%1' got %2 frames, not the %3 that went its way")
        .arg(found->name)
        .arg(found->delivered)
        .arg(found->expected);
}

QString SRunReport::text() const
{
    QString text;
    QTextStream out(&text);
    out << "Graph\n" << graph << '\n';
    out << "Camera             " << camera << '\n';
    out << "Ended              " << ending << '\n';
    out << "Frames grabbed     " << frames.grabbed << " = " << frames.complete << " complete + " << frames.incomplete
        << " incomplete\n";
    out << "Underruns          " << frames.underruns << '\n';
    out << "Frames per second  " << QString::number(framesPerSecond(), 'f', 1) << "\n\n";
    if (!decouplers.empty())
        writeDecouplers(out, decouplers);
    writeRow(out, QStringLiteral("Sink"), QStringLiteral("delivered"), QStringLiteral("grab to sink p50"),
             QStringLiteral("p99"), QStringLiteral("written"), QStringLiteral("files"));
    for (const SSinkReport& sink : sinks)
        writeRow(out, sink.name, QString::number(sink.delivered), milliseconds(sink.median),
                 milliseconds(sink.percentile99), QString::number(sink.files.size()), fileRange(sink.files));
    out.flush();
    return text;
}

std::chrono::nanoseconds percentile(std::vector<std::chrono::nanoseconds> values, double fraction)
{
    Q_ASSERT(fraction >= 0.0 && fraction <= 1.0);
    if (values.empty())
        return std::chrono::nanoseconds(0);
    const auto rank = std::max(1.0, std::ceil(fraction * double(values.size())));
    const auto nth = values.begin() + std::ptrdiff_t(rank) - 1;
    std::nth_element(values.begin(), nth, values.end());
    return *nth;
}

} // namespace Host
