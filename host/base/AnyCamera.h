// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLatin1String>

namespace Host {

/// What a chain says among its "unique_sources" for any camera: every camera of the run that is not named beside it.
constexpr QLatin1String anyCamera("*", 1);

} // namespace Host
