// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/CExpectedScenes.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace Sequences {
namespace {

constexpr int ports = 2; // on each side of every node

bool isOf(const SEvent& event, EEvent kind, int number)
{
    return event.event == kind && event.object == number;
}

template <typename Predicate>
void eraseIf(std::vector<int>& numbers, const Predicate& predicate)
{
    numbers.erase(std::remove_if(numbers.begin(), numbers.end(), predicate), numbers.end());
}

} // namespace

/// A stretch of code that stands in a node: one that is retired is destroyed when the last has left it.
class CExpectedScenes::CVisit
{
public:
    CVisit(CExpectedScenes& scenes, int node)
        : m_scenes(scenes)
        , m_node(node)
    {
        ++m_scenes.node(node).visits;
    }
    ~CVisit()
    {
        if (--m_scenes.node(m_node).visits == 0 && isOver())
            m_scenes.destroyNode(m_node);
    }
    Q_DISABLE_COPY(CVisit)

    bool isOver() const { return m_scenes.node(m_node).isRetired; }

private:
    CExpectedScenes& m_scenes;
    int m_node;
};

CExpectedScenes::CExpectedScenes(CEventLog& log, const CEventLog& actual, SNumbering numbering)
    : m_log(log)
    , m_actual(actual)
    , m_numbering(std::move(numbering))
{
}

// What a scene's destructor does.
void CExpectedScenes::destroyScene(int scene)
{
    m_scenes.at(scene).depth = 0;
    m_scenes.at(scene).isClosing = true;
    runDeferred(scene);
    clearScene(scene);

    m_scenes.at(scene).isClosed = true;
    std::vector<int> nodes = nodesOf(scene);
    while (!nodes.empty())
        takeOut(takeNext(nodes, [](const SEvent& event, int node) { return isOf(event, EEvent::Gone, node); }));

    std::vector<int> released;
    for (auto& entry : m_connections) {
        SConnection& connection = entry.second;
        if (connection.scene == scene && std::exchange(connection.isListed, false) && connection.holders == 0)
            released.push_back(entry.first);
    }
    while (!released.empty())
        destroyConnection(takeFirstGone(released));
    m_scenes.erase(scene);
}

// What comes next.

const SEvent* CExpectedScenes::next() const
{
    const std::size_t position = m_log.events().size();
    return position < m_actual.events().size() ? &m_actual.events()[position] : nullptr;
}

template <typename Matches>
int CExpectedScenes::takeNext(std::vector<int>& candidates, const Matches& matches) const
{
    auto found = candidates.begin();
    if (const SEvent* const event = next()) {
        found = std::find_if(found, candidates.end(), [&](int candidate) { return matches(*event, candidate); });
        if (found == candidates.end())
            found = candidates.begin(); // the difference will show
    }
    const int taken = *found;
    candidates.erase(found);
    return taken;
}

/// A connection's last delivery comes before it is gone, and may be the same for several.
int CExpectedScenes::takeFirstGone(std::vector<int>& handles) const
{
    const auto numberOf = [this](int handle) { return m_connections.at(handle).number; };
    const auto& events = m_actual.events();
    auto found = handles.end();
    for (std::size_t i = m_log.events().size(); i < events.size() && found == handles.end(); ++i) {
        found = std::find_if(handles.begin(), handles.end(),
                             [&](int handle) { return isOf(events[i], EEvent::ConnectionGone, numberOf(handle)); });
    }
    if (found == handles.end())
        found = handles.begin(); // the difference will show
    const int taken = *found;
    handles.erase(found);
    return taken;
}

int CExpectedScenes::takeNextNode(int scene, std::vector<int>& candidates) const
{
    // A node whose deletion was announced before its scene's destruction may go silently, and is missing afterwards.
    const SEvent* const event = next();
    const bool listsNodes = event && event->scene == scene && isClosing(scene) &&
                            (event->event == EEvent::NodeDeleted || event->event == EEvent::ConnectionDeleted);
    const auto silent = std::find_if(candidates.begin(), candidates.end(), [&](int node) {
        return listsNodes && m_nodes.at(node).isLeaving &&
               std::find(event->list.begin(), event->list.end(), node) == event->list.end();
    });
    if (silent == candidates.end())
        return takeNext(candidates, [this](const SEvent& e, int node) { return startsRemoval(e, node); });
    const int taken = *silent;
    candidates.erase(silent);
    return taken;
}

