// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <cstddef>

namespace Host {

/// Replaces the file \a name, by way of "name.part" which is then renamed: under its own name it is complete. Returns
/// why not, without the name; empty on success. Then no part is left.
QString writeFile(const QString& name, const void* bytes, std::size_t size);

/// Renames \a from, which replaces a file \a to. Returns why not, without names; empty on success.
QString renameFile(const QString& from, const QString& to);

} // namespace Host
