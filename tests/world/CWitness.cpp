// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "world/CWitness.h"

#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <QScopeGuard>

using namespace Plugin::Halvex;

CWitness::CWitness(CNodeService& service)
    : m_service(&service)
{
    hearService(EHook::SceneAdded, &INodeService::sceneAdded);
    hearService(EHook::ActiveSceneChanged, &INodeService::activeSceneChanged);
    hearService(EHook::SceneRemoving, &INodeService::sceneRemoving);
    QObject::connect(&service, &INodeService::sceneRemoved, &m_context, [this] {
        int present = 0;
        const QList<CNodeScene*> scenes = m_service->scenes();
        for (const CNodeScene* const scene : scenes)
            present += numberOf(scene) != 0 ? 1 : 0;
        require(++m_removedScenes + present <= m_lastScene, "sceneRemoved() comes once for each scene that is gone");
        m_told.push_back({EHook::SceneRemoved, 0, 0, 0});
        m_lastSignal = {EHook::SceneRemoved, nullptr};
        IHookListener::call(EHook::SceneRemoved, nullptr);
    });
    QObject::connect(&service, &INodeService::sceneRemoved, &m_context,
                     [this] { onLastHandler(EHook::SceneRemoved, nullptr); });
}

template <typename Signal>
void CWitness::hearService(EHook hook, Signal signal)
{
    QObject::connect(m_service, signal, &m_context, [this, hook](CNodeScene* scene) {
        if (hook == EHook::SceneAdded)
            hear(*scene);
        onServiceSignal(hook, scene);
        IHookListener::call(hook, scene);
    });
    QObject::connect(m_service, signal, &m_context, [this, hook](CNodeScene* scene) {
        onLastHandler(hook, scene);
        require(!scene || m_hasHostDestroyedScene || m_service->scenes().contains(scene),
                "a handler was given a scene that is gone");
    });
}

void CWitness::onLastHandler(EHook hook, CNodeScene* scene)
{
    require(m_lastSignal == std::make_pair(hook, const_cast<const CNodeScene*>(scene)),
            "all handlers of the service hear its signals in the same order");
}

void CWitness::onServiceSignal(EHook hook, CNodeScene* scene)
{
    m_told.push_back({hook, numberOf(scene), 0, 0});
    m_lastSignal = {hook, scene};
    const bool isKnown = m_scenes.count(scene) != 0;
    require(isKnown || !scene, "a signal names a scene that is gone");
    if (hook == EHook::ActiveSceneChanged)
        m_lastActive = isKnown ? scene : nullptr;
    if (!isKnown)
        return;
    SScene& known = m_scenes[scene];
    if (hook == EHook::SceneAdded)
        require(!std::exchange(known.isAdded, true), "sceneAdded() comes once");
    else
        require(known.isAdded, "sceneAdded() comes first");
    if (hook == EHook::SceneRemoving)
        require(!std::exchange(known.isRemoving, true) && !scene->isBeingDestroyed(),
                "sceneRemoving() comes once, before the scene goes");
}

void CWitness::hear(CNodeScene& scene)
{
    if (m_scenes.count(&scene) != 0)
        return;
    m_scenes[&scene].number = ++m_lastScene;
    for (const auto& entry : scene.nodes())
        know(scene, *entry.second).created = 1;
    for (const auto& entry : scene.connections())
        know(scene, *entry.second).created = 1;
    QObject::connect(&scene, &QObject::destroyed, &m_context, [this, which = &scene] { m_scenes.erase(which); });

    const auto hearNode = [&](EHook hook, auto signal) {
        QObject::connect(&scene, signal, &m_context,
                         [this, hook, &scene](CNodeBase& node) { onNode(hook, scene, node); });
        QObject::connect(&scene, signal, &m_context, [this, &scene, hook](CNodeBase& node) {
            require(scene.nodes().count(node.id()) != 0 || scene.isBeingDestroyed() || m_mayReplace ||
                        hook == EHook::NodeCreated, // an earlier handler may have removed that
                    "a handler was given a node that is not in its scene");
            require(node.nodeDataModel() && !node.nodeDataModel()->caption().isEmpty(),
                    "a handler was given a node that is not whole");
        });
    };
    const auto hearConnection = [&](EHook hook, auto signal) {
        QObject::connect(&scene, signal, &m_context,
                         [this, hook, &scene](CNodeConnection& connection) { onConnection(hook, scene, connection); });
        QObject::connect(&scene, signal, &m_context, [this](CNodeConnection& connection) {
            require(connection.id() != Core::CId(), "a handler was given a connection that is not whole");
            for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
                const CNodeBase* const node = std::as_const(connection).getNode(side);
                require(!node || node->nodeDataModel(), "a handler was given a connection to a node that is gone");
            }
        });
    };
    hearNode(EHook::NodeCreated, &CNodeScene::nodeCreated);
    hearNode(EHook::NodeDeleted, &CNodeScene::nodeDeleted);
    hearConnection(EHook::ConnectionCreated, &CNodeScene::connectionCreated);
    hearConnection(EHook::ConnectionDeleted, &CNodeScene::connectionDeleted);
}