/// Whether \a event is what the removal of \a node begins with.
bool CExpectedScenes::startsRemoval(const SEvent& event, int node) const
{
    if (!m_nodes.at(node).isLeaving)
        return isOf(event, EEvent::NodeDeleted, node);
    if (event.event != EEvent::ConnectionDeleted)
        return isOf(event, EEvent::Gone, node);
    const int handle = connectionWithNumber(event.object);
    return handle != 0 && (m_connections.at(handle).in == node || m_connections.at(handle).out == node);
}

// Announcements, and what they put off.

bool CExpectedScenes::tell(int scene, const std::function<SEvent()>& event)
{
    if (!m_scenes.at(scene).isHeard)
        return true;
    for (const bool isLate : {false, true}) {
        SEvent told = event();
        told.isLate = isLate;
        if (isClosing(scene))
            told.list = nodesOf(scene);
        m_log.tell(std::move(told));
        if (!isThere(scene))
            return false;
    }
    return true;
}

bool CExpectedScenes::announce(int scene, const std::function<SEvent()>& event)
{
    ++m_scenes.at(scene).depth;
    if (!tell(scene, event))
        return false;
    --m_scenes.at(scene).depth;
    return runDeferred(scene);
}

bool CExpectedScenes::runDeferred(int scene)
{
    if (m_scenes.at(scene).depth > 0)
        return true;
    ++m_scenes.at(scene).depth;
    while (isThere(scene) && !m_scenes.at(scene).deferred.empty()) {
        const auto action = std::move(m_scenes.at(scene).deferred.front());
        m_scenes.at(scene).deferred.pop_front();
        action();
    }
    if (!isThere(scene))
        return false;
    --m_scenes.at(scene).depth;
    return true;
}

bool CExpectedScenes::defer(int scene, const std::function<void()>& action)
{
    m_scenes.at(scene).deferred.push_back(action);
    return runDeferred(scene);
}

SEvent CExpectedScenes::eventOfNode(EEvent event, int node) const
{
    return {event, false, m_nodes.at(node).scene, node, 0, 0, {}};
}

SEvent CExpectedScenes::eventOfConnection(EEvent event, int handle) const
{
    const SConnection& connection = m_connections.at(handle);
    return {event, false, connection.scene, connection.number, connection.out, connection.in, {}};
}

// Nodes.

int CExpectedScenes::makeNode(int number, const SNode& made)
{
    const int scene = made.scene;
    if (isClosed(scene)) {
        noteGone(number);
        return 0;
    }
    const int replaced = nodeWithId(scene, made.id);
    m_nodes[number] = made;
    m_nodes[number].isInScene = true;
    m_firstOfId.emplace(made.id, number);
    const CVisit visit(*this, number);
    if (replaced != 0) {
        m_nodes.at(replaced).isInScene = false;
        retire(replaced);
    }
    announce(scene, [this, number] { return eventOfNode(EEvent::NodeCreated, number); });
    return isInScene(number) ? number : 0;
}

int CExpectedScenes::restoreNode(int scene, int id, EKind kind)
{
    return makeNode(m_numbering.node(), {scene, id, kind, false, false, kind != Plain});
}

int CExpectedScenes::findUnique(int scene)
{
    std::vector<int> sources = nodesOf(scene);
    eraseIf(sources, [this](int node) { return m_nodes.at(node).kind != Source; });
    if (sources.empty())
        return 0;
    return takeNext(sources, [](const SEvent& event, int node) { return isOf(event, EEvent::Returned, node); });
}

int CExpectedScenes::nodeWithId(int scene, int id) const
{
    const auto found = std::find_if(m_nodes.begin(), m_nodes.end(), [&](const auto& entry) {
        return entry.second.scene == scene && entry.second.id == id && entry.second.isInScene;
    });
    return found == m_nodes.end() ? 0 : found->first;
}

std::vector<int> CExpectedScenes::nodesOf(int scene) const
{
    std::vector<int> numbers;
    for (const auto& entry : m_nodes) {
        if (entry.second.scene == scene && entry.second.isInScene)
            numbers.push_back(entry.first);
    }
    return numbers;
}

bool CExpectedScenes::isInScene(int node) const
{
    const auto found = m_nodes.find(node);
    return found != m_nodes.end() && found->second.isInScene;
}

