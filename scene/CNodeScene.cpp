// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/scene/CNodeScene.h>

#include "graph/CNodeVisit_p.h"
#include "graph/support/CDeferredQueue_p.h"
#include "graph/support/Reports_p.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QPointer>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace Plugin::Halvex {
namespace {

/// Warns that the ends of \a connection are of different types.
void warnOfTypes(const CNodeConnection& connection, const QString& given, const QString& taken)
{
    const CNodeBase* const in = connection.getNode(ENodePortType::In);
    const CNodeBase* const out = connection.getNode(ENodePortType::Out);
    if (!in || !out || !in->nodeDataModel() || !out->nodeDataModel())
        return;
    // Names come from the models, which are foreign code and may remove the nodes.
    const CNodeVisit visitIn(*in);
    const CNodeVisit visitOut(*out);
    const QString giver = out->nodeDataModel()->name();
    const QString taker = visitIn.isOver() ? QString() : in->nodeDataModel()->name();
    if (visitIn.isOver() || visitOut.isOver())
        return;
    warnOnce("Output port % of the model \"%\" of node % gives \"%\", input port % of the model \"%\" of node % takes "
             "\"%\", and no converter is between them.",
             QString::number(connection.getPortIndex(ENodePortType::Out)), giver, out->id().toString(), given,
             QString::number(connection.getPortIndex(ENodePortType::In)), taker, in->id().toString(), taken);
}

/// Warns if \a connection, which has no converter, leads to a port of another type.
void warnIfTypesDiffer(const CNodeConnection& connection)
{
    swallowExceptions(lcGraph, "Asking for the types of a connection", [&connection] {
        const SNodeDataType given = connection.dataType(ENodePortType::Out);
        const SNodeDataType taken = connection.dataType(ENodePortType::In);
        if (given.id != taken.id)
            warnOfTypes(connection, given.id, taken.id);
    });
}

/// Warns if \a registry could not make \a model again, for a document. A unique model is looked for there, not made.
void warnIfUnknown(CNodeDataModel& model, const CNodeDataModelRegistry& registry)
{
    swallowExceptions(lcGraph, "Asking for the name of a model", [&] {
        const QString name = model.name();
        if (registry.registeredModelCreators().count(name) != 0 || model.save().value(DocumentKeys::isUnique).toBool())
            return;
        warnOnce("A node is made of the model \"%\", which is not registered: its scene's document cannot be loaded.",
                 name);
    });
}

} // namespace

CNodeScene::CNodeScene(Core::AppCoreComponents::BaseInfoPtr info, QObject* parent)
    : CNodeScene(nullptr, std::move(info), parent)
{
}

CNodeScene::CNodeScene(std::shared_ptr<CNodeDataModelRegistry> registry, Core::AppCoreComponents::BaseInfoPtr info,
                       QObject* parent)
    : QObject(parent)
    , m_registry(std::move(registry))
    , m_info(std::move(info))
    , m_queue(std::make_unique<CDeferredQueue>())
{
    // With few entries to a bucket, a table's order is nearly that of memory: a large scene goes twice as fast.
    // Survives removed statement: it only takes longer.
    m_nodes.max_load_factor(0.25F);
    // Survives removed statement: the same.
    m_connections.max_load_factor(0.25F);
}

CNodeScene::~CNodeScene()
{
    // If it is a handler that destroys the scene, the operations around it find the scene gone and stop: what they
    // would have done at their end is done here.
    // Survives exchanged neighbours: neither runs foreign code.
    m_queue->leaveWorkUnderWay();
    m_stage = EStage::Closing;
    const char* const where = "The clearing of a scene that is being destroyed";
    swallowExceptions(lcGraph, where, [this] { m_queue->run([] {}); });
    swallowExceptions(lcGraph, where, [this] { clearScene(); });

    // By hand and not by the members' destructors, since releasing each of these may run foreign code, which may still
    // call the scene. From here on it takes nothing in.
    // Survives exchanged neighbours: neither runs foreign code.
    blockSignals(true);
    m_stage = EStage::Closed;
    m_info.reset();
    m_registry.reset();
    while (!m_nodes.empty())
        takeOut(*m_nodes.begin()->second);
    const auto released = std::exchange(m_connections, {});
}

CNodeBase& CNodeScene::createNode(std::unique_ptr<CNodeDataModel>&& model)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    if (!model)
        return noNode();
    std::unique_ptr<CNodeDataModel> taken = std::move(model);
    const QPointer<CNodeScene> self(this);
    // A share of the registry, because the model is foreign code, which may give the scene another one.
    if (const std::shared_ptr<const CNodeDataModelRegistry> registry = m_registry)
        warnIfUnknown(*taken, *registry);
    if (!self)
        return noNode();
    taken->setInfo(m_info);
    auto node = std::make_unique<CNodeBase>(std::move(taken)); // asks the model for its ports
    return self ? addNode(std::move(node)) : noNode();
}

