// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/UsbLink.h"

#include <QFile>

#include <arv.h>

namespace Host {

SUsbLink usbLink(ArvCamera* camera)
{
    SUsbLink link;
    link.isUsed = arv_camera_is_uv_device(camera);
    QFile limit(QStringLiteral("/sys/module/usbcore/parameters/usbfs_memory_mb"));
    if (link.isUsed && limit.open(QIODevice::ReadOnly))
        link.memoryBytes = limit.readAll().trimmed().toULongLong() << 20U;
    return link;
}

} // namespace Host
