// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/SDocumentGraph.h"

namespace Host {

class CFaultList;
class CGraphCheck;

/// What was read into \a graph, which the document of \a faults says. What is in error is in it as far as it could be
/// read.
SDocumentGraph documentGraph(const CGraphCheck& graph, EDocumentKind kind, const CFaultList& faults);

} // namespace Host