CNodeBase& CNodeScene::noNode()
{
    static const std::unique_ptr<CNodeBase> none = [] {
        auto node = std::make_unique<CNodeBase>(nullptr);
        node->restore(QJsonObject());
        return node;
    }();
    return *none;
}

std::shared_ptr<CNodeConnection> CNodeScene::createConnection(CNodeBase& nodeIn, int portIndexIn, CNodeBase& nodeOut,
                                                              int portIndexOut, const NodeDataConverter& converter)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    if (!nodeIn.nodeDataModel() || !nodeOut.nodeDataModel())
        return nullptr; // it is being destroyed: no foreign code may run in a visit of it
    // Copying what a converter captured may do anything, so it comes before anything else is checked.
    const QPointer<CNodeScene> self(this);
    NodeDataConverter copy;
    {
        const CNodeVisit visitIn(nodeIn);
        const CNodeVisit visitOut(nodeOut);
        copy = converter;
        // Survives exchanged operator: what is asked then instead was destroyed, and says the same; sanitizers tell.
        if (!self || visitIn.isOver() || visitOut.isOver())
            return nullptr;
    }
    if (!canConnect(nodeIn, ENodePortType::In, portIndexIn) || !canConnect(nodeOut, ENodePortType::Out, portIndexOut))
        return nullptr;

    auto connection = std::make_shared<CNodeConnection>(nodeIn, portIndexIn, nodeOut, portIndexOut, std::move(copy));
    nodeIn.nodeState().setConnection(ENodePortType::In, portIndexIn, *connection);
    nodeOut.nodeState().setConnection(ENodePortType::Out, portIndexOut, *connection);

    nodeOut.onDataUpdated(portIndexOut);
    if (!self || !isWhole(*connection))
        return nullptr;
    addConnection(connection);
    if (!connection->m_converter)
        warnIfTypesDiffer(*connection);
    return connection;
}

std::shared_ptr<CNodeConnection> CNodeScene::createConnection(ENodePortType portType, CNodeBase& node, int portIndex)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    const bool canBeMade = portType == ENodePortType::None ? isOpen(node) : canConnect(node, portType, portIndex);
    if (!canBeMade)
        return nullptr;
    return addConnection(std::make_shared<CNodeConnection>(portType, node, portIndex));
}

void CNodeScene::deleteConnection(CNodeConnection& connection)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    deferDeletion(connection.id());
}

void CNodeScene::deleteConnectionNow(CNodeConnection& connection)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    removeConnection(connection.id(), EIfThrown::Stays);
}

void CNodeScene::removeConnection(const Core::CId& id, EIfThrown ifThrown)
{
    const auto found = m_connections.find(id);
    if (found == m_connections.end() || found->second->m_stage != EConnectionStage::Staying)
        return;

    std::shared_ptr<CNodeConnection> kept = found->second;
    CNodeConnection& connection = *kept;
    m_queue->run([&] {
        const QPointer<CNodeScene> self(this);
        bool isGoing = ifThrown == EIfThrown::Goes;
        // Survives exchanged neighbours: making the guard does nothing else.
        const auto end = qScopeGuard([&] {
            if (!self || !isGoing) {
                connection.m_stage = EConnectionStage::Staying;
                return;
            }
            connection.removeFromNodes();
            m_connections.erase(id);
            kept.reset();
        });
        connection.m_stage = EConnectionStage::Leaving;
        emitGuarded([this, &connection] { Q_EMIT connectionDeleted(connection); });
        isGoing = true;
    });
}

void CNodeScene::removeNode(CNodeBase& node)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    const bool isAnnounced = node.m_stage != ENodeStage::Staying;
    if (!holds(node) || (isAnnounced && m_stage == EStage::Open))
        return;

    // Survives exchanged neighbours: neither runs foreign code.
    const CNodeVisit visit(node);
    node.m_stage = ENodeStage::Leaving;
    // If a handler's exception ends the removal, the node stays and can be removed later.
    auto keepIfThrown = qScopeGuard([&] {
        if (!visit.isOver())
            node.m_stage = ENodeStage::Staying;
    });
    if (!isAnnounced && !m_queue->run([&] { emitGuarded([&] { Q_EMIT nodeDeleted(node); }); }))
        // Survives removed statement: the node says the same of a scene that is gone; sanitizers tell.
        return;
    if (!holds(node))
        return;
    node.m_stage = ENodeStage::Closed;
    const auto ids = node.m_state.connectionIds();
    for (const Core::CId& id : ids) {
        if (!deferDeletion(id))
            return;
    }
    if (!holds(node))
        return;
    // Survives exchanged neighbours: taking the node out throws nothing.
    keepIfThrown.dismiss();
    takeOut(node);
}

void CNodeScene::clearScene()
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    forEachNode([this](CNodeBase* node) { removeNode(*node); });
}

void CNodeScene::iterateOverNodes(const std::function<void(CNodeBase*)>& visitor)
{
    forEachNode(visitor);
}

void CNodeScene::iterateOverNodeData(const std::function<void(CNodeDataModel*)>& visitor)
{
    forEachNode([&visitor](CNodeBase* node) { visitor(node->nodeDataModel()); });
}

