// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <chrono>
#include <deque>

namespace Host {

/**
 * How fast a number grows, over the last second.
 *
 * \code
 * m_delivered.add(model.delivered(), CRateMeter::Clock::now());
 * label->setText(QString::number(m_delivered.rate()));
 * \endcode
 *
 * Threads: one.
 */
class CRateMeter
{
public:
    using Clock = std::chrono::steady_clock;

    /// What the number is at that time; times do not go back.
    void add(unsigned long long count, Clock::time_point time);

    /// By how much the number grew per second between the first and the last time of the last second; 0 without two.
    double rate() const;

private:
    struct SSample
    {
        unsigned long long count = 0;
        Clock::time_point time;
    };

    std::deque<SSample> m_samples;
};

} // namespace Host
