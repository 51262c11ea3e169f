// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/NodeKind.h"
#include "host/check/CModelCatalogue.h"
#include "host/check/SCheckOptions.h"

#include <QJsonObject>
#include <QString>

#include <vector>

namespace Host {

/// Where something stands in a document. A plain value.
struct SDocumentPlace
{
    int line = 0; ///< From 1.
    int column = 0;
    QString path; ///< JSONPath.
};

/// A node of a document. A plain value.
struct SDocumentNode
{
    ENodeKind kind = ENodeKind::Filter; ///< A source is a camera of the run.
    QString label;                      ///< That of a chain's element, or the id of a scene's node; empty for a camera.
    QString camera;                     ///< The name of a camera; empty for any camera, and for what is none.
    QJsonObject model;                  ///< As it is written; empty for the camera of a chain.
    QString caption;                    ///< What a person reads on it.
    PortTypes inputs;                   ///< None if the model cannot be made.
    PortTypes outputs;
    QStringList inputNames; ///< What a person reads on the ports; may be empty.
    QStringList outputNames;
    SDocumentPlace place;
};

/// A connection of a document. A plain value.
struct SDocumentConnection
{
    int from = 0; ///< Numbers of nodes.
    int outPort = 0;
    int to = 0;
    int inPort = 0;
    QJsonObject converter; ///< Empty without one.
    SDocumentPlace place;
};

/// What a document says, be it a chain or a scene. A plain value.
struct SDocumentGraph
{
    EDocumentKind kind = EDocumentKind::Any; ///< Any if it is neither.
    std::vector<SDocumentNode> nodes;        ///< In the order of the document, and the cameras of a chain.
    std::vector<SDocumentConnection> connections;
};

} // namespace Host
