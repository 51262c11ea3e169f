// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// "1400 bytes", "208 KiB", "5.0 MiB".
QString byteText(quint64 bytes);

} // namespace Host
