// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CDelays.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>

namespace Host {

void CDelays::add(std::chrono::nanoseconds delay)
{
    if (m_values.size() < most) {
        m_values.push_back(delay);
        return;
    }
    m_values[m_next] = delay;
    m_next = (m_next + 1) % most;
}

void CDelays::add(const CDelays& other)
{
    for (const std::chrono::nanoseconds delay : other.m_values)
        add(delay);
}

Delay CDelays::percentile(double fraction) const
{
    Q_ASSERT(fraction >= 0.0 && fraction <= 1.0);
    if (m_values.empty())
        return {};
    std::vector<std::chrono::nanoseconds> values = m_values;
    const auto rank = std::max(1.0, std::ceil(fraction * double(values.size())));
    const auto nth = values.begin() + std::ptrdiff_t(rank) - 1;
    std::nth_element(values.begin(), nth, values.end());
    return *nth;
}

} // namespace Host
