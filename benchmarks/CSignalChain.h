// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CSignalGraph.h"

/// The objects of the floor F2: pairs of QObjects, each pair with its signal connected, as a graph needs them.
class CSignalChain : public CSignalGraph<SPlainConnection>
{
public:
    explicit CSignalChain(int pairs)
        : CSignalGraph(SShape::chain(pairs))
    {
    }
};
