// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/SRunReport.h"

#include <QFileInfo>
#include <QStringList>
#include <QTextStream>

#include <algorithm>
#include <cmath>

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

/// A name and figures below their headings.
void writeFigures(QTextStream& out, const QString& name, const QStringList& figures)
{
    out << name.leftJustified(26);
    for (const QString& figure : figures)
        out << figure.rightJustified(11);
    out << '\n';
}

void writeDecouplers(QTextStream& out, const std::vector<SDecouplerReport>& decouplers)
{
    writeFigures(out, "Decoupler", {"per second", "received", "emitted", "dropped", "cancelled", "pending"});
    for (const SDecouplerReport& decoupler : decouplers) {
        const auto& counts = decoupler.counts;
        writeFigures(out, decoupler.name,
                     {QString::number(decoupler.framesPerSecond), QString::number(counts.received),
                      QString::number(counts.emitted), QString::number(counts.dropped),
                      QString::number(counts.cancelled), QString::number(counts.pending)});
    }
    out << '\n';
}

QString percent(double share)
{
    return QStringLiteral("%1 %").arg(share * 100, 0, 'f', 1);
}

void writeWorkers(QTextStream& out, const std::vector<SWorkerReport>& workers, std::chrono::nanoseconds span)
{
    writeFigures(out, "Filter", {"of a core", "p50", "p99", "received", "emitted", "dropped", "failed"});
    for (const SWorkerReport& worker : workers) {
        const auto& counts = worker.counts;
        const double share = span.count() > 0 ? double(counts.workSum) / double(span.count()) : 0;
        writeFigures(out, worker.name,
                     {percent(share), milliseconds(std::chrono::nanoseconds(counts.workP50)),
                      milliseconds(std::chrono::nanoseconds(counts.workP99)), QString::number(counts.received),
                      QString::number(counts.emitted), QString::number(counts.dropped + counts.cancelled),
                      QString::number(counts.failed)});
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

QString workerMismatch(const SWorkerReport& worker)
{
    const auto& counts = worker.counts;
    if (counts.received != worker.expected)
        return QStringLiteral("the filter '%1' received %2 frames, not the %3 that went its way")
            .arg(worker.name)
            .arg(counts.received)
            .arg(worker.expected);
    if (counts.pending != 0)
        return QStringLiteral("the filter '%1' did not get done with its frames in time").arg(worker.name);
    if (counts.failed != 0)
        return QStringLiteral("the filter '%1' failed on %2 frames").arg(worker.name).arg(counts.failed);
    return {};
}

/// The first complaint about any of \a reports; empty if there is none.
template <typename Reports, typename Mismatch>
QString firstMismatch(const Reports& reports, const Mismatch& mismatch)
{
    for (const auto& report : reports) {
        const QString error = mismatch(report);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

QString sinkMismatch(const SSinkReport& sink)
{
    if (sink.delivered == sink.expected)
        return {};
    return QStringLiteral("the sink '%1' got %2 frames, not the %3 that went its way")
        .arg(sink.name)
        .arg(sink.delivered)
        .arg(sink.expected);
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
    QString error = firstMismatch(decouplers, &decouplerMismatch);
    if (error.isEmpty())
        error = firstMismatch(workers, &workerMismatch);
    return error.isEmpty() ? firstMismatch(sinks, &sinkMismatch) : error;
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
    if (!workers.empty())
        writeWorkers(out, workers, span);
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
