// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/MissedRate.h"

namespace Host {

QString missedRateText(std::optional<double> asked, std::optional<double> given)
{
    constexpr double mostMissed = 0.05;
    if (!asked || !given || *given >= *asked * (1.0 - mostMissed))
        return {};
    return QStringLiteral("%1 frames per second were asked for, %2 came").arg(*asked).arg(*given, 0, 'f', 1);
}

} // namespace Host
