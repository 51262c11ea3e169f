// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "matrix/CMatrixWorld.h"

#include <functional>
#include <vector>

/// Asked when all is over: whether the operation did what it does.
using Proof = std::function<bool()>;

/// A public operation that destroys or rewires something.
struct SOperation
{
    const char* name;
    EPart part; ///< What it is done to.
    Proof (*run)(CMatrixWorld&, const SPlace&);
};

const std::vector<SOperation>& matrixOperations();
