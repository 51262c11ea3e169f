// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SGrabStatistics.h"
#include "host/sources/IFrameSource.h"

#include <QString>

#include <optional>

namespace Host {

/// What is known of a camera that gives no whole frame.
struct SStalledCamera
{
    QString address;
    bool isUsb = false; ///< There are no packets to make smaller then, and no firewall.
    int buffers = 0;
    bool waitsForTrigger = false;
    std::optional<quint64> packetBytes{};
};

/// What to say, and to try, of what is not so already; see IFrameSource::stallText().
QString cameraStallText(const SStalledCamera& camera, const QString& time, IFrameSource::EStall stall,
                        const SGrabStatistics& before);

} // namespace Host
