// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CGraphCheck.h"

#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/ShortestLoops.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Host {

namespace {

constexpr std::size_t maxShownNodes = 20; // of a loop

QString noOutputText(const QString& node, const QString& port, std::size_t count)
{
    if (count == 0)
        return CGraphCheck::tr("%1 has no output port %2; it has none").arg(node, port);
    if (count == 1)
        return CGraphCheck::tr("%1 has no output port %2; its only output port is 0").arg(node, port);
    return CGraphCheck::tr("%1 has no output port %2; its output ports are 0 to %3")
        .arg(node, port, QString::number(count - 1));
}

QString noInputText(const QString& node, const QString& port, std::size_t count)
{
    if (count == 0)
        return CGraphCheck::tr("%1 has no input port %2; it has none").arg(node, port);
    if (count == 1)
        return CGraphCheck::tr("%1 has no input port %2; its only input port is 0").arg(node, port);
    return CGraphCheck::tr("%1 has no input port %2; its input ports are 0 to %3")
        .arg(node, port, QString::number(count - 1));
}

QString unreachedText(const QString& node, int behind)
{
    if (behind == 0)
        return CGraphCheck::tr("no source reaches %1").arg(node);
    if (behind == 1)
        return CGraphCheck::tr("no source reaches %1, and so not what lies behind it (1 node)").arg(node);
    return CGraphCheck::tr("no source reaches %1, and so not what lies behind it (%2 nodes)")
        .arg(node, QString::number(behind));
}

int portNumber(double port)
{
    return port >= 0 && port <= std::numeric_limits<int>::max() ? int(port) : -1;
}

} // namespace

CGraphCheck::CGraphCheck(CModelCatalogue& models, CFaultList& faults)
    : m_models(models)
    , m_faults(faults)
{
}

int CGraphCheck::addNode(SGraphNode node)
{
    m_nodes.push_back(std::move(node));
    return int(m_nodes.size()) - 1;
}

void CGraphCheck::connect(const SGraphConnection& connection)
{
    m_connections.push_back(connection);
    const bool isOutPort = checkPort(connection, true);
    const bool arePorts = checkPort(connection, false) && isOutPort;
    const bool isSound = arePorts && checkTypes(connection);
    if (node(connection.to).isCamera)
        return; // it was told: a camera has no input

    const int inPort = portNumber(connection.inPort);
    const SJsonNode*& known = m_known[{connection.from, portNumber(connection.outPort), connection.to, inPort}];
    if (known && arePorts)
        m_faults.addWarning(
            EFaultRule::DoubleConnection, *connection.json,
            tr("%1 feeds %2 already, at %3: all data would come twice")
                .arg(node(connection.from).name, node(connection.to).name, m_faults.place(known->begin)));
    known = connection.json;
    m_edges.emplace_back(connection.from, connection.to);
    // What leads through a decoupler does not go round at once, but with its rate.
    if (isSound && !node(connection.from).isDecoupler && !node(connection.to).isDecoupler)
        m_loopEdges.push_back(m_edges.back());
    m_fedPorts.emplace(connection.to, inPort);
}

bool CGraphCheck::checkPort(const SGraphConnection& connection, bool isOutput)
{
    const SGraphNode& node = m_nodes[std::size_t(isOutput ? connection.from : connection.to)];
    const PortTypes& ports = isOutput ? node.outputs : node.inputs;
    const double port = isOutput ? connection.outPort : connection.inPort;
    if (!node.hasModel || (port >= 0 && port < double(ports.size())))
        return true;
    const SJsonNode* const written = isOutput ? connection.outPortJson : connection.inPortJson;
    const QString number = QString::number(port, 'g', 15);
    m_faults.addError(EFaultRule::Port, written ? *written : *connection.json,
                      isOutput ? noOutputText(node.name, number, ports.size())
                               : noInputText(node.name, number, ports.size()));
    return false;
}

bool CGraphCheck::checkTypes(const SGraphConnection& connection)
{
    const SGraphNode& from = node(connection.from);
    const SGraphNode& to = node(connection.to);
    if (!from.hasModel || !to.hasModel)
        return true;
    const QString given = from.outputs[std::size_t(connection.outPort)].id;
    const QString taken = to.inputs[std::size_t(connection.inPort)].id;
    if (!connection.convertedFrom.isEmpty() || !connection.convertedTo.isEmpty())
        return checkConverter(connection, given, taken);
    if (given != taken)
        m_faults.addError(
            EFaultRule::DataType, *connection.json,
            withHint(tr("%1 gives %2, and %3 takes %4").arg(from.name, shown(given), to.name, shown(taken)),
                     remedy(connection, given, taken)));
    return given == taken;
}

bool CGraphCheck::checkConverter(const SGraphConnection& connection, const QString& given, const QString& taken)
{
    const QString convertedFrom = shown(connection.convertedFrom);
    const QString convertedTo = shown(connection.convertedTo);
    if (connection.convertedFrom != given || connection.convertedTo != taken)
        m_faults.addError(EFaultRule::DataType, *connection.json,
                          tr("a converter from %1 to %2, where %3 gives %4, and %5 takes %6")
                              .arg(convertedFrom, convertedTo, node(connection.from).name, shown(given),
                                   node(connection.to).name, shown(taken)));
    else if (!m_models.converts(given, taken))
        m_faults.addError(EFaultRule::DataType, *connection.json,
                          tr("a converter from %1 to %2 is not registered").arg(convertedFrom, convertedTo));
    else
        return true;
    return false;
}

