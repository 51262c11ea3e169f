// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CRateMeter.h"

namespace Host {

void CRateMeter::add(unsigned long long count, Clock::time_point time)
{
    m_samples.push_back({count, time});
    // What is left spans a second, or a little more.
    while (m_samples.size() > 2 && time - m_samples[1].time >= std::chrono::seconds(1))
        m_samples.pop_front();
}

double CRateMeter::rate() const
{
    if (m_samples.size() < 2 || m_samples.back().time <= m_samples.front().time)
        return 0.0;
    const std::chrono::duration<double> span = m_samples.back().time - m_samples.front().time;
    return double(m_samples.back().count - m_samples.front().count) / span.count();
}

} // namespace Host
