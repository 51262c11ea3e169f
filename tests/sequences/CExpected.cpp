// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/CExpected.h"

#include <algorithm>

namespace Sequences {

CExpected::CExpected(CEventLog& log, const CEventLog& actual)
    : AWorld(log)
    , m_scenes(log, actual, {[this] { return takeNodeNumber(); }, [this] { return takeConnectionNumber(); }})
{
}

SState CExpected::state() const
{
    SState state;
    state.scenes = m_order;
    state.active = m_active;
    for (const auto& entry : m_scenes.nodes()) {
        const CExpectedScenes::SNode& node = entry.second;
        const bool isOfDocument = !node.isAdded && node.kind != Plain;
        state.nodes.push_back(
            {node.scene, entry.first, node.output, findById(node.id), isFoundByModel(entry.first), isOfDocument});
    }
    for (const auto& entry : m_scenes.connections()) {
        const CExpectedScenes::SConnection& c = entry.second;
        state.connections.push_back({c.scene, c.number, c.in, c.in ? c.inPort : -1, c.out, c.out ? c.outPort : -1});
    }
    for (int info = 0; info < infos; ++info) {
        const auto found =
            std::find_if(m_order.begin(), m_order.end(), [&](int scene) { return m_infos.at(scene) == info; });
        state.sceneOfInfo.push_back(found == m_order.end() ? 0 : *found);
    }
    state.models = int(m_scenes.nodes().size());
    state.sort();
    return state;
}

int CExpected::perform(const SOperation& operation)
{
    if (!isPossible(operation))
        return nothingThere;
    return operation.kind < EOperation::CreateNode ? performOnService(operation) : performOnScene(operation);
}

bool CExpected::isPossible(const SOperation& operation) const
{
    const auto& arguments = operation.arguments;
    const auto hasScene = [&](std::size_t i) { return m_scenes.isThere(arguments[i]); };
    const auto hasNode = [&](std::size_t i) { return m_scenes.isInScene(arguments[i]); };
    switch (operation.kind) {
    case EOperation::AddAgain:
    case EOperation::RemoveNode:
    case EOperation::RemoveNodeByModel:
    case EOperation::RemoveSceneOfNode:
    case EOperation::RemoveFromScene:
        return hasNode(0);
    case EOperation::SetData:
        return hasNode(0) && (m_scenes.node(arguments[0]).kind == Source || m_scenes.node(arguments[0]).kind == Named);
    case EOperation::ConnectModels:
        return hasNode(0) && hasNode(2);
    case EOperation::SetActiveScene:
        return arguments[0] == 0 || hasScene(0);
    case EOperation::CreateConnection:
        return hasScene(0) && hasNode(1) && hasNode(3);
    case EOperation::CreateHalfConnection:
        return hasScene(0) && hasNode(2);
    case EOperation::DeleteConnection:
    case EOperation::DeleteConnectionNow:
        return m_scenes.connectionWithNumber(arguments[0]) != 0;
    case EOperation::CreateNode:
    case EOperation::ClearScene:
    case EOperation::SaveToMemory:
    case EOperation::LoadFromMemory:
    case EOperation::Iterate:
        return hasScene(0);
    case EOperation::RestoreNode:
        return hasScene(0) && !m_saved.nodes.empty();
    case EOperation::RestoreConnection:
        return hasScene(0) && !m_saved.connections.empty();
    case EOperation::DestroyScene:
        return hasScene(0) && !m_scenes.isClosing(arguments[0]);
    default:
        return true;
    }
}

int CExpected::performOnService(const SOperation& operation)
{
    const auto& arguments = operation.arguments;
    switch (operation.kind) {
    case EOperation::AddSource:
        return addSource(operation.number, arguments[0]);
    case EOperation::AddModel:
        return addModel(operation.number, EKind(arguments[0]));
    case EOperation::AddUniqueSink:
        return addUniqueSink(operation.number);
    case EOperation::AddAgain:
        return addAgain(arguments[0]);
    case EOperation::RemoveNode:
        return removeFound(findById(m_scenes.node(arguments[0]).id), arguments[1] != 0);
    case EOperation::RemoveNodeByModel:
        return isFoundByModel(arguments[0]) ? removeFound(arguments[0], arguments[1] != 0) : 0;
    case EOperation::RemoveSceneOfNode:
        return removeSceneOfNode(arguments[0], arguments[1] != 0);
    case EOperation::ConnectModels:
        return connectModels(arguments[0], arguments[1], arguments[2], arguments[3]);
    case EOperation::ImportDocument:
        return importAll({operation.document});
    case EOperation::ImportStoredDocuments:
        return m_stored.empty() ? 0 : importAll(std::vector<Document>(m_stored));
    case EOperation::AddStoredDocument:
        m_stored.push_back(operation.document);
        return 0;
    case EOperation::SetActiveScene:
        if (isOwned(arguments[0]) && !m_scenes.isClosing(arguments[0]))
            activate(arguments[0]);
        return 0;
    default:
        return 0;
    }
}

int CExpected::performOnScene(const SOperation& operation)
{
    const auto& arguments = operation.arguments;
    const int scene = arguments[0];
    switch (operation.kind) {
    case EOperation::CreateNode: {
        const EKind kind = EKind(arguments[1]);
        return m_scenes.makeNode(operation.number, {scene, m_scenes.makeId(), kind, false, false, kind != Plain});
    }
    case EOperation::CreateConnection:
        return m_scenes.createConnection(scene, arguments[1], arguments[2], arguments[3], arguments[4],
                                         arguments[5] != 0);
    case EOperation::CreateHalfConnection:
        return m_scenes.createHalfConnection(scene, ENodePortType(arguments[1]), arguments[2], arguments[3]);
    case EOperation::DeleteConnection:
        m_scenes.deleteConnection(arguments[0]);
        return 0;
    case EOperation::DeleteConnectionNow:
        m_scenes.deleteConnectionNow(arguments[0]);
        return 0;
    case EOperation::RemoveFromScene:
        m_scenes.removeNode(m_scenes.node(arguments[0]).scene, arguments[0]);
        return 0;
    case EOperation::ClearScene:
        m_scenes.clearScene(scene);
        return 0;
    case EOperation::SaveToMemory:
        m_saved = m_scenes.save(scene);
        return 0;
    case EOperation::LoadFromMemory:
        return m_scenes.load(scene, CExpectedScenes::SSaved(m_saved)) ? 0 : thrown;
    case EOperation::RestoreNode:
        return restoreNode(scene, arguments[1]);
    case EOperation::RestoreConnection:
        return restoreConnection(scene, arguments[1]);
    case EOperation::Iterate:
        m_scenes.iterate(scene);
        return 0;
    case EOperation::SetData:
        m_scenes.setData(arguments[0], arguments[1] != 0 ? 0 : operation.number * perOperation);
        return 0;
    case EOperation::DestroyScene:
        return destroyScene(scene);
    default:
        return 0;
    }
}

int CExpected::addSource(int number, int info)
{
    const int scene = number;
    m_scenes.addScene(scene);
    m_infos[scene] = info;
    m_order.push_back(scene);
    takeTurn([this, scene] {
        if (!m_scenes.isThere(scene))
            return;
        m_scenes.hear(scene);
        tell(EEvent::SceneAdded, scene);
    });
    if (m_scenes.isThere(scene))
        activate(scene);
    const int node = placeInto(scene, number, Source);
    if (m_scenes.isThere(scene))
        m_scenes.hear(scene); // who asked for it knows it
    return node;
}

int CExpected::addModel(int number, EKind kind)
{
    return placeInto(m_active, number, kind);
}

int CExpected::addUniqueSink(int number)
{
    activate(0);
    m_scenes.noteGone(number);
    return 0;
}

int CExpected::addAgain(int node)
{
    const CExpectedScenes::SNode again = m_scenes.node(node);
    if (again.kind == Plain || !again.isKnown || !isOwned(again.scene))
        return 0;
    if (again.kind == Source)
        activate(again.scene);
    return again.id != 0 ? node : 0;
}

int CExpected::removeSceneOfNode(int node, bool byId)
{
    const int found = byId ? findById(m_scenes.node(node).id) : node;
    if (found != 0 && isOwned(m_scenes.node(found).scene))
        removeScene(m_scenes.node(found).scene);
    return 0;
}

int CExpected::connectModels(int in, int inPort, int out, int outPort)
{
    if (!isFoundByModel(in) || !isFoundByModel(out))
        return 0;
    const int number = m_scenes.createConnection(m_scenes.node(in).scene, in, inPort, out, outPort, false);
    return number != 0 && m_scenes.connectionWithNumber(number) != 0 ? number : 0;
}

int CExpected::destroyScene(int scene)
{
    m_scenes.destroyScene(scene);
    forgetScene(scene);
    if (m_leaving.erase(scene) == 0)
        tellRemoved();
    return 0;
}

// The service.

void CExpected::takeTurn(const std::function<void()>& turn)
{
    m_turns.push_back(turn);
    if (m_isTelling)
        return;
    m_isTelling = true;
    while (!m_turns.empty()) {
        const auto next = m_turns.front();
        m_turns.pop_front();
        next();
    }
    m_isTelling = false;
}

void CExpected::tell(EEvent event, int scene)
{
    for (const bool isLate : {false, true})
        log().tell({event, isLate, scene, 0, 0, 0, {}});
}

void CExpected::activate(int scene)
{
    m_active = scene;
    takeTurn([this, scene] {
        if (scene == 0 || m_scenes.isThere(scene))
            tell(EEvent::ActiveSceneChanged, scene);
    });
}

void CExpected::removeScene(int scene)
{
    if (m_scenes.isClosing(scene) || !m_leaving.insert(scene).second)
        return;
    takeTurn([this, scene] {
        if (m_scenes.isThere(scene))
            tell(EEvent::SceneRemoving, scene);
        takeTurn([this, scene] { endScene(scene); });
    });
}

void CExpected::endScene(int scene)
{
    if (m_scenes.isThere(scene)) {
        m_order.erase(std::find(m_order.begin(), m_order.end(), scene));
        m_scenes.destroyScene(scene);
        forgetScene(scene);
    }
    tellRemoved();
}

void CExpected::forgetScene(int scene)
{
    m_order.erase(std::remove(m_order.begin(), m_order.end(), scene), m_order.end());
    if (m_active == scene)
        m_active = 0;
}

void CExpected::tellRemoved()
{
    takeTurn([this] {
        tell(EEvent::SceneRemoved, 0);
        takeTurn([this] {
            const auto first =
                std::find_if(m_order.begin(), m_order.end(), [this](int scene) { return !m_scenes.isClosing(scene); });
            if (first != m_order.end())
                activate(*first);
        });
    });
}

int CExpected::placeInto(int scene, int number, EKind kind)
{
    if (!m_scenes.isThere(scene)) {
        m_scenes.noteGone(number);
        return 0;
    }
    const bool hasUniqueName = kind == Source || kind == Named;
    const int node = m_scenes.makeNode(number, {scene, m_scenes.makeId(), kind, hasUniqueName, true, false});
    if (node != 0)
        m_scenes.node(node).isKnown = true;
    return node;
}

bool CExpected::isOwned(int scene) const
{
    return std::find(m_order.begin(), m_order.end(), scene) != m_order.end();
}

bool CExpected::isFoundByModel(int node) const
{
    const CExpectedScenes::SNode& found = m_scenes.node(node);
    return found.isAdded && found.isKnown && found.isInScene && isOwned(found.scene);
}

int CExpected::findById(int id) const
{
    for (const int scene : m_order) {
        if (const int node = m_scenes.nodeWithId(scene, id))
            return node;
    }
    return 0;
}

int CExpected::removeFound(int node, bool removeLoneNodeScene)
{
    if (node == 0)
        return 0;
    const int scene = m_scenes.node(node).scene;
    m_scenes.removeNode(scene, node);
    if (!removeLoneNodeScene || !m_scenes.isThere(scene))
        return 0;
    const std::vector<int> rest = m_scenes.nodesOf(scene);
    if (rest.size() != 1 || m_scenes.node(rest.front()).kind != View)
        return 0;
    if (isOwned(scene))
        m_scenes.removeNode(scene, rest.front());
    if (m_scenes.isThere(scene))
        removeScene(scene);
    return 0;
}

// Documents.

int CExpected::importAll(const std::vector<Document>& documents)
{
    const int scene = m_active;
    if (scene == 0)
        return 0;

    CExpectedScenes::SSaved made;
    std::map<int, int> ids; // by label or unique name
    const auto idOf = [&](int name) {
        if (ids.count(name) == 0) {
            const int node = nodeOfName(scene, name);
            ids[name] = node != 0 ? m_scenes.node(node).id : 0;
        }
        return ids[name];
    };
    for (const Document& document : documents) {
        for (const SElement& element : document) {
            if (ids.count(element.label) == 0)
                ids[element.label] = m_scenes.makeId();
            made.nodes.push_back({ids[element.label], element.kind});
            for (const auto& port : element.sources) {
                for (const int name : port) {
                    const int node = nodeOfName(scene, name);
                    if (node == 0)
                        continue;
                    ids[name] = m_scenes.node(node).id;
                    made.nodes.push_back({ids[name], m_scenes.node(node).kind});
                }
            }
        }
        for (const SElement& element : document) {
            for (int port = 0; port < int(element.sources.size()); ++port) {
                for (const int name : element.sources[std::size_t(port)])
                    made.connections.push_back({idOf(element.label), port, idOf(name), port, false});
            }
            for (const int name : element.feeds)
                made.connections.push_back({idOf(name), 0, idOf(element.label), 0, false});
        }
    }
    return m_scenes.load(scene, made) && m_scenes.isThere(scene);
}

int CExpected::nodeOfName(int scene, int name) const
{
    const int node = -name; // its number
    const bool hasName = name < 0 && m_scenes.isInScene(node) && m_scenes.node(node).hasUniqueName;
    return hasName && m_scenes.node(node).scene == scene ? node : 0;
}

int CExpected::restoreNode(int scene, int index)
{
    const auto saved = m_saved.nodes[std::size_t(index) % m_saved.nodes.size()];
    if (saved.kind == Source)
        return m_scenes.findUnique(scene);
    return m_scenes.isClosed(scene) ? thrown : m_scenes.restoreNode(scene, saved.id, saved.kind);
}

int CExpected::restoreConnection(int scene, int index)
{
    const auto saved = m_saved.connections[std::size_t(index) % m_saved.connections.size()];
    return m_scenes.restoreConnection(scene, saved);
}

} // namespace Sequences
