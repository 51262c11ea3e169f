// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Random operations on a node service, some of them from within handlers of its signals and of its scenes' signals,
// against a model of plain lists: what is told and in which order, what operations return, and what is there after
// each step.
// The model has the service's queue of turns once more, with the removal of a scene and the choice of the next active
// one as turns of their own: what an operation in a handler finds depends on what has had its turn, so it could not be
// told what to expect without it. Nothing else is the service's way of doing it; nodes are found by walking lists.
//
//   stress_NodeService [steps] [seed]
//
// Ends at the first difference and prints the step; the same seed leads to the same step again.

#include "CHostModel.h"
#include "graph/CNodeConnection.h"
#include "scene/CNodeScene.h"
#include "service/CNodeService.h"
#include "support/CTestModel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <tuple>
#include <vector>

using namespace Plugin::Halvex;
using Core::AppCoreComponents::BaseInfoPtr;

namespace {

/// What a node's model is.
enum EKind
{
    View,   // a sink
    Filter, // a decoupler
    Named,  // a source with a unique name, which is not unique
    Plain,  // without an identity
    Source, // a unique source
    Unknown // that nobody registered
};

const char* nameOf(EKind kind)
{
    const char* const names[] = {"View", "Filter", "Named", "Plain", "Source", "Unknown"};
    return names[kind];
}

struct SElement
{
    int label;
    EKind kind;
    std::vector<std::vector<int>> sources; // labels, or unique names
    std::vector<int> feeds;                // labels
};

using Document = std::vector<SElement>;

/// Labels are the small numbers; unique names begin here.
const int firstName = 10;

QString textOf(int name)
{
    return QString(name < firstName ? "label-%1" : "name-%1").arg(name);
}

/**
 * The operations of a host. Nodes and scenes go by numbers, in the order in which they were made. Results are the
 * number of a node, whether something was made, or 0.
 */
class IGraph
{
public:
    virtual ~IGraph() = default;

    virtual int addSource(int info) = 0;
    virtual int addModel(EKind kind) = 0; // not unique
    virtual int addUniqueSink() = 0;
    virtual int addAgain(int node) = 0;
    virtual int removeNode(int node, bool removeLoneNodeScene) = 0;
    virtual int removeNodeByModel(int node, bool removeLoneNodeScene) = 0;
    virtual int removeSceneOfNode(int node, bool byId) = 0;
    virtual int connectModels(int in, int inPort, int out, int outPort) = 0;
    virtual int importDocument(const Document& document) = 0;
    virtual int importStoredDocuments() = 0;
    virtual int addStoredDocument(const Document& document) = 0;
    virtual int setActiveScene(int scene) = 0; // 0 for none

    // What a host does without the service.
    virtual int createNode(int scene, EKind kind) = 0;
    virtual int removeFromScene(int node) = 0;
    virtual int destroyScene(int scene) = 0;
};

struct SOperation
{
    QString text;
    std::function<int(IGraph&)> run;
};

/// Everything that can be seen from outside.
struct SState
{
    using Connection = std::tuple<int, int, int, int>; // in node, its port, out node, its port

    std::vector<int> scenes;
    int active = 0;
    std::map<int, std::set<int>> nodes;                   // by scene
    std::map<int, std::multiset<Connection>> connections; // by scene
    std::set<int> documentNodes;
    std::set<int> foundByModel;
    std::map<int, int> foundById;
    std::map<int, int> sceneOfInfo;
    int models = 0;

    auto asTuple() const
    {
        return std::tie(scenes, active, nodes, connections, documentNodes, foundByModel, foundById, sceneOfInfo,
                        models);
    }
};

const int infos = 4; // 0 is none

/// A log that calls back, so that a handler can act: at each signal that tells of something new.
class CTelling
{
public:
    using Handler = std::function<void(int signal)>; // the how manyeth it was

    void begin(Handler handler)
    {
        log.clear();
        m_signals = 0;
        m_handler = std::move(handler);
    }
    void note(const QString& entry) { log << entry; }
    void tell(const QString& entry)
    {
        log << entry;
        m_handler(m_signals++);
    }

    QStringList log;

private:
    int m_signals = 0;
    Handler m_handler;
};

/// The log with what scenes say between two signals of the service sorted: the order of a scene's nodes is nobody's
/// business.
QStringList canonical(QStringList log)
{
    const auto isOfAScene = [](const QString& entry) { return entry.at(0).isDigit(); };
    for (auto at = log.begin(); at != log.end();) {
        const auto end = std::find_if_not(at, log.end(), isOfAScene);
        std::sort(at, end);
        at = end == log.end() ? end : end + 1;
    }
    return log;
}

/// What should be there.
class CExpected : public IGraph
{
public:
    explicit CExpected(CTelling& telling)
        : m_telling(telling)
    {
    }

