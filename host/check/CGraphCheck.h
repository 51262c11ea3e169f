// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/FlowOrder.h"
#include "host/check/CModelCatalogue.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace Host {

class CFaultList;
struct SJsonNode;

/// A node of the graph that a document describes. A plain value.
struct SGraphNode
{
    QString name;                         ///< For messages: "'blur'", "the camera 'fake'".
    const SJsonNode* json = nullptr;      ///< Where it is told that nothing reaches it; null for a camera of the run.
    QString label;                        ///< As the document has it: an element's name, a camera's name, or an id.
    const SJsonNode* modelJson = nullptr; ///< Null for a camera of the run.
    QString caption;                      ///< What its model says of itself and its ports.
    QStringList inputNames;
    QStringList outputNames;
    PortTypes inputs;
    PortTypes outputs;
    bool hasModel = false; ///< Otherwise its ports are not known, and taken for what is needed.
    bool isCamera = false;
    bool isDecoupler = false;
    bool isDoubtful = false; ///< What feeds it is in error: whether anything reaches it cannot be said.
};

/// One connection of a document. A plain value.
struct SGraphConnection
{
    int from = 0; ///< Numbers of nodes.
    int to = 0;
    double outPort = 0; ///< As the document has it.
    double inPort = 0;
    const SJsonNode* json = nullptr;        ///< Where the connection is told to be wrong.
    const SJsonNode* outPortJson = nullptr; ///< Where its ports are; null where they are not written.
    const SJsonNode* inPortJson = nullptr;
    const SJsonNode* converter = nullptr;
    QString convertedFrom; ///< Ids of the types of its converter; empty without one.
    QString convertedTo;
    bool canConvert = false; ///< Whether the document could say a converter.
};

/**
 * Finds what is wrong with a graph: ports, types, loops, and nodes that no data reaches.
 *
 * A connection that is wrong in its ports or types still counts as one, so that what lies behind is not told as well.
 */
class CGraphCheck
{
    Q_DECLARE_TR_FUNCTIONS(Host::CGraphCheck)

public:
    /// Both outlive this object.
    CGraphCheck(CModelCatalogue& models, CFaultList& faults);

    /// Returns the number of the node, from 0.
    int addNode(SGraphNode node);
    SGraphNode& node(int number) { return m_nodes[std::size_t(number)]; }

    void connect(const SGraphConnection& connection);

    /// Whether an input port of the node has a connection.
    bool isFed(int node, int port) const { return m_fedPorts.count({node, port}) > 0; }

    /// Finds loops and, in a document that was read whole, what nothing reaches; \a root: where a camera is told that
    /// nothing is wired to it.
    void finish(const SJsonNode& root);

    const std::vector<SGraphNode>& nodes() const { return m_nodes; }

    /// All of them, also those that are in error.
    const std::vector<SGraphConnection>& connections() const { return m_connections; }

    /// How many connections the scene of a camera gets: all, but for those of other cameras.
    std::size_t connectionsOf(int camera) const;

private:
    bool checkPort(const SGraphConnection& connection, bool isOutput);
    bool checkTypes(const SGraphConnection& connection);
    bool checkConverter(const SGraphConnection& connection, const QString& given, const QString& taken);
    QString remedy(const SGraphConnection& connection, const QString& given, const QString& taken);
    void findLoops();
    bool findIdleCameras(const SJsonNode& root);
    void findUnreached();
    void findUnfedPorts(int number);

    CModelCatalogue& m_models;
    CFaultList& m_faults;
    std::vector<SGraphNode> m_nodes;
    std::vector<SGraphConnection> m_connections;
    FlowEdges m_edges;
    FlowEdges m_loopEdges;                                  // of those, what a loop can be made of
    std::map<std::array<int, 4>, const SJsonNode*> m_known; // connections: from, output port, to, input port
    std::set<std::pair<int, int>> m_fedPorts;               // nodes with input ports
};

} // namespace Host
