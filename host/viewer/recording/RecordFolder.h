// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// Makes a new folder for a recording in \a parentFolder: "<name> 2026-11-22 23-40-05", with " 2" and so on behind it
/// if there is one. A name that makes no folder is left out. Returns its full name; empty if it cannot be made.
QString makeRecordFolder(const QString& parentFolder, const QString& name);

} // namespace Host