    int addSource(int info) override
    {
        const int name = ++m_lastName;
        const int scene = ++m_lastScene;
        m_scenes[scene].info = info;
        m_order.push_back(scene);
        takeTurn([this, scene] {
            if (isThere(scene))
                tellAdded(scene);
        });
        if (isThere(scene))
            activate(scene);
        return placeInto(scene, Source, name);
    }

    int addModel(EKind kind) override { return placeInto(m_active, kind, kind == Named ? ++m_lastName : 0); }

    int addUniqueSink() override
    {
        activate(0);
        return 0;
    }

    int addAgain(int node) override
    {
        const int number = node;
        if (m_nodes.at(node).kind == Source)
            activate(m_nodes.at(node).scene);
        return number;
    }

    int removeNode(int node, bool removeLoneNodeScene) override
    {
        return removeFound(findById(m_nodes.at(node).id), removeLoneNodeScene);
    }

    int removeNodeByModel(int node, bool removeLoneNodeScene) override
    {
        const bool isFound = m_nodes.at(node).isAdded && m_nodes.at(node).isKnown;
        return isFound ? removeFound(node, removeLoneNodeScene) : 0;
    }

    int removeSceneOfNode(int node, bool byId) override
    {
        removeScene(m_nodes.at(byId ? findById(m_nodes.at(node).id) : node).scene);
        return 0;
    }

    int connectModels(int in, int inPort, int out, int outPort) override
    {
        const auto isFound = [this](int node) { return m_nodes.at(node).isAdded && m_nodes.at(node).isKnown; };
        return isFound(in) && isFound(out) && createConnection(m_nodes.at(in).scene, in, inPort, out, outPort);
    }

    int importDocument(const Document& document) override { return importAll({document}); }
    int importStoredDocuments() override { return !m_stored.empty() && importAll(m_stored); }
    int addStoredDocument(const Document& document) override
    {
        m_stored.push_back(document);
        return 0;
    }

    int setActiveScene(int scene) override
    {
        if (scene != 0)
            activate(scene);
        return 0;
    }

    int createNode(int scene, EKind kind) override
    {
        return makeNode({scene, ++m_lastId, kind, 0, false, kind != Plain});
    }

    int removeFromScene(int node) override
    {
        removeFrom(m_nodes.at(node).scene, node);
        return 0;
    }

    int destroyScene(int scene) override
    {
        empty(scene);
        m_order.erase(std::find(m_order.begin(), m_order.end(), scene));
        if (m_leaving.erase(scene) == 0)
            tellRemoved();
        return 0;
    }

    /// Scenes are heard from when an operation has returned, if they were not before.
    void hearAll()
    {
        for (auto& entry : m_scenes)
            entry.second.isHeard = true;
    }

    SState state() const
    {
        SState state;
        state.scenes = m_order;
        state.active = m_active;
        for (const int scene : m_order) {
            state.nodes[scene];
            state.connections[scene];
        }
        for (const auto& entry : m_nodes) {
            const SNode& node = entry.second;
            state.nodes[node.scene].insert(entry.first);
            if (node.isAdded)
                state.foundByModel.insert(entry.first);
            else if (node.kind != Plain)
                state.documentNodes.insert(entry.first);
        }
        for (const auto& entry : m_connections) {
            const SConnection& c = entry.second;
            state.connections[c.scene].insert({c.in, c.in ? c.inPort : -1, c.out, c.out ? c.outPort : -1});
        }
        std::map<int, int> firstOfId;
        for (const int scene : m_order) {
            for (const int node : state.nodes[scene])
                firstOfId.emplace(m_nodes.at(node).id, node);
        }
        for (const auto& entry : m_nodes)
            state.foundById[entry.first] = firstOfId.at(entry.second.id);
        for (int info = 0; info < infos; ++info) {
            const auto found = std::find_if(m_order.begin(), m_order.end(),
                                            [&](int scene) { return m_scenes.at(scene).info == info; });
            state.sceneOfInfo[info] = found == m_order.end() ? 0 : *found;
        }
        state.models = int(m_nodes.size());
        return state;
    }

    // What random operations are chosen from.
    const std::vector<int>& scenes() const { return m_order; }
    std::vector<int> nodes() const
    {
        std::vector<int> numbers;
        for (const auto& entry : m_nodes)
            numbers.push_back(entry.first);
        return numbers;
    }
    std::vector<int> names() const
    {
        std::vector<int> names;
        for (const auto& entry : m_nodes) {
            if (entry.second.name != 0)
                names.push_back(entry.second.name);
        }
        return names;
    }
    /// Whether the service knows the node's model: not while addNode() makes it.
    bool isKnown(int node) const { return m_nodes.at(node).isKnown; }
    std::size_t storedDocuments() const { return m_stored.size(); }

private:
    struct SNode
    {
        int scene;
        int id; // 0 is no id
        EKind kind;
        int name; // 0 is none
        bool isAdded;
        bool isKnown;
    };
    struct SScene
    {
        int info = 0;
        bool isHeard = false;
        int depth = 0;
        std::deque<std::function<void()>> deferred;
    };
    struct SConnection
    {
        int scene;
        int in; // 0 when the node is gone
        int inPort;
        int out;
        int outPort;
    };

