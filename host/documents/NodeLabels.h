// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QStringList>

namespace Host {

struct SDocumentGraph;

/**
 * A name for each node of \a graph, all different: what a chain calls its elements, "camera" for the camera, or "camera
 * left" where there are several.
 *
 * The nodes of a scene have no names but ids, which nobody can tell from each other. They get their model's, with the
 * name of a sink: "Blur", "PNG Sink edges", and, in the order of the flow, "To Image", "To Image 2".
 */
QStringList nodeLabels(const SDocumentGraph& graph);

} // namespace Host
