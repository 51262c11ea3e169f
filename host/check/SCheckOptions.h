// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>

namespace Host {

/// What a document is to be.
enum class EDocumentKind
{
    Any, ///< Told by the document: an array is a chain, an object a scene.
    Chain,
    Scene
};

/// What a document is checked for. A plain value.
struct SCheckOptions
{
    EDocumentKind kind = EDocumentKind::Any;
    QStringList cameras; ///< Those of the run. If empty, names in a chain that are no labels are those of cameras.
    bool canNameCommands = true; ///< Whether a hint may be a command to type; not for people who look at a window.
};

} // namespace Host
