// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

/// How often this thread has allocated so far: operator new, Qt's containers, all of it.
long allocations();

/// The heap that the process uses now, with what the allocator itself needs for it.
double bytesInUse();

/// Whether the process uses no more memory after \a work was done a thousand times; the first hundred times make what
/// is used again and again.
template <typename Work>
bool keepsNothing(const Work& work)
{
    for (int round = 0; round < 100; ++round)
        work();
    const double before = bytesInUse();
    for (int round = 0; round < 1000; ++round)
        work();
    const double kept = bytesInUse() - before;
    if (kept >= 32 * 1024)
        qWarning("%.0f bytes are kept.", kept);
    return kept < 32 * 1024;
}