void CExpectedScenes::noteGone(int node)
{
    m_log.note({EEvent::Gone, false, 0, node, 0, 0, {}});
}

void CExpectedScenes::removeNode(int scene, int node)
{
    const bool isAnnounced = m_nodes.at(node).isLeaving;
    if (isAnnounced && !isClosing(scene))
        return;

    const CVisit visit(*this, node);
    m_nodes.at(node).isLeaving = true;
    if (!isAnnounced && !announce(scene, [this, node] { return eventOfNode(EEvent::NodeDeleted, node); }))
        return;
    if (!isInScene(node))
        return;
    m_nodes.at(node).isClosed = true;
    if (deleteConnectionsOf(scene, node) && isInScene(node))
        takeOut(node);
}

void CExpectedScenes::clearScene(int scene)
{
    std::vector<int> present = nodesOf(scene);
    while (isThere(scene)) {
        eraseIf(present, [this](int node) { return !isInScene(node); });
        if (present.empty())
            return;
        removeNode(scene, takeNextNode(scene, present));
    }
}

void CExpectedScenes::iterate(int scene)
{
    std::vector<int> present = nodesOf(scene);
    while (!present.empty()) {
        const int node = takeNext(present, [](const SEvent& e, int n) { return isOf(e, EEvent::Visited, n); });
        m_log.note({EEvent::Visited, false, 0, node, 0, 0, {}});
    }
}

bool CExpectedScenes::isOpen(int node) const
{
    return !m_nodes.at(node).isRetired && !m_nodes.at(node).isClosed;
}

bool CExpectedScenes::canConnect(int scene, int node, int port) const
{
    return !isClosed(scene) && isOpen(node) && port >= 0 && port < ports;
}

bool CExpectedScenes::deleteConnectionsOf(int scene, int node)
{
    using Handles = std::shared_ptr<std::vector<int>>;
    std::vector<Handles> all;
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        for (int port = 0; port < ports; ++port)
            all.push_back(std::make_shared<std::vector<int>>(connectionsAt(node, side, port)));
    }
    // Nothing comes between the deletions of one port's, so it does not matter which of them is which.
    for (const Handles& handles : all) {
        for (std::size_t count = handles->size(); count > 0; --count) {
            if (!defer(scene, [this, scene, handles] { removeOneOf(scene, *handles); }))
                return false;
        }
    }
    return true;
}

std::vector<int> CExpectedScenes::connectionsAt(int node, ENodePortType side, int port) const
{
    const bool isIn = side == ENodePortType::In;
    std::vector<int> handles;
    for (const auto& entry : m_connections) {
        const SConnection& c = entry.second;
        if (c.isInTables && (isIn ? c.in : c.out) == node && (isIn ? c.inPort : c.outPort) == port)
            handles.push_back(entry.first);
    }
    return handles;
}

void CExpectedScenes::takeOut(int node)
{
    SScene& scene = m_scenes.at(m_nodes.at(node).scene);
    m_nodes.at(node).isInScene = false;
    if (scene.depth == 0)
        retire(node);
    else
        scene.deferred.emplace_back([this, node] { retire(node); });
}

void CExpectedScenes::retire(int node)
{
    for (auto& entry : m_connections) {
        if (entry.second.in == node)
            entry.second.in = 0;
        if (entry.second.out == node)
            entry.second.out = 0;
    }
    m_nodes.at(node).isRetired = true;
    if (m_nodes.at(node).visits == 0)
        destroyNode(node);
}

void CExpectedScenes::destroyNode(int node)
{
    m_nodes.erase(node);
    noteGone(node);
}

void CExpectedScenes::setData(int node, int value)
{
    m_nodes.at(node).output = value;
    update(node, 0);
}

// Connections.

int CExpectedScenes::createConnection(int scene, int in, int inPort, int out, int outPort, bool isConverting)
{
    const int handle = makeConnection({scene, in, inPort, out, outPort, isConverting, true});
    if (handle == 0)
        return 0;
    const int number = m_connections.at(handle).number;
    release(handle);
    return number;
}

int CExpectedScenes::createHalfConnection(int scene, ENodePortType side, int node, int port)
{
    if (!canConnect(scene, node, port))
        return 0;
    const bool isIn = side == ENodePortType::In;
    const int handle = ++m_lastHandle;
    m_connections[handle] = {scene, isIn ? node : 0, port, isIn ? 0 : node, port, false, false};
    m_connections[handle].holders = 1;
    addConnection(handle);
    const int number = m_connections.at(handle).number;
    release(handle);
    return number;
}

