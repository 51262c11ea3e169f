// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

/**
 * Identifiers that are the same whenever a program is run, and with them the order of the scenes' tables.
 *
 * A program that has the source file beside this among its own makes its identifiers from what it says here.
 */
namespace StableIds {

/// The identifiers that this process makes from now on depend on \a operation only, and on how many were made since:
/// without other operations, this one still leads to the same order in the scenes' tables.
void startOperation(int operation);

/// Begins anew with all operations; the operation is then 0.
void restart();

} // namespace StableIds
