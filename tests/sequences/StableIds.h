// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Sequences {

/// The identifiers that this process makes from now on depend on \a operation only, and on how many were made since:
/// without other operations, this one still leads to the same order in the scenes' tables.
void startIdsOf(int operation);

/// Begins anew with all operations.
void forgetIds();

} // namespace Sequences
