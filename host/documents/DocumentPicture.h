// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/documents/SPicture.h"

namespace Host {

struct SDocumentGraph;

/// How a chain or a scene is drawn. A port is named where its node has several on that side, or gives it another name
/// than that of its type.
SPicture documentPicture(const SDocumentGraph& graph);

} // namespace Host
