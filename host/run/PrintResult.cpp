// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/PrintResult.h"

#include "host/run/Output.h"

#include <algorithm>

namespace Host {

int printResult(const QString& text, int exitCode)
{
    const QString error = printText(text);
    if (error.isEmpty())
        return exitCode;
    printErrorLine(error);
    return std::max(exitCode, int(Failed));
}

} // namespace Host
