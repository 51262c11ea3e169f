// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/NetworkLink.h"
#include "host/camera/PacketCounts.h"
#include "host/camera/SGrabStatistics.h"
#include "host/camera/StreamSocket.h"
#include "host/camera/UsbLink.h"

#include <QJsonObject>
#include <QString>

#include <chrono>
#include <optional>

namespace Host {

/// What a test of the way from a camera to this program has measured. A plain value.
struct SLinkReport
{
    QString address; ///< The camera's.
    QString camera;  ///< Its name and format.
    std::chrono::milliseconds time{0};
    std::chrono::nanoseconds span{0}; ///< From the first to the last complete frame.
    SGrabStatistics frames;
    quint64 frameBytes = 0;
    int buffers = 0;
    bool asksAgain = true; ///< For packets that are missing.
    bool waitsForTrigger = false;
    bool hasFrameRate = false;               ///< One that can be set.
    std::optional<double> askedForPerSecond; ///< Frames per second that the camera was set to.

    // Nothing of cameras that are not on the network, but for what USB counts as well.
    QString packetSizeFeature;
    std::optional<quint64> setPacketBytes; ///< What the camera was set to.
    std::optional<quint64> packetBytes;    ///< What it was tested with: the camera library takes less where it must.
    std::optional<quint64> largestPacketBytes;
    SPacketCounts packets;
    SStreamSocket socket;
    SNetworkLink link;
    SUsbLink usb;

    /// Whether frames came, and all of them whole.
    bool isSound() const;

    /// Whether frames, or parts of them, got lost on the way.
    bool isLossy() const;

    /// Of which nothing came: as the stream counted them, or as the numbers of the frames tell, if these are more.
    /// Nothing where the stream counts none and there are no two frames to compare.
    std::optional<quint64> missedFrames() const;

    std::optional<double> framesPerSecond() const;
    std::optional<double> bytesPerSecond() const;

    /// For people, with what to change, for a terminal of \a width columns.
    QString text(int width = 80, bool isBold = false) const;

    /// All of it for programs; null where nothing was measured.
    QJsonObject json() const;
};

} // namespace Host