void CWitness::onNode(EHook hook, CNodeScene& scene, CNodeBase& node)
{
    SNode& known = know(scene, node);
    if (hook == EHook::NodeCreated)
        require(++known.created == 1 && known.deleted == 0, "nodeCreated() comes once, and first");
    else
        // What a document replaces goes before its successor is told, and may take that along.
        require((known.created == 1 || m_mayReplace) && (++known.deleted == 1 || m_isThrown),
                "nodeDeleted() comes once, and last");
    m_told.push_back({hook, numberOf(&scene), known.number, 0});
    if (hook == EHook::NodeCreated)
        hearModel(node);
    call(hook, scene, &node);
}

void CWitness::onConnection(EHook hook, CNodeScene& scene, CNodeConnection& connection)
{
    SConnection& known = know(scene, connection);
    if (hook == EHook::ConnectionCreated)
        require(++known.created == 1 && known.deleted == 0, "connectionCreated() comes once, and first");
    else
        require(known.created == 1 && (++known.deleted == 1 || m_isThrown), "connectionDeleted() comes once, and last");
    m_told.push_back({hook, numberOf(&scene), numberOf(std::as_const(connection).getNode(ENodePortType::In)),
                      numberOf(std::as_const(connection).getNode(ENodePortType::Out))});
    if (hook == EHook::ConnectionCreated)
        QObject::connect(&connection, &CNodeConnection::updated, &m_context,
                         [which = &connection] { IHookListener::call(EHook::Updated, which); });
    if (hook == EHook::ConnectionCreated)
        known.ends = endsOf(scene, connection);
    else
        require(allEndsOf(connection) >= known.ends || m_isThrown || m_mayReplace,
                "a connection is whole when its deletion is told");
    call(hook, scene, &connection);
}

int CWitness::allEndsOf(const CNodeConnection& connection)
{
    return (connection.getNode(ENodePortType::In) ? 1 : 0) + (connection.getNode(ENodePortType::Out) ? 1 : 0);
}

int CWitness::endsOf(const CNodeScene& scene, const CNodeConnection& connection)
{
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        const CNodeBase* const node = connection.getNode(side);
        const auto found = node ? scene.nodes().find(node->id()) : scene.nodes().end();
        // Two scenes may have nodes of one id.
        if (node && (found == scene.nodes().end() || found->second.get() != node))
            return 0; // what happens in another scene is not told
    }
    const int ends = allEndsOf(connection);
    return ends == 2 ? ends : 0; // a half one stays when its node goes, without that end
}

void CWitness::call(EHook hook, const CNodeScene& scene, const void* object)
{
    const auto telling = m_telling.insert(&scene);
    const auto end = qScopeGuard([&] { m_telling.erase(telling); });
    IHookListener::call(hook, object);
}