QString CGraphCheck::remedy(const SGraphConnection& connection, const QString& given, const QString& taken)
{
    const QString model = m_models.modelBetween(given, taken);
    if (connection.canConvert && m_models.converts(given, taken))
        return tr("the connection lacks its 'converter', which is registered");
    if (!model.isEmpty())
        return tr("put a %1 between").arg(shown(model));
    return tr("no model makes the one of the other");
}

void CGraphCheck::finish(const SJsonNode& root)
{
    findLoops();
    if (!m_faults.hasUnreadValues() && findIdleCameras(root))
        findUnreached();
}

void CGraphCheck::findLoops()
{
    for (const auto& loop : shortestLoops(int(m_nodes.size()), m_loopEdges)) {
        QStringList names;
        for (std::size_t i = 0; i < loop.size() && i < maxShownNodes; ++i)
            names << node(loop[i]).name;
        if (loop.size() > maxShownNodes)
            names << tr("%1 more", "nodes").arg(loop.size() - maxShownNodes);
        names << node(loop.front()).name;
        m_faults.addError(EFaultRule::Loop, *node(loop.front()).json,
                          tr("a loop, with no decoupler in it: %1").arg(names.join(QStringLiteral(" -> "))));
    }
}

// Whether data may come from anywhere: otherwise it goes without saying that nothing is reached.
bool CGraphCheck::findIdleCameras(const SJsonNode& root)
{
    std::vector<bool> isWired(m_nodes.size(), false);
    for (const auto& edge : m_edges)
        isWired[std::size_t(edge.first)] = true;
    // What is in error may be what was to be wired to a camera.
    const bool isDoubtful =
        std::any_of(m_nodes.begin(), m_nodes.end(), [](const SGraphNode& each) { return each.isDoubtful; });
    QStringList idle;
    bool isAnyWired = isDoubtful;
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        if (m_nodes[i].isCamera && !isWired[i])
            idle << m_nodes[i].name;
        isAnyWired = isAnyWired || (m_nodes[i].isCamera && isWired[i]);
    }
    if (!idle.isEmpty() && !isDoubtful)
        m_faults.addError(EFaultRule::Camera, root, tr("nothing is wired to %1").arg(idle.join(QStringLiteral(", "))));
    return isAnyWired;
}

void CGraphCheck::findUnreached()
{
    std::vector<std::vector<int>> targets(m_nodes.size());
    for (const auto& edge : m_edges)
        targets[std::size_t(edge.first)].push_back(edge.second);
    std::vector<bool> isReached(m_nodes.size(), false);
    const auto reachFrom = [&](int first) {
        std::vector<int> open{first};
        int count = 0;
        while (!open.empty()) {
            const auto at = std::size_t(open.back());
            open.pop_back();
            if (isReached[at])
                continue;
            isReached[at] = true;
            ++count;
            open.insert(open.end(), targets[at].begin(), targets[at].end());
        }
        return count;
    };
    for (int i = 0; i < int(m_nodes.size()); ++i) {
        const SGraphNode& each = node(i);
        if (each.isCamera || each.isDoubtful || !each.hasModel || each.inputs.empty())
            reachFrom(i);
    }
    for (int i = 0; i < int(m_nodes.size()); ++i) {
        if (isReached[std::size_t(i)])
            findUnfedPorts(i);
    }

    // In the order of the flow, so that a branch is told by its beginning; what is left then are loops.
    std::vector<int> order = flowOrder(int(m_nodes.size()), m_edges);
    for (int i = 0; i < int(m_nodes.size()); ++i)
        order.push_back(i);
    for (const int first : order) {
        if (isReached[std::size_t(first)])
            continue;
        const int behind = reachFrom(first) - 1;
        m_faults.addError(EFaultRule::Unreached, *node(first).json, unreachedText(node(first).name, behind));
    }
}

void CGraphCheck::findUnfedPorts(int number)
{
    const SGraphNode& each = node(number);
    if (each.inputs.size() < 2 || each.isDoubtful)
        return;
    QStringList unfed;
    for (int port = 0; port < int(each.inputs.size()); ++port) {
        if (!isFed(number, port))
            unfed << QString::number(port);
    }
    if (!unfed.isEmpty())
        m_faults.addWarning(EFaultRule::Unreached, *each.json,
                            tr("nothing feeds input port %1 of %2").arg(unfed.join(QStringLiteral(", ")), each.name));
}

std::size_t CGraphCheck::connectionsOf(int camera) const
{
    const auto count = std::count_if(m_edges.begin(), m_edges.end(), [&](const auto& edge) {
        return edge.first == camera || !m_nodes[std::size_t(edge.first)].isCamera;
    });
    return std::size_t(count);
}

} // namespace Host
