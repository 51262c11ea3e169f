// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/SFault.h"

#include <QByteArray>

#include <vector>

namespace Host {

class CModelCatalogue;
struct SDocumentGraph;

/// What a chain cannot say of the scene \a graph: connections with converters, for which \a models may have a model to
/// be put between, and a camera's output that feeds an input of another number.
std::vector<SFault> chainFaults(const SDocumentGraph& graph, CModelCatalogue& models);

/// The chain that says what the scene \a graph does, which has no chainFaults(). Its elements are called as
/// nodeLabels() says and come in the order of the flow; a camera without a name is any camera.
QByteArray chainText(const SDocumentGraph& graph);

} // namespace Host
