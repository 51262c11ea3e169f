// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

/// How often this thread has allocated so far: operator new, Qt's containers, all of it.
long allocations();

/// The heap that the process uses now, with what the allocator itself needs for it.
double bytesInUse();
