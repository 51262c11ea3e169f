// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/SRunReport.h"

#include "host/base/Counted.h"
#include "host/report/MissedRate.h"

namespace Host {

namespace {

QString decouplerMismatch(const SDecouplerReport& decoupler)
{
    const auto& counts = decoupler.counts;
    if (counts.received != decoupler.expected)
        return QStringLiteral("the decoupler '%1' received %2, not the %3 that went its way")
            .arg(decoupler.name, counted(counts.received, "frame"))
            .arg(decoupler.expected);
    if (counts.received != counts.emitted + counts.dropped + counts.cancelled + counts.pending)
        return QStringLiteral("the counts of the decoupler '%1' do not add up").arg(decoupler.name);
    const bool isPendingSound = counts.pending == 0 || decoupler.isOnLoop;
    if (!isPendingSound || counts.emitted != decoupler.delivered)
        return QStringLiteral("the decoupler '%1' let its last frame not through in time").arg(decoupler.name);
    return {};
}

QString workerMismatch(const SWorkerReport& worker)
{
    const auto& counts = worker.counts;
    if (counts.received != worker.expected)
        return QStringLiteral("the filter '%1' received %2, not the %3 that went its way")
            .arg(worker.name, counted(counts.received, "frame"))
            .arg(worker.expected);
    if (counts.pending != 0)
        return QStringLiteral("the filter '%1' did not get done with its frames in time").arg(worker.name);
    if (counts.failed != 0)
        return QStringLiteral("the filter '%1' failed on %2").arg(worker.name, counted(counts.failed, "frame"));
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
    if (sink.delivered != sink.expected)
        return QStringLiteral("the sink '%1' got %2, not the %3 that went its way")
            .arg(sink.name, counted(sink.delivered, "frame"))
            .arg(sink.expected);
    if (sink.writing.dropped != 0)
        return QStringLiteral("the sink '%1' was too slow: it did not write %2")
            .arg(sink.name, counted(sink.writing.dropped, "file"));
    if (sink.writing.pending != 0)
        return QStringLiteral("the sink '%1' did not write its last %2 in time")
            .arg(sink.name, counted(sink.writing.pending, "file"));
    return {};
}

} // namespace

std::optional<double> SRunReport::framesPerSecond() const
{
    if (frames.complete < 2 || span.count() <= 0)
        return {};
    return double(frames.complete - 1) * 1e9 / double(span.count());
}

QString SRunReport::mismatch() const
{
    QString error = flowMismatch;
    if (error.isEmpty())
        error = firstMismatch(decouplers, &decouplerMismatch);
    if (error.isEmpty())
        error = firstMismatch(workers, &workerMismatch);
    return error.isEmpty() ? firstMismatch(sinks, &sinkMismatch) : error;
}

QStringList SRunReport::remarks() const
{
    QStringList remarks;
    if (frames.complete < askedForFrames)
        remarks
            << QStringLiteral("%1 were asked for, %2 came").arg(counted(askedForFrames, "frame")).arg(frames.complete);
    const QString missedRate = missedRateText(askedForPerSecond, framesPerSecond());
    if (!missedRate.isEmpty())
        remarks << missedRate;
    if (frames.incomplete > 0)
        remarks << QStringLiteral("%1 came incomplete").arg(counted(frames.incomplete, "frame"));
    if (frames.underruns > 0)
        remarks << QStringLiteral("%1 found no free buffer").arg(counted(frames.underruns, "frame"));
    if (frames.missed > 0)
        remarks << QStringLiteral("%1 never came, though the camera counted %2")
                       .arg(counted(frames.missed, "frame"), frames.missed == 1 ? "it" : "them");
    if (absences.count > 0)
        remarks << QStringLiteral("the camera had gone %1 and came back, %2 s in all")
                       .arg(counted(quint64(absences.count), "time"))
                       .arg(double(absences.total.count()) / 1000.0, 0, 'f', 1);
    return remarks;
}

QString SRunReport::failure(bool isStrict) const
{
    const QString wrong = mismatch();
    if (!wrong.isEmpty())
        return wrong;
    if (frames.complete == 0 && frames.incomplete > 0)
        return QStringLiteral("all of %1 came incomplete").arg(counted(frames.incomplete, "frame"));
    const QString remark = remarks().value(0);
    return isStrict && !remark.isEmpty() ? QStringLiteral("--strict: %1").arg(remark) : QString();
}

} // namespace Host
