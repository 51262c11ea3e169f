// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/LinkAdvice.h"

#include "host/base/Counted.h"
#include "host/camera/SCameraOptions.h"
#include "host/report/ByteText.h"
#include "host/report/LinkCommands.h"
#include "host/report/MissedRate.h"
#include "host/report/SLinkReport.h"

#include <algorithm>
#include <optional>

namespace Host {

namespace {

using Advice = std::optional<SLinkAdvice>;

// What networks call jumbo frames.
constexpr quint64 jumboBytes = 9000;

// How much of a link frames can fill before its packets queue up.
constexpr double fullShare = 0.9;

quint64 drops(const SLinkReport& report)
{
    return report.socket.drops.value_or(0);
}

// A packet size that saves a quarter of the packets or more, if there is one.
std::optional<quint64> largerPacket(const SLinkReport& report)
{
    if (!report.packetBytes || !report.link.mtu)
        return {};
    const quint64 larger = report.largestPacketBytes.value_or(std::min(*report.link.mtu, jumboBytes));
    return larger >= *report.packetBytes + *report.packetBytes / 3 ? std::optional<quint64>(larger) : std::nullopt;
}

bool isBufferTooSmall(const SLinkReport& report)
{
    const SStreamSocket& socket = report.socket;
    return socket.bufferBytes && socket.mostBufferBytes && *socket.bufferBytes < report.frameBytes &&
           *socket.mostBufferBytes < report.frameBytes;
}

Advice onNothing(const SLinkReport& report)
{
    if (report.frames.grabbed > 0 || report.frames.underruns > 0)
        return {};
    if (report.waitsForTrigger)
        return SLinkAdvice{QStringLiteral("No frame came: the camera waits for a trigger."),
                           testWith(report, QStringLiteral("--camera-set TriggerMode=Off"))};
    if (report.packets.received && *report.packets.received == 0 && !report.link.interface.isEmpty())
        return SLinkAdvice{QStringLiteral("Not one packet came, although the camera answers: most likely a firewall "
                                          "of this computer keeps them out."),
                           QStringLiteral("sudo iptables -I INPUT -p udp -s %1 -j ACCEPT").arg(report.address)};
    return SLinkAdvice{QStringLiteral("No frame came. One exposure may take longer than the test."),
                       QStringLiteral("halvex-host cameras %1").arg(report.address)};
}

Advice onBlockedPackets(const SLinkReport& report)
{
    const std::optional<quint64> set = report.setPacketBytes;
    const std::optional<quint64> largest = report.largestPacketBytes ? report.largestPacketBytes : report.packetBytes;
    if (!set || !largest || *set <= *largest)
        return {};
    return SLinkAdvice{
        QStringLiteral("Packets of %1 do not get through, those of %2 do.").arg(byteText(*set), byteText(*largest)),
        testWithPackets(report, *largest)};
}

Advice onSmallSocketBuffer(const SLinkReport& report)
{
    if (drops(report) == 0 || !isBufferTooSmall(report))
        return {};
    quint64 bytes = 1 << 20;
    while (bytes < 2 * report.frameBytes)
        bytes *= 2;
    return SLinkAdvice{
        QStringLiteral("The kernel dropped %1: the socket's buffer holds %2, less than a frame of %3.")
            .arg(counted(drops(report), "packet"), byteText(*report.socket.bufferBytes), byteText(report.frameBytes)),
        QStringLiteral("sudo sysctl -w net.core.rmem_max=%1").arg(bytes)};
}

Advice onFullLink(const SLinkReport& report)
{
    const std::optional<double> bytes = report.bytesPerSecond();
    if (!report.isLossy() || !bytes || !report.link.bitsPerSecond || lowerRate(report).isEmpty())
        return {};
    const double share = *bytes * 8.0 / double(*report.link.bitsPerSecond);
    if (share < fullShare)
        return {};
    return SLinkAdvice{QStringLiteral("The frames fill %1 % of the link.").arg(share * 100.0, 0, 'f', 0),
                       lowerRate(report)};
}

Advice onSmallPackets(const SLinkReport& report)
{
    const std::optional<quint64> larger = largerPacket(report);
    if (!larger || (!report.isLossy() && drops(report) == 0))
        return {};
    const char* const said = report.largestPacketBytes ? "Packets of %1 get through. They are fewer, and less work."
                                                       : "Packets of %1 may get through. They would be fewer, and less "
                                                         "work.";
    return SLinkAdvice{QString(QLatin1String(said)).arg(byteText(*larger)), testWithPackets(report, *larger)};
}

Advice onSmallMtu(const SLinkReport& report)
{
    if (!report.isLossy() || report.link.isLoopback() || !report.link.mtu || *report.link.mtu >= jumboBytes)
        return {};
    return SLinkAdvice{
        QStringLiteral("%1 takes packets of up to %2. Larger ones are fewer, if all switches on the way take them.")
            .arg(report.link.interface, byteText(*report.link.mtu)),
        QStringLiteral("sudo ip link set %1 mtu %2").arg(report.link.interface).arg(jumboBytes)};
}

Advice onNoResend(const SLinkReport& report)
{
    if (report.asksAgain || report.packets.missing.value_or(0) == 0)
        return {};
    return SLinkAdvice{QStringLiteral("Nobody asked for missing packets again. Leave out --resend off."),
                       testAgain(report)};
}

QString resendText(const SLinkReport& report)
{
    const SPacketCounts& packets = report.packets;
    if (!report.asksAgain || packets.missing.value_or(0) == 0 || packets.sentAgain.value_or(0) > 0)
        return {};
    return packets.askedAgain.value_or(0) == 0 ? QStringLiteral(" The camera cannot send packets again.")
                                               : QStringLiteral(" The camera sent none of those that it was asked for "
                                                                "again.");
}

// \a seen where parts of frames are missing. Whole ones the camera itself may have left out.
QString lossText(const SLinkReport& report, const QString& seen)
{
    const bool isSeen = report.frames.incomplete > 0 || report.packets.missing.value_or(0) > 0;
    return isSeen ? seen : QStringLiteral("Whole frames are missing: they got lost, or the camera left them out.");
}

Advice onLoss(const SLinkReport& report)
{
    if (!report.isLossy() || drops(report) > 0 || report.usb.isUsed)
        return {};
    const QString reason =
        QStringLiteral("%1%2 Try another cable or port")
            .arg(lossText(report, QStringLiteral("Packets got lost between camera and computer.")), resendText(report));
    const QString command = lowerRate(report);
    if (command.isEmpty())
        return SLinkAdvice{reason + QStringLiteral(", and test again."), testAgain(report)};
    return SLinkAdvice{reason + QStringLiteral(", or fewer frames per second."), command};
}

Advice onSmallRing(const SLinkReport& report)
{
    if (!report.isLossy() || report.link.isLoopback() || report.link.interface.isEmpty())
        return {};
    return SLinkAdvice{QStringLiteral("The network card may have dropped packets. Give it more room."),
                       QStringLiteral("sudo ethtool -G %1 rx 4096").arg(report.link.interface)};
}

Advice onSlowReading(const SLinkReport& report)
{
    if (drops(report) == 0 || isBufferTooSmall(report))
        return {};
    const QString reason = QStringLiteral("The kernel dropped %1, since this computer did not take them fast enough.")
                               .arg(counted(drops(report), "packet"));
    const QString command = lowerRate(report);
    return command.isEmpty()
               ? SLinkAdvice{reason + QStringLiteral(" End what else it does, and test again."), testAgain(report)}
               : SLinkAdvice{reason, command};
}

// Buffers that wait for frames are lent by the kernel. A program that gets none of it hears nothing but silence.
Advice onSmallUsbMemory(const SLinkReport& report)
{
    const quint64 needed = report.frameBytes * quint64(std::max(report.buffers, 0));
    const bool isShort = report.isLossy() || report.frames.grabbed == 0 || report.frames.underruns > 0;
    if (!isShort || report.usb.memoryBytes.value_or(0) == 0 || *report.usb.memoryBytes >= needed)
        return {};
    constexpr quint64 mebi = 1 << 20;
    quint64 mebibytes = 64;
    while (mebibytes * mebi < 2 * needed)
        mebibytes *= 2;
    return SLinkAdvice{
        QStringLiteral("The kernel lends %1 to all USB cameras together; %2 of %3 need %4.")
            .arg(byteText(*report.usb.memoryBytes), counted(quint64(report.buffers), "buffer"),
                 byteText(report.frameBytes), byteText(needed)),
        QStringLiteral("echo %1 | sudo tee /sys/module/usbcore/parameters/usbfs_memory_mb").arg(mebibytes)};
}

Advice onFullUsb(const SLinkReport& report)
{
    if (!report.isLossy() || !report.usb.isUsed)
        return {};
    const QString reason = lossText(report, QStringLiteral("Frames did not come whole over USB.")) +
                           QStringLiteral(" All devices at a controller share its bandwidth: use a USB 3 port without "
                                          "a hub or other cameras, a shorter cable");
    const QString command = lowerRate(report);
    if (command.isEmpty())
        return SLinkAdvice{reason + QStringLiteral(", and test again."), testAgain(report)};
    return SLinkAdvice{reason + QStringLiteral(", or fewer frames per second."), command};
}

Advice onUnderruns(const SLinkReport& report)
{
    if (report.frames.underruns == 0)
        return {};
    const int buffers = std::min(report.buffers * 4, SCameraOptions::mostBuffers);
    return SLinkAdvice{QStringLiteral("%1 found no free buffer.").arg(counted(report.frames.underruns, "frame")),
                       testWith(report, QStringLiteral("--buffers %1").arg(buffers))};
}

// Frames that got lost explain it already.
Advice onMissedRate(const SLinkReport& report)
{
    const QString missed = missedRateText(report.askedForPerSecond, report.framesPerSecond());
    if (missed.isEmpty() || !report.isSound())
        return {};
    return SLinkAdvice{missed +
                           QStringLiteral(". The exposure time, the size of the image or the camera may bound it."),
                       QStringLiteral("halvex-host cameras %1").arg(report.address)};
}

} // namespace

std::vector<SLinkAdvice> linkAdvice(const SLinkReport& report)
{
    constexpr Advice (*rules[])(const SLinkReport&) = {
        &onNothing,   &onBlockedPackets, &onSmallSocketBuffer, &onFullLink,    &onSmallPackets,   &onSmallMtu,
        &onNoResend,  &onLoss,           &onSmallRing,         &onSlowReading, &onSmallUsbMemory, &onFullUsb,
        &onUnderruns, &onMissedRate};
    std::vector<SLinkAdvice> advices;
    for (const auto& rule : rules) {
        if (const Advice advice = rule(report))
            advices.push_back(*advice);
    }
    return advices;
}

} // namespace Host
