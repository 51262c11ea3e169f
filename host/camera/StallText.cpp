// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/StallText.h"

namespace Host {

QString cameraStallText(const QString& camera, const QString& time, bool isSilent, bool isUsb,
                        const SGrabStatistics& before)
{
    if (!isSilent && isUsb)
        return QStringLiteral(
                   "camera '%1' gave no whole frame for %2, %3 incomplete ones in all; try a USB 3 port of its "
                   "own, another cable or fewer frames per second (--fps)")
            .arg(camera, time)
            .arg(before.incomplete);
    if (!isSilent)
        return QStringLiteral("camera '%1' gave no whole frame for %2, %3 incomplete ones in all; try smaller packets "
                              "(--camera-set GevSCPSPacketSize=1400) or more buffers (--buffers 64)")
            .arg(camera, time)
            .arg(before.incomplete);
    if (before.grabbed > 0)
        return QStringLiteral("camera '%1' has gone: no frame for %2").arg(camera, time);
    if (isUsb)
        return QStringLiteral("camera '%1' sends nothing: no frame for %2; does it wait for a trigger (--camera-set "
                              "TriggerMode=Off), or does the kernel lend USB too little memory "
                              "(/sys/module/usbcore/parameters/usbfs_memory_mb)?")
            .arg(camera, time);
    return QStringLiteral("camera '%1' sends nothing: no frame for %2; does it wait for a trigger (--camera-set "
                          "TriggerMode=Off), is a firewall in the way, or are its packets too large for the network "
                          "(--camera-set GevSCPSPacketSize=1400)?")
        .arg(camera, time);
}

} // namespace Host
