// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CTable.h"
#include "host/report/KnownNumber.h"
#include "host/report/LabelledLine.h"
#include "host/report/SRunReport.h"
#include "host/report/Terminal.h"

#include <QFileInfo>
#include <QTextStream>

#include <cmath>

namespace Host {

namespace {

QString milliseconds(Delay time)
{
    if (!time)
        return {};
    const QString text = QString::number(double(time->count()) / 1e6, 'f', 2);
    return text == QLatin1String("0.00") ? QStringLiteral("<0.01") : text;
}

// "a/frame-000000.png to frame-000270.png"
QString fileRange(const std::vector<QString>& files)
{
    if (files.size() < 2)
        return files.empty() ? QString() : files.front();
    return QStringLiteral("%1 to %2").arg(files.front(), QFileInfo(files.back()).fileName());
}

// How much of one core the work took. Of a run that was shorter than its frames take, that says nothing.
QString percentOfCore(Delay worked, std::chrono::nanoseconds span)
{
    constexpr std::chrono::milliseconds least(50);
    return worked && span >= least ? QString::number(100.0 * double(worked->count()) / double(span.count()), 'f', 1)
                                   : QString();
}

CTable nodeTable(const std::vector<SNodeReport>& nodes, std::chrono::nanoseconds span)
{
    CTable table({"Node", ">in", ">out", ">fps", ">work", ">core", ">p50", ">p99", ">drops", ">left"});
    for (const SNodeReport& node : nodes)
        table.addRow({node.name, numberText(node.in), numberText(node.out), rateText(node.framesPerSecond),
                      milliseconds(node.computing), percentOfCore(node.worked, span), milliseconds(node.grabToHere),
                      milliseconds(node.grabToHere99), numberText(node.dropped), numberText(node.pending)});
    return table;
}

CTable sinkTable(const std::vector<SSinkReport>& sinks)
{
    CTable table({"Sink", ">delivered", ">written", "Files"});
    for (const SSinkReport& sink : sinks)
        table.addRow(
            {sink.name, QString::number(sink.delivered), QString::number(sink.written), fileRange(sink.files)});
    return table;
}

// What each decoupler really does: a rate may be set that no timer has.
void writeRates(QTextStream& out, const std::vector<SDecouplerReport>& decouplers, int width)
{
    for (const SDecouplerReport& decoupler : decouplers) {
        const QString most = decoupler.mostPerSecond
                                 ? QStringLiteral("at most %1 frames per second").arg(*decoupler.mostPerSecond)
                                 : QStringLiteral("at most one frame in each pass of the event loop");
        QString line = QStringLiteral("Rate of %1: %2").arg(decoupler.name, most);
        // What is not even a number is not close either.
        if (!decoupler.mostPerSecond || !(std::abs(*decoupler.mostPerSecond - decoupler.framesPerSecond) <= 0.5))
            line += QStringLiteral(", although it is set to %1").arg(decoupler.framesPerSecond);
        out << wrapped(line, width, 0);
    }
}

void writeErrors(QTextStream& out, const std::vector<SNodeReport>& nodes)
{
    for (const SNodeReport& node : nodes) {
        if (!node.lastError.isEmpty())
            out << "Error of " << node.name << ": " << node.lastError << '\n';
    }
}

} // namespace

QString SRunReport::text(int width, bool isBold) const
{
    QString text;
    QTextStream out(&text);
    const QString given = rateText(framesPerSecond());
    out << "Graph\n" << graph << '\n';
    const QString grabbed = QStringLiteral("%1 = %2 complete + %3 incomplete")
                                .arg(frames.grabbed)
                                .arg(frames.complete)
                                .arg(frames.incomplete);
    out << labelledLine("Camera", camera, width) << labelledLine("Ended", ending, width);
    if (!failed.isEmpty())
        out << labelledLine("Failed", failed, width);
    out << labelledLine("Frames grabbed", grabbed, width)
        << labelledLine("Underruns", QString::number(frames.underruns), width)
        << labelledLine("Frames per second", given, width);
    const QStringList said = remarks();
    for (const QString& remark : said)
        out << labelledLine("Remark", remark, width);
    if (!nodes.empty())
        out << '\n'
            << nodeTable(nodes, span).text(width, isBold)
            << wrapped("work: median of a frame's own computing; p50, p99: from the grab to here; in ms", width, 0)
            << wrapped("core: how much of one core that computing took, in %; left: pending at the end", width, 0);
    writeRates(out, decouplers, width);
    writeErrors(out, nodes);
    if (!sinks.empty())
        out << '\n' << sinkTable(sinks).text(width, isBold);
    out.flush();
    return text;
}

} // namespace Host
