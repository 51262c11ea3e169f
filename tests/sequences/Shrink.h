// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/SOperation.h"

#include <functional>

namespace Sequences {

/**
 * Leaves out of \a sequence what it can without \a fails getting false: halves, then smaller pieces, down to single
 * operations, then those of handlers; until nothing can be left out any more. At last it counts the numbers of what is
 * made anew.
 */
Sequence shrink(Sequence sequence, const std::function<bool(const Sequence&)>& fails);

} // namespace Sequences
