// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/KnownNumber.h"
#include "host/report/LinkAdvice.h"
#include "host/report/SLinkReport.h"

#include <QJsonArray>

namespace Host {

namespace {

QJsonArray adviceJson(const SLinkReport& report)
{
    QJsonArray array;
    for (const SLinkAdvice& advice : linkAdvice(report))
        array.append(QJsonObject{{"reason", advice.reason}, {"command", advice.command}});
    return array;
}

} // namespace

QJsonObject SLinkReport::json() const
{
    const QJsonObject frameCounts{{"grabbed", double(frames.grabbed)},
                                  {"complete", double(frames.complete)},
                                  {"incomplete", double(frames.incomplete)},
                                  {"missed", numberJson(missedFrames())},
                                  {"underruns", double(frames.underruns)}};
    const QJsonObject packetCounts{{"bytes", numberJson(packetBytes)},
                                   {"largest_bytes", numberJson(largestPacketBytes)},
                                   {"received", numberJson(packets.received)},
                                   {"missing", numberJson(packets.missing)},
                                   {"asked_again", numberJson(packets.askedAgain)},
                                   {"sent_again", numberJson(packets.sentAgain)}};
    const QJsonObject socketState{{"buffer_bytes", numberJson(socket.bufferBytes)},
                                  {"most_buffer_bytes", numberJson(socket.mostBufferBytes)},
                                  {"drops", numberJson(socket.drops)}};
    const QJsonObject linkState{{"interface", link.interface.isEmpty() ? QJsonValue() : QJsonValue(link.interface)},
                                {"most_packet_bytes", numberJson(link.mtu)},
                                {"bits_per_second", numberJson(link.bitsPerSecond)}};
    const QJsonObject usbState{{"memory_bytes", numberJson(usb.memoryBytes)}};
    return {{"address", address},
            {"camera", camera},
            {"seconds", double(time.count()) / 1000.0},
            {"frames", frameCounts},
            {"frames_per_second", numberJson(framesPerSecond())},
            {"asked_frames_per_second", numberJson(askedForPerSecond)},
            {"bytes_per_second", numberJson(bytesPerSecond())},
            {"packets", packetCounts},
            {"socket", socketState},
            {"link", linkState},
            {"usb", usb.isUsed ? QJsonValue(usbState) : QJsonValue()},
            {"sound", isSound()},
            {"advice", adviceJson(*this)}};
}

} // namespace Host