    bool isThere(int scene) const { return m_scenes.count(scene) != 0; }

    // The service.

    void takeTurn(const std::function<void()>& turn)
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

    void tellAdded(int scene)
    {
        m_scenes.at(scene).isHeard = true;
        m_telling.tell(QString("added %1").arg(scene));
    }

    void activate(int scene)
    {
        m_active = scene;
        takeTurn([this, scene] {
            if (scene == 0 || isThere(scene))
                m_telling.tell(QString("active %1").arg(scene));
        });
    }

    void removeScene(int scene)
    {
        if (!m_leaving.insert(scene).second)
            return;
        takeTurn([this, scene] {
            if (isThere(scene))
                m_telling.tell(QString("removing %1").arg(scene));
            takeTurn([this, scene] { endScene(scene); });
        });
    }

    void endScene(int scene)
    {
        if (isThere(scene)) {
            m_order.erase(std::find(m_order.begin(), m_order.end(), scene));
            empty(scene);
            m_leaving.erase(scene);
        }
        tellRemoved();
    }

    void tellRemoved()
    {
        takeTurn([this] {
            m_telling.tell("removed");
            takeTurn([this] {
                if (!m_order.empty())
                    activate(m_order.front());
            });
        });
    }

    int placeInto(int scene, EKind kind, int name)
    {
        if (!isThere(scene))
            return 0;
        const int node = makeNode({scene, ++m_lastId, kind, name, true, false});
        if (node != 0)
            m_nodes.at(node).isKnown = true;
        return node;
    }

    int findById(int id) const
    {
        for (const int scene : m_order) {
            for (const auto& entry : m_nodes) {
                if (entry.second.scene == scene && entry.second.id == id)
                    return entry.first;
            }
        }
        return 0;
    }

    int removeFound(int node, bool removeLoneNodeScene)
    {
        const int scene = m_nodes.at(node).scene;
        removeFrom(scene, node);
        const std::vector<int> rest = nodesOf(scene);
        if (!removeLoneNodeScene || rest.size() != 1 || m_nodes.at(rest.front()).kind != View)
            return 0;
        removeFrom(scene, rest.front());
        removeScene(scene);
        return 0;
    }

    // A scene.

    std::vector<int> nodesOf(int scene) const
    {
        std::vector<int> numbers;
        for (const auto& entry : m_nodes) {
            if (entry.second.scene == scene)
                numbers.push_back(entry.first);
        }
        return numbers;
    }

    int nodeWithId(int scene, int id) const
    {
        for (const int node : nodesOf(scene)) {
            if (m_nodes.at(node).id == id)
                return node;
        }
        return 0;
    }

    void announce(int scene, const QString& entry)
    {
        if (!m_scenes.at(scene).isHeard)
            return;
        ++m_scenes.at(scene).depth;
        m_telling.tell(QString("%1 %2").arg(scene).arg(entry));
        if (!isThere(scene))
            return;
        --m_scenes.at(scene).depth;
        runDeferred(scene);
    }

    void note(int scene, const QString& entry)
    {
        if (m_scenes.at(scene).isHeard)
            m_telling.note(QString("%1 %2").arg(scene).arg(entry));
    }

    void defer(int scene, const std::function<void()>& action)
    {
        m_scenes.at(scene).deferred.push_back(action);
        runDeferred(scene);
    }

    void runDeferred(int scene)
    {
        SScene& at = m_scenes.at(scene);
        while (at.depth == 0 && !at.deferred.empty()) {
            const auto action = at.deferred.front();
            at.deferred.pop_front();
            action();
        }
    }

    int makeNode(const SNode& made)
    {
        const int node = ++m_lastNode;
        const int replaced = nodeWithId(made.scene, made.id);
        m_nodes[node] = made;
        if (replaced != 0)
            leave(replaced);
        announce(made.scene, QString("created %1").arg(node));
        return m_nodes.count(node) != 0 ? node : 0;
    }

    // The ends of connections see that the node is gone.
    void leave(int node)
    {
        m_nodes.erase(node);
        for (auto& entry : m_connections) {
            if (entry.second.in == node)
                entry.second.in = 0;
            if (entry.second.out == node)
                entry.second.out = 0;
        }
    }

    void removeFrom(int scene, int node)
    {
        note(scene, QString("deleted %1").arg(node));
        for (const int connection : connectionsOf(scene, node))
            defer(scene, [this, connection] { deleteConnection(connection); });
        m_nodes.erase(node);
        defer(scene, [this, node] { leave(node); });
    }

    // Of the scene, at the node.
    std::vector<int> connectionsOf(int scene, int node) const
    {
        std::vector<int> found;
        for (const auto& entry : m_connections) {
            const SConnection& c = entry.second;
            if (c.scene == scene && (c.in == node || c.out == node))
                found.push_back(entry.first);
        }
        return found;
    }

