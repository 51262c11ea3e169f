// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/StallText.h"

#include "host/camera/SCameraOptions.h"

#include <QStringList>

#include <algorithm>

namespace Host {

namespace {

// What every network carries.
constexpr quint64 smallPacket = 1400;
constexpr int manyBuffers = 64;

bool canHaveSmallerPackets(const SStalledCamera& camera)
{
    return !camera.isUsb && camera.packetBytes.value_or(smallPacket + 1) > smallPacket;
}

QString smallPacketOption()
{
    return QStringLiteral("(--camera-set GevSCPSPacketSize=%1)").arg(smallPacket);
}

// "a", "a or b", "a, b or c"
QString anyOf(QStringList texts)
{
    const QString last = texts.takeLast();
    return texts.isEmpty() ? last : QStringLiteral("%1 or %2").arg(texts.join(QStringLiteral(", ")), last);
}

QString incompleteText(const SStalledCamera& camera)
{
    QStringList attempts;
    if (camera.isUsb)
        attempts << QStringLiteral("a USB 3 port of its own");
    if (canHaveSmallerPackets(camera))
        attempts << QStringLiteral("smaller packets %1").arg(smallPacketOption());
    if (!camera.isUsb && camera.buffers < manyBuffers)
        attempts << QStringLiteral("more buffers (--buffers %1)").arg(manyBuffers);
    attempts << QStringLiteral("another cable") << QStringLiteral("fewer frames per second (--fps)");
    return QStringLiteral("try ") + anyOf(attempts);
}

QString silenceText(const SStalledCamera& camera)
{
    if (camera.waitsForTrigger)
        return QStringLiteral("it waits for a trigger (--camera-set TriggerMode=Off)");
    QStringList questions;
    if (camera.isUsb)
        questions << QStringLiteral("does the kernel lend USB too little memory "
                                    "(/sys/module/usbcore/parameters/usbfs_memory_mb)");
    else
        questions << QStringLiteral("is a firewall in the way");
    if (canHaveSmallerPackets(camera))
        questions << QStringLiteral("are its packets too large for the network %1").arg(smallPacketOption());
    questions << QStringLiteral("does one exposure take longer (--timeout)");
    return anyOf(questions) + QLatin1Char('?');
}

// As an IFrameSource of files says it.
QString heldText(const SStalledCamera& camera, const QString& time)
{
    return QStringLiteral("the graph holds as many frames of camera '%1' as may be in flight (%2), and gave none back "
                          "for %3; try more (--buffers %4), or a longer --timeout")
        .arg(camera.address)
        .arg(camera.buffers)
        .arg(time)
        .arg(std::min(4 * camera.buffers, SCameraOptions::mostBuffers));
}

} // namespace

QString cameraStallText(const SStalledCamera& camera, const QString& time, IFrameSource::EStall stall,
                        const SGrabStatistics& before)
{
    using EStall = IFrameSource::EStall;
    if (stall == EStall::NoFreeBuffer)
        return heldText(camera, time);
    if (stall == EStall::Incomplete)
        return QStringLiteral("camera '%1' gave no whole frame for %2, %3 incomplete ones in all; %4")
            .arg(camera.address, time)
            .arg(before.incomplete)
            .arg(incompleteText(camera));
    if (before.grabbed > 0)
        return QStringLiteral("camera '%1' has gone: no frame for %2").arg(camera.address, time);
    return QStringLiteral("camera '%1' sends nothing: no frame for %2; %3")
        .arg(camera.address, time, silenceText(camera));
}

} // namespace Host
