// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLoggingCategory>

namespace Plugin {
namespace Halvex {

/// "halvex.service": why the service gave up something that it was asked for.
Q_DECLARE_LOGGING_CATEGORY(lcService)

} // namespace Halvex
} // namespace Plugin
