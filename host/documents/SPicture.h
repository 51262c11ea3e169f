// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/NodeKind.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace Host {

/// A node as it is drawn. A plain value.
struct SPictureNode
{
    ENodeKind kind = ENodeKind::Filter;
    QString caption;
    QString label;   ///< Below the caption, smaller; may be empty.
    QString note;    ///< What a run measured; may be empty.
    QString warning; ///< What was lost there; may be empty.
    int group = 0;   ///< Number of its group.
};

/// A connection as it is drawn. A plain value.
struct SPictureEdge
{
    int from = 0; ///< Numbers of nodes.
    int to = 0;
    QString type;    ///< "VGR", or "VGR to IMG" with a conversion.
    QString note;    ///< What a run measured; may be empty.
    QString outPort; ///< What stands at its ends; may be empty.
    QString inPort;
};

/// A graph as it is drawn. A plain value.
struct SPicture
{
    std::vector<SPictureNode> nodes;
    std::vector<SPictureEdge> edges;
    QStringList groups; ///< Titles: each group of nodes has a frame with its title. None for a graph without frames.
};

} // namespace Host
