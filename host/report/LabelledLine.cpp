// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/LabelledLine.h"

#include "host/report/Terminal.h"

namespace Host {

QString labelledLine(const char* label, const QString& value, int width)
{
    constexpr int labelColumns = 19;
    const QString lines = wrapped(value.isEmpty() ? QStringLiteral("-") : value, width, labelColumns);
    return QString(QLatin1String(label)).leftJustified(labelColumns) + lines.mid(labelColumns);
}

} // namespace Host