    bool createConnection(int scene, int in, int inPort, int out, int outPort)
    {
        if (std::min(inPort, outPort) < 0 || std::max(inPort, outPort) > 1)
            return false;
        const int connection = ++m_lastConnection;
        m_connections[connection] = {scene, in, inPort, out, outPort};
        announce(scene, "connected " + endsOf(m_connections.at(connection)));
        return m_connections.count(connection) != 0;
    }

    void deleteConnection(int connection)
    {
        const auto found = m_connections.find(connection);
        if (found == m_connections.end())
            return;
        note(found->second.scene, "disconnected " + endsOf(found->second));
        m_connections.erase(found);
    }

    static QString endsOf(const SConnection& c) { return QString("%1-%2").arg(c.out).arg(c.in); }

    // What the destructor of a scene does.
    void empty(int scene)
    {
        m_scenes.at(scene).depth = 0;
        runDeferred(scene);
        for (const int node : nodesOf(scene))
            removeFrom(scene, node);
        for (auto at = m_connections.begin(); at != m_connections.end();)
            at = at->second.scene == scene ? m_connections.erase(at) : std::next(at);
        m_scenes.erase(scene);
        if (m_active == scene)
            m_active = 0;
    }

    // The import.

    bool importAll(const std::vector<Document>& documents)
    {
        const int scene = m_active;
        if (scene == 0)
            return false;

        struct SMade
        {
            int id;
            EKind kind;
        };
        std::vector<SMade> nodes;
        std::vector<std::tuple<int, int, int>> edges; // in id, out id, port of both
        std::map<int, int> ids;
        const auto idOf = [&](int name) {
            if (ids.count(name) == 0)
                ids[name] = idOfNode(nodeOfName(scene, name));
            return ids[name];
        };
        for (const Document& document : documents) {
            for (const SElement& element : document) {
                if (ids.count(element.label) == 0)
                    ids[element.label] = ++m_lastId;
                nodes.push_back({ids[element.label], element.kind});
                for (const auto& port : element.sources) {
                    for (const int name : port) {
                        const int node = nodeOfName(scene, name);
                        if (node == 0)
                            continue;
                        ids[name] = idOfNode(node);
                        if (m_nodes.at(node).kind != Source)
                            nodes.push_back({ids[name], m_nodes.at(node).kind});
                    }
                }
            }
            for (const SElement& element : document) {
                for (int port = 0; port < int(element.sources.size()); ++port) {
                    for (const int name : element.sources[std::size_t(port)])
                        edges.emplace_back(idOf(element.label), idOf(name), port);
                }
                for (const int name : element.feeds)
                    edges.emplace_back(idOf(name), idOf(element.label), 0);
            }
        }

        for (const SMade& made : nodes) {
            if (made.kind == Unknown)
                return false;
            makeNode({scene, made.id, made.kind, 0, false, made.kind != Plain});
            if (!isThere(scene))
                return false;
        }
        for (const auto& edge : edges) {
            const int in = nodeWithId(scene, std::get<0>(edge));
            const int out = nodeWithId(scene, std::get<1>(edge));
            if (in != 0 && out != 0)
                createConnection(scene, in, std::get<2>(edge), out, std::get<2>(edge));
            if (!isThere(scene))
                return false;
        }
        return true;
    }

    int nodeOfName(int scene, int name) const
    {
        for (const int node : nodesOf(scene)) {
            if (name >= firstName && m_nodes.at(node).name == name)
                return node;
        }
        return 0;
    }
    int idOfNode(int node) const { return node != 0 ? m_nodes.at(node).id : 0; }

    CTelling& m_telling;
    std::vector<int> m_order;
    std::map<int, SScene> m_scenes;
    std::map<int, SNode> m_nodes;
    std::map<int, SConnection> m_connections;
    std::vector<Document> m_stored;
    std::set<int> m_leaving;
    std::deque<std::function<void()>> m_turns;
    bool m_isTelling = false;
    int m_active = 0;
    int m_lastScene = 0;
    int m_lastNode = 0;
    int m_lastName = firstName - 1;
    int m_lastId = 0;
    int m_lastConnection = 0;
};

/// What is there.
class CActual : public IGraph
{
public:
    explicit CActual(CTelling& telling)
        : m_telling(telling)
    {
        for (int info = 1; info < infos; ++info)
            m_infos[std::size_t(info)] = QSharedPointer<CInfo>::create();
        for (const EKind kind : {View, Filter, Named, Plain})
            m_service.registry()->registerModel([kind] { return makeModel(kind); }, QStringLiteral("Test"));

        QObject::connect(&m_service, &INodeService::sceneAdded, &m_context,
                         [this](CNodeScene* scene) { m_telling.tell(QString("added %1").arg(hear(*scene))); });
        QObject::connect(&m_service, &INodeService::activeSceneChanged, &m_context,
                         [this](CNodeScene* scene) { m_telling.tell(QString("active %1").arg(numberOf(scene))); });
        QObject::connect(&m_service, &INodeService::sceneRemoving, &m_context,
                         [this](CNodeScene* scene) { m_telling.tell(QString("removing %1").arg(numberOf(scene))); });
        QObject::connect(&m_service, &INodeService::sceneRemoved, &m_context, [this] { m_telling.tell("removed"); });

        // Another handler, which comes after what the first one did.
        QObject::connect(&m_service, &INodeService::sceneAdded, &m_context,
                         [this](const CNodeScene* scene) { heardLast << QString("added %1").arg(numberOf(scene)); });
        QObject::connect(&m_service, &INodeService::activeSceneChanged, &m_context,
                         [this](const CNodeScene* scene) { heardLast << QString("active %1").arg(numberOf(scene)); });
        QObject::connect(&m_service, &INodeService::sceneRemoving, &m_context,
                         [this](const CNodeScene* scene) { heardLast << QString("removing %1").arg(numberOf(scene)); });
        QObject::connect(&m_service, &INodeService::sceneRemoved, &m_context, [this] { heardLast << "removed"; });
    }

