// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/ByteText.h"

#include "host/base/Counted.h"

namespace Host {

QString byteText(quint64 bytes)
{
    constexpr quint64 kibi = 1024;
    constexpr quint64 leastInKibi = 10 * kibi;
    if (bytes < leastInKibi)
        return counted(bytes, "byte");
    if (bytes < kibi * kibi)
        return QStringLiteral("%1 KiB").arg((bytes + kibi / 2) / kibi);
    return QStringLiteral("%1 MiB").arg(double(bytes) / double(kibi * kibi), 0, 'f', 1);
}

} // namespace Host
