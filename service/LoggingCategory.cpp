// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "service/LoggingCategory_p.h"

namespace Plugin {
namespace Halvex {

Q_LOGGING_CATEGORY(lcService, "halvex.service")

} // namespace Halvex
} // namespace Plugin
