// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "scene/CNodeScene.h"

#include "graph/CGraphOwner_p.h"
#include "graph/support/CMetaTypeRegistration_p.h"
#include "graph/support/LoggingCategory_p.h"
#include "graph/support/Swallow_p.h"

#include <QScopeGuard>
#include <QVarLengthArray>

#include <algorithm>
#include <exception>
#include <utility>

namespace Plugin {
namespace Halvex {
namespace {

/// Marks an object as leaving, so that its removal is not begun twice. If a handler's exception ends the removal, the
/// mark goes, and the object can be removed later.
template <typename T>
class CLeavingMark
{
public:
    explicit CLeavingMark(T& object)
        : m_object(CGraphOwner::isLeaving(object) ? nullptr : &object)
    {
        CGraphOwner::setLeaving(object, true);
    }
    ~CLeavingMark()
    {
        if (m_object)
            CGraphOwner::setLeaving(*m_object, false);
    }
    Q_DISABLE_COPY(CLeavingMark)

    void keep() { m_object = nullptr; }

private:
    T* m_object;
};

/// For several things that are done although one of them throws: the first exception is kept, those after it are
/// reported.
class CFirstException
{
public:
    template <typename Work>
    void attempt(const Work& work)
    {
        if (m_exception) {
            swallowExceptions(lcGraph, "What a scene does after an exception", work);
            return;
        }
        try {
            work();
        } catch (...) {
            m_exception = std::current_exception();
        }
    }
    void rethrow() const
    {
        if (m_exception)
            std::rethrow_exception(m_exception);
    }

private:
    std::exception_ptr m_exception;
};

} // namespace

/// One level of nesting: as long as there is one, deferred actions wait.
class CNodeScene::CNesting
{
public:
    explicit CNesting(CNodeScene& scene)
        : m_scene(scene)
        , m_guard(&scene, scene.m_guards)
    {
        ++scene.m_depth;
    }
    ~CNesting()
    {
        if (m_guard.get())
            --m_scene.m_depth;
    }
    Q_DISABLE_COPY(CNesting)

private:
    CNodeScene& m_scene;
    const Guard m_guard;
};

void CNodeScene::SRetire::operator()(CNodeBase* node) const
{
    CGraphOwner::retire(std::unique_ptr<CNodeBase>(node));
}

CNodeScene::CNodeScene(Core::AppCoreComponents::BaseInfoPtr info, QObject* parent)
    : CNodeScene(nullptr, std::move(info), parent)
{
}

CNodeScene::CNodeScene(std::shared_ptr<CNodeDataModelRegistry> registry, Core::AppCoreComponents::BaseInfoPtr info,
                       QObject* parent)
    : QObject(parent)
    , m_registry(std::move(registry))
    , m_info(std::move(info))
{
}

CNodeScene::~CNodeScene()
{
    // If it is a handler that destroys the scene, the operations around it find the scene gone and stop: what they
    // would have done at their end is done here.
    m_depth = 0;
    m_isClosing = true;
    swallowExceptions(lcGraph, "The clearing of a scene that is being destroyed", [this] {
        runDeferred();
        clearScene();
    });

    // By hand and not by the members' destructors, since releasing each of these may run foreign code, which may still
    // call the scene. From here on it takes nothing in.
    blockSignals(true);
    m_isClosed = true;
    m_info.reset();
    m_registry.reset();
    while (!m_nodes.empty())
        takeOut(*m_nodes.begin()->second);
    const auto released = std::exchange(m_connections, {});
}

CNodeBase& CNodeScene::createNode(std::unique_ptr<CNodeDataModel>&& model)
{
    std::unique_ptr<CNodeDataModel> taken = std::move(model);
    const Guard self(this, m_guards);
    if (taken)
        taken->setInfo(m_info);
    auto node = std::make_unique<CNodeBase>(std::move(taken)); // asks the model for its ports
    return self.get() ? addNode(std::move(node)) : noNode();
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
    if (!nodeIn.nodeDataModel() || !nodeOut.nodeDataModel())
        return nullptr; // it is being destroyed: no foreign code may run in a visit of it
    // Copying what a converter captured may do anything, so it comes before anything else is checked.
    const CNodeVisit visitIn(nodeIn);
    const CNodeVisit visitOut(nodeOut);
    const Guard self(this, m_guards);
    NodeDataConverter copy = converter;
    if (!self.get() || visitIn.isOver() || visitOut.isOver())
        return nullptr;
    if (!canConnect(nodeIn, ENodePortType::In, portIndexIn) || !canConnect(nodeOut, ENodePortType::Out, portIndexOut))
        return nullptr;

    auto connection = std::make_shared<CNodeConnection>(nodeIn, portIndexIn, nodeOut, portIndexOut, std::move(copy));
    nodeIn.nodeState().setConnection(ENodePortType::In, portIndexIn, *connection);
    nodeOut.nodeState().setConnection(ENodePortType::Out, portIndexOut, *connection);

    nodeOut.onDataUpdated(portIndexOut);
    if (!self.get() || !isWhole(*connection))
        return nullptr;
    return addConnection(std::move(connection));
}

std::shared_ptr<CNodeConnection> CNodeScene::createConnection(ENodePortType portType, CNodeBase& node, int portIndex)
{
    if (!canConnect(node, portType, portIndex))
        return nullptr;
    return addConnection(std::make_shared<CNodeConnection>(portType, node, portIndex));
}

void CNodeScene::deleteConnection(CNodeConnection& connection)
{
    deferDeletion(connection.id());
}

void CNodeScene::deleteConnectionNow(CNodeConnection& connection)
{
    removeConnection(connection, EIfThrown::Stays);
}

void CNodeScene::removeConnection(CNodeConnection& connection, EIfThrown ifThrown)
{
    const auto found = m_connections.find(connection.id());
    if (found == m_connections.end() || CGraphOwner::isLeaving(connection))
        return;

    operate([&] {
        std::shared_ptr<CNodeConnection> kept = found->second;
        CLeavingMark<CNodeConnection> mark(connection);
        const Guard self(this, m_guards);
        const auto takeApart = [&] {
            mark.keep();
            connection.removeFromNodes();
            m_connections.erase(connection.id());
            kept.reset();
        };
        try {
            tell([this, &connection] { Q_EMIT connectionDeleted(connection); });
        } catch (...) {
            if (self.get() && ifThrown == EIfThrown::Goes)
                takeApart();
            throw;
        }
        if (self.get())
            takeApart();
    });
}

void CNodeScene::removeNode(CNodeBase& node)
{
    const bool isAnnounced = CGraphOwner::isLeaving(node);
    if (isAnnounced && !m_isClosing)
        return;
    if (CGraphOwner::isRetired(node) || !holds(node))
        return;

    const CNodeVisit visit(node);
    CLeavingMark<CNodeBase> mark(node);
    if (!isAnnounced && !announce([this, &node] { Q_EMIT nodeDeleted(node); }))
        return;
    if (!holds(node))
        return;
    CGraphOwner::setClosed(node, true);
    auto reopening = qScopeGuard([&node] { CGraphOwner::setClosed(node, false); });
    if (!deleteConnectionsOf(node) || !holds(node))
        return;
    reopening.dismiss();
    mark.keep();
    takeOut(node);
}

void CNodeScene::clearScene()
{
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
    return m_isClosing;
}

CNodeBase& CNodeScene::addNode(std::unique_ptr<CNodeBase> node)
{
    if (m_isClosed)
        return noNode();

    CNodeBase& added = *node;
    const CNodeVisit visit(added);
    const Guard self(this, m_guards);

    std::swap(m_nodes[added.id()], node);
    CGraphOwner::setOwner(added, this, ++m_entries);
    if (node) {
        CGraphOwner::setOwner(*node, nullptr, 0);
        CGraphOwner::retire(std::move(node));
        if (!self.get() || !holds(added))
            return noNode();
    }

    const bool isOpen = announce([this, &added] { Q_EMIT nodeCreated(added); });
    return isOpen && holds(added) ? added : noNode();
}

std::shared_ptr<CNodeConnection> CNodeScene::addConnection(std::shared_ptr<CNodeConnection> connection)
{
    m_connections[connection->id()] = connection;
    announce([this, &connection] { Q_EMIT connectionCreated(*connection); });
    return connection;
}

std::unordered_map<Core::CId, std::unique_ptr<CNodeBase>>::iterator CNodeScene::find(const CNodeBase& node)
{
    const auto found = m_nodes.find(node.id());
    if (found != m_nodes.end() && found->second.get() == &node)
        return found;

    // Somebody may have called the node's restore(), which changes its id under our key.
    return std::find_if(m_nodes.begin(), m_nodes.end(),
                        [&node](const auto& entry) { return entry.second.get() == &node; });
}

bool CNodeScene::holds(const CNodeBase& node) const
{
    return CGraphOwner::owner(node) == this;
}

bool CNodeScene::isOpen(const CNodeBase& node)
{
    return !CGraphOwner::isRetired(node) && !CGraphOwner::isClosed(node);
}

bool CNodeScene::canConnect(const CNodeBase& node, ENodePortType portType, int portIndex) const
{
    // As an unsigned number, a negative index is beyond the end as well.
    return !m_isClosed && isOpen(node) && quint64(portIndex) < node.nodeState().getEntries(portType).size();
}

bool CNodeScene::isWhole(const CNodeConnection& connection)
{
    const CNodeBase* const in = connection.getNode(ENodePortType::In);
    const CNodeBase* const out = connection.getNode(ENodePortType::Out);
    return in && out && isOpen(*in) && isOpen(*out);
}

void CNodeScene::takeOut(CNodeBase& node)
{
    const auto found = find(node);
    std::unique_ptr<CNodeBase> taken = std::move(found->second);
    m_nodes.erase(found);
    CGraphOwner::setOwner(node, nullptr, 0);
    std::unique_ptr<CNodeBase, SRetire> last(taken.release());
    // Its connections wait in the queue, and their handlers are still to see them with both ends.
    if (m_depth > 0)
        m_deferred.push_back({std::move(last), {}});
}

bool CNodeScene::forEachNode(const std::function<void(CNodeBase*)>& visitor) const
{
    // The visitor may change the table: it is given what was there at the start and is there at its turn. Not by the
    // address: a node that a document puts in another's place may come to lie where that one lay.
    const quint64 last = m_entries;
    std::vector<Core::CId> present;
    present.reserve(m_nodes.size());
    for (const auto& entry : m_nodes)
        present.push_back(entry.first);

    const Guard self(this, m_guards);
    for (const Core::CId& id : present) {
        const auto found = m_nodes.find(id);
        if (found == m_nodes.end() || CGraphOwner::entry(*found->second) > last)
            continue;
        visitor(found->second.get());
        if (!self.get())
            return false;
    }
    return true;
}

template <typename Signal>
void CNodeScene::tell(const Signal& signal)
{
    if (m_isClosing)
        swallowExceptions(lcGraph, "A handler of a scene that is being destroyed", signal);
    else
        signal();
}

template <typename Work>
bool CNodeScene::operate(const Work& work)
{
    const Guard self(this, m_guards);
    CFirstException exception;
    exception.attempt([&] {
        const CNesting nesting(*this);
        work();
    });
    if (self.get())
        exception.attempt([this] { runDeferred(); });
    exception.rethrow();
    return self.get() != nullptr;
}

template <typename Signal>
bool CNodeScene::announce(const Signal& signal)
{
    return operate([this, &signal] { tell(signal); });
}

bool CNodeScene::deferDeletion(const Core::CId& id)
{
    // By id and not by reference: until its turn comes, somebody else may have deleted the connection.
    m_deferred.push_back({nullptr, id});
    return runDeferred();
}

bool CNodeScene::runDeferred()
{
    if (m_depth > 0 || m_deferred.empty())
        return true;

    // Nested, so that an action's own operations leave the queue to this loop: the stack stays flat however long the
    // queue is.
    const Guard self(this, m_guards);
    CFirstException exception;
    {
        const CNesting nesting(*this);
        while (self.get() && !m_deferred.empty()) {
            SDeferred action = std::move(m_deferred.front());
            m_deferred.pop_front();
            exception.attempt([this, &action] { perform(action); });
        }
    }
    exception.rethrow();
    return self.get() != nullptr;
}

void CNodeScene::perform(SDeferred& action)
{
    if (action.node) {
        action.node.reset();
        return;
    }
    const auto found = m_connections.find(action.connection);
    if (found != m_connections.end())
        removeConnection(*found->second, EIfThrown::Goes);
}

bool CNodeScene::deleteConnectionsOf(const CNodeBase& node)
{
    QVarLengthArray<Core::CId, 8> ids;
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        for (const CNodeState::Connections& port : node.nodeState().getEntries(side)) {
            for (const auto& entry : port)
                ids.append(entry.first);
        }
    }

    for (const Core::CId& id : qAsConst(ids)) {
        if (!deferDeletion(id))
            return false;
    }
    return true;
}

} // namespace Halvex
} // namespace Plugin

int QMetaTypeId<Plugin::Halvex::CNodeScene*>::qt_metatype_id()
{
    using namespace Plugin::Halvex;
    static const CMetaTypeRegistration<CNodeScene*> registration("Plugin::Halvex::CNodeScene*");
    static const int alias = QMetaType::registerNormalizedTypedef("CNodeScene*", registration.id());
    Q_UNUSED(alias) // another type's id, if a host has given it that name
    return registration.id();
}
