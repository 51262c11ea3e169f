// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

struct SLinkReport;

/// A run of the camera with that option.
QString runWith(const SLinkReport& report, const QString& option);

/// A run with fewer frames per second than came, whole or not, by a fifth; empty when the camera has no rate to set.
QString lowerRate(const SLinkReport& report);

/// The test once more.
QString testAgain(const SLinkReport& report);

} // namespace Host
