// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// \a path without links and ".."; of a file that is not there yet, behind the real path of its folder, if
/// that is there.
QString realPath(const QString& path);

} // namespace Host
