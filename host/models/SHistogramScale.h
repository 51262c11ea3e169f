// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <string>
#include <vector>

namespace Host {

/// How high a chart of histograms is, and what does not fit: many pixels at black or white would press all others to
/// the ground. A plain value.
struct SHistogramScale
{
    using Counts = std::vector<float>; ///< Pixels for each step of value, from black to white; at least three.

    /// For all channels of an image together.
    explicit SHistogramScale(const std::vector<Counts>& channels);

    /// "cut: 38 % black, 26 % white": what does not fit, as the share of \a pixels, of the channel with most of it.
    /// Empty when all fits.
    std::string note(double pixels) const;

    double most = 1.0; ///< What the chart must hold, in pixels.
    double black = 0.0;
    double white = 0.0;
};

} // namespace Host
