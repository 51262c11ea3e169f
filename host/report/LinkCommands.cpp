// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/LinkCommands.h"

#include "host/report/SLinkReport.h"

namespace Host {

QString testWith(const SLinkReport& report, const QString& option)
{
    return QStringLiteral("%1 %2").arg(testAgain(report), option);
}

QString testWithPackets(const SLinkReport& report, quint64 bytes)
{
    return testWith(report, QStringLiteral("--camera-set %1=%2").arg(report.packetSizeFeature).arg(bytes));
}

QString lowerRate(const SLinkReport& report)
{
    constexpr double share = 0.8;
    if (!report.hasFrameRate || report.frames.grabbed == 0 || report.time.count() <= 0)
        return {};
    const double rate = double(report.frames.grabbed) * 1000.0 / double(report.time.count());
    return testWith(report, QStringLiteral("--fps %1").arg(QString::number(rate * share, 'g', 3)));
}

QString testAgain(const SLinkReport& report)
{
    return QStringLiteral("halvex-host cameras %1 --test 10s").arg(report.address);
}

} // namespace Host