int CExpectedScenes::restoreConnection(int scene, const SSaved::SConnection& saved)
{
    const int in = nodeWithId(scene, saved.inId);
    const int out = nodeWithId(scene, saved.outId);
    if (in == 0 || out == 0)
        return 0;
    return createConnection(scene, in, saved.inPort, out, saved.outPort, saved.isConverting);
}

/// The connection's handle, which the caller has to release; 0 if there is none.
int CExpectedScenes::makeConnection(const SConnection& made)
{
    if (!canConnect(made.scene, made.in, made.inPort) || !canConnect(made.scene, made.out, made.outPort))
        return 0;
    const int handle = ++m_lastHandle;
    m_connections[handle] = made;
    m_connections[handle].holders = 1;
    update(made.out, made.outPort);

    const SConnection& connection = m_connections.at(handle);
    const bool isWhole = connection.in != 0 && connection.out != 0 && isOpen(connection.in) && isOpen(connection.out);
    if (!isThere(made.scene) || !isWhole) {
        release(handle);
        return 0;
    }
    addConnection(handle);
    return handle;
}

void CExpectedScenes::addConnection(int handle)
{
    SConnection& connection = m_connections.at(handle);
    connection.number = m_numbering.connection();
    connection.isListed = true;
    announce(connection.scene, [this, handle] { return eventOfConnection(EEvent::ConnectionCreated, handle); });
}

void CExpectedScenes::release(int handle)
{
    SConnection& connection = m_connections.at(handle);
    if (--connection.holders == 0 && !connection.isListed)
        destroyConnection(handle);
}

int CExpectedScenes::connectionWithNumber(int number) const
{
    const auto found = std::find_if(m_connections.begin(), m_connections.end(), [number](const auto& entry) {
        return entry.second.number == number && entry.second.isListed;
    });
    return found == m_connections.end() ? 0 : found->first;
}

void CExpectedScenes::deleteConnection(int number)
{
    const int scene = m_connections.at(connectionWithNumber(number)).scene;
    defer(scene, [this, number] {
        if (const int handle = connectionWithNumber(number))
            removeConnection(handle);
    });
}

void CExpectedScenes::deleteConnectionNow(int number)
{
    removeConnection(connectionWithNumber(number));
}

void CExpectedScenes::removeConnection(int handle)
{
    SConnection& connection = m_connections.at(handle);
    if (connection.isLeaving)
        return;
    const int scene = connection.scene;
    connection.isLeaving = true;
    ++connection.holders;
    ++m_scenes.at(scene).depth;
    if (tell(scene, [this, handle] { return eventOfConnection(EEvent::ConnectionDeleted, handle); })) {
        connection.isInTables = false;
        connection.isListed = false;
    }
    release(handle);
    if (!isThere(scene))
        return;
    --m_scenes.at(scene).depth;
    runDeferred(scene);
}

/// Removes one of \a handles that \a scene still has, if there is one.
void CExpectedScenes::removeOneOf(int scene, std::vector<int>& handles)
{
    eraseIf(handles, [&](int handle) {
        const auto found = m_connections.find(handle);
        return found == m_connections.end() || !found->second.isListed || found->second.scene != scene ||
               found->second.isLeaving;
    });
    if (handles.empty())
        return;
    removeConnection(takeNext(handles, [this](const SEvent& event, int handle) {
        return isOf(event, EEvent::ConnectionDeleted, m_connections.at(handle).number);
    }));
}

void CExpectedScenes::destroyConnection(int handle)
{
    deliver(handle, 0);
    const int number = m_connections.at(handle).number;
    m_connections.erase(handle);
    if (number != 0)
        m_log.note({EEvent::ConnectionGone, false, 0, number, 0, 0, {}});
}

// Data.

void CExpectedScenes::update(int node, int port)
{
    const CVisit visit(*this, node);
    const std::vector<int> handles = inOrderOfNext(connectionsAt(node, ENodePortType::Out, port));
    m_log.note({EEvent::Asked, false, 0, node, 0, port, shownNumbers(handles)});
    const int value = m_nodes.at(node).output;
    if (value == 0)
        return;
    for (const int handle : handles) {
        if (visit.isOver())
            return;
        if (m_connections.count(handle) != 0)
            deliver(handle, value);
    }
}

