// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLoggingCategory>

namespace Plugin::Halvex {

/// "halvex.graph": what the engine has to say beyond the messages that its operations define.
Q_DECLARE_LOGGING_CATEGORY(lcGraph)

} // namespace Plugin::Halvex