    int addSource(int info) override { return add(makeModel(Source, nextName()), m_infos.at(std::size_t(info))); }
    int addModel(EKind kind) override { return add(makeModel(kind, kind == Named ? nextName() : QString()), {}); }
    int addUniqueSink() override
    {
        auto model = std::make_unique<CHostModel>(ENodeDataModelType::Sink);
        model->unique = true;
        return add(std::move(model), {});
    }
    int addAgain(int node) override
    {
        const Core::CId id = m_nodes.at(node)->id();
        return m_service.addNode(owned(modelOf(node)), {}) == id ? node : 0;
    }

    int removeNode(int node, bool removeLoneNodeScene) override
    {
        m_service.removeNode(m_nodes.at(node)->id(), removeLoneNodeScene);
        return 0;
    }
    int removeNodeByModel(int node, bool removeLoneNodeScene) override
    {
        ANodeDataModel* model = modelOf(node);
        m_service.removeNodeByModel(model, removeLoneNodeScene);
        return 0;
    }
    int removeSceneOfNode(int node, bool byId) override
    {
        if (byId)
            m_service.removeSceneOfNode(m_nodes.at(node)->id());
        else
            m_service.removeSceneOfNode(m_nodes.at(node));
        return 0;
    }
    int connectModels(int in, int inPort, int out, int outPort) override
    {
        return m_service.connectModels(modelOf(in), inPort, modelOf(out), outPort) != Core::CId();
    }
    int importDocument(const Document& document) override { return m_service.importDocument(jsonOf(document)); }
    int importStoredDocuments() override { return m_service.importStoredDocuments(); }
    int addStoredDocument(const Document& document) override
    {
        m_service.addStoredDocument(jsonOf(document));
        return 0;
    }
    int setActiveScene(int scene) override
    {
        m_service.setActiveScene(scene == 0 ? nullptr : m_scenes.at(scene));
        return 0;
    }
    int createNode(int scene, EKind kind) override
    {
        CNodeBase& node = m_scenes.at(scene)->createNode(makeModel(kind));
        return &node == &CNodeScene::noNode() ? 0 : numberOf(&node);
    }
    int removeFromScene(int node) override
    {
        sceneOf(node)->removeNode(*m_nodes.at(node));
        return 0;
    }
    int destroyScene(int scene) override
    {
        delete m_scenes.at(scene).data();
        return 0;
    }

    void hearAll()
    {
        const auto scenes = m_service.scenes();
        for (CNodeScene* scene : scenes)
            hear(*scene);
    }

    SState state()
    {
        SState state;
        const auto scenes = m_service.scenes();
        for (CNodeScene* scene : scenes) {
            const int number = numberOf(scene);
            state.scenes.push_back(number);
            state.nodes[number];
            state.connections[number];
            for (const auto& entry : scene->nodes())
                addTo(state, number, *entry.second);
            for (const auto& entry : scene->connections()) {
                const CNodeConnection& c = *entry.second;
                state.connections[number].insert(
                    {numberOf(c.getNode(ENodePortType::In)), c.getPortIndex(ENodePortType::In),
                     numberOf(c.getNode(ENodePortType::Out)), c.getPortIndex(ENodePortType::Out)});
            }
        }
        state.active = numberOf(m_service.getActiveScene().data());
        const auto documentNodes = m_service.documentNodes();
        for (CNodeBase* node : documentNodes)
            state.documentNodes.insert(numberOf(node));
        for (int info = 0; info < infos; ++info)
            state.sceneOfInfo[info] = numberOf(m_service.findSceneByInfo(m_infos.at(std::size_t(info))));
        state.models = CHostModel::alive() + CTestModel::alive();
        return state;
    }

    QStringList heardLast;

private:
    class CInfo : public Core::AppCoreComponents::IBaseInfo
    {
    };