/// The order of a port's table, as far as it is known.
std::vector<int> CExpectedScenes::inOrderOfNext(const std::vector<int>& handles) const
{
    const SEvent* const event = next();
    if (!event || event->event != EEvent::Asked)
        return handles;
    std::vector<int> remaining = handles;
    std::vector<int> ordered;
    for (const int number : event->list) {
        const auto found =
            std::find_if(remaining.begin(), remaining.end(), [&](int handle) { return shownNumber(handle) == number; });
        if (found == remaining.end())
            return handles;
        ordered.push_back(*found);
        remaining.erase(found);
    }
    return remaining.empty() ? ordered : handles;
}

std::vector<int> CExpectedScenes::shownNumbers(const std::vector<int>& handles) const
{
    std::vector<int> numbers;
    numbers.reserve(handles.size());
    for (const int handle : handles)
        numbers.push_back(shownNumber(handle));
    return numbers;
}

int CExpectedScenes::shownNumber(int handle) const
{
    const SConnection& connection = m_connections.at(handle);
    return connection.number != 0 ? connection.number
                                  : unnumbered(connection.in, connection.inPort, connection.isConverting);
}

void CExpectedScenes::deliver(int handle, int value)
{
    const SConnection& connection = m_connections.at(handle);
    if (connection.in != 0)
        receive(connection.in, connection.inPort, arrivingValue(handle, value));
}

int CExpectedScenes::arrivingValue(int handle, int value) const
{
    return value != 0 && m_connections.at(handle).isConverting ? value + 1 : value;
}

void CExpectedScenes::receive(int node, int port, int value)
{
    const CVisit visit(*this, node);
    m_log.note({EEvent::Received, false, 0, node, value, port, {}});
    SNode& receiver = m_nodes.at(node);
    if (receiver.kind == View) {
        for (const bool isLate : {false, true})
            m_log.tell({EEvent::NewData, isLate, 0, node, value, 0, {}});
        return;
    }
    const bool passesOn = receiver.kind == Filter || receiver.kind == Plain;
    if (!passesOn || operationOf(value) <= receiver.lastPassed)
        return;
    receiver.lastPassed = operationOf(value);
    receiver.output = value;
    update(node, 0);
}

// Documents.

CExpectedScenes::SSaved CExpectedScenes::save(int scene)
{
    SSaved saved;
    std::vector<int> nodes = nodesOf(scene);
    const SEvent* const order = next();
    if (order && std::is_permutation(nodes.begin(), nodes.end(), order->list.begin(), order->list.end()))
        nodes = order->list;
    for (const int node : nodes)
        saved.nodes.push_back({m_nodes.at(node).id, m_nodes.at(node).kind});
    m_log.note({EEvent::Saved, false, 0, 0, 0, 0, nodes});

    std::vector<int> remaining;
    for (const auto& entry : m_connections) {
        const SConnection& c = entry.second;
        if (c.scene == scene && c.isListed && c.in != 0 && c.out != 0)
            remaining.push_back(entry.first);
    }
    const auto written = [this](int handle) {
        const SConnection& c = m_connections.at(handle);
        return std::vector<int>{m_firstOfId.at(m_nodes.at(c.in).id), c.inPort, m_firstOfId.at(m_nodes.at(c.out).id),
                                c.outPort, c.isConverting};
    };
    while (!remaining.empty()) {
        const int handle =
            takeNext(remaining, [&](const SEvent& event, int candidate) { return event.list == written(candidate); });
        m_log.note({EEvent::SavedConnection, false, 0, 0, 0, 0, written(handle)});
        const SConnection& c = m_connections.at(handle);
        saved.connections.push_back({m_nodes.at(c.in).id, c.inPort, m_nodes.at(c.out).id, c.outPort, c.isConverting});
    }
    return saved;
}

bool CExpectedScenes::load(int scene, const SSaved& saved)
{
    for (const SSaved::SNode& node : saved.nodes) {
        if (node.kind == Source)
            continue; // a unique model is not made
        if (node.kind == Unknown || isClosed(scene))
            return false;
        restoreNode(scene, node.id, node.kind);
        if (!isThere(scene))
            return true;
    }
    for (const SSaved::SConnection& connection : saved.connections) {
        restoreConnection(scene, connection);
        if (!isThere(scene))
            return true;
    }
    return true;
}

} // namespace Sequences