const std::unordered_map<Core::CId, std::unique_ptr<CNodeBase>>& CNodeScene::nodes() const
{
    return m_nodes;
}

const std::unordered_map<Core::CId, std::shared_ptr<CNodeConnection>>& CNodeScene::connections() const
{
    return m_connections;
}

CNodeDataModelRegistry& CNodeScene::registry() const
{
    Q_ASSERT(m_registry);
    return *m_registry;
}

void CNodeScene::setRegistry(std::shared_ptr<CNodeDataModelRegistry> registry)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    m_registry = std::move(registry);
}

bool CNodeScene::isRegistyValid() const
{
    return m_registry != nullptr;
}

Core::AppCoreComponents::BaseInfoPtr CNodeScene::getSceneInfo() const
{
    return m_info;
}

bool CNodeScene::isBeingDestroyed() const
{
    return m_stage != EStage::Open;
}

CNodeBase& CNodeScene::addNode(std::unique_ptr<CNodeBase> node)
{
    if (m_stage == EStage::Closed)
        return noNode();

    CNodeBase& added = *node;
    const CNodeVisit visit(added);
    // Survives exchanged neighbours: neither runs foreign code.
    const QPointer<CNodeScene> self(this);
    // Survives exchanged neighbours: the same.
    std::swap(m_nodes[added.id()], node);
    added.m_owner = this;
    if (node) {
        CNodeBase::retire(std::move(node));
        if (!self || !holds(added))
            return noNode();
    }

    const bool isThere = m_queue->run([&] { emitGuarded([&] { Q_EMIT nodeCreated(added); }); });
    return isThere && holds(added) ? added : noNode();
}

std::shared_ptr<CNodeConnection> CNodeScene::addConnection(std::shared_ptr<CNodeConnection> connection)
{
    m_connections[connection->id()] = connection;
    m_queue->run([&] { emitGuarded([&] { Q_EMIT connectionCreated(*connection); }); });
    return connection;
}

bool CNodeScene::holds(const CNodeBase& node) const
{
    return node.m_owner == this;
}

bool CNodeScene::isOpen(const CNodeBase& node) const
{
    return m_stage != EStage::Closed && node.m_stage < ENodeStage::Closed;
}

bool CNodeScene::canConnect(const CNodeBase& node, ENodePortType portType, int portIndex) const
{
    return isOpen(node) && node.m_state.hasPort(portType, portIndex);
}

bool CNodeScene::isWhole(const CNodeConnection& connection) const
{
    const CNodeBase* const in = connection.getNode(ENodePortType::In);
    const CNodeBase* const out = connection.getNode(ENodePortType::Out);
    return in && out && isOpen(*in) && isOpen(*out);
}

CNodeScene::Nodes::const_iterator CNodeScene::find(const CNodeBase& node) const
{
    const auto found = m_nodes.find(node.id());
    if (found != m_nodes.end() && found->second.get() == &node)
        return found;

    // Somebody may have called the node's restore(), which changes its id under our key.
    return std::find_if(m_nodes.begin(), m_nodes.end(),
                        [&node](const auto& entry) { return entry.second.get() == &node; });
}

void CNodeScene::takeOut(CNodeBase& node)
{
    Q_ASSERT(holds(node));
    // Survives exchanged neighbours: neither runs foreign code.
    auto taken = m_nodes.extract(find(node));
    node.m_owner = nullptr;
    if (!m_queue->isBusy()) {
        CNodeBase::retire(std::move(taken.mapped()));
        return;
    }
    // Its connections may wait in the queue, and their handlers are still to see them with both ends.
    const std::shared_ptr<CNodeBase> last(taken.mapped().release(),
                                          [](CNodeBase* left) { CNodeBase::retire(std::unique_ptr<CNodeBase>(left)); });
    m_queue->defer([last] {});
}

bool CNodeScene::forEachNode(const std::function<void(CNodeBase*)>& visitor) const
{
    // The visitor may change the table: it is given what was there at the start and is there at its turn.
    std::vector<QPointer<CNodeBase>> present;
    // Survives removed statement: without the room it is only slower.
    present.reserve(m_nodes.size());
    for (const auto& entry : m_nodes)
        present.emplace_back(entry.second.get());

    const QPointer<const CNodeScene> self(this);
    for (const QPointer<CNodeBase>& node : present) {
        if (!node || !holds(*node))
            continue;
        visitor(node);
        if (!self)
            return false;
    }
    return true;
}

template <typename Signal>
void CNodeScene::emitGuarded(const Signal& signal)
{
    if (m_stage == EStage::Open)
        signal();
    else
        swallowExceptions(lcGraph, "A handler of a scene that is being destroyed", signal);
}

bool CNodeScene::deferDeletion(const Core::CId& id)
{
    // By id and not by reference: until its turn comes, somebody else may have deleted the connection.
    return m_queue->defer([this, id] { removeConnection(id, EIfThrown::Goes); });
}

} // namespace Plugin::Halvex
