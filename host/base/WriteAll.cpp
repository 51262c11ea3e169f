// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/WriteAll.h"

#include <QFileDevice>

namespace Host {

bool writeAll(QFileDevice& file, const void* bytes, std::size_t size)
{
    std::size_t done = 0;
    while (done < size) {
        const qint64 taken = file.write(static_cast<const char*>(bytes) + done, qint64(size - done));
        if (taken <= 0)
            return false;
        done += std::size_t(taken);
    }
    return true;
}

} // namespace Host
