// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeBase.h>

#include "graph/CNodeVisit_p.h"
#include "graph/CStackGauge_p.h"
#include "graph/support/JsonObject_p.h"
#include "graph/support/Reports_p.h"

#include <Halvex/graph/DocumentKeys.h>

#include <utility>

namespace Plugin::Halvex {
namespace {

/// Stands in for a model that is missing, so that a node always has one.
class CNoModel : public CNodeDataModel
{
public:
    QString caption() override { return QString(); }
    QString name() override { return QString(); }
    unsigned int nPorts(ENodePortType) const override { return 0; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return {}; }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
};

} // namespace

CNodeBase::CNodeBase(std::unique_ptr<CNodeDataModel>&& model)
    : m_model(model ? std::move(model) : std::make_unique<CNoModel>())
    , m_state(m_model)
    , m_id(Core::CId::createId())
{
    // Without the name, Qt could not queue a model's signal that comes from another thread.
    [[maybe_unused]] static const int nameOfPortIndex = qRegisterMetaType<NodePortIndex>("NodePortIndex");

    if (Q_UNLIKELY(m_model->parent()))
        warnOnce("The model \"%\" of node % has a QObject parent, which destroys it although the node owns it: give it "
                 "none.",
                 m_model->name(), m_id.toString());
    // Survives exchanged neighbours: no walk comes between them.
    CStackGauge::ofThisThread().measureOnce(); // measures this thread's stack, which allocates, before any walk does
    connect(m_model.get(), &CNodeDataModel::dataUpdated, this, &CNodeBase::onDataUpdated);
}

CNodeBase::~CNodeBase()
{
    // Survives exchanged neighbours: neither runs foreign code.
    clearEnds();
    // Survives exchanged neighbours: neither runs foreign code.
    CNodeVisit::forgetNode(*this);

    // Here rather than by the members' own destructors: the model's destructor is foreign code, and whatever it calls
    // must find a node without ports and without a model.
    m_state.clear();
    m_model.reset();
}

Core::CId CNodeBase::id() const
{
    return m_id;
}

CNodeDataModel* CNodeBase::nodeDataModel() const
{
    return m_model.get();
}

CNodeState& CNodeBase::nodeState()
{
    return m_state;
}

const CNodeState& CNodeBase::nodeState() const
{
    return m_state;
}

QJsonObject CNodeBase::save() const
{
    const CNodeVisit visit(*this);
    return jsonObject(
        {{DocumentKeys::id, m_id.toString()}, {DocumentKeys::model, m_model ? m_model->save() : QJsonObject()}});
}

void CNodeBase::restore(const QJsonObject& json)
{
    // Survives exchanged neighbours: the model alone is foreign code.
    const CNodeVisit visit(*this);
    m_id = Core::CId(json.value(DocumentKeys::id).toString().toLocal8Bit().constData());
    if (m_model)
        m_model->restore(json.value(DocumentKeys::model).toObject());
}

void CNodeBase::clearEnds()
{
    while (SEnd* const end = m_firstEnd) {
        end->unlink();
        if (end->node == this) // a host may have written another
            end->clear();
    }
}

void CNodeBase::retire(std::unique_ptr<CNodeBase> node)
{
    Q_ASSERT(node);
    node->m_owner = nullptr;
    // Survives exchanged neighbours: clearing the ends runs no foreign code.
    node->m_stage = EStage::Closed;
    // Survives exchanged neighbours: neither runs foreign code.
    node->clearEnds();
    CNodeVisit::endAll(*node);
    if (node->m_state.m_visit)
        static_cast<void>(node.release()); // the last visit destroys it
}

void CNodeBase::SEnd::leadTo(CNodeBase& to)
{
    // Survives exchanged neighbours: the list knows ends, not nodes.
    unlink();
    node = nullptr;
    if (!to.m_model)
        return; // it is being destroyed
    node = &to;
    link = &to.m_firstEnd;
    next = *link;
    if (next)
        next->link = &next;
    *link = this;
}

void CNodeBase::SEnd::unlink()
{
    if (!link)
        return;
    *link = next;
    if (next)
        next->link = link;
    link = nullptr;
}

void CNodeBase::SEnd::clear()
{
    node = nullptr;
    index = -1;
}

} // namespace Plugin::Halvex
