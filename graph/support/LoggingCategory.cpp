// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/support/LoggingCategory_p.h"

namespace Plugin::Halvex {

Q_LOGGING_CATEGORY(lcGraph, "halvex.graph")

} // namespace Plugin::Halvex
