// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

struct SLinkReport;

/// The test once more, with that option.
QString testWith(const SLinkReport& report, const QString& option);

/// The same with packets of that size.
QString testWithPackets(const SLinkReport& report, quint64 bytes);

/// A test with fewer frames per second than came, whole or not, by a fifth; empty when the camera has no rate to set.
QString lowerRate(const SLinkReport& report);

/// The test once more.
QString testAgain(const SLinkReport& report);

} // namespace Host
