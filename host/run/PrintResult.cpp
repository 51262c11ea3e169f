// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/PrintResult.h"

#include "host/run/Output.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace Host {

int printResult(const QString& text, int exitCode)
{
    if (printText(text))
        return exitCode;
    printErrorLine(
        QStringLiteral("cannot write to standard output: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    return std::max(exitCode, int(Failed));
}

} // namespace Host
