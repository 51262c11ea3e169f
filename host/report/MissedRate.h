// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <optional>

namespace Host {

/// "30 frames per second were asked for, 25.0 came", if that is more than 5 % less. Empty else, or if a rate is not
/// known.
QString missedRateText(std::optional<double> asked, std::optional<double> given);

} // namespace Host
