// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/SLinkReport.h"

#include <algorithm>

namespace Host {

bool SLinkReport::isSound() const
{
    return frames.complete > 0 && frames.underruns == 0 && !isLossy();
}

bool SLinkReport::isLossy() const
{
    return frames.incomplete > 0 || missedFrames().value_or(0) > 0;
}

std::optional<quint64> SLinkReport::missedFrames() const
{
    if (!packets.missedFrames && frames.complete < 2)
        return {};
    return std::max(packets.missedFrames.value_or(0), frames.missed);
}

std::optional<double> SLinkReport::framesPerSecond() const
{
    if (frames.complete < 2 || span.count() <= 0)
        return {};
    return double(frames.complete - 1) * 1e9 / double(span.count());
}

std::optional<double> SLinkReport::bytesPerSecond() const
{
    if (!packets.bytes || time.count() <= 0)
        return {};
    return double(*packets.bytes) * 1000.0 / double(time.count());
}

} // namespace Host
