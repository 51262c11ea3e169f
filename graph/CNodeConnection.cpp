// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeConnection.h>

#include "graph/CConversion_p.h"
#include "graph/CNodeVisit_p.h"
#include "graph/PortSides_p.h"
#include "graph/support/JsonObject_p.h"
#include "graph/support/Reports_p.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QPointer>

#include <utility>

namespace Plugin::Halvex {
namespace {

SNodeDataType typeAt(const CNodeBase& node, ENodePortType portType, NodePortIndex index)
{
    const CNodeVisit visit(node);
    const CNodeDataModel* const model = node.nodeDataModel();
    return model ? model->dataType(portType, index) : SNodeDataType();
}

QJsonObject withConverter(const QJsonObject& ends, const QJsonObject& converter)
{
    QJsonObject json = ends;
    json.insert(QString(DocumentKeys::converter), converter);
    return json;
}

std::shared_ptr<const NodeDataConverter> share(NodeDataConverter converter)
{
    return converter ? std::make_shared<const NodeDataConverter>(std::move(converter)) : nullptr;
}

} // namespace

CNodeConnection::CNodeConnection(CNodeBase& inNode, NodePortIndex inIndex, CNodeBase& outNode, NodePortIndex outIndex,
                                 NodeDataConverter converter)
    : m_id(Core::CId::createId())
    , m_converter(share(std::move(converter)))
{
    // Survives exchanged neighbours: the ends know nothing of each other, and nobody hears of them yet.
    setNodeToPort(inNode, ENodePortType::In, inIndex);
    setNodeToPort(outNode, ENodePortType::Out, outIndex);
}

CNodeConnection::CNodeConnection(ENodePortType portType, CNodeBase& node, NodePortIndex index)
    : m_id(Core::CId::createId())
{
    setNodeToPort(node, portType, index);
}

CNodeConnection::~CNodeConnection()
{
    // What the model does with empty data and what a converter leaves behind is foreign code: it comes while the
    // connection is whole.
    m_stage = EStage::Ending;
    swallowExceptions(lcGraph, "A connection's last delivery", [this] { propagateEmptyData(); });
    // Survives exchanged neighbours: neither runs foreign code.
    leaveTables(); // before the converter goes, so that no walk delivers without it
    CConversion::keepConverter(*this);
    // Survives exchanged neighbours: without a converter there are no further calls.
    m_converter.reset();

    // Survives exchanged neighbours: neither runs foreign code.
    CConversion::endAll(*this);
    // Survives exchanged neighbours: tables and ends know nothing of each other.
    leaveTables();
    m_in.unlink();
    m_out.unlink();
}

void CNodeConnection::leaveTables()
{
    for (const CNodeState::SEntry& entry : qAsConst(m_entries))
        entry.state->forgetConnection(entry, m_id);
    m_entries.clear();
}

Core::CId CNodeConnection::id() const
{
    return m_id;
}

CNodeBase* CNodeConnection::getNode(ENodePortType portType) const
{
    return isPortSide(portType) ? end(portType).node : nullptr;
}

CNodeBase*& CNodeConnection::getNode(ENodePortType portType)
{
    return end(portType).node;
}

NodePortIndex CNodeConnection::getPortIndex(ENodePortType portType) const
{
    return isPortSide(portType) ? end(portType).index : -1;
}

SNodeDataType CNodeConnection::dataType(ENodePortType portType) const
{
    if (m_in.node && (!m_out.node || portType == ENodePortType::In))
        return typeAt(*m_in.node, ENodePortType::In, m_in.index);
    if (m_out.node)
        return typeAt(*m_out.node, m_in.node ? portType : ENodePortType::Out, m_out.index);
    return {};
}

void CNodeConnection::setNodeToPort(CNodeBase& node, ENodePortType portType, NodePortIndex index)
{
    // For None the two go to different ends.
    // Survives exchanged neighbours: leading an end leaves the index.
    end(portType).leadTo(node);
    (portType == ENodePortType::Out ? m_out : m_in).index = index;
    Q_EMIT updated(*this);
}

void CNodeConnection::clearNode(ENodePortType portType)
{
    end(portType).clear();
}

void CNodeConnection::setTypeConverter(NodeDataConverter converter)
{
    if (m_stage == EStage::Ending)
        return; // nothing would be left to release it in safety
    CConversion::keepConverter(*this);
    // The old converter goes last: what it captured may destroy this connection.
    const auto old = std::exchange(m_converter, share(std::move(converter)));
}

void CNodeConnection::propagateEmptyData() const
{
    propagateData(CNodeDataPtr());
}

void CNodeConnection::removeFromNodes() const
{
    if (m_in.node)
        m_in.node->nodeState().takeOut(ENodePortType::In, m_in.index, *this);
    if (m_out.node)
        m_out.node->nodeState().takeOut(ENodePortType::Out, m_out.index, *this);
}

QJsonObject CNodeConnection::save() const
{
    if (!m_in.node || !m_out.node)
        return {};

    const QJsonObject ends = jsonObject({{DocumentKeys::inId, m_in.node->id().toString()},
                                         {DocumentKeys::inIndex, m_in.index},
                                         {DocumentKeys::outId, m_out.node->id().toString()},
                                         {DocumentKeys::outIndex, m_out.index}});
    if (!m_converter)
        return ends;

    // The models that are asked are foreign code and may destroy this connection.
    const QPointer<const CNodeConnection> self(this);
    const QJsonObject inType = getTypeJson(ENodePortType::In);
    if (!self)
        return {};
    const QJsonObject outType = getTypeJson(ENodePortType::Out);
    return withConverter(ends, jsonObject({{DocumentKeys::in, inType}, {DocumentKeys::out, outType}}));
}

QJsonObject CNodeConnection::getTypeJson(ENodePortType portType) const
{
    const SNodeDataType type = dataType(portType);
    return jsonObject({{DocumentKeys::id, type.id}, {DocumentKeys::name, type.name}});
}

const CNodeState::SEntry* CNodeConnection::findEntry(const CNodeState& state, ENodePortType side,
                                                     NodePortIndex port) const
{
    for (const CNodeState::SEntry& entry : m_entries) {
        const bool isThere = entry.state == &state && entry.side == side && entry.port == port;
        if (isThere && entry.state->place(entry).until == CNodeState::staysFilled)
            return &entry;
    }
    return nullptr;
}

} // namespace Plugin::Halvex