    static std::unique_ptr<CNodeDataModel> makeModel(EKind kind, const QString& uniqueName = {})
    {
        if (kind == Plain)
            return std::make_unique<CTestModel>(2, 2, nameOf(kind));
        const auto type = kind == View     ? ENodeDataModelType::Sink
                          : kind == Filter ? ENodeDataModelType::Decoupler
                                           : ENodeDataModelType::Source;
        auto model = uniqueName.isEmpty() ? std::make_unique<CHostModel>(type, nameOf(kind))
                                          : std::make_unique<CHostModel>(type, nameOf(kind), uniqueName);
        model->unique = kind == Source;
        return model;
    }

    static std::unique_ptr<ANodeDataModel> owned(CNodeDataModel* model)
    {
        return std::unique_ptr<ANodeDataModel>(dynamic_cast<ANodeDataModel*>(model));
    }

    static QString jsonOf(const Document& document)
    {
        QJsonArray elements;
        for (const SElement& element : document) {
            QJsonArray sources;
            for (const auto& port : element.sources) {
                QJsonArray names;
                for (const int name : port)
                    names.append(textOf(name));
                sources.append(names);
            }
            QJsonArray feeds;
            for (const int name : element.feeds)
                feeds.append(textOf(name));
            elements.append(QJsonObject{{"name", textOf(element.label)},
                                        {"model", QJsonObject{{"name", nameOf(element.kind)}}},
                                        {"unique_sources", sources},
                                        {"connection", QJsonArray{feeds}}});
        }
        return QString::fromUtf8(QJsonDocument(elements).toJson(QJsonDocument::Compact));
    }

    int add(std::unique_ptr<CNodeDataModel> model, const BaseInfoPtr& info)
    {
        auto* const added = dynamic_cast<ANodeDataModel*>(model.get());
        const Core::CId id = m_service.addNode(owned(model.release()), info);
        if (id == Core::CId())
            return 0;
        CNodeBase* const node = m_service.findNodeByModel(added);
        if (!node)
            return 0;
        // Its scene may not have been heard, and another node may have been where it is now.
        const auto found = m_numbers.find(node);
        return found != m_numbers.end() && m_nodes.at(found->second) == node ? found->second : number(*node);
    }

    QString nextName() { return textOf(++m_lastName); }

    /// Listens to a scene, from now on; returns its number.
    int hear(CNodeScene& scene)
    {
        const int known = numberOf(&scene);
        if (known != 0 && m_scenes.at(known) == &scene)
            return known;

        const int number = ++m_lastScene;
        m_scenes[number] = &scene;
        m_sceneNumbers[&scene] = number;
        QObject::connect(&scene, &CNodeScene::nodeCreated, &m_context, [this, number](CNodeBase& node) {
            m_telling.tell(QString("%1 created %2").arg(number).arg(this->number(node)));
        });
        QObject::connect(&scene, &CNodeScene::nodeDeleted, &m_context, [this, number](CNodeBase& node) {
            m_telling.note(QString("%1 deleted %2").arg(number).arg(numberOf(&node)));
        });
        QObject::connect(&scene, &CNodeScene::connectionCreated, &m_context,
                         [this, number](const CNodeConnection& connection) {
                             m_telling.tell(QString("%1 connected %2").arg(number).arg(endsOf(connection)));
                         });
        QObject::connect(&scene, &CNodeScene::connectionDeleted, &m_context,
                         [this, number](const CNodeConnection& connection) {
                             m_telling.note(QString("%1 disconnected %2").arg(number).arg(endsOf(connection)));
                         });
        return number;
    }

    QString endsOf(const CNodeConnection& c) const
    {
        return QString("%1-%2")
            .arg(numberOf(c.getNode(ENodePortType::Out)))
            .arg(numberOf(c.getNode(ENodePortType::In)));
    }

    void addTo(SState& state, int scene, CNodeBase& node)
    {
        const int number = numberOf(&node);
        state.nodes[scene].insert(number);
        state.foundById[number] = numberOf(m_service.findNode(node.id()));
        if (m_service.findNodeByModel(modelOf(number)) == &node)
            state.foundByModel.insert(number);
    }

    int number(CNodeBase& node)
    {
        m_numbers[&node] = ++m_lastNode;
        m_nodes[m_lastNode] = &node;
        return m_lastNode;
    }
    int numberOf(const CNodeBase* node) const { return node ? m_numbers.at(node) : 0; }
    int numberOf(const CNodeScene* scene) const
    {
        const auto found = m_sceneNumbers.find(scene);
        return found == m_sceneNumbers.end() ? 0 : found->second;
    }
    ANodeDataModel* modelOf(int node) { return dynamic_cast<ANodeDataModel*>(m_nodes.at(node)->nodeDataModel()); }
    CNodeScene* sceneOf(int node)
    {
        const auto scenes = m_service.scenes();
        for (CNodeScene* scene : scenes) {
            const auto found = scene->nodes().find(m_nodes.at(node)->id());
            if (found != scene->nodes().end() && found->second.get() == m_nodes.at(node))
                return scene;
        }
        return nullptr;
    }

