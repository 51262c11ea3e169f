// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/CSideBySide.h"

namespace Sequences {

class CSharedRecord;

/// What came of random operations.
struct SRandomRun
{
    Sequence sequence; ///< Up to the first difference.
    QString difference;
    int operations = 0; ///< Those of handlers included.
};

/// Runs \a steps random operations, and more from handlers, on a graph of their own. Each is in \a record before it
/// runs.
SRandomRun runRandomly(unsigned int seed, int steps, const CSideBySide::Fault& fault = {},
                       CSharedRecord* record = nullptr);

} // namespace Sequences
