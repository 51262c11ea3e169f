// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SRunReport.h"

#include <QFileInfo>
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

} // namespace

double SRunReport::framesPerSecond() const
{
    if (frames.complete < 2 || span.count() <= 0)
        return 0.0;
    return double(frames.complete - 1) * 1e9 / double(span.count());
}

QString SRunReport::shortSink() const
{
    const auto found = std::find_if(sinks.begin(), sinks.end(),
                                    [this](const SSinkReport& sink) { return sink.delivered != frames.complete; });
    return found == sinks.end() ? QString() : found->name;
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