    CTelling& m_telling;
    std::array<BaseInfoPtr, infos> m_infos;
    std::map<int, QPointer<CNodeScene>> m_scenes;
    std::map<const CNodeScene*, int> m_sceneNumbers;
    std::map<int, QPointer<CNodeBase>> m_nodes;
    std::map<const CNodeBase*, int> m_numbers;
    int m_lastScene = 0;
    int m_lastNode = 0;
    int m_lastName = firstName - 1;
    QObject m_context;
    CNodeService m_service{nullptr};
};

/// Chooses operations that fit what is there.
class CRandomOperations
{
public:
    CRandomOperations(const CExpected& expected, unsigned int seed)
        : m_expected(expected)
        , m_random(seed)
    {
    }

    bool once(int in) { return upTo(in - 1) == 0; }

    SOperation next()
    {
        const int choice = upTo(99);
        if (m_expected.scenes().size() > 6 && choice < 30)
            return remove(4 + choice % 2); // a scene
        if (m_expected.nodes().size() > 40 && choice < 30)
            return remove(choice % 4); // a node
        if (m_expected.scenes().empty() || choice < 4)
            return addSource();
        if (choice < 22)
            return addModel();
        if (choice < 24)
            return {"addUniqueSink", [](IGraph& graph) { return graph.addUniqueSink(); }};
        if (choice < 32)
            return setActiveScene();
        if (choice < 38)
            return createNode();
        if (choice < 44)
            return import();
        if (m_expected.nodes().empty())
            return addModel();
        if (choice < 52)
            return addAgain();
        if (choice < 78)
            return connectModels();
        return remove(choice < 96 ? choice % 4 : 4 + choice % 2);
    }

private:
    int upTo(int most) { return int(m_random() % unsigned(most + 1)); }

    template <typename List>
    typename List::value_type oneOf(const List& list)
    {
        return list.at(std::size_t(upTo(int(list.size()) - 1)));
    }
    int node() { return oneOf(m_expected.nodes()); }
    int scene() { return oneOf(m_expected.scenes()); }

    SOperation addSource()
    {
        const int info = upTo(infos - 1);
        return {QString("addSource(%1)").arg(info), [info](IGraph& graph) { return graph.addSource(info); }};
    }

    SOperation addModel()
    {
        const EKind kind = oneOf(std::vector<EKind>{View, View, Filter, Named});
        return {QString("addModel(%1)").arg(nameOf(kind)), [kind](IGraph& graph) { return graph.addModel(kind); }};
    }

    SOperation addAgain()
    {
        const int again = node();
        if (!m_expected.isKnown(again))
            return addModel();
        return {QString("addAgain(%1)").arg(again), [again](IGraph& graph) { return graph.addAgain(again); }};
    }

    SOperation setActiveScene()
    {
        const int active = once(6) ? 0 : scene();
        return {QString("setActiveScene(%1)").arg(active),
                [active](IGraph& graph) { return graph.setActiveScene(active); }};
    }

    SOperation createNode()
    {
        const int where = scene();
        const EKind kind = oneOf(std::vector<EKind>{View, Filter, Plain});
        return {QString("createNode(%1, %2)").arg(where).arg(nameOf(kind)),
                [where, kind](IGraph& graph) { return graph.createNode(where, kind); }};
    }

    SOperation connectModels()
    {
        const int in = node();
        const int out = node();
        const int inPort = upTo(3) - 1;
        const int outPort = upTo(3) - 1;
        return {QString("connectModels(%1, %2, %3, %4)").arg(in).arg(inPort).arg(out).arg(outPort),
                [=](IGraph& graph) { return graph.connectModels(in, inPort, out, outPort); }};
    }

    SOperation import()
    {
        if (once(4))
            return {"importStoredDocuments", [](IGraph& graph) { return graph.importStoredDocuments(); }};
        const Document made = document();
        if (once(4) && m_expected.storedDocuments() < 3)
            return {"addStoredDocument", [made](IGraph& graph) { return graph.addStoredDocument(made); }};
        return {"importDocument", [made](IGraph& graph) { return graph.importDocument(made); }};
    }

    SOperation remove(int how)
    {
        if (how == 5 || m_expected.nodes().empty()) {
            const int where = scene();
            return {QString("destroyScene(%1)").arg(where), [where](IGraph& g) { return g.destroyScene(where); }};
        }
        const int which = node();
        const bool flag = once(2);
        const QString arguments = QString("(%1, %2)").arg(which).arg(flag);
        switch (how) {
        case 0:
        case 1:
            return {"removeNode" + arguments, [=](IGraph& graph) { return graph.removeNode(which, flag); }};
        case 2:
            return {"removeNodeByModel" + arguments,
                    [=](IGraph& graph) { return graph.removeNodeByModel(which, flag); }};
        case 3:
            return {"removeFromScene" + arguments, [=](IGraph& graph) { return graph.removeFromScene(which); }};
        default:
            return {"removeSceneOfNode" + arguments,
                    [=](IGraph& graph) { return graph.removeSceneOfNode(which, flag); }};
        }
    }

