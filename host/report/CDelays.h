// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

namespace Host {

using Delay = std::optional<std::chrono::nanoseconds>; ///< Nothing where nothing was measured.

/// The newest delays of a run that may have no end: those before them are forgotten.
class CDelays
{
public:
    static constexpr std::size_t most = 65536;

    void add(std::chrono::nanoseconds delay);
    void add(const CDelays& other);

    /// The value that \a fraction (0 to 1) of them does not exceed, the nearest rank; nothing if there are none.
    Delay percentile(double fraction) const;

private:
    std::vector<std::chrono::nanoseconds> m_values;
    std::size_t m_next = 0; // the oldest, once there are enough
};

} // namespace Host
