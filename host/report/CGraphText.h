// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/FlowOrder.h"
#include "host/base/NodeKind.h"

#include <QString>

#include <map>
#include <utility>
#include <vector>

namespace Plugin::Halvex {
class CNodeBase;
class CNodeScene;
} // namespace Plugin::Halvex

namespace Host {

/**
 * A scene as text, the same text for the same graph: nodes in the order of the data, those at the same depth by
 * caption and id. Half connections are left out.
 *
 * Looks at the scene in the constructor only, and at its nodes never after. Threads: the scene's.
 */
class CGraphText
{
public:
    explicit CGraphText(const Plugin::Halvex::CNodeScene& scene);

    /// For people, one line for each node and each connection.
    QString text() const;

    /// In the DOT language, as `draw` has it.
    QString dot() const;

    /// The nodes by their numbers in the text. Without loops, each comes behind all that lead to it.
    const std::vector<const Plugin::Halvex::CNodeBase*>& nodes() const { return m_nodes; }

    /// The connections between these numbers, sorted.
    FlowEdges edges() const;

private:
    struct SEdge
    {
        int from;
        int to;
        QString label; ///< What it carries.
    };
    using Numbers = std::map<const Plugin::Halvex::CNodeBase*, int>;

    static Numbers depths(const Plugin::Halvex::CNodeScene& scene);
    Numbers addNodes(const Plugin::Halvex::CNodeScene& scene);
    void addEdges(const Plugin::Halvex::CNodeScene& scene, const Numbers& numbers);

    std::vector<const Plugin::Halvex::CNodeBase*> m_nodes;
    std::vector<QString> m_captions;
    std::vector<ENodeKind> m_kinds;
    std::vector<SEdge> m_edges;
};

} // namespace Host
