// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CNodeConnection.h"

#include "graph/CConnectionWatch_p.h"
#include "graph/CNodeBase.h"
#include "graph/DocumentKeys_p.h"
#include "graph/support/JsonObject_p.h"
#include "graph/support/LoggingCategory_p.h"
#include "graph/support/Swallow_p.h"

#include <utility>

namespace Plugin {
namespace Halvex {
namespace {

SNodeDataType typeAt(const CNodeBase& node, ENodePortType portType, NodePortIndex index)
{
    const CNodeDataModel* const model = node.nodeDataModel();
    return model ? model->dataType(portType, index) : SNodeDataType();
}

bool isRealSide(ENodePortType portType)
{
    return portType == ENodePortType::In || portType == ENodePortType::Out;
}

QJsonObject withConverter(const QJsonObject& ends, const QJsonObject& converter)
{
    QJsonObject json = ends;
    json.insert(QString(DocumentKeys::converter), converter);
    return json;
}

} // namespace

CNodeConnection::CNodeConnection(CNodeBase& inNode, NodePortIndex inIndex, CNodeBase& outNode, NodePortIndex outIndex,
                                 NodeDataConverter converter)
    : m_id(Core::CId::createId())
    , m_converter(std::move(converter))
    , m_number(CConnectionWatch::nextNumber())
{
    setNodeToPort(inNode, ENodePortType::In, inIndex);
    setNodeToPort(outNode, ENodePortType::Out, outIndex);
    CLiveObjects::add(this, CLiveObjects::EKind::Connection); // last: only the destructor takes it back
}

CNodeConnection::CNodeConnection(ENodePortType portType, CNodeBase& node, NodePortIndex index)
    : m_id(Core::CId::createId())
    , m_number(CConnectionWatch::nextNumber())
{
    setNodeToPort(node, portType, index);
    CLiveObjects::add(this, CLiveObjects::EKind::Connection);
}

CNodeConnection::~CNodeConnection()
{
    // What the model does with empty data and what a converter leaves behind is foreign code: it comes while the
    // connection is whole.
    m_isEnding = true;
    swallowExceptions(lcGraph, "A connection's last delivery", [this] { propagateEmptyData(); });
    m_converter = CConverterShare();
    removeFromNodes();
    CLiveObjects::remove(this, CLiveObjects::EKind::Connection);
}

Core::CId CNodeConnection::id() const
{
    return m_id;
}

CNodeBase* CNodeConnection::getNode(ENodePortType portType) const
{
    return isRealSide(portType) ? end(portType).node() : nullptr;
}

CNodeBase*& CNodeConnection::getNode(ENodePortType portType)
{
    return end(portType).nodeField();
}

NodePortIndex CNodeConnection::getPortIndex(ENodePortType portType) const
{
    return isRealSide(portType) ? end(portType).index() : -1;
}

SNodeDataType CNodeConnection::dataType(ENodePortType portType) const
{
    const CNodeBase* const in = m_in.node();
    const CNodeBase* const out = m_out.node();
    if (in && (!out || portType == ENodePortType::In))
        return typeAt(*in, ENodePortType::In, m_in.index());
    if (out)
        return typeAt(*out, in ? portType : ENodePortType::Out, m_out.index());
    return {};
}

void CNodeConnection::setNodeToPort(CNodeBase& node, ENodePortType portType, NodePortIndex index)
{
    CConnectionEnd& indexEnd = portType == ENodePortType::Out ? m_out : m_in;
    leaveEntryBehind(portType);
    if (&indexEnd != &end(portType))
        leaveEntryBehind(ENodePortType::In);
    end(portType).setNode(node);
    indexEnd.setIndex(index);
    Q_EMIT updated(*this);
}

void CNodeConnection::clearNode(ENodePortType portType)
{
    leaveEntryBehind(portType);
    end(portType).clear();
}

void CNodeConnection::setTypeConverter(NodeDataConverter converter)
{
    if (m_isEnding)
        return; // nothing would be left to release it in safety
    // The old converter goes last: what it captured may destroy this connection.
    const CConverterShare old = std::exchange(m_converter, CConverterShare(std::move(converter)));
}

void CNodeConnection::propagateEmptyData() const
{
    propagateData(CNodeDataPtr());
}

void CNodeConnection::removeFromNodes() const
{
    if (CNodeBase* const in = m_in.node())
        in->nodeState().eraseConnection(ENodePortType::In, m_in.index(), m_id);
    if (CNodeBase* const out = m_out.node())
        out->nodeState().eraseConnection(ENodePortType::Out, m_out.index(), m_id);
}

QJsonObject CNodeConnection::save() const
{
    const CNodeBase* const in = m_in.node();
    const CNodeBase* const out = m_out.node();
    if (!in || !out)
        return {};

    const QJsonObject ends = jsonObject({{DocumentKeys::inId, in->id().toString()},
                                         {DocumentKeys::inIndex, m_in.index()},
                                         {DocumentKeys::outId, out->id().toString()},
                                         {DocumentKeys::outIndex, m_out.index()}});
    if (!m_converter)
        return ends;

    // The models that are asked are foreign code and may destroy this connection.
    const CConnectionWatch watch;
    const QJsonObject inType = getTypeJson(ENodePortType::In);
    if (!watch.isThere(this))
        return {};
    const QJsonObject outType = getTypeJson(ENodePortType::Out);
    return withConverter(ends, jsonObject({{DocumentKeys::in, inType}, {DocumentKeys::out, outType}}));
}

QJsonObject CNodeConnection::getTypeJson(ENodePortType portType) const
{
    const SNodeDataType type = dataType(portType);
    return jsonObject({{DocumentKeys::id, type.id}, {DocumentKeys::name, type.name}});
}

const CConnectionEnd& CNodeConnection::end(ENodePortType portType) const
{
    return portType == ENodePortType::In ? m_in : m_out;
}

CConnectionEnd& CNodeConnection::end(ENodePortType portType)
{
    return portType == ENodePortType::In ? m_in : m_out;
}

bool CNodeConnection::leaves(ENodePortType portType, NodePortIndex index, const CNodeState& state) const
{
    const CNodeBase* const node = end(portType).node();
    return node && &node->nodeState() == &state && end(portType).index() == index;
}

void CNodeConnection::leaveEntryBehind(ENodePortType portType) const
{
    const ENodePortType side = portType == ENodePortType::In ? ENodePortType::In : ENodePortType::Out;
    CNodeBase* const node = end(side).node();
    if (node && node->nodeState().holds(side, end(side).index(), m_id))
        node->nodeState().expectDeadEntries();
}

} // namespace Halvex
} // namespace Plugin
