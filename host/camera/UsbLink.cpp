// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/UsbLink.h"

#include <QFile>

#include <arv.h>

namespace Host {

SUsbLink usbLink(ArvDevice* device)
{
    SUsbLink link;
#if ARAVIS_HAS_USB
    link.isUsed = ARV_IS_UV_DEVICE(device);
#else
    Q_UNUSED(device)
#endif
    QFile limit(QStringLiteral("/sys/module/usbcore/parameters/usbfs_memory_mb"));
    const quint64 mebibytes =
        link.isUsed && limit.open(QIODevice::ReadOnly) ? limit.readAll().trimmed().toULongLong() : 0;
    if (mebibytes > 0)
        link.memoryBytes = mebibytes << 20U;
    return link;
}

} // namespace Host
