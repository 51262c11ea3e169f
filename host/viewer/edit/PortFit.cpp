// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/PortFit.h"

#include <Halvex/scene/CNodeScene.h>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

bool isThere(const CNodeScene& scene, const SPort& port)
{
    const CNodeBase* const node = nodeOf(scene, port.node);
    return node && port.index >= 0 && unsigned(port.index) < node->nodeDataModel()->nPorts(port.side);
}

bool isConnected(const CNodeScene& scene, const SPort& out, const SPort& in)
{
    for (const auto& each : nodeOf(scene, out.node)->nodeState().connections(ENodePortType::Out, out.index)) {
        const CNodeConnection& connection = *each.second;
        const CNodeBase* const node = connection.getNode(ENodePortType::In);
        if (node && node->id() == in.node && connection.getPortIndex(ENodePortType::In) == in.index)
            return true;
    }
    return false;
}

bool takesAnother(const CNodeScene& scene, const SPort& out)
{
    const CNodeBase& node = *nodeOf(scene, out.node);
    return node.nodeDataModel()->portOutConnectionPolicy(out.index) == CNodeDataModel::EConnectionPolicy::Many ||
           node.nodeState().connections(ENodePortType::Out, out.index).empty();
}

} // namespace

CNodeBase* nodeOf(const CNodeScene& scene, const Core::CId& id)
{
    const auto found = scene.nodes().find(id);
    return found == scene.nodes().end() ? nullptr : found->second.get();
}

SNodeDataType typeOf(const CNodeScene& scene, const SPort& port)
{
    if (!isThere(scene, port))
        return {};
    return nodeOf(scene, port.node)->nodeDataModel()->dataType(port.side, port.index);
}

NodeDataConverter converterOf(const CNodeScene& scene, const SPort& out, const SPort& in)
{
    const SNodeDataType from = typeOf(scene, out);
    const SNodeDataType to = typeOf(scene, in);
    return from.id == to.id || !scene.isRegistyValid() ? NodeDataConverter()
                                                       : scene.registry().getTypeConverter(from, to);
}

bool fits(const CNodeScene& scene, const SPort& one, const SPort& other)
{
    if (one.side == ENodePortType::In)
        return other.side == ENodePortType::Out && fits(scene, other, one);
    if (one.side != ENodePortType::Out || other.side != ENodePortType::In || one.node == other.node)
        return false;
    if (!isThere(scene, one) || !isThere(scene, other))
        return false;
    const bool isSameType = typeOf(scene, one).id == typeOf(scene, other).id;
    return (isSameType || converterOf(scene, one, other)) && takesAnother(scene, one) &&
           !isConnected(scene, one, other);
}

std::vector<SPort> fittingPorts(const CNodeScene& scene, const SPort& port)
{
    const ENodePortType side = port.side == ENodePortType::In ? ENodePortType::Out : ENodePortType::In;
    std::vector<SPort> fitting;
    for (const auto& entry : scene.nodes()) {
        const int ports = int(entry.second->nodeDataModel()->nPorts(side));
        for (int index = 0; index < ports; ++index) {
            const SPort other{entry.first, side, index};
            if (fits(scene, port, other))
                fitting.push_back(other);
        }
    }
    return fitting;
}

} // namespace Host
