// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// Whether \a name is that of one folder or file within another one, and not hidden: printable, without '/' and '.' in
/// front, and at most 255 bytes.
bool makesAFolder(const QString& name);

/// Whether a camera can have that name: it makes a folder, which is none of the files beside it.
bool makesACameraFolder(const QString& name);

/// Whether a sink can have that name: it makes a folder, which is none of the files beside it.
bool makesASinkFolder(const QString& name);

} // namespace Host
