// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/LinkAdvice.h"
#include "host/report/SLinkReport.h"

#include <QJsonArray>

namespace Host {

namespace {

template <typename Number>
QJsonValue number(std::optional<Number> value)
{
    return value ? QJsonValue(double(*value)) : QJsonValue();
}

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
                                  {"missed", number(missedFrames())},
                                  {"underruns", double(frames.underruns)}};
    const QJsonObject packetCounts{{"bytes", number(packetBytes)},
                                   {"largest_bytes", number(largestPacketBytes)},
                                   {"received", number(packets.received)},
                                   {"missing", number(packets.missing)},
                                   {"asked_again", number(packets.askedAgain)},
                                   {"sent_again", number(packets.sentAgain)}};
    const QJsonObject socketState{{"buffer_bytes", number(socket.bufferBytes)},
                                  {"most_buffer_bytes", number(socket.mostBufferBytes)},
                                  {"drops", number(socket.drops)}};
    const QJsonObject linkState{{"interface", link.interface.isEmpty() ? QJsonValue() : QJsonValue(link.interface)},
                                {"most_packet_bytes", number(link.mtu)},
                                {"bits_per_second", number(link.bitsPerSecond)}};
    const QJsonObject usbState{{"memory_bytes", number(usb.memoryBytes)}};
    return {{"address", address},
            {"camera", camera},
            {"seconds", double(time.count()) / 1000.0},
            {"frames", frameCounts},
            {"frames_per_second", number(framesPerSecond())},
            {"asked_frames_per_second", number(askedForPerSecond)},
            {"bytes_per_second", number(bytesPerSecond())},
            {"packets", packetCounts},
            {"socket", socketState},
            {"link", linkState},
            {"usb", usb.isUsed ? QJsonValue(usbState) : QJsonValue()},
            {"sound", isSound()},
            {"advice", adviceJson(*this)}};
}

} // namespace Host
