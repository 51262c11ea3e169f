// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/ByteText.h"
#include "host/report/KnownNumber.h"
#include "host/report/LabelledLine.h"
#include "host/report/LinkAdvice.h"
#include "host/report/SLinkReport.h"
#include "host/report/Terminal.h"

#include <QStringList>

namespace Host {

namespace {

constexpr double mega = 1e6;

QString packetSizeText(const SLinkReport& report)
{
    if (!report.packetBytes)
        return {};
    const QString size = byteText(*report.packetBytes);
    if (!report.largestPacketBytes)
        return QStringLiteral("%1; no test packets to find the largest").arg(size);
    return *report.largestPacketBytes > *report.packetBytes
               ? QStringLiteral("%1; up to %2 get through").arg(size, byteText(*report.largestPacketBytes))
               : QStringLiteral("%1, the largest that gets through").arg(size);
}

QString socketText(const SStreamSocket& socket)
{
    if (socket.isPacketSocket)
        return QStringLiteral("none needed: read from a packet socket");
    if (!socket.bufferBytes)
        return {};
    const QString size = byteText(*socket.bufferBytes);
    return socket.mostBufferBytes ? QStringLiteral("%1, at most %2").arg(size, byteText(*socket.mostBufferBytes))
                                  : size;
}

QString interfaceText(const SNetworkLink& link)
{
    QStringList parts;
    if (!link.interface.isEmpty())
        parts << link.interface;
    if (link.mtu)
        parts << QStringLiteral("packets of up to %1").arg(byteText(*link.mtu));
    if (link.bitsPerSecond)
        parts << QStringLiteral("%1 Mbit/s").arg(double(*link.bitsPerSecond) / mega);
    return parts.join(QStringLiteral(", "));
}

QString framesText(const SLinkReport& report, int width)
{
    const SGrabStatistics& frames = report.frames;
    const std::optional<double> bytes = report.bytesPerSecond();
    const QString grabbed = QStringLiteral("%1 = %2 complete + %3 incomplete")
                                .arg(frames.grabbed)
                                .arg(frames.complete)
                                .arg(frames.incomplete);
    return labelledLine("Frames grabbed", grabbed, width) +
           labelledLine("Frames missed", numberText(report.missedFrames()), width) +
           labelledLine("Underruns", QString::number(frames.underruns), width) +
           labelledLine("Frames per second", rateText(report.framesPerSecond()), width) +
           labelledLine("Data rate", rateText(bytes ? std::optional<double>(*bytes / mega) : std::nullopt, " MB/s"),
                        width);
}

QString packetsText(const SLinkReport& report, int width)
{
    const SPacketCounts& packets = report.packets;
    return labelledLine("Interface", interfaceText(report.link), width) +
           labelledLine("Packet size", packetSizeText(report), width) +
           labelledLine("Packets received", numberText(packets.received), width) +
           labelledLine("Packets missing", numberText(packets.missing), width) +
           labelledLine("Asked for again", numberText(packets.askedAgain), width) +
           labelledLine("Sent again", numberText(packets.sentAgain), width) +
           labelledLine("Socket buffer", socketText(report.socket), width) +
           labelledLine("Kernel drops", numberText(report.socket.drops), width);
}

QString usbMemoryText(const SUsbLink& usb)
{
    if (!usb.memoryBytes)
        return QStringLiteral("-");
    return *usb.memoryBytes == 0 ? QStringLiteral("no limit")
                                 : QStringLiteral("%1 for all cameras together").arg(byteText(*usb.memoryBytes));
}

QString usbText(const SUsbLink& usb, int width)
{
    return labelledLine("Interface", QStringLiteral("USB3 Vision"), width) +
           labelledLine("Memory for USB", usbMemoryText(usb), width);
}

QString adviceText(const SLinkReport& report, int width)
{
    constexpr int reasonIndent = 2;
    constexpr int commandIndent = 6;
    const std::vector<SLinkAdvice> advices = linkAdvice(report);
    if (advices.empty())
        return wrapped(QStringLiteral("Nothing: every frame came whole."), width, reasonIndent);
    QString text;
    for (const SLinkAdvice& advice : advices)
        // A command is not broken: it is there to be copied.
        text += wrapped(advice.reason, width, reasonIndent) + QString(commandIndent, QLatin1Char(' ')) +
                advice.command + QLatin1Char('\n');
    return text;
}

} // namespace

QString SLinkReport::text(int width, bool isBold) const
{
    QString text = labelledLine("Camera", camera, width) +
                   labelledLine("Tested for", rateText(double(time.count()) / 1000.0, " s"), width) +
                   framesText(*this, width) + QLatin1Char('\n') +
                   (usb.isUsed ? usbText(usb, width) : packetsText(*this, width));
    if (packets.missing.value_or(0) > 0)
        text += QLatin1Char('\n') +
                wrapped(QStringLiteral("missing: of each frame from its first gap on, unless they were sent again"),
                        width, 0);
    return text + QLatin1Char('\n') + headingLine(QStringLiteral("What to change"), isBold) + adviceText(*this, width);
}

} // namespace Host
