// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Plugin::Halvex {

/**
 * The type of the data that a port takes or gives.
 *
 * Two types are the same type exactly when their `id`s are equal; `name` is for people and takes no part.
 */
struct SNodeDataType
{
    QString id;   ///< What comparisons and converter look-ups use, e.g. "Veltra Grab Result".
    QString name; ///< Short name for captions, e.g. "VGR".
};

} // namespace Plugin::Halvex