    Document document()
    {
        Document elements;
        for (int count = upTo(3); count >= 0; --count) {
            SElement element{upTo(3), oneOf(std::vector<EKind>{View, Filter, Filter, Plain}), {}, {}};
            if (once(20))
                element.kind = Unknown;
            for (int port = upTo(2); port > 0; --port) {
                element.sources.emplace_back();
                for (int names = upTo(2); names > 0; --names)
                    element.sources.back().push_back(name());
            }
            for (int feeds = upTo(2); feeds > 0; --feeds)
                element.feeds.push_back(upTo(4));
            elements.push_back(element);
        }
        return elements;
    }

    int name()
    {
        const std::vector<int> names = m_expected.names();
        return names.empty() || once(3) ? upTo(4) : oneOf(names);
    }

    const CExpected& m_expected;
    std::mt19937 m_random;
};

/// The two side by side.
class CStress
{
public:
    explicit CStress(unsigned int seed)
        : m_operations(m_expected, seed)
    {
    }

    /// What differs after another operation; empty if nothing does.
    QString step()
    {
        m_texts.clear();
        const SOperation operation = choose();
        std::map<int, SOperation> fromHandlers;

        m_expectedTelling.begin([&](int signal) {
            if (fromHandlers.size() >= 4 || !m_operations.once(5))
                return;
            const SOperation nested = choose();
            fromHandlers[signal] = nested;
            run(nested, m_expected, m_expectedTelling);
        });
        run(operation, m_expected, m_expectedTelling);

        m_actualTelling.begin([&](int signal) {
            const auto nested = fromHandlers.find(signal);
            if (nested != fromHandlers.end())
                run(nested->second, m_actual, m_actualTelling);
        });
        m_actual.heardLast.clear();
        run(operation, m_actual, m_actualTelling);
        m_nested += fromHandlers.size();
        return difference();
    }

    /// The operations of the last step and what was told.
    QString story() const
    {
        return QString("operations: %1\nexpected: %2\nactual:   %3")
            .arg(m_texts.join("; "), canonical(m_expectedTelling.log).join(", "),
                 canonical(m_actualTelling.log).join(", "));
    }

    std::size_t nested() const { return m_nested; }

private:
    SOperation choose()
    {
        SOperation operation = m_operations.next();
        m_texts << operation.text;
        return operation;
    }

    template <typename Graph>
    static void run(const SOperation& operation, Graph& graph, CTelling& telling)
    {
        const int result = operation.run(graph);
        telling.note(QString("= %1").arg(result));
        graph.hearAll();
    }

    QString difference()
    {
        if (canonical(m_actualTelling.log) != canonical(m_expectedTelling.log))
            return "other signals or results";
        const QRegularExpression ofTheService("^[a-z]");
        if (m_actual.heardLast != m_actualTelling.log.filter(ofTheService))
            return "another handler heard something else";
        const SState expected = m_expected.state();
        const SState actual = m_actual.state();
        if (actual.asTuple() == expected.asTuple())
            return {};
        return QString(
                   "another state: scenes %1, active %2, nodes %3, connections %4, document nodes %5, by model %6, by "
                   "id %7, by info %8, models %9")
            .arg(actual.scenes == expected.scenes)
            .arg(actual.active == expected.active)
            .arg(actual.nodes == expected.nodes)
            .arg(actual.connections == expected.connections)
            .arg(actual.documentNodes == expected.documentNodes)
            .arg(actual.foundByModel == expected.foundByModel)
            .arg(actual.foundById == expected.foundById)
            .arg(actual.sceneOfInfo == expected.sceneOfInfo)
            .arg(actual.models == expected.models);
    }

    CTelling m_expectedTelling;
    CTelling m_actualTelling;
    CExpected m_expected{m_expectedTelling};
    CActual m_actual{m_actualTelling};
    CRandomOperations m_operations;
    QStringList m_texts;
    std::size_t m_nested = 0;
};

} // namespace

int main(int argc, char* argv[])
{
    const int steps = argc > 1 ? std::atoi(argv[1]) : 200000;
    const unsigned int seed = argc > 2 ? unsigned(std::strtoul(argv[2], nullptr, 10)) : 1;
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {}); // of models nobody registered

    std::size_t nested = 0;
    {
        CStress stress(seed);
        for (int step = 1; step <= steps; ++step) {
            const QString difference = stress.step();
            if (difference.isEmpty())
                continue;
            std::fprintf(stderr, "seed %u, step %d: %s\n%s\n", seed, step, qPrintable(difference),
                         qPrintable(stress.story()));
            return 1;
        }
        nested = stress.nested();
    }
    const int left = CHostModel::alive() + CTestModel::alive();
    std::printf("seed %u: %d steps, %zu operations from handlers, %d models left\n", seed, steps, nested, left);
    const bool isReentered = nested > 0 || steps <= 1000; // a long run without tests less than it says
    return left == 0 && isReentered ? 0 : 1;
}