void CWitness::hearModel(CNodeBase& node)
{
    CNodeDataModel* const model = node.nodeDataModel();
    QObject::connect(model, &CNodeDataModel::dataUpdated, &m_context,
                     [model] { IHookListener::call(EHook::DataUpdatedLast, model); });
    auto* const decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(model);
    if (!decoupler)
        return;
    QObject::connect(decoupler, &CNodeDecouplerDataModelBase::inDataUpdated, &m_context,
                     [model] { IHookListener::call(EHook::InDataUpdated, model); });
    QObject::connect(decoupler, &CNodeDecouplerDataModelBase::framesPerSecondChanged, &m_context,
                     [model] { IHookListener::call(EHook::RateChanged, model); });
}

CWitness::SNode& CWitness::know(CNodeScene& scene, CNodeBase& node)
{
    const auto known = m_nodes.find(&node);
    if (known != m_nodes.end())
        return known->second;
    QObject::connect(&node, &QObject::destroyed, &m_context, [this, which = &node] {
        onGone(m_nodes.at(which));
        m_nodes.erase(which);
    });
    return m_nodes[&node] = {++m_lastNode, 0, 0, scene.isBeingDestroyed()};
}

CWitness::SConnection& CWitness::know(CNodeScene& scene, CNodeConnection& connection)
{
    const auto known = m_connections.find(&connection);
    if (known != m_connections.end())
        return known->second;
    QObject::connect(&connection, &QObject::destroyed, &m_context, [this, which = &connection] {
        onGone(m_connections.at(which));
        m_connections.erase(which);
    });
    return m_connections[&connection] = {0, 0, &scene};
}

void CWitness::onGone(const SNode& node)
{
    require(node.deleted == 1 || node.isLate || m_isThrown || m_mayReplace, "a node goes after nodeDeleted()");
}

void CWitness::onGone(const SConnection& connection)
{
    // What is left when a scene goes, half connections, goes in silence.
    const bool isLeft = !connection.scene || connection.scene->isBeingDestroyed();
    require(connection.deleted == 1 || isLeft || m_isThrown, "a connection goes after connectionDeleted()");
}

int CWitness::numberOf(const CNodeScene* scene) const
{
    const auto known = m_scenes.find(scene);
    return known == m_scenes.end() ? 0 : known->second.number;
}

int CWitness::numberOf(const CNodeBase* node) const
{
    const auto known = m_nodes.find(node);
    return known == m_nodes.end() ? 0 : known->second.number;
}

void CWitness::beginStep()
{
    m_told.clear();
    m_mayReplace = m_isThrown = m_hasHostDestroyedScene = false;
}

QString CWitness::complaintAfterStep(std::size_t kept)
{
    if (!m_service)
        return m_complaint;
    std::size_t nodes = 0;
    std::size_t connections = 0;
    const QList<CNodeScene*> scenes = m_service->scenes();
    require(m_scenes.size() == std::size_t(scenes.size()), "the scenes of the service are those that were told");
    for (const CNodeScene* const scene : scenes) {
        const auto told = m_scenes.find(scene);
        require(told != m_scenes.end() && told->second.isAdded && !told->second.isRemoving,
                "a scene that is there was told once");
        for (const auto& entry : scene->nodes()) {
            SNode& node = m_nodes[entry.second.get()];
            node.deleted = m_isThrown ? 0 : node.deleted; // it stays, and can be removed again
            require(node.created == 1 && node.deleted == 0, "a node that is there was told once");
        }
        for (const auto& entry : scene->connections()) {
            SConnection& connection = m_connections[entry.second.get()];
            connection.deleted = m_isThrown ? 0 : connection.deleted;
            connection.ends = endsOf(*scene, *entry.second);
            require(connection.created == 1 && connection.deleted == 0, "a connection that is there was told once");
        }
        nodes += scene->nodes().size();
        connections += scene->connections().size();
    }
    require(m_nodes.size() == nodes, "nodes that are in no scene are gone");
    require(m_connections.size() <= connections + kept, "connections that are in no scene are gone");
    require(m_removedScenes + scenes.size() == m_lastScene, "sceneRemoved() came for each scene that is gone");
    require(m_service->getActiveScene() == m_lastActive, "the active scene is the one that was told last");
    return m_complaint;
}

void CWitness::require(bool holds, const char* what)
{
    if (!holds && m_complaint.isEmpty())
        m_complaint = QString::fromLatin1(what);
}
