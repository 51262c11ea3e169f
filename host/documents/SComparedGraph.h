// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/SDocumentGraph.h"

#include <QJsonObject>
#include <QString>

#include <vector>

namespace Plugin::Halvex {
class CNodeDataModelRegistry;
}

namespace Host {

/// A node of a graph that is compared. A plain value.
struct SComparedNode
{
    QString label;     ///< For paths, see nodeLabels().
    QString name;      ///< A label or an id, by which documents of one kind may agree; empty for a camera.
    QJsonObject model; ///< Its settings in full, be they written or not.
};

/// A graph in the form in which a chain and a scene that come to the same are the same, but for names and order. A
/// plain value.
struct SComparedGraph
{
    EDocumentKind kind = EDocumentKind::Any;
    std::vector<SComparedNode> nodes;
    std::vector<SDocumentConnection> connections;
};

/// Models of \a registry say what settings they have that are not written; what is written of a model that cannot be
/// made stands as it is.
SComparedGraph comparedGraph(const SDocumentGraph& graph, Plugin::Halvex::CNodeDataModelRegistry& registry);

} // namespace Host
