// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <cstddef>

namespace Host {

/// The files that a run writes beside the folders of its cameras, and beside those of a camera's sinks: no camera and
/// no sink may be called like them.
namespace RunFiles {

/// In the run's folder.
QString manifest();
QString chain(std::size_t index); ///< "chain.json", "chain-2.json"...

/// In a camera's folder.
QString graphText();
QString graphPicture();

/// Whether some run writes a file \a name beside the folders of its cameras.
bool isBesideCameras(const QString& name);

/// Whether a run writes a file \a name beside the folders of a camera's sinks.
bool isBesideSinks(const QString& name);

} // namespace RunFiles

} // namespace Host
